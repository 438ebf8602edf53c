-- setup
CREATE TABLE #A (Cd int NOT NULL PRIMARY KEY, Nm varchar(10), Vl money)
INSERT INTO #A Values (1, 'um', 10)
INSERT INTO #A Values (2, 'dois', 20)
INSERT INTO #A Values (3, Null, 20)
CREATE TABLE #B (Cd int NOT NULL, No_Item int NOT NULL, Qt float, Vl money, PRIMARY KEY (Cd, No_Item))
INSERT INTO #B Values (1, 1, 1, 100)
INSERT INTO #B Values (1, 2, 2, 200)
INSERT INTO #B Values (9, 1, 3, 300)
CREATE TABLE #C (No_Item int NOT NULL PRIMARY KEY, Ds varchar(10))
INSERT INTO #C Values (1, 'x')

-- inner join without its word
SELECT A.Cd, B.Qt FROM #A A Join #B AS B oN (A.Cd = B.Cd) And B.No_Item = 2
=> rows
1, 2

-- left join
SELECT A.Cd, B.Qt FROM #A A LEFT JOIN #B B On A.Cd = B.Cd ORDER BY A.Cd, B.Qt
=> rows
1, 1
1, 2
2, NULL
3, NULL

-- right join
SELECT A.Nm, B.Qt FROM #A A RIGHT OUTER JOIN #B B On A.Cd = B.Cd ORDER BY B.Qt
=> sqlite
SELECT "A"."Nm", "B"."Qt" FROM "#B" AS "B" LEFT JOIN "#A" AS "A" ON ("A"."Cd" = "B"."Cd") ORDER BY "B"."Qt"
=> rows
'um', 1
'um', 2
NULL, 3

-- right join that a condition makes an inner one
SELECT B.Qt FROM #A A RIGHT JOIN #B B On A.Cd = B.Cd WHERE A.Nm = 'UM' ORDER BY B.Qt
=> rows
1
2

-- right join behind another join
SELECT A.Cd, C.Ds, B.Qt FROM #A A INNER JOIN #C C ON A.Cd = C.No_Item RIGHT JOIN #B B On A.Cd = B.Cd ORDER BY B.Qt
=> rows
1, 'x', 1
1, 'x', 2
NULL, NULL, 3

-- right join of a join in parentheses
SELECT A.Cd, B.Qt FROM #A A RIGHT JOIN (#B B INNER JOIN #C C ON B.No_Item = C.No_Item) ON A.Cd = B.Cd ORDER BY B.Qt
=> rows
1, 1
NULL, 3

-- full join
SELECT A.Cd, B.Cd FROM #A A FULL JOIN #B B On A.Cd = B.Cd AND B.No_Item = 1 ORDER BY 1, 2
=> rows
NULL, 1
NULL, 9
1, 1
2, NULL
3, NULL

-- cross join and commas
SELECT Count(*) FROM #A CROSS JOIN #B, #C
=> rows
9

-- an inner join behind an outer one cancels it
SELECT A.Cd FROM #A A LEFT JOIN #B B On A.Cd = B.Cd INNER JOIN #C C On C.No_Item = B.No_Item
=> rows
1

-- a join in parentheses on the left
SELECT A.Cd, C.Ds FROM (#A AS A LEFT JOIN #B AS B ON A.Cd = B.Cd) LEFT JOIN #C AS C ON B.No_Item = C.No_Item ORDER BY A.Cd, C.Ds
=> rows
1, NULL
1, 'x'
2, NULL
3, NULL

-- a join in parentheses on the right
SELECT A.Cd, C.Ds FROM #A A LEFT JOIN (#B B INNER JOIN #C C ON B.No_Item = C.No_Item) ON A.Cd = B.Cd ORDER BY A.Cd
=> rows
1, 'x'
2, NULL
3, NULL

-- a table twice
SELECT A1.Cd, A2.Cd FROM #A A1, #A A2 WHERE A1.Vl = A2.Vl AND A1.Cd < A2.Cd
=> rows
2, 3

-- a name twice
SELECT A.Cd FROM #A A, #B A
=> error 0x80040E14 'A' está repetido

-- top with order and nulls
SELECT TOP 2 Cd FROM #A ORDER BY Nm, Cd
=> sqlite
SELECT "#A"."Cd" FROM "#A" ORDER BY "#A"."Nm", "#A"."Cd" LIMIT 2
=> rows
3
2

-- top in front of a star
SELECT Top 1 A.*, B.Qt FROM #A A, #B B WHERE A.Cd = B.Cd ORDER BY Qt Desc
=> types int32 text money float64
=> rows
1, 'um', 10.0000, 2

-- distinct and top
SELECT DISTINCT TOP 1 Vl FROM #A ORDER BY Vl Desc
=> rows
20.0000

-- distinct orders only by what it gives
SELECT DISTINCT Vl FROM #A ORDER BY Cd
=> error 0x80040E14 DISTINCT

-- grouped without aggregates
SELECT Vl FROM #A GROUP BY Vl ORDER BY Vl Desc
=> rows
20.0000
10.0000

-- grouped by a column that is not given, tested as a whole
SELECT Sum(Vl) FROM #A GROUP BY Cd, Vl HAVING Cd = 2 OR Vl < 15 ORDER BY Cd
=> sqlite
SELECT sum("#A"."Vl") FROM "#A" WHERE (("#A"."Cd" = ?1) OR ("#A"."Vl" < ?2)) GROUP BY "#A"."Cd", "#A"."Vl" ORDER BY "#A"."Cd"
=> rows
10.0000
20.0000

-- having with aggregates stays
SELECT Vl, Count(*) As Qt FROM #A GROUP BY Vl HAVING Count(*) > 1 And Vl > 0
=> sqlite
SELECT "#A"."Vl", count(*) FROM "#A" WHERE ("#A"."Vl" > ?1) GROUP BY "#A"."Vl" HAVING (count(*) > ?2)
=> rows
20.0000, 2

-- having without groups
SELECT Sum(Vl) FROM #A HAVING Count(*) > 5
=> rows

-- a group's name is the column, not the alias
SELECT A.Cd, Sum(B.Qt) As Vl FROM #A A INNER JOIN #B B On A.Cd = B.Cd GROUP BY A.Cd, A.Vl
=> rows
1, 3

-- an order's name is the alias
SELECT Cd, -Cd As Vl FROM #A ORDER BY Vl
=> rows
3, -3
2, -2
1, -1

-- an order's name that only the list tells apart
SELECT A.Cd, B.Qt FROM #A A INNER JOIN #B B On A.Cd = B.Cd ORDER BY Cd, Qt Desc
=> rows
1, 2
1, 1

-- an expression of an aggregate and a group
SELECT Cd, Round(Sum(Qt) * Cd, 2), Sum(Qt) - Cd FROM #B GROUP BY Cd ORDER BY Cd
=> rows
1, 3, 2
9, 27, -6

-- neither grouped nor aggregated
SELECT Cd, Nm, Sum(Vl) FROM #A GROUP BY Cd
=> error 0x80040E14 'Nm'

-- neither grouped nor aggregated, inside a subquery
SELECT Cd, (SELECT Max(Qt) FROM #B WHERE #B.Vl > #A.Vl) FROM #A GROUP BY Cd
=> error 0x80040E14 'Vl'

-- grouped expressions meet by their values
SELECT Cd * 2 FROM #A GROUP BY Cd * 2 ORDER BY Cd * 2
=> rows
2
4
6

-- and not by their form alone
SELECT Cd * 3 FROM #A GROUP BY Cd * 2
=> error 0x80040E14 'Cd'

-- an aggregate in WHERE
SELECT Cd FROM #A WHERE Sum(Vl) > 1
=> error 0x80040E14 agregação

-- an aggregate in an aggregate
SELECT Sum(Max(Vl)) FROM #A
=> error 0x80040E14 agregação

-- united and ordered by a position
SELECT Cd, Vl FROM #A WHERE Cd < 3 UNION ALL SELECT No_Item, Qt FROM #B ORDER BY 2 Desc, 1
=> types int32 float64
=> rows
2, 20
1, 10
1, 3
2, 2
1, 1

-- united with nulls and other types
SELECT Null As X, 'a' As T UNION ALL SELECT Vl, Nm FROM #A WHERE Cd = 1
=> types money text
=> rows
NULL, 'a'
10.0000, 'um'

-- united with a first row of each
SELECT TOP 1 Cd FROM #A UNION ALL SELECT TOP 1 No_Item FROM #B WHERE Cd = 1
=> rows
1
1

-- united with different widths
SELECT Cd FROM #A UNION ALL SELECT Cd, Vl FROM #A
=> error 0x80040E14 UNION

-- a position outside the list
SELECT Cd FROM #A ORDER BY 2
=> error 0x80040E14 posição

-- constants without a table
SELECT 'DESCRIÇÃO' As Label1, Null, 1, 2.5, GetDate()
=> types text int32 int32 money date
=> rows
'DESCRIÇÃO', NULL, 1, 2.5000, 2009-04-03 14:05:06

-- comments end with the line
SELECT Cd --, Nm 'um' 5
, Vl -- Valor [a
FROM #A -- 'x
WHERE Cd = 1 -- fim
=> rows
1, 10.0000

-- names in brackets and quotes, with owners in front
SELECT [A].[Cd] As [o código], "Nm" FROM Vr5.dbo.#A [A] WHERE A.Cd=1;
=> rows
1, 'um'

-- several semicolons
;SELECT 1;; SELECT 2 ;
=> rows
2

-- a case in an aggregate
SELECT Sum(Case When Cd In (1, 2) Then Vl -- Pagamento
 Else 0 End) FROM #A
=> rows
30.0000
