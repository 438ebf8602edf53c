-- a table that does not exist
SELECT * FROM Inexistente
=> error 0x80040E14 'Inexistente' (posição 15)

-- the database's own tables
SELECT * FROM sqlite_master
=> error 0x80040E14 'sqlite_master'

-- a column that does not exist
SELECT Cd_Bomba, Nada FROM Bomba
=> error 0x80040E14 'Nada' (posição 18)

-- a column of a table that does not have it
SELECT B.Nada FROM Bomba B
=> error 0x80040E14 'Nada' (posição 8)

-- a prefix that does not exist
SELECT X.Cd_Bomba FROM Bomba B
=> error 0x80040E14 'X' não é uma tabela do comando (posição 8)

-- a table's name behind its alias
SELECT Bomba.Cd_Bomba FROM Bomba B
=> error 0x80040E14 'Bomba' não é uma tabela do comando (posição 8)

-- an ambiguous column
SELECT Cd_Produto FROM Bomba, Tanque
=> error 0x80040E14 ambíguo 'Cd_Produto' (posição 8)

-- a function that does not exist
SELECT Nada(1)
=> error 0x80040E14 'Nada' (posição 8)

-- a function of another dialect
SELECT Cd_Bomba FROM Bomba WHERE Hr_UltimaConferenciaEncerrante = Date()
=> error 0x80040E14 'Date'

-- too many arguments
SELECT RTrim('a', 'b')
=> error 0x80040E14 1 argumento

-- a condition that is a value
SELECT Cd_Bomba FROM Bomba WHERE Cd_Bomba
=> error 0x80040E14 condição (posição 34)

-- a value that is a condition
SELECT Cd_Bomba = 1 FROM Bomba
=> error 0x80040E14 (posição

-- nothing
--
=> error 0x80040E14 vazio

-- a statement of another kind
DROP TABLE Bomba
=> error 0x80040E14 Só se excluem tabelas temporárias (#) (posição 12)

-- a statement behind another
SELECT 1; PRAGMA foreign_keys
=> error 0x80040E14 'PRAGMA' (posição 11)

-- an empty list
SELECT Cd_Bomba FROM Bomba WHERE Cd_Bomba In ()
=> error 0x80040E14 (posição 47)

-- a text without its end
SELECT Cd_Bomba FROM Bomba WHERE De_Status = 'O'Brien'
=> error 0x80040E14 (posição 54)

-- a name without its end
SELECT [Cd_Bomba FROM Bomba
=> error 0x80040E14 (posição 8)

-- a character of no token
SELECT Cd_Bomba FROM Bomba WHERE Cd_Bomba ~ 1
=> error 0x80040E14 '~' (posição 43)

-- a character of no token behind accents
SELECT 'éé', ~
=> error 0x80040E14 '~' (posição 14)

-- two columns from a subquery
SELECT (SELECT Cd_Bomba, Cd_Produto FROM Bomba)
=> error 0x80040E14 uma só coluna (posição 8)

-- a star without a table
SELECT *
=> error 0x80040E14 FROM (posição 8)

-- a double point in a number
SELECT 8.200.5000
=> error 0x80040E14 (posição

-- a parameter without a value
SELECT ?
=> error 0x80040E14 parâmetro

-- a table of the schema that is created
SELECT * FROM Bomba; CREATE TABLE Bomba (Cd int)
=> error 0x80040E14 (posição 35)

-- a bare word where an operator belongs
SELECT Cd_Bomba FROM Bomba WHERE Cd_Bomba is 1
=> error 0x80040E14 (posição 46)
