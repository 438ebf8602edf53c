-- DALCardex.Consultar
SELECT    *
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_LancamentoCardex = 90210

-- DALCardex.Incluir
INSERT INTO Cardex
       (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Vl_Unitario, Tx_Icms,
        Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio, Cd_SisTubulacao, Cd_Produto)
Values (1, 90210, '2009-04-03', 'NF 004711', 10, 5000.00000000, 2.10550000, 25.000,
        8200.50000000, 2.10000000, 0.52500000, 2, 5)

-- DALCardex.Incluir (no piping system)
INSERT INTO Cardex
       (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Vl_Unitario, Tx_Icms,
        Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio, Cd_SisTubulacao, Cd_Produto)
Values (1, 90211, '2009-04-03', '', 20, 2.00000000, 7.50000000, 0.000,
        -1.00000000, 5.25000000, 0.00000000, Null, 120)

-- DALCardex.Alterar
UPDATE Cardex
SET   Cd_PessoaUsuaria = 1
     ,Cd_LancamentoCardex = 90210
     ,Dt_Emissao = '2009-04-03'
     ,Nm_Doc = 'NF 004711'
     ,No_Tipo = 10
     ,Qt_Unidade = 5000.00000000
     ,Vl_Unitario = 2.10550000
     ,Tx_Icms = 25.00
     ,Qt_Estoque = 8200.50000000
     ,Vl_CustoMedio = 2.10000000
     ,Vl_CredIcmsMedio = 0.52500000
     ,Cd_SisTubulacao = 2
     ,Cd_Produto = 5
WHERE Cd_PessoaUsuaria = 1
And   Cd_LancamentoCardex = 90210

-- DALCardex.Alterar (no piping system)
UPDATE Cardex
SET   Cd_PessoaUsuaria = 1
     ,Cd_LancamentoCardex = 90211
     ,Dt_Emissao = '2009-04-03'
     ,Nm_Doc = ''
     ,No_Tipo = 20
     ,Qt_Unidade = 2.00000000
     ,Vl_Unitario = 7.50000000
     ,Tx_Icms = 0.00
     ,Qt_Estoque = -1.00000000
     ,Vl_CustoMedio = 5.25000000
     ,Vl_CredIcmsMedio = 0.00000000
     ,Cd_SisTubulacao = Null
     ,Cd_Produto = 120
WHERE Cd_PessoaUsuaria = 1
And   Cd_LancamentoCardex = 90211

-- DALCardex.Excluir
DELETE
FROM Cardex
WHERE Cd_PessoaUsuaria = 1
      and Cd_LancamentoCardex = 90210

-- DALCardex.AtualizarEstoqueProduto (product)
SELECT    *
FROM     Produto
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Produto = 5

-- DALCardex.AtualizarEstoqueProduto
 UPDATE Produto
 SET    Produto.Qt_Estoque = 8200.5,
        Produto.Vl_CustoMedio = 2.099999,
        Produto.Vl_CredIcmsMedio = 0.525
 WHERE  Produto.Cd_Produto = 5

-- DALProduto.Consultar (by bar code, without tenant)
SELECT    *
FROM     Produto
WHERE    Cd_CodBarras = '7891234567895'

-- DALProduto.Incluir
Select * From Produto Where Cd_PessoaUsuaria = 0 and Cd_Produto = 0

-- DALProduto.Excluir
DELETE
FROM Produto
WHERE Cd_PessoaUsuaria = 1
      and Cd_Produto = 120

-- DALProduto.UltimoCusto
SELECT   TOP 1 Vl_Unitario
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Cd_Produto = 5
And      No_Tipo = 10
ORDER BY Dt_Emissao desc

-- DALProduto.Alterar (nozzles of the product)
Update Bomba
Set    Fl_AlterarPrecoAutomacao = -1
WHERE  Cd_Produto = 5

-- DALProduto.rsEstoque
SELECT   A.Cd_PessoaUsuaria, B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto,
         (SELECT   TOP 1 Qt_Estoque
          FROM     Cardex
          WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
          And      Cd_Produto =  A.Cd_Produto
          And      Dt_Emissao <= '2009-04-03'
          ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc) As Qt_Estoque
FROM     Produto A
INNER JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
WHERE    A.Cd_PessoaUsuaria = 1
And      Not (SELECT   TOP 1 Qt_Estoque
          FROM     Cardex
          WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
          And      Cd_Produto =  A.Cd_Produto
          And      Dt_Emissao <= '2009-04-03'
          ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc) Is Null
ORDER BY B.Nm_GrupoProduto, A.Nm_Produto

-- DALProduto.rsKardex
SELECT *
FROM   Cardex
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.Cd_Produto = 5
And    Cardex.Dt_Emissao Between '2009-04-01' And '2009-04-30'

-- DALProduto.rsKardexNegativo
SELECT *
FROM   Cardex
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.Cd_Produto = 5
And    Cardex.Dt_Emissao Between '2009-04-01' And '2009-04-30'
And    Qt_Estoque < 0

-- DALProduto.rsSomaDeAbastecimentoDoDiaBaixadoEmOutraData
SELECT   Sum(Abastecimento.Qt_Litros) As SomaDeQt_Litros
FROM     Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
LEFT JOIN ItemCupomFiscal On Abastecimento.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And Abastecimento.Cd_Abastecimento = ItemCupomFiscal.Cd_Abastecimento
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
WHERE    Abastecimento.Cd_PessoaUsuaria = 1
And      Abastecimento.Dt_Termino Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And      Bomba.Cd_Produto = 5
And      (CupomFiscal.Dt_Emissao <> '2009-04-03' Or CupomFiscal.Dt_Emissao = Null);

-- DALProduto.rsSomaDeAbastecimentoDeOutraDataBaixadoNoDia
SELECT   Sum(Abastecimento.Qt_Litros) As SomaDeQt_Litros
FROM     ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
WHERE    ItemCupomFiscal.Cd_PessoaUsuaria = 1
And      CupomFiscal.Dt_Emissao = '2009-04-03'
And      (Not Abastecimento.Dt_Termino Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59')
And      ItemCupomFiscal.Cd_Produto = 5
And      Abastecimento.Ic_Baixado <> 0;

-- DALProdutoTransferencia.Consultar (both products)
SELECT    *
FROM     ProdutoTransferencia
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ProdutoBaixa = 5 and
         Cd_ProdutoEntrada = 120

-- DALProdutoTransferencia.Consultar (automatic source)
SELECT    *
FROM     ProdutoTransferencia
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ProdutoEntrada = 120 and
         Ic_TransferenciaAutomatica <> 0

-- DALProdutoTransferencia.Consultar (target only)
SELECT    *
FROM     ProdutoTransferencia
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ProdutoEntrada = 120

-- DALProdutoTransferencia.Incluir
Select * From ProdutoTransferencia Where Cd_PessoaUsuaria = 0 and Cd_ProdutoBaixa = 0 and Cd_ProdutoEntrada = 0

-- DALProdutoTransferencia.QuantidadeProdutoTransferencia
SELECT Count(*) As Qt_ProdutoTransferencia
FROM   ProdutoTransferencia
WHERE  Cd_PessoaUsuaria = 1
And    Cd_ProdutoBaixa = 5

-- DALProdutoTransferencia.LimparTransferenciaAutomaticaProduto
Update ProdutoTransferencia
Set    Ic_TransferenciaAutomatica = 0
WHERE  Cd_ProdutoBaixa = 5
Or     Cd_ProdutoEntrada = 5

-- DALItemTransfEmbalagem.Consultar
SELECT    *
FROM     ItemTransfEmbalagem
WHERE    Cd_PessoaUsuaria = 1 and
         No_Transferencia = 33

-- DALItemTransfEmbalagem.Incluir
Select * From ItemTransfEmbalagem Where Cd_PessoaUsuaria = 0 and No_Transferencia = 0
