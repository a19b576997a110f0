-- PRINT is an informational message, not a result.
-- gap sqlite: PRINT 'hola' answers error 102, not 
-- gap postgres: PRINT 'hola' answers error 102, not 
-- run
PRINT 'hola'
-- expect
