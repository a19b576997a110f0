-- SELECT ... INTO gives each column selected as it is the source column's own type (a VARCHAR
-- stays one byte a character, a CHAR keeps its blanks, a TEXT stays TEXT), by * too; a text
-- literal is a VARCHAR of its length and a CAST or CONVERT gives its type.
-- run
CREATE TABLE t (id INT, v VARCHAR(10), c CHAR(4), nv NVARCHAR(5), tx TEXT, m MONEY, f DATETIME, b BIT)
-- run
INSERT INTO t VALUES (1, 'abc', 'xy', N'ñu', 'largo', 2.25, '20240315', 1)
-- run
SELECT v, c, nv, tx, m, b, f INTO copia FROM t
-- expect
count 1
-- run
SELECT name, xtype, length FROM syscolumns WHERE id = OBJECT_ID('copia') ORDER BY colid
-- expect
rowset
row v|167|10
row c|175|4
row nv|231|10
row tx|35|16
row m|60|8
row b|104|1
row f|61|8
end
-- run
SELECT DATALENGTH(v), DATALENGTH(c), DATALENGTH(nv), c + '|', m / 2, b FROM copia
-- expect
rowset
row 3|4|4|xy  ||1.125|True
end
-- run
SELECT * INTO todo FROM t
-- run
SELECT name, xtype, length FROM syscolumns WHERE id = OBJECT_ID('todo') AND name IN ('v', 'c')
ORDER BY colid
-- expect
rowset
row v|167|10
row c|175|4
end
-- run
SELECT 'abcd' AS k, CAST(v AS CHAR(6)) AS w, CONVERT(VARCHAR(8), f, 103) AS d,
  CAST(id AS VARCHAR) AS n INTO otra FROM t
-- run
SELECT name, xtype, length FROM syscolumns WHERE id = OBJECT_ID('otra') ORDER BY colid
-- expect
rowset
row k|167|4
row w|175|6
row d|167|8
row n|167|30
end
-- run
SELECT DATALENGTH(k), w + '|', d FROM otra
-- expect
rowset
row 4|abc   ||15/03/20
end
