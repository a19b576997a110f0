-- COMMIT without BEGIN TRAN is error 3902.
-- run
COMMIT TRAN
-- expect
error 3902
