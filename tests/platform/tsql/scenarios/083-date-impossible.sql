-- An impossible date is error 242.
-- run
SELECT CAST('31/02/2024' AS DATETIME)
-- expect
error 242
