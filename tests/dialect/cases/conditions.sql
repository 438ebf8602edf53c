-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Vl money, Nm varchar(10))
INSERT INTO #T Values (1, 10, 'a')
INSERT INTO #T Values (2, Null, 'b')
INSERT INTO #T Values (3, 30, Null)
CREATE TABLE #I (Cd int NOT NULL, No_Item int NOT NULL, Qt float, PRIMARY KEY (Cd, No_Item))
INSERT INTO #I Values (1, 1, 5)
INSERT INTO #I Values (1, 2, 6)
INSERT INTO #I Values (3, 1, 7)
INSERT INTO #I Values (4, 1, 8)

-- equal to null is never true
SELECT Cd FROM #T WHERE Vl = Null OR Null = Null OR Vl <> Null
=> rows

-- nor is its contrary
SELECT Cd FROM #T WHERE Not (Vl = Null) OR Not Vl In (Null) OR Not Vl Between Null And Null
=> rows

-- an alternative that tests null adds nothing
SELECT Cd FROM #T WHERE Cd = 1 OR Vl = Null
=> rows
1

-- not stands before the whole predicate
SELECT Cd FROM #T WHERE (Not Nm Is Null) AND Not Cd Between 2 And 9
=> rows
1

-- a missing row of a subquery is null
SELECT Cd FROM #T WHERE (SELECT Qt FROM #I WHERE #I.Cd = #T.Cd AND No_Item = 9) = 0 OR Not (SELECT Qt FROM #I WHERE #I.Cd = #T.Cd AND No_Item = 9) Is Null
=> rows

-- a count in a condition
SELECT Cd FROM #T WHERE (Select Count(*) From #I E Where E.Cd = #T.Cd) = 2
=> rows
1

-- a subquery that gives two rows
SELECT (SELECT Qt FROM #I WHERE #I.Cd = #T.Cd) FROM #T WHERE Cd = 1
=> error 0x80040E14 mais de um valor

-- a grouped subquery that gives two rows
SELECT Cd FROM #T WHERE (SELECT Sum(Qt) FROM #I GROUP BY Cd) > 0
=> error 0x80040E14 mais de um valor

-- a united subquery that gives two rows
SELECT (SELECT Cd FROM #T WHERE Cd = 1 UNION ALL SELECT Cd FROM #T WHERE Cd = 2)
=> error 0x80040E14 mais de um valor

-- a subquery that gives one group
SELECT (SELECT Sum(Qt) FROM #I WHERE Cd = 1 GROUP BY Cd)
=> rows
11

-- the first of several rows
SELECT Cd, (SELECT TOP 1 Qt FROM #I WHERE #I.Cd = #T.Cd ORDER BY No_Item Desc) FROM #T ORDER BY Cd
=> rows
1, 6
2, NULL
3, 7

-- exists
SELECT Cd FROM #T WHERE Exists(Select * From #I Where #I.Cd = #T.Cd) AND Not Exists (SELECT * FROM #I WHERE #I.Cd = #T.Cd AND Qt = 7)
=> rows
1

-- in a subquery, and not in one
SELECT Cd FROM #T WHERE Cd In (SELECT Cd FROM #I) AND Cd Not In (SELECT Cd FROM #I WHERE Qt > 6)
=> rows
1

-- an alias again in an inner query
SELECT A.Cd FROM #T A WHERE A.Cd In (SELECT A.Cd FROM #I A WHERE A.Qt = 7)
=> sqlite
SELECT "A"."Cd" FROM "#T" AS "A" WHERE ("A"."Cd" IN (SELECT "A_2"."Cd" FROM "#I" AS "A_2" WHERE ("A_2"."Qt" = ?1)))
=> rows
3

-- an inner name before an outer one
SELECT Cd FROM #T WHERE Exists (SELECT * FROM #I WHERE Cd = 4) ORDER BY Cd
=> rows
1
2
3

-- and binds before or
SELECT Cd FROM #T WHERE Cd = 1 OR Cd = 2 AND Vl = 5 OR ((Cd)=3)
=> rows
1
3

-- comparisons with marks of the dialect
SELECT Cd FROM #T WHERE Cd != 1 AND Cd !< 2 AND Cd !> 2
=> rows
2

-- a long chain
SELECT Cd FROM #T WHERE Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=9 OR Cd=2
=> rows
2

-- a long sum
SELECT 1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1+1-(1-2)-1
=> rows
108
