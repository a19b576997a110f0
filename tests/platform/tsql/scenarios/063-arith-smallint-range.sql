-- A SMALLINT column refuses values outside its range (error 220).
-- run
CREATE TABLE t (n SMALLINT)
-- run
INSERT INTO t VALUES (-32768)
-- expect
count 1
-- run
INSERT INTO t VALUES (40000)
-- expect
error 220
