-- DALContaContabil.Consultar
SELECT    *
FROM     ContaContabil
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ContaContabil = 31102

-- DALContaContabil.rsContas (whole chart)
SELECT    *
FROM     ContaContabil
WHERE    Cd_PessoaUsuaria = 1
ORDER BY Cd_Nivel1,
         Cd_Nivel2,
         Cd_Nivel3

-- DALContaContabil.rsContas (one branch)
SELECT    *
FROM     ContaContabil
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Nivel1 = 3
ORDER BY Cd_Nivel1,
         Cd_Nivel2,
         Cd_Nivel3

-- DALContaContabil.DescricaoNiveisConta (level 1)
SELECT *
FROM ContaContabil
WHERE Cd_PessoaUsuaria = 1
And Cd_Nivel1 = 3
And Cd_Nivel2 Is Null
And Cd_Nivel3 Is Null

-- DALContaContabil.DescricaoNiveisConta (level 2)
SELECT *
FROM ContaContabil
WHERE Cd_PessoaUsuaria = 1
And Cd_Nivel1 = 3
And Cd_Nivel2 = 11
And Cd_Nivel3 Is Null

-- DALContaContabil.DescricaoNiveisConta (level 3)
SELECT *
FROM ContaContabil
WHERE Cd_PessoaUsuaria = 1
And Cd_Nivel1 = 3
And Cd_Nivel2 = 11
And Cd_Nivel3 = 2

-- DALContaDRE.rsContas (one branch)
SELECT    *
FROM     ContaDRE
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Nivel1 = 3
ORDER BY Cd_Nivel1,
         Cd_Nivel2,
         Cd_Nivel3

-- DALContaDRE.DescricaoNiveisConta (level 1)
SELECT *
FROM ContaDRE
WHERE Cd_Nivel1 = 3
And Cd_Nivel2 Is Null
And Cd_Nivel3 Is Null

-- DALContaDRE.DescricaoNiveisConta (level 2)
SELECT *
FROM ContaDRE
WHERE Cd_Nivel1 = 3
And Cd_Nivel2 = 11
And Cd_Nivel3 Is Null

-- DALContaDRE.DescricaoNiveisConta (level 3)
SELECT *
FROM ContaDRE
WHERE Cd_Nivel1 = 3
And Cd_Nivel2 = 11
And Cd_Nivel3 = 2

-- DALLanContaContabil.Consultar
SELECT    *
FROM     LanContaContabil
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ContaContabil = 31102 and
         No_Lancamento = 1404

-- DALLanContaContabil.Incluir
SELECT * FROM LanContaContabil WHERE Cd_PessoaUsuaria = 0 and No_Lancamento = 0 and Cd_ContaContabil = 0

-- DALLanContaContabil.Excluir
DELETE
FROM LanContaContabil
WHERE Cd_PessoaUsuaria = 1
      and No_Lancamento = 1404

-- DALLanContaContabilConsolidado.Existe
SELECT    *
FROM     LanContaContabilConsolidado
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ContaContabil = 31102 and
         No_Ano = 2009 and
         No_Mes = 4

-- DALLanContaContabilConsolidado.ExcluirTodosMesAno
DELETE FROM LanContaContabilConsolidado
WHERE Cd_PessoaUsuaria = 1
And No_Ano = 2009
And No_Mes = 4
