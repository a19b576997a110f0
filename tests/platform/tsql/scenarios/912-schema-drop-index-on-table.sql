-- DROP INDEX takes the index by table.index or as index ON table (with the table's schema too);
-- an index that is no longer there is error 3701 either way, and a dropped unique index no
-- longer refuses duplicates.
-- run
CREATE TABLE articulos (cod VARCHAR(10), des VARCHAR(40))
CREATE UNIQUE INDEX ix_des ON articulos (des)
CREATE INDEX ix_cod ON dbo.articulos (cod)
INSERT INTO articulos VALUES ('A1', 'Tornillo')
-- run
INSERT INTO articulos VALUES ('A2', 'TORNILLO')
-- expect
error 2601
-- run
DROP INDEX ix_des ON articulos
-- run
INSERT INTO articulos VALUES ('A2', 'TORNILLO')
-- expect
count 1
-- run
DROP INDEX ix_cod ON dbo.articulos
-- run
DROP INDEX ix_des ON articulos
-- expect
error 3701
-- run
DROP INDEX articulos.ix_cod
-- expect
error 3701
