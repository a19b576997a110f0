-- Definitions.
-- T-SQL
ALTER TABLE clientes ADD CONSTRAINT clientes_PKEY_zolmarID PRIMARY KEY NONCLUSTERED (zolmarID) ON [PRIMARY]
-- SQLite
ALTER TABLE clientes ADD CONSTRAINT clientes_PKEY_zolmarID PRIMARY KEY (zolmarID)
-- PostgreSQL
ALTER TABLE clientes ADD CONSTRAINT "clientes_PKEY_zolmarID" PRIMARY KEY (zolmarID)
-- result on SQLite
-- result on PostgreSQL
count -1
