-- ON DELETE CASCADE deletes the referring rows with the referenced one, ON DELETE SET NULL
-- empties their key, ON UPDATE CASCADE carries a changed key to them; a table made again by
-- ALTER COLUMN keeps its rows' references and the constraints that point at it (no cascade
-- runs, a key without its row is still refused).
-- run
CREATE TABLE cliente (id INT PRIMARY KEY, nombre VARCHAR(20) NULL)
CREATE TABLE pedido (id INT PRIMARY KEY, cliente INT NULL, CONSTRAINT fk_pedido_cliente FOREIGN KEY (cliente) REFERENCES cliente (id) ON DELETE CASCADE ON UPDATE CASCADE)
CREATE TABLE nota (id INT PRIMARY KEY, cliente INT NULL REFERENCES cliente (id) ON DELETE SET NULL)
INSERT INTO cliente VALUES (1, 'uno')
INSERT INTO cliente VALUES (2, 'dos')
INSERT INTO cliente VALUES (3, 'tres')
INSERT INTO pedido VALUES (100, 1)
INSERT INTO pedido VALUES (101, 1)
INSERT INTO pedido VALUES (102, 2)
INSERT INTO nota VALUES (1, 1)
INSERT INTO nota VALUES (2, 3)
-- run
DELETE FROM cliente WHERE id = 1
SELECT id, cliente FROM pedido ORDER BY id
SELECT id, cliente FROM nota ORDER BY id
-- expect
count 1
rowset
row 102|2
end
rowset
row 1|NULL
row 2|3
end
-- run
UPDATE cliente SET id = 20 WHERE id = 2
SELECT id, cliente FROM pedido ORDER BY id
-- expect
count 1
rowset
row 102|20
end
-- run
ALTER TABLE cliente ALTER COLUMN nombre VARCHAR(40) NULL
-- run
SELECT COUNT(*) FROM pedido
-- expect
rowset
row 1
end
-- run
INSERT INTO pedido VALUES (103, 9)
-- expect
error 547
-- run
DELETE FROM cliente WHERE id = 20
SELECT (SELECT COUNT(*) FROM cliente), (SELECT COUNT(*) FROM pedido), (SELECT COUNT(*) FROM nota)
-- expect
count 1
rowset
row 1|0|2
end
