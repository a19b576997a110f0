-- Dates.
-- T-SQL
SELECT RIGHT('00'+RTRIM(CAST(DATEPART(hh,Fecha) AS CHAR)),2) + ':' + RIGHT('00'+RTRIM(CAST(DATEPART(mi,Fecha) AS CHAR)),2) + ':' + RIGHT('00'+RTRIM(CAST(DATEPART(ss,Fecha) AS CHAR)),2) AS hora FROM apuntes
-- SQLite
SELECT zlx_right('00'||RTRIM((zlx_pad(substr(CAST(CAST(strftime('%H', Fecha) AS INTEGER) AS TEXT), 1, 30), 30) COLLATE NOCASE)), 2) || ':' || zlx_right('00'||RTRIM((zlx_pad(substr(CAST(CAST(strftime('%M', Fecha) AS INTEGER) AS TEXT), 1, 30), 30) COLLATE NOCASE)), 2) || ':' || zlx_right('00'||RTRIM((zlx_pad(substr(CAST(CAST(strftime('%S', Fecha) AS INTEGER) AS TEXT), 1, 30), 30) COLLATE NOCASE)), 2) AS hora FROM apuntes
-- PostgreSQL
SELECT zlx_right('00'||RTRIM(CAST(CAST(FLOOR(date_part('HOUR', Fecha)) AS INTEGER) AS char(30))), zlx_cut_length(2, 'RIGHT')) || ':' || zlx_right('00'||RTRIM(CAST(CAST(FLOOR(date_part('MINUTE', Fecha)) AS INTEGER) AS char(30))), zlx_cut_length(2, 'RIGHT')) || ':' || zlx_right('00'||RTRIM(CAST(CAST(FLOOR(date_part('SECOND', Fecha)) AS INTEGER) AS char(30))), zlx_cut_length(2, 'RIGHT')) AS hora FROM apuntes
-- result
rowset
row 07:05:09
end
