-- DBCC CHECKIDENT RESEED n after the identity has handed out values makes the next one n plus
-- the identity's step, for a step other than 1 and an n below 1 too, and for a step that counts
-- down past its seed.
-- run
CREATE TABLE t (id INT IDENTITY(1, 5) PRIMARY KEY, nombre VARCHAR(10))
-- run
INSERT INTO t (nombre) VALUES ('a')
INSERT INTO t (nombre) VALUES ('b')
-- run
DBCC CHECKIDENT ('t', RESEED, -20)
-- run
INSERT INTO t (nombre) VALUES ('c')
INSERT INTO t (nombre) VALUES ('d')
-- run
DBCC CHECKIDENT ('t', RESEED, 0)
-- run
INSERT INTO t (nombre) VALUES ('e')
-- run
SELECT id, nombre FROM t ORDER BY id
-- expect
rowset
row -15|c
row -10|d
row 1|a
row 5|e
row 6|b
end
-- run
CREATE TABLE baja (id INT IDENTITY(100, -10) PRIMARY KEY, nombre VARCHAR(10))
-- run
INSERT INTO baja (nombre) VALUES ('a')
INSERT INTO baja (nombre) VALUES ('b')
-- run
DBCC CHECKIDENT ('baja', RESEED, 200)
-- run
INSERT INTO baja (nombre) VALUES ('c')
-- run
DBCC CHECKIDENT ('baja', RESEED, -5)
-- run
INSERT INTO baja (nombre) VALUES ('d')
-- run
SELECT id, nombre FROM baja ORDER BY id
-- expect
rowset
row -15|d
row 90|b
row 100|a
row 190|c
end
