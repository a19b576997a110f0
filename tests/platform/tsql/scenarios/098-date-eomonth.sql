-- EOMONTH gives the month's last day.
-- run
SELECT DAY(EOMONTH('20240210')), DAY(EOMONTH('20230201')), DAY(EOMONTH('20240115', 1))
-- expect
rowset
row 29|28|29
end
