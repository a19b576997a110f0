-- Storing an impossible date is error 242.
-- run
CREATE TABLE t (d DATETIME)
-- run
INSERT INTO t VALUES ('30/02/2024')
-- expect
error 242
