-- setup
CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Vl money, Qt float, Dt datetime, Nm varchar(10))
INSERT INTO #T Values (12, 1234.5, 0.5, '2009-04-03 14:05:06.123', 'abc')

-- char is padded to thirty
SELECT Convert(Char, Cd) + '|', RTrim(Convert(Char, Cd)), Convert(Char(5), Nm) + '|' FROM #T
=> types text text text
=> rows
'12                            |', '12', 'abc  |'

-- varchar is not padded
SELECT Cast(Cd As varchar) + '|', Cast(Nm As VARchar(2)) FROM #T
=> rows
'12|', 'ab'

-- a number that is too wide
SELECT Cast(Cd * 10 As VARchar(2)), Cast(Cd As VARchar(2)) FROM #T
=> rows
'*', '12'

-- money that is too wide
SELECT Convert(varchar(3), Vl) FROM #T
=> error 0x80040E57 1234.50

-- money and floats as text
SELECT Convert(varchar, Vl), Convert(varchar, Vl, 1), Convert(varchar, Vl, 2), Convert(varchar, Qt), Convert(varchar, Qt * 10000000) FROM #T
=> rows
'1234.50', '1,234.50', '1234.5000', '0.5', '5e+006'

-- dates as text
SELECT Convert(Char(8), Dt, 108), Convert(varchar, Dt, 103), Convert(varchar, Dt, 112), Convert(varchar, Dt, 120), Convert(varchar, Dt, 121) FROM #T
=> rows
'14:05:06', '03/04/2009', '20090403', '2009-04-03 14:05:06', '2009-04-03 14:05:06.123'

-- a date without a style
SELECT Cast(Dt As varchar), RTrim(Convert(Char, Dt, 108)) FROM #T
=> rows
'Apr  3 2009  2:05PM', '14:05:06'

-- an unknown style
SELECT Convert(varchar, Dt, 999) FROM #T
=> error 0x80040E14 999

-- a substring sees the blanks of char
SELECT Substring(Convert(Char, Cd) + 'x', 30, 2) FROM #T
=> rows
' x'

-- a decimal as text, and a float where text is wanted
SELECT Cast(12.50 As varchar), Cast(-0.25 As varchar), IsNull(Cast(Null As varchar(9)), 1e3), IsNull(Cast(Null As varchar(9)), -2.5e7)
=> rows
'12.50', '-0.25', '1000', '-2.5e+007'

-- a date and a number do not convert
SELECT Cast(Dt As Int) FROM #T
=> error 0x80040E14 posição 8
