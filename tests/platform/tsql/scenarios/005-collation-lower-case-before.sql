-- Case does not count in '<': 'a' sorts before 'B'.
-- run
SELECT CASE WHEN 'a' < 'B' THEN 1 ELSE 0 END, CASE WHEN 'Z' > 'y' THEN 1 ELSE 0 END
-- expect
rowset
row 1|1
end
