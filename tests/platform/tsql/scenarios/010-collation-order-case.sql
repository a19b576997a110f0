-- Upper and lower case letters sort together.
-- run
CREATE TABLE frutas (f VARCHAR(20))
-- run
INSERT INTO frutas VALUES ('banana')
-- run
INSERT INTO frutas VALUES ('Cereza')
-- run
INSERT INTO frutas VALUES ('apio')
-- run
INSERT INTO frutas VALUES ('Bellota')
-- run
SELECT f FROM frutas ORDER BY f DESC
-- expect
rowset
row Cereza
row Bellota
row banana
row apio
end
