-- PRINT is an informational message, not a result.
-- run
PRINT 'hola'
-- expect
