-- A #temporary table takes INSERT, UPDATE, DELETE and SELECT like any table until DROP TABLE.
-- run
CREATE TABLE #pedidos (id INT, cliente VARCHAR(20), total INT)
-- run
INSERT INTO #pedidos VALUES (1, 'Ana', 10) INSERT INTO #pedidos VALUES (2, 'Eva', 25) INSERT INTO #pedidos VALUES (3, 'Ana', 5)
-- expect
count 1
count 1
count 1
-- run
UPDATE #pedidos SET total = total * 2 WHERE cliente = 'ANA'
-- expect
count 2
-- run
DELETE FROM #pedidos WHERE id = 2
-- expect
count 1
-- run
SELECT p.cliente, SUM(p.total) FROM #pedidos p GROUP BY p.cliente
-- expect
rowset
row Ana|30
end
-- run
DROP TABLE #pedidos
-- run
SELECT * FROM #pedidos
-- expect
error 208
