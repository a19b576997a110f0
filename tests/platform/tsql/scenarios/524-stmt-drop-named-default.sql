-- ALTER TABLE DROP CONSTRAINT drops a named default, made by CREATE TABLE or by ALTER TABLE ADD
-- (deferred to later rows or filling them): later rows get NULL there while the other defaults
-- stay. A name that is no constraint of the table, a dropped one too, is error 3728; a primary
-- key is still dropped by its name.
-- run
CREATE TABLE t (id INT NOT NULL, a INT CONSTRAINT df_a DEFAULT 5, z INT DEFAULT 9)
-- run
ALTER TABLE t ADD CONSTRAINT pk_t PRIMARY KEY (id)
-- run
ALTER TABLE t ADD b INT NULL CONSTRAINT df_b DEFAULT 6
-- run
ALTER TABLE t ADD c VARCHAR(5) NOT NULL CONSTRAINT df_c DEFAULT 'x'
-- run
INSERT INTO t (id) VALUES (1)
-- run
ALTER TABLE t DROP CONSTRAINT df_a
-- run
ALTER TABLE t DROP CONSTRAINT DF_B
-- run
INSERT INTO t (id) VALUES (2)
-- run
SELECT id, a, b, c, z FROM t ORDER BY id
-- expect
rowset
row 1|5|6|x|9
row 2|NULL|NULL|x|9
end
-- run
ALTER TABLE t DROP CONSTRAINT df_a
-- expect
error 3728
-- run
ALTER TABLE t DROP CONSTRAINT nada
-- expect
error 3728
-- run
ALTER TABLE t DROP CONSTRAINT df_c
-- run
INSERT INTO t (id, c) VALUES (3, 'y')
-- run
ALTER TABLE t DROP CONSTRAINT pk_t
-- run
INSERT INTO t (id, c) VALUES (3, 'w')
-- run
SELECT count(*) FROM t WHERE id = 3
-- expect
rowset
row 2
end
