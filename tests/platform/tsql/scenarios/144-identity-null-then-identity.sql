-- @@IDENTITY and SCOPE_IDENTITY() are NULL after an insert into a table without identity (in one batch with others too), and take the next identity again after one into a table with it.
-- run
CREATE TABLE a (id INT IDENTITY(5,1), n INT)
-- run
CREATE TABLE b (n INT)
-- run
INSERT INTO a (n) VALUES (1)
INSERT INTO b VALUES (1)
-- run
SELECT @@IDENTITY, SCOPE_IDENTITY()
-- expect
rowset
row NULL|NULL
end
-- run
INSERT INTO a (n) VALUES (2)
-- run
SELECT SCOPE_IDENTITY()
-- expect
rowset
row 6
end
