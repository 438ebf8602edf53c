-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, By_ tinyint, Vl money, Qt float, Tx real, Ic bit NOT NULL)
INSERT INTO #T Values (1, 7, 0.1, 0.1, 07.10, -1)
INSERT INTO #T Values (2, 2, 0.2, 0.2, 18, 0)
INSERT INTO #T Values (3, Null, Null, Null, Null, 1)

-- integers divide to integers
SELECT 7 / 2, -7 / 2, By_ / 2 FROM #T WHERE Cd = 1
=> types int32 int32 int32
=> rows
3, -3, 3

-- money adds exactly
SELECT Sum(Vl), Sum(Vl) - 0.3, Sum(Qt) - 0.3 FROM #T
=> types money money float64
=> rows
0.3000, 0.0000, 5.551115123125783E-17

-- money compares exactly
SELECT Cd FROM #T WHERE Vl + 0.1 = 0.2 OR Vl * 3 = 0.6 ORDER BY Cd
=> rows
1
2

-- money by money is cut
SELECT Vl / (Vl + Vl + Vl), 2 * Vl / (3 * Vl), -Vl / (3 * Vl) FROM #T WHERE Cd = 1
=> types money money money
=> rows
0.3333, 0.6666, -0.3333

-- money by an integer and an integer by money
SELECT Vl / 3, 1 / Vl FROM #T WHERE Cd = 1
=> types money money
=> rows
0.0333, 10.0000

-- money and float make a float
SELECT Vl * Qt, Vl / Qt, Qt + Vl FROM #T WHERE Cd = 2
=> types float64 float64 float64
=> rows
0.04000000000000001, 1, 0.4

-- money times money rounds at the fourth decimal
SELECT Vl * Vl, 0.05 * Vl * Vl FROM #T WHERE Cd = 1
=> types money float64
=> rows
0.0100, 0.0005

-- a product with a decimal is exact and rounds as one
SELECT Vl * 1.1, Cd * 0.1, Round(Vl * 10.05, 2), Round(-129 * Vl * 0.95, 2), Round(Cd * 0.335, 2) FROM #T WHERE Cd <> 2 AND (Vl * 1.1 = 0.11 OR Cd * 0.1 = 0.3)
=> types float64 float64 float64 float64 float64
=> rows
0.11, 0.1, 1.01, -12.26, 0.34
NULL, 0.3, NULL, NULL, 1.01

-- a decimal becomes money with halves away from zero
UPDATE #T SET Vl = Cd * 1.00005 WHERE Cd = 1 SELECT Vl, Cast(Cd * 2.00015 As money) FROM #T WHERE Cd = 1
=> rows
1.0001, 2.0002

-- money times a decimal that money has no room for
SELECT Vl * 0.00005 FROM #T WHERE Cd = 2
=> rows
0.00001

-- sums and averages
SELECT Sum(Cd), Avg(Cd), Sum(By_), Avg(By_), Avg(Vl), Sum(Tx) FROM #T
=> types int32 int32 int32 int32 money float64
=> rows
6, 2, 9, 4, 0.1500, 25.09999990463257

-- the average of money is cut
SELECT Avg(Vl * 10 + 0.0001) FROM #T WHERE Cd < 3
=> rows
1.5001

-- over nothing
SELECT Sum(Vl), Count(*), Count(Vl), Max(Cd), Avg(Cd) FROM #T WHERE Cd = 99
=> rows
NULL, 0, 0, NULL, NULL

-- over nothing by groups
SELECT Sum(Vl) FROM #T WHERE Cd = 99 GROUP BY Cd
=> rows

-- a 32-bit column meets its literal
SELECT Cd FROM #T WHERE Tx = 07.10 OR Tx In (18.0) ORDER BY Cd
=> rows
1
2

-- a 32-bit column between literals
SELECT Cd FROM #T WHERE Tx Between 7.1 And 7.1
=> rows
1

-- more decimals than money has
SELECT Cd FROM #T WHERE Vl < 0.10001 AND Vl > 0.09999
=> rows
1

-- more decimals than money has, written
UPDATE #T SET Vl = 2.49995 WHERE Cd = 1 SELECT Vl FROM #T WHERE Cd = 1
=> rows
2.5000

-- an integer column against a fraction
SELECT Cd FROM #T WHERE Cd > 1.5 AND Cd < 2.5
=> rows
2

-- an integer beyond 32 bits
SELECT Cd FROM #T WHERE Cd < 3000000000 AND Cd > -3000000000 AND Cd = 1
=> rows
1

-- quoted keys
SELECT Cd FROM #T WHERE Cd = '2' OR Cd In (' 3 ') OR By_ Between '7' And '7' ORDER BY Cd
=> rows
1
2
3

-- a quoted key that is no number
SELECT Cd FROM #T WHERE Cd = '2a'
=> error 0x80040E07 '2a'

-- a quoted key that is too great
SELECT Cd FROM #T WHERE Cd = '99999999999'
=> error 0x80040E57 99999999999

-- a number without decimals behind its point
SELECT 12. + 1, .5 + .5
=> types money money
=> rows
13.0000, 1.0000

-- a number close to a word
SELECT Cd FROM #T WHERE Cd = 0OR Cd = 1ORDER BY 1
=> rows
1

-- any value is a true bit
SELECT Cd FROM #T WHERE Ic = 1 ORDER BY Cd
=> sqlite
SELECT "#T"."Cd" FROM "#T" WHERE ("#T"."Ic" = 1) ORDER BY "#T"."Cd"
=> rows
1
3

-- a bit that is not zero
SELECT Cd FROM #T WHERE Ic <> 0 AND 0 <> Ic ORDER BY Cd
=> sqlite
SELECT "#T"."Cd" FROM "#T" WHERE (("#T"."Ic" = 1) AND ("#T"."Ic" = 1)) ORDER BY "#T"."Cd"
=> rows
1
3

-- a bit is never minus one
SELECT Cd FROM #T WHERE Ic = -1
=> rows

-- nor is it by IN or NOT
SELECT Cd FROM #T WHERE Ic In (-1) OR NOT Ic <> -1
=> rows

-- all bits differ from minus one
SELECT Count(*) FROM #T WHERE Ic <> -1
=> rows
3

-- a bit reads as a truth
SELECT Ic, Cd FROM #T ORDER BY Ic, Cd
=> types bit int32
=> rows
false, 2
true, 1
true, 3

-- a bit of a subquery
SELECT Cd FROM #T WHERE (SELECT B.Ic FROM #T B WHERE B.Cd = #T.Cd) = 0
=> rows
2

-- halves are rounded away from zero
SELECT Round(0.125, 2), Round(-0.125, 2), Round(Vl + 0.0250, 2), Round(Qt + 0.025, 2), Round(15, -1) FROM #T WHERE Cd = 1
=> types money money money float64 int32
=> rows
0.1300, -0.1300, 0.1300, 0.13, 20

-- what rounds to nothing has no sign
SELECT Round(Qt * 0 * -2.5, 2), Round(Qt * -0.001, 2) FROM #T WHERE Cd = 1
=> rows
0, 0

-- round far outside the digits
SELECT Round(Vl, 30), Round(Vl, -30), Round(Qt, 30), Round(Qt, -30), Round(Cd, -30) FROM #T WHERE Cd = 1
=> rows
0.1000, 0.0000, 0.1, 0, 0

-- isnull takes the type of its first argument
SELECT IsNull(Vl, 0), IsNull(Cd, 0.9), IsNull(Qt, Vl), IsNull(Null, 2) FROM #T WHERE Cd = 3
=> types money int32 float64 int32
=> rows
0.0000, 3, NULL, 2

-- casts
SELECT Cast('12' As Int), Cast(12.9 As Int), Cast(-12.9 As Int), Cast(Cast(12.9 As Money) As Int), Cast(' ' As Int)
=> types int32 int32 int32 int32 int32
=> rows
12, 12, -12, 13, 0

-- a cast of no number
SELECT Cast('-' As Int)
=> error 0x80040E07 '-'

-- a cast of a column that is no number
CREATE TABLE #X (Tx varchar(5)) INSERT INTO #X Values ('1a') SELECT Cast(Tx As Int) FROM #X
=> error 0x80040E07 '1a'

-- a cast out of range
SELECT Cast(Cd + 300 As tinyint) FROM #T
=> error 0x80040E57 301

-- a division by zero
SELECT Vl / (Cd - 1) FROM #T
=> error 0x80040E14 zero

-- a division by zero in a condition
SELECT Cd FROM #T WHERE Qt / 0 > 1
=> error 0x80040E14 zero

-- too great for 32 bits
SELECT Cd + 2147483647 As Grande FROM #T
=> error 0x80040E57 Grande

-- too great for money
SELECT Vl * 2147483647 * 2147483647 FROM #T
=> error 0x80040E57 aritm

-- a sum too great for money
SELECT Sum(Vl * 2147483647 * 2000000) FROM #T
=> error 0x80040E57 aritm

-- a value out of a column's range
UPDATE #T SET By_ = 256
=> error 0x80040E57 #T.By_

-- a value out of range that was calculated
UPDATE #T SET By_ = By_ - 8
=> error 0x80040E57 #T.By_

-- money out of range
UPDATE #T SET Vl = 922337203685478
=> error 0x80040E57 #T.Vl

-- a required null
UPDATE #T SET Ic = Null
=> error 0x80040E2F #T.Ic

-- a duplicate key
INSERT INTO #T (Cd, Ic) Values (2, 0)
=> error 0x80040E2F #T (Cd)

-- a text that is no number, written
UPDATE #T SET Vl = 'x'
=> error 0x80040E07 #T.Vl

-- text to numbers, written
UPDATE #T SET Vl = '1.5', Qt = '-2e1', Tx = '', By_ = ' 3', Ic = '1' WHERE Cd = 2 SELECT Vl, Qt, Tx, By_, Ic FROM #T WHERE Cd = 2
=> rows
1.5000, -20, 0, 3, true

-- a case of mixed types takes the stronger
SELECT Case When Cd = 1 Then Vl Else 0 End, Case When Cd = 1 Then 1 Else Qt End, Case When Cd = 9 Then 1 End FROM #T WHERE Cd < 3 ORDER BY Cd
=> types money float64 int32
=> rows
0.1000, 1, NULL
0.0000, 0.2, NULL

-- the minus of a money expression
SELECT -Vl * -1, - -2, +3, -(Vl + 1) FROM #T WHERE Cd = 1
=> rows
0.1000, 2, 3, -1.1000
