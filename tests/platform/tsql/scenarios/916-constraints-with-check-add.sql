-- Scripts that SQL Server's tools write add constraints WITH CHECK (what ADD does anyway: the
-- rows there are must hold it) and then CHECK CONSTRAINT them (enabled already).
-- run
CREATE TABLE padres (id INT NOT NULL PRIMARY KEY)
CREATE TABLE hijos (id INT, padre INT, edad INT)
INSERT INTO padres VALUES (1)
INSERT INTO hijos VALUES (1, 1, 30)
-- run
ALTER TABLE [dbo].[hijos] WITH CHECK ADD CONSTRAINT [FK_hijos_padres] FOREIGN KEY([padre]) REFERENCES [dbo].[padres] ([id])
ALTER TABLE [dbo].[hijos] CHECK CONSTRAINT [FK_hijos_padres]
ALTER TABLE [dbo].[hijos] WITH CHECK ADD CONSTRAINT [CK_hijos_edad] CHECK (([edad] >= 0))
ALTER TABLE [dbo].[hijos] CHECK CONSTRAINT [CK_hijos_edad]
-- run
INSERT INTO hijos VALUES (2, 5, 1)
-- expect
error 547
-- run
INSERT INTO hijos VALUES (2, 1, -1)
-- expect
error 547
-- run
INSERT INTO hijos VALUES (2, 1, 4)
-- expect
count 1
-- run
ALTER TABLE hijos WITH CHECK ADD CONSTRAINT CK_hijos_id CHECK (id > 1)
-- expect
error 547
