-- Storing an impossible date is error 242.
-- gap sqlite: INSERT INTO t VALUES ('30/02/2024') answers count 1, not error 242
-- run
CREATE TABLE t (d DATETIME)
-- run
INSERT INTO t VALUES ('30/02/2024')
-- expect
error 242
