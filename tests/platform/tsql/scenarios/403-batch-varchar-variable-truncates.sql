-- A text longer than a VARCHAR(n) variable is cut to n characters on assignment, without an error.
-- run
DECLARE @s VARCHAR(3) SET @s = 'abcdef' SELECT @s, LEN(@s)
-- expect
rowset
row abc|3
end
