-- Creating a database that exists is error 1801.
-- gap postgres: CREATE DATABASE escenario answers error, not error 1801
-- run
CREATE DATABASE escenario
-- expect
error 1801
