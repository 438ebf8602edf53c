-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Dt datetime)
INSERT INTO #T Values (1, '2009-04-03')
INSERT INTO #T Values (2, '2009-04-03 14:05:06')
INSERT INTO #T Values (3, '1899-12-30')
INSERT INTO #T Values (4, Null)
INSERT INTO #T Values (5, '20090403 23:59:59.5')

-- a day finds midnight only
SELECT Cd FROM #T WHERE Dt = '2009-04-03'
=> rows
1

-- a day between its ends leaves out the last fraction of a second
SELECT Cd, Dt FROM #T WHERE Dt Between '2009-04-03' And '2009-04-03 23:59:59' ORDER BY Cd
=> rows
1, 2009-04-03 00:00:00
2, 2009-04-03 14:05:06

-- the empty date is a date
SELECT Cd FROM #T WHERE Dt <= '1980-01-01' OR Dt Is Null ORDER BY Cd
=> rows
3
4

-- now
SELECT Cd FROM #T WHERE Dt Between '1980-01-01' And GetDate() ORDER BY Cd
=> rows
1
2

-- day first
SET DATEFORMAT dmy SELECT Cd FROM #T WHERE Dt = '03/04/2009' OR Dt = '2009-03-04'
=> rows
1

-- year, day, month
SET DATEFORMAT ydm; SELECT Cd FROM #T WHERE Dt = '2009-03-04'
=> rows
1

-- month first
SET DATEFORMAT mdy SELECT Cd FROM #T WHERE Dt = '04-03-2009' OR Dt = '4/3/09'
=> rows
1

-- digits run together are year, month, day in every order
SET DATEFORMAT dmy SELECT Cd FROM #T WHERE Dt = '20090403' OR Dt = '090403'
=> rows
1

-- an unknown order
SET DATEFORMAT xyz
=> error 0x80040E14 'xyz' (posição 16)

-- a day that does not exist
SELECT Cd FROM #T WHERE Dt = '2009-02-30'
=> error 0x80040E07 '2009-02-30'

-- a day that does not exist in this order
SET DATEFORMAT ydm SELECT Cd FROM #T WHERE Dt = '2009-04-13'
=> error 0x80040E07 '2009-04-13'

-- a text that is no date, written
UPDATE #T SET Dt = 'hoje'
=> error 0x80040E07 #T.Dt

-- an hour with its half of the day
SELECT Cd FROM #T WHERE Dt = '2009-04-03 2:05:06 PM' OR Dt = '2009-04-03T14:05:06' AND Cd > 9
=> rows
2

-- a date compared with a text column
CREATE TABLE #X (Tx varchar(20)) INSERT INTO #X Values ('03/04/2009') SET DATEFORMAT dmy SELECT Cd FROM #T, #X WHERE Dt = Tx
=> rows
1

-- a number of days
UPDATE #T SET Dt = 1 WHERE Cd = 4 SELECT Dt FROM #T WHERE Cd = 4
=> rows
1900-01-02 00:00:00

-- the greatest and the least
SELECT Max(Dt), Min(Dt) FROM #T
=> types date date
=> rows
2009-04-03 23:59:59.500, 1899-12-30 00:00:00

-- a date is no number
SELECT Cd FROM #T WHERE Dt = Cd
=> error 0x80040E14 número (posição 30)
