-- Under XACT_ABORT ON an error ends the transaction and undoes its work.
-- run
CREATE TABLE t (id INT NOT NULL PRIMARY KEY)
-- run
BEGIN TRAN
-- run
INSERT INTO t VALUES (1)
-- expect
count 1
-- run
INSERT INTO t VALUES (1)
-- expect
error 2627
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 0
end
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 0
end
