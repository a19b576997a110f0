-- IF EXISTS (subquery on a variable) ... ELSE inserts the row only when it is missing.
-- run
CREATE TABLE clientes (codigo VARCHAR(10), visitas INT)
-- run
INSERT INTO clientes VALUES ('A1', 1)
-- run
DECLARE @codigo VARCHAR(10) = 'a1' IF EXISTS (SELECT * FROM clientes WHERE codigo = @codigo) UPDATE clientes SET visitas = visitas + 1 WHERE codigo = @codigo ELSE INSERT INTO clientes VALUES (@codigo, 1)
-- expect
count 1
-- run
DECLARE @codigo VARCHAR(10) = 'B2' IF EXISTS (SELECT * FROM clientes WHERE codigo = @codigo) UPDATE clientes SET visitas = visitas + 1 WHERE codigo = @codigo ELSE INSERT INTO clientes VALUES (@codigo, 1)
-- expect
count 1
-- run
SELECT codigo, visitas FROM clientes ORDER BY codigo
-- expect
rowset
row A1|2
row B2|1
end
