-- SCOPE_IDENTITY() answers the last identity of the session's inserts.
-- gap sqlite: SELECT SCOPE_IDENTITY(), @@IDENTITY answers error 195, not row 1|1
-- gap postgres: SELECT SCOPE_IDENTITY(), @@IDENTITY answers error 195, not row 1|1
-- run
CREATE TABLE t (id INT IDENTITY(1,1), n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
count 1
-- run
SELECT SCOPE_IDENTITY(), @@IDENTITY
-- expect
rowset
row 1|1
end
