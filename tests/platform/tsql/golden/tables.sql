-- The tables the golden statements run against, made before the first of them as the
-- schema management makes them: the identity, its key, then each column with its shared
-- default (their indexes come from the statements). One statement a line.
SET DATEFORMAT dmy
ALTER TABLE clientes ADD Flags INT NOT NULL DEFAULT 0
ALTER TABLE clientes ADD [Código] NVARCHAR(10) NULL
ALTER TABLE clientes ADD [Nombre Largo] NVARCHAR(60) NULL
ALTER TABLE clientes ADD codigo NVARCHAR(10) NULL
ALTER TABLE clientes ADD name NVARCHAR(10) NULL
ALTER TABLE clientes ADD Nota NVARCHAR(40) NULL
CREATE TABLE apuntes (zolmarID INT NOT NULL IDENTITY(1,1), Fecha DATETIME NULL, Alta DATETIME NULL)
CREATE TABLE traducciones (zolmarID INT NOT NULL IDENTITY(1,1), texto NVARCHAR(500), traduccion NVARCHAR(500), revisar INT, idioma INT)
CREATE TABLE t (a INT, b INT, n INT)
CREATE TABLE u (b INT, c INT)
CREATE DATABASE grupo
ALTER TABLE clientes ADD Apellidos VARCHAR(40) NULL
CREATE TABLE antiguos (zolmarID INT NOT NULL IDENTITY(1,1))
CREATE DEFAULT DEFAULT_CHAR AS ''
CREATE DEFAULT DEFAULT_NUMERIC AS 0
CREATE DEFAULT DEFAULT_DATE AS '17530101'
CREATE TABLE diccionario (zolmarID INT NOT NULL IDENTITY(1,1))
ALTER TABLE diccionario ADD CONSTRAINT diccionario_PKEY_zolmarID PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]
CREATE TABLE idioma (zolmarID INT NOT NULL IDENTITY(1,1))
ALTER TABLE idioma ADD CONSTRAINT idioma_PKEY_zolmarID PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]
CREATE TABLE BLOBs (zolmarID INT NOT NULL IDENTITY(1,1))
ALTER TABLE BLOBs ADD CONSTRAINT BLOBs_PKEY_zolmarID PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]
CREATE TABLE LogFichas (zolmarID INT NOT NULL IDENTITY(1,1))
ALTER TABLE LogFichas ADD CONSTRAINT LogFichas_PKEY_zolmarID PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]
ALTER TABLE diccionario ADD tipo TINYINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'diccionario.tipo'
ALTER TABLE diccionario ADD tabla VARCHAR(30)
EXEC sp_bindefault 'DEFAULT_CHAR', 'diccionario.tabla'
ALTER TABLE diccionario ADD campo VARCHAR(35)
EXEC sp_bindefault 'DEFAULT_CHAR', 'diccionario.campo'
ALTER TABLE diccionario ADD tipo_dato TINYINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'diccionario.tipo_dato'
ALTER TABLE diccionario ADD ancho SMALLINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'diccionario.ancho'
ALTER TABLE diccionario ADD mascara VARCHAR(15)
EXEC sp_bindefault 'DEFAULT_CHAR', 'diccionario.mascara'
ALTER TABLE diccionario ADD control TINYINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'diccionario.control'
ALTER TABLE diccionario ADD tooltip VARCHAR(50)
EXEC sp_bindefault 'DEFAULT_CHAR', 'diccionario.tooltip'
ALTER TABLE idioma ADD clave VARCHAR(50)
EXEC sp_bindefault 'DEFAULT_CHAR', 'idioma.clave'
ALTER TABLE idioma ADD idioma INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'idioma.idioma'
ALTER TABLE idioma ADD tipo INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'idioma.tipo'
ALTER TABLE idioma ADD revisar TINYINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'idioma.revisar'
ALTER TABLE idioma ADD texto VARCHAR(500)
EXEC sp_bindefault 'DEFAULT_CHAR', 'idioma.texto'
ALTER TABLE idioma ADD traduccion VARCHAR(500)
EXEC sp_bindefault 'DEFAULT_CHAR', 'idioma.traduccion'
ALTER TABLE BLOBs ADD tipo INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'BLOBs.tipo'
ALTER TABLE BLOBs ADD nombre VARCHAR(50)
EXEC sp_bindefault 'DEFAULT_CHAR', 'BLOBs.nombre'
ALTER TABLE BLOBs ADD Contenido IMAGE
ALTER TABLE LogFichas ADD Fecha DATETIME
EXEC sp_bindefault 'DEFAULT_DATE', 'LogFichas.Fecha'
ALTER TABLE LogFichas ADD ID_Usuario INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'LogFichas.ID_Usuario'
ALTER TABLE LogFichas ADD ID_Puesto INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'LogFichas.ID_Puesto'
ALTER TABLE LogFichas ADD Tabla VARCHAR(50)
EXEC sp_bindefault 'DEFAULT_CHAR', 'LogFichas.Tabla'
ALTER TABLE LogFichas ADD ID_Ficha INTEGER
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'LogFichas.ID_Ficha'
ALTER TABLE LogFichas ADD TipoOp TINYINT
EXEC sp_bindefault 'DEFAULT_NUMERIC', 'LogFichas.TipoOp'
ALTER TABLE LogFichas ADD Valores VARCHAR(7900)
EXEC sp_bindefault 'DEFAULT_CHAR', 'LogFichas.Valores'
CREATE TABLE empresa..locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla NVARCHAR(40), id_zolmar INT, maquina NVARCHAR(40), usr_windows NVARCHAR(40), usr_zolmar INT, pid INT, cuando DATETIME, tipo INT, subtipo NVARCHAR(10), ClientName NVARCHAR(60))
CREATE TABLE grupo..locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla NVARCHAR(40), id_zolmar INT, maquina NVARCHAR(40), usr_windows NVARCHAR(40), usr_zolmar INT, pid INT, cuando DATETIME, tipo INT, subtipo NVARCHAR(10), ClientName NVARCHAR(60))
INSERT INTO clientes (Nombre, Alta, Flags) VALUES ('Ana', '20240131 07:05:09', 4)
INSERT INTO apuntes (Fecha, Alta) VALUES ('20240131 07:05:09', '31/01/2024')
