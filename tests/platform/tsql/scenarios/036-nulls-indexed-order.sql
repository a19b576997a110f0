-- An ordered read through an index keeps the NULLs first.
-- run
CREATE TABLE v (id INT, x INT)
-- run
INSERT INTO v VALUES (1, 2)
-- run
INSERT INTO v VALUES (2, NULL)
-- run
INSERT INTO v VALUES (3, 1)
-- run
CREATE INDEX ix_v ON v (x)
-- run
SELECT id FROM v WHERE id > 0 ORDER BY x, id
-- expect
rowset
row 2
row 3
row 1
end
