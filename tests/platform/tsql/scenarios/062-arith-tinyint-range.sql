-- A TINYINT column refuses values outside 0-255 (error 220).
-- run
CREATE TABLE t (n TINYINT)
-- run
INSERT INTO t VALUES (255)
-- expect
count 1
-- run
INSERT INTO t VALUES (256)
-- expect
error 220
-- run
INSERT INTO t VALUES (-1)
-- expect
error 220
