-- DBCC CHECKIDENT RESEED n on a table that has not handed out an identity makes the next one n
-- itself, whatever the identity's step; once it has, the next one is n plus the step.
-- run
CREATE TABLE t (id INT IDENTITY(10, 5) PRIMARY KEY, nombre VARCHAR(10))
-- run
DBCC CHECKIDENT ('t', RESEED, 100)
-- run
INSERT INTO t (nombre) VALUES ('a')
INSERT INTO t (nombre) VALUES ('b')
-- run
DBCC CHECKIDENT ('t', RESEED, 200)
-- run
INSERT INTO t (nombre) VALUES ('c')
-- run
SELECT id, nombre FROM t ORDER BY id
-- expect
rowset
row 100|a
row 105|b
row 205|c
end
