-- @@IDENTITY kept in a variable and used as the key of the detail rows.
-- run
CREATE TABLE pedidos (id INT IDENTITY(1,1) PRIMARY KEY, cliente VARCHAR(20))
-- run
CREATE TABLE lineas (pedido INT, articulo VARCHAR(20))
-- run
INSERT INTO pedidos (cliente) VALUES ('Ana')
-- run
SET NOCOUNT ON DECLARE @pedido INT INSERT INTO pedidos (cliente) VALUES ('Eva') SET @pedido = @@IDENTITY INSERT INTO lineas VALUES (@pedido, 'mesa') INSERT INTO lineas VALUES (@pedido, 'silla') SET NOCOUNT OFF SELECT pedido, COUNT(*) FROM lineas GROUP BY pedido
-- expect
rowset
row 2|2
end
