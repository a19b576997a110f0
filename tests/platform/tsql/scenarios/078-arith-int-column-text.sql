-- A text number stored in an INT column is converted.
-- run
CREATE TABLE t (n INT)
-- run
INSERT INTO t VALUES ('12')
-- run
SELECT n + 1 FROM t
-- expect
rowset
row 13
end
-- run
INSERT INTO t VALUES ('12.5')
-- expect
error 245
