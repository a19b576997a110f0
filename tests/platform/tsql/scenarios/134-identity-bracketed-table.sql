-- An insert into a bracketed table name reports its identity.
-- run
CREATE TABLE [mi tabla] (id INT IDENTITY(1,1), [el nombre] VARCHAR(10))
-- run
INSERT INTO [mi tabla] ([el nombre]) VALUES ('a')
-- expect
count 1
-- run
INSERT INTO [mi tabla] ([el nombre]) VALUES ('b')
-- expect
count 1
-- run
SELECT @@IDENTITY
-- expect
rowset
row 2
end
