-- DATEPART(wk) counts weeks starting on Monday under DATEFIRST 1, week 1 holding 1 January.
-- run
SELECT DATEPART(wk, '20240107'), DATEPART(wk, '20240108'), DATEPART(wk, '20230101')
-- expect
rowset
row 1|2|1
end
