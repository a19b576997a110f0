-- DB_NAME() answers the current database.
-- run
SELECT DB_NAME()
-- expect
rowset
row escenario
end
