-- A BEGIN ... END block runs its statements in order.
-- run
CREATE TABLE t (n INT)
-- run
BEGIN INSERT INTO t VALUES (1) INSERT INTO t VALUES (2) END
-- run
SELECT COUNT(*) FROM t
-- expect
rowset
row 2
end
