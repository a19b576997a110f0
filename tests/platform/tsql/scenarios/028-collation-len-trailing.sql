-- LEN does not count trailing blanks.
-- run
SELECT LEN('abc   '), LEN('  abc')
-- expect
rowset
row 3|5
end
