-- Record form: the existence check after a delete and the change log.
-- T-SQL
SELECT ZolmarID FROM clientes WHERE ZolmarID=5
-- SQLite
SELECT ZolmarID FROM clientes WHERE ZolmarID=5
-- PostgreSQL
SELECT ZolmarID FROM clientes WHERE ZolmarID=5
-- result
rowset
end
