-- An ELSE after nested IFs belongs to the nearest IF.
-- run
DECLARE @a INT = 1, @b INT = 2 IF @a = 1 IF @b = 1 SELECT 'ab' ELSE SELECT 'solo a'
-- expect
rowset
row solo a
end
-- run
DECLARE @a INT = 2 IF @a = 1 IF @a = 2 SELECT 'nunca' ELSE SELECT 'tampoco' SELECT 'fin'
-- expect
rowset
row fin
end
