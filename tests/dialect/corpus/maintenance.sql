-- DALManutencaoBd.Backup (database)
USE Vr5

-- DALManutencaoBd.Backup (device)
EXEC sp_addumpdevice 'disk', 'Vr5Bkp', 'C:\Posto\Bkp\Vr5Bkp.bak'

-- DALManutencaoBd.Backup (full)
BACKUP DATABASE Vr5
TO Vr5Bkp

-- DALManutencaoBd.Backup (incremental)
BACKUP DATABASE Vr5
TO Vr5Bkp
WITH DIFFERENTIAL
