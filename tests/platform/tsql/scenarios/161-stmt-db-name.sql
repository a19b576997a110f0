-- DB_NAME() answers the current database.
-- gap sqlite: SELECT DB_NAME() answers error 195, not row escenario
-- gap postgres: SELECT DB_NAME() answers error 195, not row escenario
-- run
SELECT DB_NAME()
-- expect
rowset
row escenario
end
