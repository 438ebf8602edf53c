-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Cd_Pai int, Vl money NOT NULL, Nm varchar(10))
INSERT INTO #T (Cd, Cd_Pai, Vl) Values (1, 2, 10)
INSERT INTO #T (Cd, Cd_Pai, Vl) Values (2, 3, 20)
INSERT INTO #T (Cd, Cd_Pai, Vl) Values (3, 1, 30)

-- an update that reads its own table sees it as it was
UPDATE #T SET Vl = (SELECT B.Vl FROM #T B WHERE B.Cd = #T.Cd_Pai) SELECT Cd, Vl FROM #T ORDER BY Cd
=> rows
1, 20.0000
2, 30.0000
3, 10.0000

-- an update that exchanges values
UPDATE #T SET Cd_Pai = Cd, Vl = Cd_Pai WHERE Cd = 1 SELECT Cd_Pai, Vl FROM #T WHERE Cd = 1
=> rows
1, 2.0000

-- an update by a list of its own rows
UPDATE #T SET Vl = 0 WHERE Cd In (SELECT Cd_Pai FROM #T WHERE Vl > 0) SELECT Sum(Vl) FROM #T
=> rows
0.0000

-- an update by a condition over its own rows
UPDATE #T SET Vl = 99 WHERE Vl = (SELECT Max(B.Vl) FROM #T B) OR Not Exists (SELECT * FROM #T B WHERE B.Vl > #T.Vl) SELECT Cd FROM #T WHERE Vl = 99
=> rows
3

-- qualified targets
UPDATE #T SET #T.Vl = #T.Vl + 1, Nm = 'x' WHERE #T.Cd = 1 SELECT Vl, Nm FROM #T WHERE Cd = 1
=> rows
11.0000, 'x'

-- a target of another table
UPDATE #T SET Outra.Vl = 1
=> error 0x80040E14 'Outra'

-- a delete by a list of its own rows
DELETE FROM #T WHERE Cd In (SELECT Cd_Pai FROM #T WHERE Cd < 3) SELECT Cd FROM #T
=> rows
1

-- a delete by a condition over its own rows
DELETE #T WHERE Exists (SELECT * FROM #T B WHERE B.Cd = #T.Cd_Pai) SELECT Count(*) FROM #T
=> rows
0

-- an insert from its own rows
INSERT INTO #T (Cd, Vl) SELECT Cd + 10, Vl FROM #T SELECT Count(*), Max(Cd) FROM #T
=> rows
6, 13

-- an insert without columns, values converted to those of the table
CREATE TABLE #X (Nm varchar(10), Vl money, Qt float, Cd int, By_ tinyint) INSERT INTO #X SELECT Cd, Cd, Vl, '7', Null FROM #T WHERE Cd = 1 SELECT * FROM #X
=> types text money float64 int32 byte
=> rows
'1', 1.0000, 10, 7, NULL

-- an insert in an order that another type would change
CREATE TABLE #X (Nm varchar(10)) INSERT INTO #X SELECT Cd * 5 As N FROM #T ORDER BY N SELECT Nm FROM #X
=> rows
'5'
'10'
'15'

-- values that are missing
INSERT INTO #T (Cd, Vl) Values (5)
=> error 0x80040E14 2 colunas e 1 valores

-- a column twice
INSERT INTO #T (Cd, Cd) Values (5, 6)
=> error 0x80040E14 'Cd' está repetida (posição 21)

-- a required column that is not given
INSERT INTO #T (Cd) Values (5)
=> error 0x80040E2F #T.Vl

-- a duplicate within one insert leaves nothing
INSERT INTO #T (Cd, Vl) SELECT 7, Vl FROM #T
=> error 0x80040E2F #T (Cd)

-- generated keys
CREATE TABLE #X (Cd int IDENTITY(1,1) PRIMARY KEY, Nm varchar(5)) INSERT INTO #X Values ('a') INSERT INTO #X (Nm) Values ('b') SELECT @@IDENTITY, Max(Cd) FROM #X
=> rows
2, 2

-- the last generated key is forgotten by a table without one
CREATE TABLE #X (Cd int IDENTITY(1,1), Nm varchar(5)) INSERT INTO #X Values ('a') INSERT INTO #T (Cd, Vl) Values (5, 1) SELECT @@IDENTITY
=> rows
NULL

-- a generated key cannot be changed
CREATE TABLE #X (Cd int IDENTITY, Nm varchar(5)) UPDATE #X SET Cd = 5
=> error 0x80040E14 'Cd'

-- but a new row may bring one, and the numbering goes on behind it
CREATE TABLE #X (Cd int IDENTITY PRIMARY KEY, Nm varchar(5)) INSERT INTO #X (Cd, Nm) Values (5, 'a') INSERT INTO #X Values ('b') SELECT Cd, Nm FROM #X
=> rows
5, 'a'
6, 'b'

-- a batch with a syntax error runs none of its statements
DELETE FROM #T SELECT * FROM
=> error 0x80040E14 (posição 30)

-- a table that its batch creates
CREATE TABLE #Novo (Nm_Tipo varchar(40) NOT NULL, Vl money NOT NULL);
INSERT INTO #Novo (Nm_Tipo, Vl) Values ('Dinheiro', 1.5) INSERT INTO #Novo SELECT 'Cheque', Sum(Vl) FROM #T;
SELECT Nm_Tipo, Vl FROM #Novo ORDER BY Nm_Tipo
=> rows
'Cheque', 60.0000
'Dinheiro', 1.5000

-- a table that stands already
CREATE TABLE #T (Cd int)
=> error 0x80040E14 #T

-- only temporary tables are created
CREATE TABLE Nova (Cd int)
=> error 0x80040E14 (posição 14)

-- a table without a key of the schema
DELETE FROM TempRelCaixa14 INSERT INTO TempRelCaixa14 (Nm_Item) Values ('a') UPDATE TempRelCaixa14 SET Nm_Item = (SELECT Max(B.Nm_Item) + 'b' FROM TempRelCaixa14 B) SELECT Nm_Item FROM TempRelCaixa14
=> rows
'ab'
