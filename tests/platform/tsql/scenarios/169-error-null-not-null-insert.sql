-- NULL into a NOT NULL column is error 515.
-- run
CREATE TABLE t (id INT NOT NULL, n INT)
-- run
INSERT INTO t (n) VALUES (1)
-- expect
error 515
