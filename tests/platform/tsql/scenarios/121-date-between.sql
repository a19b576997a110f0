-- BETWEEN of text dates under DATEFORMAT dmy.
-- run
CREATE TABLE t (id INT, d DATETIME)
-- run
INSERT INTO t VALUES (1, '05/01/2024')
-- run
INSERT INTO t VALUES (2, '05/02/2024')
-- run
SELECT id FROM t WHERE d BETWEEN '01/01/2024' AND '31/01/2024'
-- expect
rowset
row 1
end
