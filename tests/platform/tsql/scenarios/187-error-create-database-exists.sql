-- Creating a database that exists is error 1801.
-- run
CREATE DATABASE escenario
-- expect
error 1801
