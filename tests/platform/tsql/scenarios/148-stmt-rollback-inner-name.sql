-- ROLLBACK of an inner transaction's name is error 6401.
-- run
CREATE TABLE t (n INT)
-- run
BEGIN TRAN exterior
-- run
BEGIN TRAN interior
-- run
ROLLBACK TRAN interior
-- expect
error 6401
