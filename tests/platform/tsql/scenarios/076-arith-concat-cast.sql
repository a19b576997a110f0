-- Texts are joined with '+' after a CAST of the number.
-- run
SELECT 'N' + CAST(5 AS VARCHAR(10)), 'a' + NULL
-- expect
rowset
row N5|NULL
end
