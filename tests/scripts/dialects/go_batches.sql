USE [Warehouse]
GO
CREATE TABLE [dbo].[Shelf](
	[Id] [int] IDENTITY(1,1) NOT NULL,
	[Name] [nvarchar](50) NULL
) ON [PRIMARY]
GO
CREATE TABLE shelf2 (id INT, name VARCHAR(20))
GO
CREATE SEQUENCE shelf_seq
GO
ALTER TABLE shelf2 ADD CONSTRAINT shelf2_pk PRIMARY KEY (id)
GO
