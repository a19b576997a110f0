-- A DATETIME variable set from a text under DATEFORMAT dmy; date arithmetic on it.
-- run
DECLARE @d DATETIME SET @d = '31/01/2024' SELECT @d + 1, DATEADD(month, 1, @d), DATEPART(day, @d)
-- expect
rowset
row 2024-02-01 00:00:00|2024-02-29 00:00:00|31
end
