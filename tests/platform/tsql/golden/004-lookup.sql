-- Cursor navigation and lookups.
-- T-SQL
SELECT a FROM t WHERE b IN (SELECT TOP 3 b FROM u ORDER BY b) ORDER BY a
-- SQLite
SELECT a FROM t WHERE b IN (SELECT b FROM u ORDER BY b LIMIT 3) ORDER BY a
-- PostgreSQL
SELECT a FROM t WHERE b IN (SELECT b FROM u ORDER BY b LIMIT 3) ORDER BY a
-- result
rowset
end
