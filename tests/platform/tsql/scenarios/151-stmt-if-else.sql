-- IF ... ELSE runs one branch.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 0)
-- run
INSERT INTO t VALUES (2, 5)
-- run
INSERT INTO t VALUES (3, 7)
-- run
INSERT INTO t VALUES (4, 7)
-- run
IF EXISTS (SELECT * FROM t WHERE n = 7) SELECT 'si' ELSE SELECT 'no'
-- expect
rowset
row si
end
-- run
IF (SELECT COUNT(*) FROM t) > 10 SELECT 'muchos' ELSE SELECT 'pocos'
-- expect
rowset
row pocos
end
