-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Nm varchar(20), Fl varchar(1))
INSERT INTO #T Values (1, 'Ávila', 'N')
INSERT INTO #T Values (2, 'avila', 'n')
INSERT INTO #T Values (3, 'AVILA  ', 'S')
INSERT INTO #T Values (4, Null, Null)

-- case and trailing blanks do not count, accents do
SELECT Cd FROM #T WHERE Nm = 'Avila ' ORDER BY Cd
=> sqlite
SELECT "#T"."Cd" FROM "#T" WHERE ("#T"."Nm" = ?1) ORDER BY "#T"."Cd"
=> rows
2
3

-- the literal may stand on the left
SELECT Cd FROM #T WHERE 'áVILA' = Nm
=> rows
1

-- unequal
SELECT Cd FROM #T WHERE Nm <> 'AVILA'
=> rows
1

-- in a list
SELECT Cd FROM #T WHERE Fl In ('n', 's ') ORDER BY Cd
=> rows
1
2
3

-- not in a list drops nulls
SELECT Cd FROM #T WHERE Fl Not In ('S')
=> rows
1
2

-- an expression compares as a column does
SELECT Cd FROM #T WHERE IsNull(Fl, 'x') = 'X' OR Fl + 'a' = 'SA' ORDER BY Cd
=> rows
3
4

-- two literals
SELECT Cd FROM #T WHERE 'a' = 'A ' AND Cd = 1
=> rows
1

-- between
SELECT Cd FROM #T WHERE Nm Between 'AVILA' And 'AVILB' ORDER BY Cd
=> rows
1
2
3

-- grouped
SELECT Fl, Count(*) FROM #T GROUP BY Fl ORDER BY Fl
=> rows
NULL, 1
'N', 2
'S', 1

-- distinct of a column
SELECT Count(DISTINCT Fl) FROM #T
=> rows
2

-- distinct of an expression
SELECT DISTINCT RTrim(Fl) AS F FROM #T WHERE Cd < 3
=> rows
'N'

-- a case compares its branches blind
SELECT Cd FROM #T WHERE Case When Cd = 1 Then 'x' Else 'y' End = 'X'
=> rows
1

-- like is blind to case but not to accents or blanks
SELECT Cd FROM #T WHERE Nm Like 'AVIL_' ORDER BY Cd
=> rows
2

-- what begins with a text lies between two others
SELECT Cd FROM #T WHERE Nm Like 'av%'
=> sqlite
SELECT "#T"."Cd" FROM "#T" WHERE ("#T"."Nm" >= posto_like_from(?1) AND "#T"."Nm" <= posto_like_to(?1) AND posto_like("#T"."Nm", ?1))
=> postgresql
SELECT "#T"."Cd" FROM "#T" WHERE ("#T"."Nm" >= posto_like_from($1)::bpchar AND "#T"."Nm" <= posto_like_to($1)::bpchar AND posto_like(posto_whole("#T"."Nm"), $1))

-- a wild card in front leaves nothing to look for
SELECT Cd FROM #T WHERE Nm Like '%v%' AND Nm Like ''
=> rows

-- like with a set and a run
SELECT Cd FROM #T WHERE Nm Like '[a-c]v%' ORDER BY Cd
=> rows
1
2
3

-- not like
SELECT Cd FROM #T WHERE Nm Not Like 'av%'
=> rows
1

-- a number is searched as text
SELECT Cd FROM #T WHERE Cd Like '%3%'
=> rows
3

-- the greatest text
SELECT Max(Fl) FROM #T
=> rows
'S'

-- a quote inside a text is doubled
SELECT 'd''água'
=> rows
'd'água'

-- subquery of texts
SELECT Cd FROM #T WHERE 'n ' In (SELECT Fl FROM #T B WHERE B.Cd = #T.Cd) ORDER BY Cd
=> rows
1
2

-- concatenation with null is null
SELECT Nm + '-' + Fl FROM #T WHERE Cd > 2 ORDER BY Cd
=> rows
'AVILA  -S'
NULL

-- a text that is no number, added to one
SELECT 'a' + 1
=> error 0x80040E07 'a'

-- a number in a text, added to one
SELECT '2' + 1
=> rows
3

-- substring counts characters and blanks
SELECT Substring(Nm, 1, 2), Substring(Nm, 0, 3), Substring(Nm, 5, 80), Substring(Nm, 9, 1) FROM #T WHERE Cd In (1, 3) ORDER BY Cd
=> rows
'Áv', 'Áv', 'a', ''
'AV', 'AV', 'A  ', ''

-- isnull keeps the width of its first argument
SELECT IsNull(Fl, 'xyz') FROM #T WHERE Cd = 4
=> rows
'x'

-- the union of texts tells them apart blind
SELECT Cd FROM #T WHERE Cd = 1 AND (SELECT Fl FROM #T WHERE Cd = 1 UNION SELECT 'n ') = 'N'
=> rows
1

-- a text that does not fit
INSERT INTO #T (Cd, Fl) Values (9, 'NN')
=> error 0x80040E57 #T.Fl

-- blanks that do not fit are cut
INSERT INTO #T (Cd, Fl) Values (9, 'N  ') SELECT Fl + '|' FROM #T WHERE Cd = 9
=> rows
'N|'

-- a number becomes a text
INSERT INTO #T (Cd, Nm) Values (9, 007) SELECT Nm FROM #T WHERE Cd = 9
=> rows
'7'

-- ordered by a column that is not selected, nulls first
SELECT Cd FROM #T ORDER BY Nm Desc, Cd
=> rows
1
2
3
4
