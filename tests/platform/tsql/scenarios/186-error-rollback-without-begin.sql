-- ROLLBACK without BEGIN TRAN is error 3903.
-- run
ROLLBACK TRAN
-- expect
error 3903
