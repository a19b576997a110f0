-- A key added by ALTER TABLE is a constraint (its duplicate is 2627, a UNIQUE one under the
-- collation too); a key is dropped by its name, whether it was added later or declared on its
-- column; a name that is no constraint is 3728.
-- run
CREATE TABLE articulos (id INT NOT NULL, n INT, codigo VARCHAR(5))
-- run
INSERT INTO articulos VALUES (1, 1, 'a')
-- run
ALTER TABLE articulos ADD CONSTRAINT pk_articulos PRIMARY KEY CLUSTERED (id)
-- run
ALTER TABLE articulos ADD CONSTRAINT uq_articulos UNIQUE (codigo)
-- run
INSERT INTO articulos VALUES (1, 2, 'b')
-- expect
error 2627
-- run
INSERT INTO articulos VALUES (2, 2, 'A ')
-- expect
error 2627
-- run
ALTER TABLE articulos DROP CONSTRAINT pk_articulos
-- run
INSERT INTO articulos VALUES (1, 3, 'c')
-- expect
count 1
-- run
CREATE TABLE familias (id INT NOT NULL CONSTRAINT pk_familias PRIMARY KEY, nombre VARCHAR(10) NOT NULL)
-- run
INSERT INTO familias VALUES (1, 'uno')
-- run
ALTER TABLE familias DROP CONSTRAINT pk_familias
-- run
INSERT INTO familias VALUES (1, 'otro')
-- expect
count 1
-- run
INSERT INTO familias VALUES (2, NULL)
-- expect
error 515
-- run
SELECT COUNT(*), MIN(nombre) FROM familias
-- expect
rowset
row 2|otro
end
-- run
ALTER TABLE familias DROP CONSTRAINT pk_familias
-- expect
error 3728
