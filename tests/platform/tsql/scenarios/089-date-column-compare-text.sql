-- A DATETIME column compares with a text date read under DATEFORMAT dmy.
-- run
CREATE TABLE t (id INT, d DATETIME)
-- run
INSERT INTO t VALUES (1, '15/03/2024')
-- run
INSERT INTO t VALUES (2, '16/03/2024')
-- run
SELECT id FROM t WHERE d = '15/03/2024'
-- expect
rowset
row 1
end
-- run
SELECT id FROM t WHERE d > '15/03/2024'
-- expect
rowset
row 2
end
