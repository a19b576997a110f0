-- CHOOSE(i, a, b ...) answers the i-th value, NULL for an index out of range; an index of another
-- number type is converted to INT (2.7 chooses the second); the result is of the type of highest
-- precedence among the values, so a text beside an integer becomes an integer (245 for a word).
-- run
SELECT CHOOSE(2, 'uno', 'dos', 'tres'), CHOOSE(4, 'uno', 'dos', 'tres'), CHOOSE(0, 'uno', 'dos'), CHOOSE(NULL, 'uno', 'dos'), CHOOSE(2.7, 'uno', 'dos', 'tres')
-- expect
rowset
row dos|NULL|NULL|NULL|dos
end
-- run
SELECT CHOOSE(1, '10', 20) + 5, CHOOSE(2, 1, 2.5), CHOOSE(3, 'a', 'b', 'c') + 'z'
-- expect
rowset
row 15|2.5|cz
end
-- run
SELECT CHOOSE(1, 'x', 5)
-- expect
error 245
-- run
CREATE TABLE elegir (id INT, n INT)
INSERT INTO elegir VALUES (1, 3)
INSERT INTO elegir VALUES (2, 1)
INSERT INTO elegir VALUES (3, 5)
-- run
SELECT id, CHOOSE(n, 'enero', 'febrero', 'marzo') FROM elegir ORDER BY id
-- expect
rowset
row 1|marzo
row 2|enero
row 3|NULL
end
-- run
SELECT id FROM elegir WHERE CHOOSE(n, 'a', 'b', 'c') = 'c' ORDER BY id
-- expect
rowset
row 1
end
