-- A join on text columns matches rows that differ in case and accents.
-- run
CREATE TABLE a (n VARCHAR(20))
-- run
CREATE TABLE b (n VARCHAR(20), v INT)
-- run
INSERT INTO a VALUES ('Múnich')
-- run
INSERT INTO b VALUES ('MUNICH', 7)
-- run
SELECT b.v FROM a JOIN b ON a.n = b.n
-- expect
rowset
row 7
end
