-- IF ... BEGIN ... END ELSE BEGIN ... END: every statement of the chosen block runs, none of the other.
-- run
CREATE TABLE t (n INT)
-- run
DECLARE @modo VARCHAR(10) = 'alta' IF @modo = 'baja' BEGIN INSERT INTO t VALUES (1) INSERT INTO t VALUES (2) END ELSE BEGIN INSERT INTO t VALUES (10) INSERT INTO t VALUES (20) INSERT INTO t VALUES (30) END
-- expect
count 1
count 1
count 1
-- run
SELECT SUM(n) FROM t
-- expect
rowset
row 60
end
