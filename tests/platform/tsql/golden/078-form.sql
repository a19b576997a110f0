-- Record form: the existence check after a delete and the change log.
-- T-SQL
INSERT INTO LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('31/01/2024 10:15:00',2,1,'clientes',5,0,'\x02*Nombre\x03Ana\x03Eva\x02+Nota\x03nueva')
-- SQLite
INSERT INTO LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('2024-01-31 10:15:00',2,1,'clientes',5,0,'\x02*Nombre\x03Ana\x03Eva\x02+Nota\x03nueva')
-- PostgreSQL
INSERT INTO LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores) VALUES ('2024-01-31 10:15:00',2,1,'clientes',5,0,'\x02*Nombre\x03Ana\x03Eva\x02+Nota\x03nueva')
-- result
count 1
