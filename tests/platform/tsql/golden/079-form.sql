-- Record form: the existence check after a delete and the change log.
-- T-SQL
INSERT INTO empresa..LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('31/01/2024 10:15:00',2,1,'clientes',5,1,'\x02-Nombre\x03Ana')
-- SQLite
INSERT INTO main.LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('2024-01-31 10:15:00',2,1,'clientes',5,1,'\x02-Nombre\x03Ana')
-- PostgreSQL
INSERT INTO empresa.LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('2024-01-31 10:15:00',2,1,'clientes',5,1,'\x02-Nombre\x03Ana')
-- result
count 1
