-- @@IDENTITY becomes NULL again after an insert into a table without identity.
-- run
CREATE TABLE a (id INT IDENTITY(1,1), n INT)
-- run
CREATE TABLE b (n INT)
-- run
INSERT INTO a (n) VALUES (1)
-- expect
count 1
-- run
INSERT INTO b VALUES (1)
-- expect
count 1
-- run
SELECT @@IDENTITY
-- expect
rowset
row NULL
end
