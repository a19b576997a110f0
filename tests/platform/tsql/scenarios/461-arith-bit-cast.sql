-- CAST(x AS BIT) is a Boolean: True for any number but 0 and for 'TRUE', NULL for NULL.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 3)
INSERT INTO t VALUES (2, 0)
INSERT INTO t VALUES (3, NULL)
-- run
SELECT id, CAST(n AS BIT) FROM t ORDER BY id
-- expect
rowset
row 1|True
row 2|False
row 3|NULL
end
-- run
SELECT CAST(0.5 AS BIT), CAST('TRUE' AS BIT), CAST('false' AS BIT), CAST('' AS BIT)
-- expect
rowset
row True|True|False|False
end
