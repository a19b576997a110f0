-- OPTION (...) hints that only steer the plan change no answer; a hint that does more is
-- refused by name.
-- run
CREATE TABLE t (id INT)
-- run
INSERT INTO t VALUES (2)
INSERT INTO t VALUES (1)
-- run
SELECT id FROM t ORDER BY id OPTION (RECOMPILE, MAXDOP 1, FAST 10)
-- expect
rowset
row 1
row 2
end
-- run
UPDATE t SET id = id + 10 WHERE id = 1 OPTION (RECOMPILE)
-- expect
count 1
-- run
SELECT id FROM t OPTION (USE PLAN N'<ShowPlanXML/>')
-- expect
error 102
