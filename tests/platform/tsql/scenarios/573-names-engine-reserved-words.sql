-- Columns may be named with words SQL Server does not reserve though the engines do (limit,
-- offset, window, natural, returning...): unbracketed, in every clause, qualified or not, next
-- to an OFFSET ... FETCH of the same statement.
-- run
CREATE TABLE paginas (id INT, offset INT, limit INT NOT NULL, window VARCHAR(5), natural BIT)
-- run
INSERT INTO paginas (id, offset, limit, window, natural) VALUES (1, 20, 10, 'a', 1)
INSERT INTO paginas (id, offset, limit, window, natural) VALUES (2, 0, 5, 'b', 0)
-- run
UPDATE paginas SET limit = limit + 1 WHERE offset > 0
-- expect
count 1
-- run
ALTER TABLE paginas ADD returning INT NULL
-- run
SELECT p.id, offset, p.limit, window AS analyze, natural, returning FROM paginas p
ORDER BY limit DESC OFFSET 1 ROWS FETCH NEXT 1 ROWS ONLY
-- expect
rowset
row 2|0|5|b|False|NULL
end
-- run
SELECT MAX(limit) AS limit, COUNT(offset) FROM paginas GROUP BY natural ORDER BY limit
-- expect
rowset
row 5|1
row 11|1
end
