-- DALBairro.Consultar
SELECT    *
FROM     Bairro
WHERE    Cd_Bairro = 7

-- DALBairro.Incluir
Select * From Bairro Where Cd_Bairro = 0

-- DALBairro.Excluir
DELETE
FROM Bairro
WHERE Cd_Bairro = 7

-- DALBairro.CarregarComboBox
 SELECT   Cd_Bairro, Nm_Bairro
 FROM     Bairro
 ORDER BY Nm_Bairro

-- DALBairro.CarregarComboBox (with a condition)
 SELECT   Cd_Bairro, Nm_Bairro
 FROM     Bairro
 WHERE Cd_Bairro > 3
 ORDER BY Nm_Bairro

-- sqlSelect (no key)
SELECT    *
FROM     TipoRecebimento
ORDER BY Nm_TipoRecebimento

-- sqlSelect (text key)
SELECT    *
FROM     Veiculo
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Veiculo = 'ABC1234'

-- sqlSelect (date key)
SELECT    *
FROM     Feriado
WHERE    Dt_Feriado = '2009-04-21'

-- sqlSelect (money key)
SELECT    *
FROM     TributosDespesa
WHERE    Cd_PessoaUsuaria = 1 and
         No_Despesa = 12 and
         Cd_Cfop = '1.556' and
         No_SitTributaria = '000' and
         Tx_Icms = 18.0

-- sqlSelect (boolean key, false)
SELECT    *
FROM     ProdutoTransferencia
WHERE    Cd_PessoaUsuaria = 1 and
         Ic_TransferenciaAutomatica = 0

-- sqlSelect (fields, group, having and order)
SELECT   Cd_PessoaUsuaria,
         Cd_GrupoProduto,
         Sum(Qt_Estoque) As Qt_Estoque
FROM     Produto
WHERE    Cd_PessoaUsuaria = 1 and
         No_Tipo = 1
GROUP BY Cd_PessoaUsuaria,
         Cd_GrupoProduto
HAVING Cd_PessoaUsuaria = 1
ORDER BY Cd_GrupoProduto

-- sqlSelect (a key whose type writes no condition)
-- refused: a condition is missing behind the last and
SELECT    *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1 and

-- sqlSelect2
SELECT    *
FROM     CupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03'
         and Ic_Excluido = 0

-- sqlSelect2 (with order)
SELECT    *
FROM     ItemCupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_CupomFiscal = 1530
         and Ic_Excluido = 0ORDER BY No_Item

-- sqlSelect2 (deleted records too)
SELECT    *
FROM     CupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03'

-- sqlSelect2 (no key)
-- refused: the word and stands in front of WHERE
SELECT    *
FROM     CupomFiscal
and
WHERE        Ic_Excluido = 0

-- sqlDelete (money key, all decimals)
DELETE
FROM MedidaTanque
WHERE Tp_MedidaTanque = 8
      and Qt_Centimetros = 12.3456

-- sqlDelete (text and date keys)
DELETE
FROM ECFRegistro60Analitico
WHERE Cd_PessoaUsuaria = 1
      and No_Impressora = 2
      and Ds_TipoRegistro = '60A'
      and Dt_Movimento = '2009-04-03'

-- sqlDelete (a key whose type writes no condition)
-- refused: a condition is missing in front of and
DELETE
FROM ProdutoTransferencia
WHERE       and Cd_PessoaUsuaria = 1

-- sqlIndicadorExcluido
UPDATE CupomFiscal
SET    Ic_Excluido = -1
WHERE Cd_PessoaUsuaria = 1
      and No_Impressora = 2
      and No_CupomFiscal = 1530
      and Dt_Emissao = '2009-04-03'

-- DALBuscaGenerica (no condition)
SELECT Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf
FROM Pessoa
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (text, IGUAL A)
SELECT Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf
FROM Pessoa
 WHERE Nm_Pessoa = 'POSTO DO VALE LTDA'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (text, DIFERENTE DE)
SELECT Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf
FROM Pessoa
 WHERE Nm_Pessoa <> 'POSTO DO VALE LTDA'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (text, CONTENDO, join and complement)
SELECT Pessoa.Cd_Pessoa, Nm_Pessoa, Cliente.No_SituacaoCredito, Dt_Inclusao
FROM Pessoa INNER JOIN Cliente On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa
 WHERE Nm_Pessoa Like '%VALE%' And Cliente.Cd_PessoaUsuaria = 1
ORDER BY Nm_Pessoa, Pessoa.Cd_Pessoa

-- DALBuscaGenerica (text, INICIANDO COM)
SELECT Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf
FROM Pessoa
 WHERE Nm_Pessoa Like '%VALE'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (text, TERMINANDO COM, two conditions)
SELECT Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf
FROM Pessoa
 WHERE Nm_Pessoa Like 'POSTO%' AND Cd_CgcCpf Like '%0001%'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (wild cards in the text searched)
SELECT Cd_Pessoa, Nm_Pessoa
FROM Pessoa
 WHERE Nm_Pessoa Like '%[A-C]_100%%'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (a quote in the text searched)
-- refused: the quote ends the text
SELECT Cd_Pessoa, Nm_Pessoa
FROM Pessoa
 WHERE Nm_Pessoa = 'O'Brien'
ORDER BY Nm_Pessoa

-- DALBuscaGenerica (number)
SELECT Cd_Produto, Nm_Produto, Vl_Preco
FROM Produto
 WHERE Vl_Preco = 2.499 And Cd_PessoaUsuaria = 1
ORDER BY Cd_Produto

-- DALBuscaGenerica (number, DIFERENTE DE)
SELECT Cd_Produto, Nm_Produto, Vl_Preco
FROM Produto
 WHERE Cd_Produto <> 5 And Cd_PessoaUsuaria = 1
ORDER BY Cd_Produto

-- DALBuscaGenerica (date, INICIANDO COM)
SELECT No_CupomFiscal, Dt_Emissao, Vl_TotalLiquido, Fl_CupomAssinado
FROM CupomFiscal
 WHERE Dt_Emissao >= '2009-04-03' And Cd_PessoaUsuaria = 1
ORDER BY Dt_Emissao, No_CupomFiscal

-- DALBuscaGenerica (date, TERMINANDO COM)
SELECT No_CupomFiscal, Dt_Emissao, Vl_TotalLiquido, Fl_CupomAssinado
FROM CupomFiscal
 WHERE Dt_Emissao <= '2009-04-03' And Cd_PessoaUsuaria = 1
ORDER BY Dt_Emissao, No_CupomFiscal

-- DALBuscaGenerica (complement alone)
SELECT No_CupomFiscal, Dt_Emissao, Vl_TotalLiquido
FROM CupomFiscal
Where Cd_PessoaUsuaria = 1
ORDER BY Dt_Emissao

-- DALPonVens.ConsultarTodasRs
SELECT    *
FROM     PonVen
WHERE    Cd_PessoaUsuaria = 1
ORDER BY Cd_PonVen

-- DALTiposRecebimento.ConsultarTodasRs
SELECT    *
FROM     TipoRecebimento
ORDER BY Nm_TipoRecebimento
