-- A BIT takes part in arithmetic as the number 0 or 1 (BIT converts to the other operand's
-- type), a CAST to BIT too: CAST(5 AS BIT) * 3 is 3.
-- run
SELECT CAST(1 AS BIT) + 1, CAST(5 AS BIT) * 3, 2 - CAST(0 AS BIT), CAST('TRUE' AS BIT) + CAST('FALSE' AS BIT)
-- expect
rowset
row 2|3|2|1
end
-- run
CREATE TABLE flags (activo BIT, n INT)
INSERT INTO flags VALUES (1, 10)
INSERT INTO flags VALUES (0, 20)
-- run
SELECT SUM(n * CAST(activo AS BIT)), SUM(CAST(activo AS INT) + 1) FROM flags
-- expect
rowset
row 10|3
end
