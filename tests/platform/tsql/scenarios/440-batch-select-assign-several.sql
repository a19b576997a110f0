-- One SELECT assigns several variables from the same row.
-- run
CREATE TABLE t (id INT, n INT)
-- run
INSERT INTO t VALUES (1, 4) INSERT INTO t VALUES (2, 9) INSERT INTO t VALUES (3, 6)
-- run
DECLARE @menor INT, @mayor INT, @total INT SELECT @menor = MIN(n), @mayor = MAX(n), @total = SUM(n) FROM t SELECT @menor, @mayor, @total
-- expect
rowset
row 4|9|19
end
