-- @@TRANCOUNT counts nested BEGIN TRAN; COMMIT of the inner one only lowers it.
-- run
BEGIN TRAN
-- run
BEGIN TRAN
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 2
end
-- run
COMMIT TRAN
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 1
end
-- run
ROLLBACK TRAN
-- run
SELECT @@TRANCOUNT
-- expect
rowset
row 0
end
