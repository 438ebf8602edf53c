-- DALFecDiario.Consultar
SELECT    *
FROM     FecDiario
WHERE    Cd_PessoaUsuaria = 1 and
         Dt_FecDiario = '2009-04-03'

-- DALFecDiario.Incluir
Select * From FecDiario Where Cd_PessoaUsuaria = 0 and Dt_FecDiario = Null

-- DALFecDiario.RsSomaDeCupomEItens
SELECT ItemCupomFiscal.Cd_PessoaUsuaria, ItemCupomFiscal.No_Impressora, ItemCupomFiscal.No_CupomFiscal, ItemCupomFiscal.Dt_Emissao,
Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)) As Vl_Total,
CupomFiscal.Vl_TotalLiquido, CupomFiscal.Vl_DescontoCF
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And ItemCupomFiscal.Dt_Emissao = '2009-04-03'
GROUP BY ItemCupomFiscal.Cd_PessoaUsuaria, ItemCupomFiscal.No_Impressora, ItemCupomFiscal.No_CupomFiscal, ItemCupomFiscal.Dt_Emissao,
Vl_Total, CupomFiscal.Vl_TotalLiquido, CupomFiscal.Vl_DescontoCF

-- DALFecDiario.rsCupomFiscalSemItem
SELECT A.*
FROM   CupomFiscal A
LEFT JOIN ItemCupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
WHERE  A.Dt_Emissao = '2009-04-03'
And B.No_CupomFiscal Is Null
And A.Vl_TotalLiquido > 0

-- DALFecDiario.RsItemNotaSaidaSemCardex
SELECT ItemNotaSaida.*
FROM   ItemNotaSaida
INNER JOIN NotaSaida On ItemNotaSaida.Cd_PessoaUsuaria = NotaSaida.Cd_PessoaUsuaria
And ItemNotaSaida.Cd_TipoNF = NotaSaida.Cd_TipoNF
And ItemNotaSaida.No_Nota = NotaSaida.No_Nota
WHERE  ItemNotaSaida.Cd_PessoaUsuaria = 1
And ItemNotaSaida.Cd_LancamentoCardex Is Null
And Fl_NfServicosDeCupom = 0
And Fl_FatVariosCupons = 0
And Fl_FatUnicoCupom = 0
And NotaSaida.Dt_Emissao = '2009-04-03'
And (NotaSaida.Cd_Operacao = 10 or NotaSaida.Cd_Operacao = 30)

-- DALFecDiario.RsItemNotaEntradaSemCardex
SELECT ItemNotaEntrada.*
FROM   ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
WHERE  NotaEntrada.Cd_PessoaUsuaria = 1
And ItemNotaEntrada.Cd_LancamentoCardex Is Null
And NotaEntrada.Dt_Emissao = '2009-04-03'
And NotaEntrada.Cd_Operacao In (10,20)

-- DALFecDiario.RsItemCupomFiscalSemCardex
SELECT ItemCupomFiscal.*
FROM ItemCupomFiscal
WHERE Cd_PessoaUsuaria = 1
And Cd_LancamentoCardex Is Null
And Dt_Emissao = '2009-04-03'

-- DALFecDiario.RsCardexSemVenda
SELECT Cardex.*
FROM   Cardex
LEFT JOIN ItemCupomFiscal On Cardex.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And Cardex.Cd_LancamentoCardex = ItemCupomFiscal.Cd_LancamentoCardex
LEFT JOIN ItemNotaSaida On Cardex.Cd_PessoaUsuaria = ItemNotaSaida.Cd_PessoaUsuaria And Cardex.Cd_LancamentoCardex = ItemNotaSaida.Cd_LancamentoCardex
LEFT JOIN ItemNotaEntrada On Cardex.Cd_PessoaUsuaria = ItemNotaEntrada.Cd_PessoaUsuaria And Cardex.Cd_LancamentoCardex = ItemNotaEntrada.Cd_LancamentoCardex
WHERE  Cardex.Cd_PessoaUsuaria = 1
And Cardex.Cd_Produto = 5
And ItemCupomFiscal.Cd_LancamentoCardex Is Null
And ItemNotaSaida.Cd_LancamentoCardex Is Null
And ItemNotaEntrada.Cd_LancamentoCardex Is Null
And Cardex.Dt_Emissao > '2009-03-31'
And (Cardex.No_Tipo = 10 or Cardex.No_Tipo = 20)
ORDER BY Cardex.Cd_LancamentoCardex

-- DALFecDiario.RsBicos
SELECT *
FROM   Bomba
WHERE  Cd_PessoaUsuaria = 1

-- DALFecDiario.Rs_ProdutosVendidos
SELECT   Cd_Produto
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Dt_Emissao = '2009-04-03'
GROUP BY Cd_Produto

-- DALFecDiario.Rs_TodosProdutosVendidosAPartirDaData
SELECT   Cd_Produto
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Dt_Emissao >= '2009-04-01'
GROUP BY Cd_Produto

-- DALFecDiario.Rs_BaixaAbastecimentoDuplicidade (repair)
Update ItemCupomFiscal
Set    Cd_Abastecimento = Null
WHERE  Cd_PessoaUsuaria = 1
And    Cd_Produto > 5
And    (Not Cd_Abastecimento Is Null)
And    (SELECT Fl_VendBomba
        FROM Produto
        WHERE Produto.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
        And Produto.Cd_Produto = ItemCupomFiscal.Cd_Produto) = 0

-- DALFecDiario.Rs_BaixaAbastecimentoDuplicidade
SELECT   Cd_Abastecimento, Count(*) As Qt_BaixasDoAbastecimento
FROM     ItemCupomFiscal
WHERE    Cd_PessoaUsuaria = 1
And      Dt_Emissao <= '2009-04-03'
And      (Not Cd_Abastecimento Is Null)
GROUP BY Cd_Abastecimento
HAVING   Count(*) > 1

-- DALFecDiario.Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente
SELECT ItemCupomFiscal.*
FROM   ItemCupomFiscal
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
LEFT JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = 1
And ItemCupomFiscal.Dt_Emissao = '2009-04-03'
And Produto.Fl_VendBomba <> 0
And (ItemCupomFiscal.Cd_Abastecimento Is Null Or Abastecimento.Cd_Abastecimento Is Null)

-- DALFecDiario.Rs_RecebimentosETroco
SELECT CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
CupomFiscal.Vl_TotalLiquido, Sum(Recebimento.Vl_Recebimento) As SomaVl_Recebimento,
Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura
FROM CupomFiscal
LEFT JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
LEFT JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
INNER JOIN Caixa On CupomFiscal.Cd_Caixa = Caixa.Cd_Caixa
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Emissao = '2009-04-03'
GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
CupomFiscal.Vl_TotalLiquido, Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura, CupomFiscal.Tp_Venda
HAVING   Sum(Recebimento.Vl_Recebimento) <> CupomFiscal.Vl_TotalLiquido
And CupomFiscal.Vl_TotalLiquido > 0
And CupomFiscal.Tp_Venda Between 20 and 29

-- DALFecDiario.Rs_RecebimentoSemCupom
SELECT Recebimento.*
FROM   Recebimento
LEFT JOIN RecebimentoCupom On Recebimento.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
And Recebimento.No_Recebimento = RecebimentoCupom.No_Recebimento
LEFT JOIN CupomFiscal On RecebimentoCupom.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And RecebimentoCupom.No_Impressora = CupomFiscal.No_Impressora
And RecebimentoCupom.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And RecebimentoCupom.Dt_Emissao = CupomFiscal.Dt_Emissao
WHERE  Recebimento.Cd_PessoaUsuaria = 1
And Recebimento.Dt_Lancamento Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And Recebimento.Tp_DocDebito = 20
And CupomFiscal.No_CupomFiscal Is Null
And Recebimento.Ic_Suprimento = 0
ORDER BY Recebimento.Dt_Lancamento

-- DALFecDiario.Rs_SomaDeRecebimentoPorCupom
SELECT A.No_Impressora, A.No_CupomFiscal, A.Dt_Emissao, A.Vl_TotalLiquido, Sum(C.Vl_Recebimento) As SomaDeVl_Recebimento
FROM   CupomFiscal A
LEFT JOIN RecebimentoCupom B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
LEFT JOIN Recebimento C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.No_Recebimento = C.No_Recebimento
WHERE  A.Cd_PessoaUsuaria = 1
And A.Dt_Emissao = '2009-04-03'
And A.Tp_Venda Between 20 And 29
GROUP BY A.No_Impressora, A.No_CupomFiscal, A.Dt_Emissao, A.Vl_TotalLiquido

-- DALFecDiario.Rs_QuantidadeBaixaEAbastecimento
SELECT ItemCupomFiscal.Cd_Abastecimento, ItemCupomFiscal.Qt_Unidade, Abastecimento.Qt_Litros
FROM   ItemCupomFiscal
LEFT JOIN Abastecimento On ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = 1
And ItemCupomFiscal.Dt_Emissao = '2009-04-03'
And ItemCupomFiscal.Qt_Unidade - Abastecimento.Qt_Litros > 1

-- DALFecDiario.Rs_TodasEntradasForamConcluidas
SELECT *
FROM   NotaEntrada
WHERE  Cd_PessoaUsuaria = 1
And Ic_Concluido = 0
And (Dt_Entrega = '2009-04-03' Or Dt_Saida = '2009-04-03' Or Dt_Entrega = '2009-04-03')

-- DALFecDiario.Rs_CaixaNaoFechado
SELECT *
FROM   Caixa
WHERE  Cd_PessoaUsuaria = 1
And Dt_Abertura = '2009-04-03'
And Cd_Situacao <> 3

-- DALFecDiario.Rs_SomaVendasCFAgrupadosPorECF
SELECT No_Impressora,
Min(No_CupomFiscal) As MinimoDeNo_CupomFiscal,
Max(No_CupomFiscal) As MaximoDeNo_CupomFiscal,
Min(Vl_GTotal) As MinimoDeVl_GTotal,
Max(Vl_GTotal) As MaximoDeVl_GTotal,
Max(Vl_Cancelamentos) As MaximoDeVl_Cancelamentos,
Sum(Vl_SubTrib) As SomaDeVl_SubTrib,
Sum(Vl_DescontoCF) As SomaDeVl_DescontoCF,
Sum(Vl_TotSer) As SomaDeVl_TotSer
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And Dt_Movimento = '2009-04-03'
GROUP BY No_Impressora

-- DALFecDiario.VerificarSequenciaDeVendasComGtEcf (map rows)
SELECT *
FROM     MapaResumoECF
WHERE    Cd_PessoaUsuaria = 1
And      Dt_Movimento = '2009-04-03'

-- DALFecDiario.VerificarSequenciaDeVendasComGtEcf (coupon sum)
SELECT   Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
FROM     CupomFiscal
WHERE    CupomFiscal.Cd_PessoaUsuaria = 1
And      CupomFiscal.Dt_Movimento='2009-04-03'

-- DALFecDiario.VerificarSequenciaDeVendasComGtEcf (coupons of a reduction)
SELECT   CupomFiscal.*
FROM     CupomFiscal
INNER JOIN MapaResumoECF On CupomFiscal.Cd_PessoaUsuaria = MapaResumoECF.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = MapaResumoECF.No_Impressora
And CupomFiscal.Qt_ContReducoes = MapaResumoECF.Qt_ContReducoes
WHERE    MapaResumoECF.Cd_PessoaUsuaria = 1
And      MapaResumoECF.Dt_Movimento = '2009-04-03'
And      MapaResumoECF.No_Impressora = 2
And      MapaResumoECF.Qt_ContReducoes = 412
ORDER BY CupomFiscal.Dt_Emissao, CupomFiscal.No_Impressora, CupomFiscal.Qt_ContReducoes, CupomFiscal.Hr_Emissao, CupomFiscal.No_CupomFiscal

-- DALFecDiario.CorrigeProblemaAbastecimentoZerado
SELECT A.Cd_PessoaUsuaria, A.Cd_Abastecimento, B.Qt_Unidade
FROM   Abastecimento A
INNER JOIN ItemCupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Abastecimento = B.Cd_Abastecimento
WHERE  A.Cd_PessoaUsuaria = 1
And (A.Dt_Termino  Between '2009-04-03 00:00:00' and '2009-04-03 23:59:59' or B.Dt_Emissao = '2009-04-03')
And A.Qt_Litros = 0
And B.Qt_Unidade > 0

-- DALFecDiario.CorrigeProblemaAbastecimentoZerado (one fuelling)
Update Abastecimento
SET    Qt_Litros = 40.13
WHERE  Cd_PessoaUsuaria = 1
And    Cd_Abastecimento = 4711

-- DALFecDiario.CorrigeProblemaIntervaloNosAbastecimentosDigitados (nozzles)
SELECT   Bomba.Cd_Bomba, Bomba.De_EnderecoLogicoBico
FROM     Bomba
INNER JOIN Abastecimento On Bomba.De_EnderecoLogicoBico = Abastecimento.De_EnderecoLogicoBico
WHERE    Abastecimento.Tp_OrigemRegistro = 3
And      Dt_Termino >= '2009-04-03 00:00:00'
GROUP BY Bomba.Cd_Bomba, Bomba.De_EnderecoLogicoBico

-- DALFecDiario.CorrigeProblemaIntervaloNosAbastecimentosDigitados (fuellings of a nozzle)
SELECT   *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1
And      De_EnderecoLogicoBico = '04'
And      Dt_Termino >= '2009-04-03 00:00:00'
ORDER BY Dt_Termino, No_Contador, Cd_Abastecimento

-- DALFecDiario.CorrigeProblemaIntervaloNosAbastecimentosDigitados (one fuelling)
Update Abastecimento
Set    No_EncerranteFechamento = 123456.7800
WHERE  Cd_Abastecimento = 4712

-- DALFecDiario.CorrigeProblemaIntervaloNosAbastecimentosDigitados (one nozzle)
Update Bomba
SET    No_UltEncerrante = 123456.780,
       No_UltEncerranteAutomacao = 123456.780
WHERE  Cd_PessoaUsuaria = 1
And    Cd_Bomba = 3

-- DALProduto.UltimoEstoqueDeKardexAtualizado (opening figures)
SELECT   Produto.Qt_EstoqueInicial, Produto.Vl_CustoMedioInicial, Produto.Vl_CredIcmsMedioInicial
FROM     Produto
WHERE    Produto.Cd_PessoaUsuaria = 1
And      Produto.Cd_Produto = 5

-- DALProduto.UltimoEstoqueDeKardexAtualizado (last entry before the day)
SELECT   Top 1 Cardex.Qt_Estoque, Cardex.Vl_CustoMedio, Cardex.Vl_CredIcmsMedio
FROM     Cardex
WHERE    Cardex.Cd_PessoaUsuaria = 1
And      Cardex.Cd_Produto = 5
And      Cardex.Dt_Emissao < '2009-04-03'
ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc

-- DALFecDiario.AtualizaEstoqueCardex (walk from a day on)
SELECT   *
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Cd_Produto = 5
And      Dt_Emissao >= '2009-04-03'
ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao, Cardex.Cd_LancamentoCardex

-- DALFecDiario.AtualizaEstoqueCardex (walk of one day)
SELECT   *
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Cd_Produto = 5
And      Dt_Emissao = '2009-04-03'
ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao, Cardex.Cd_LancamentoCardex

-- DALFecDiario.AtualizaEstoqueCardex (one entry)
UPDATE Cardex
SET    Qt_Estoque = 820.5000,
       Vl_CustoMedio = 2.1000,
       Vl_CredIcmsMedio = 0.5250
WHERE  Cd_PessoaUsuaria = 1
And    Cd_LancamentoCardex = 90210

-- DALFecDiario.AtualizaEstoqueCardex (one entry, a figure of a thousand or more)
-- refused: a grouped figure has two points once its comma is a point
UPDATE Cardex
SET    Qt_Estoque = 8.200.5000,
       Vl_CustoMedio = 2.1000,
       Vl_CredIcmsMedio = 0.5250
WHERE  Cd_PessoaUsuaria = 1
And    Cd_LancamentoCardex = 90210

-- DALFecDiario.AtualizaEstoqueCardex (product)
UPDATE Produto
SET    Produto.Qt_Estoque = 8200.5,
       Produto.Vl_CustoMedio = 2.1,
       Produto.Vl_CredIcmsMedio = 0
WHERE  Cd_PessoaUsuaria = 1
And    Produto.Cd_Produto=5

-- DALFecDiario.ConferirCalculoEstoque
SELECT Produto.Cd_Produto, Cardex.No_Tipo, Sum(Cardex.Qt_Unidade) as Qt_TotUnidade, Produto.Qt_EstoqueInicial, Produto.Qt_Estoque, Produto.Fl_VendBomba
FROM     Produto
LEFT JOIN Cardex ON Produto.Cd_PessoaUsuaria = Cardex.Cd_PessoaUsuaria And Cardex.Cd_Produto = Produto.Cd_Produto
WHERE    Produto.Cd_PessoaUsuaria = 1
And      Produto.Cd_Produto = 5
GROUP BY Produto.Cd_Produto, Cardex.No_Tipo, Produto.Qt_EstoqueInicial, Produto.Qt_Estoque, Produto.Fl_VendBomba
ORDER BY Produto.Cd_Produto, Cardex.No_Tipo

-- DALFecDiario.ConferirAtualizacaoCardex
SELECT   *
FROM     Cardex
WHERE    Cd_PessoaUsuaria = 1
And      Cd_Produto = 5
And      Dt_Emissao > '2009-04-03'
ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc

-- DALLmc.Existe
SELECT    *
FROM     LMC
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Produto = 5 and
         Dt_Lmc = '2009-04-03'

-- DALLmc.Incluir
Select * From LMC Where Cd_PessoaUsuaria = 0 and Dt_Lmc = null and Cd_Produto = 0

-- DALLmc.rsCombustiveis
SELECT *
FROM Produto
WHERE Fl_VendBomba <> 0

-- DALLmc.rsSistemasDeTubulacaoDoProduto
SELECT *
FROM   SisTubulacao
WHERE  Cd_PessoaUsuaria = 1
And    Cd_Produto = 5

-- DALLmc.rsTanquesLigadosAoSistemaDeTubulacao
SELECT Tanque.*
FROM   Tanque
WHERE  Tanque.Cd_PessoaUsuaria = 1
And    Tanque.Cd_SisTubulacao = 2
ORDER BY No_Tanque

-- DALLmc.rsTanquesLigadosAoBico
SELECT Tanque.No_Tanque
FROM   Bomba
INNER JOIN SisTubulacao On Bomba.Cd_PessoaUsuaria = SisTubulacao.Cd_PessoaUsuaria And Bomba.Cd_SisTubulacao = SisTubulacao.Cd_SisTubulacao
INNER JOIN Tanque On SisTubulacao.Cd_PessoaUsuaria = Tanque.Cd_PessoaUsuaria And SisTubulacao.Cd_SisTubulacao = Tanque.Cd_SisTubulacao
WHERE  Bomba.Cd_PessoaUsuaria = 1
And    Bomba.Cd_Bomba = 3
ORDER BY Tanque.No_Tanque

-- DALLmc.EstoqueParaSistemaDeTubulacao
SELECT *
FROM   EstoqueSisTubulacao
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Estoque = '2009-04-03'
And    Cd_SisTubulacao = 2

-- DALLmc.EstoqueParaTanque (below a maximum)
SELECT Max(Qt_Litros) As Qt_Litros
FROM   Tanque
INNER JOIN MedidaTanque On Tanque.Tp_MedidaTanque = MedidaTanque.Tp_MedidaTanque
WHERE  Tanque.Cd_PessoaUsuaria = 1
And    No_Tanque = 4
And    Qt_Litros < 8201

-- DALLmc.EstoqueParaTanque (above a minimum)
SELECT Min(Qt_Litros) As Qt_Litros
FROM   Tanque
INNER JOIN MedidaTanque On Tanque.Tp_MedidaTanque = MedidaTanque.Tp_MedidaTanque
WHERE  Tanque.Cd_PessoaUsuaria = 1
And    No_Tanque = 4
And    Qt_Litros > 8200

-- DALLmc.EstoqueParaTanque (top of the table)
SELECT Max(Qt_Litros) As Qt_Litros
FROM   Tanque
INNER JOIN MedidaTanque On Tanque.Tp_MedidaTanque = MedidaTanque.Tp_MedidaTanque
WHERE  Tanque.Cd_PessoaUsuaria = 1
And    No_Tanque = 4

-- DALLmc.rsCompras
SELECT Descarga.*, NotaEntrada.No_Nota, NotaEntrada.Dt_Emissao
FROM   Descarga
INNER JOIN NotaEntrada On Descarga.No_Entrada = NotaEntrada.No_Entrada
WHERE  Descarga.Cd_PessoaUsuaria = 1
And    Descarga.Cd_ProdutoDescarga = 5
And    NotaEntrada.Dt_Entrega = '2009-04-03'

-- DALLmc.rsComprasNoCardex
SELECT Sum(Qt_Unidade) As SomaDeQt_Unidade
FROM   Cardex
WHERE  Cd_PessoaUsuaria = 1
And    No_Tipo = 10
And    Dt_Emissao = '2009-04-03'
And    Cd_Produto = 5

-- DALLmc.rsBicosComVendaNoDia
SELECT Bomba.Cd_Bomba, Bomba.Cd_Produto
FROM   Bomba
LEFT JOIN Abastecimento On Bomba.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And Bomba.De_EnderecoLogicoBico = Abastecimento.De_EnderecoLogicoBico
WHERE  Bomba.Cd_PessoaUsuaria = 1
And    Abastecimento.Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Bomba.Cd_Produto = 5
GROUP BY Bomba.Cd_Bomba, Bomba.Cd_Produto

-- DALLmc.rsVendaDoBicoNoDia
SELECT Abastecimento.No_EncerranteFechamento, Abastecimento.Qt_Litros
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Bomba.Cd_Bomba = 3
And    Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
ORDER BY Dt_Termino

-- DALLmc.rsSomaDasVendasDoBicoNoDia
SELECT Sum(Qt_Litros) As SomaQt_Litros
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Bomba.Cd_Bomba = 3
And    Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Ic_Afericao = 0

-- DALLmc.rsSomaDasAfericoesDoBicoNoDia
SELECT Sum(Qt_Litros) As SomaQt_Litros
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Bomba.Cd_Bomba = 3
And    Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Ic_Afericao <> 0

-- DALLmc.rsSomaDosValoresVendidosDoProdutoNoDiaEmMoeda
SELECT Sum(Abastecimento.Vl_Total) As SomaDeVl_Venda
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Abastecimento.Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Bomba.Cd_Produto = 5

-- DALLmc.rsSomaDosValoresVendidosDoProdutoNoMesEmMoeda
SELECT Sum(Abastecimento.Vl_Total) As SomaDeVl_Venda
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Abastecimento.Dt_Termino between '2009-04-01 00:00:00' And '2009-04-03 23:59:59'
And    Bomba.Cd_Produto = 5

-- DALLmc.rsPrecosCombustivel
SELECT Abastecimento.Vl_Preco
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Abastecimento.Dt_Termino between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Bomba.Cd_Produto = 5
GROUP BY Abastecimento.Vl_Preco

-- DALLmc.rsPerdasESobrasDoCardex
SELECT *
FROM   Cardex
INNER JOIN Produto On Cardex.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And Cardex.Cd_Produto = Produto.Cd_Produto
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.No_Tipo In(11, 14, 21, 24)
And    Cardex.Dt_Emissao = '2009-04-03'
And    Produto.Fl_VendBomba = 1

-- DALFecDiario.Rs_TodosLancamentosIncFecDiario
SELECT A.*
FROM   LanContaContabil A
WHERE  A.Cd_PessoaUsuaria = 1
And    A.Fl_IncluidoPorFecDiario <> 0
And    A.Dt_Lancamento = '2009-04-03'

-- DALFecDiario.Rs_JurosRecebidos
SELECT Sum(Vl_JurosRec) As SomaDeVl_JurosRec
FROM   Recebimento
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Lancamento Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'

-- DALFecDiario.Rs_AcrescimentoFaturamento
SELECT Sum(Vl_AcrPag) As SomaDeVl_AcrPag
FROM   ContaAReceber
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Lanc Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'

-- DALFecDiario.Rs_DescontoFaturamento
SELECT Sum(Vl_DesPag) As SomaDeVl_DesPag
FROM   ContaAReceber
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Lanc Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'

-- DALFecDiario.Rs_ContasInsolventes
SELECT TipoContaAReceber.Nm_ContaReceber, ContaAReceber.Cd_ContaAReceber, Pessoa.Nm_Pessoa, ContaAReceber.Vl_Debito,
Sum(Recebimento.Vl_Amortizacao) As SomaDeVl_Amortizacao, ContaAReceber.Cd_Origem, ContaAReceber.Cd_RecebimentoOrigem,
TipoRecebimento.Nm_TipoRecebimento
FROM   ContaAReceber
LEFT JOIN Recebimento On ContaAReceber.Cd_ContaAReceber = Recebimento.No_DocDebito
INNER JOIN Pessoa On ContaAReceber.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN TipoContaAReceber On ContaAReceber.Cd_TipoContaAReceber = TipoContaAReceber.Cd_TipoContaAReceber
LEFT JOIN TipoRecebimento On ContaAReceber.Cd_RecebimentoOrigem = TipoRecebimento.Cd_TipoRecebimento
WHERE  ContaAReceber.Cd_PessoaUsuaria = 1
And    ContaAReceber.Dt_IncInsoluvel = '2009-04-03'
GROUP BY TipoContaAReceber.Nm_ContaReceber, ContaAReceber.Cd_ContaAReceber, Pessoa.Nm_Pessoa, ContaAReceber.Vl_Debito,
ContaAReceber.Cd_Origem, ContaAReceber.Cd_RecebimentoOrigem, TipoRecebimento.Nm_TipoRecebimento

-- DALFecDiario.Rs_InadiplenciaRecuperada
SELECT ContaAReceber.Cd_ContaAReceber, TipoRecebimento.Nm_TipoRecebimento, Pessoa.Nm_Pessoa,
Sum(Recebimento.Vl_Amortizacao) As SomaDeVl_Amortizacao, ContaAReceber.Cd_Origem, ContaAReceber.Cd_RecebimentoOrigem
FROM   Recebimento
LEFT JOIN ContaAReceber On ContaAReceber.Cd_ContaAReceber = Recebimento.No_DocDebito
LEFT JOIN Pessoa On ContaAReceber.Cd_Pessoa = Pessoa.Cd_Pessoa
LEFT JOIN TipoContaAReceber On ContaAReceber.Cd_TipoContaAReceber = TipoContaAReceber.Cd_TipoContaAReceber
LEFT JOIN TipoRecebimento On ContaAReceber.Cd_RecebimentoOrigem = TipoRecebimento.Cd_TipoRecebimento
WHERE  Recebimento.Cd_PessoaUsuaria = 1
And    Recebimento.Dt_Lancamento > ContaAReceber.Dt_IncInsoluvel
And    Recebimento.Dt_Lancamento = '2009-04-03'
GROUP BY ContaAReceber.Cd_ContaAReceber, TipoRecebimento.Nm_TipoRecebimento, Pessoa.Nm_Pessoa,
ContaAReceber.Cd_Origem, ContaAReceber.Cd_RecebimentoOrigem

-- DALFecDiario.Rs_MargemContribuicao
SELECT Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Sum(Cardex.Qt_Unidade) As SomaDeQt_Unidade
FROM   Cardex
LEFT JOIN Produto On Cardex.Cd_Produto = Produto.Cd_Produto
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.Dt_Emissao = '2009-04-03'
And    Cardex.No_Tipo=20
GROUP BY Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Cardex.No_Tipo, Cardex.Dt_Emissao
ORDER BY Produto.Cd_ContaMargemContribuicao, Cardex.Vl_Unitario

-- DALFecDiario.Rs_DevolucaoDeVendas
SELECT Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Sum(Cardex.Qt_Unidade) As SomaDeQt_Unidade
FROM   Cardex
LEFT JOIN Produto On Cardex.Cd_Produto = Produto.Cd_Produto
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.Dt_Emissao = '2009-04-03'
And    Cardex.No_Tipo=12
GROUP BY Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Cardex.No_Tipo, Cardex.Dt_Emissao
ORDER BY Produto.Cd_ContaMargemContribuicao, Cardex.Vl_Unitario

-- DALFecDiario.Rs_PerdasESobrasCombustiveis
SELECT Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Sum(Cardex.Qt_Unidade) As SomaDeQt_Unidade, Cardex.No_Tipo
FROM   Cardex
LEFT JOIN Produto On Cardex.Cd_Produto = Produto.Cd_Produto
WHERE  Cardex.Cd_PessoaUsuaria = 1
And    Cardex.Dt_Emissao = '2009-04-03'
And    (Cardex.No_Tipo=11 Or Cardex.No_Tipo=21)
And    Produto.Fl_VendBomba = 1
GROUP BY Produto.Cd_ContaMargemContribuicao, Produto.Nm_Produto, Cardex.Vl_Unitario, Cardex.Vl_CustoMedio, Cardex.No_Tipo, Cardex.Dt_Emissao
ORDER BY Produto.Cd_ContaMargemContribuicao, Cardex.Vl_Unitario

-- DALFecDiario.Rs_Despesas
SELECT Despesa.No_Despesa, Despesa.Cd_Despesa, ItemDespesa.Cd_ContaContabil, Pessoa.Nm_Pessoa, Despesa.No_Nota,
TipoDespesa.Nm_Despesa, ItemDespesa.Nm_HistoricoComplementar, ItemDespesa.Vl_Lancamento
FROM   Despesa
LEFT JOIN Pessoa On Despesa.Cd_Fornecedor = Pessoa.Cd_Pessoa
LEFT JOIN TipoDespesa On Despesa.Cd_Despesa = TipoDespesa.Cd_Despesa
INNER JOIN ItemDespesa On Despesa.Cd_SeqDespesa = ItemDespesa.Cd_SeqDespesa
WHERE  Despesa.Cd_PessoaUsuaria = 1
And    Despesa.Dt_Lancamento = '2009-04-03'

-- DALFecDiario.Rs_DespesasTotalizadasNoMes
SELECT   Cd_ContaContabil, Sum(Vl_Lancamento) As SomaDeVl_Lancamento
FROM     LanContaContabil
WHERE    Cd_PessoaUsuaria = 1
And      Dt_Lancamento Between '2009-04-01' And '2009-04-03'
GROUP BY Cd_ContaContabil

-- DALFecDiario.Rs_ContasNivel1
SELECT A.*
FROM   ContaContabil A
WHERE  Cd_PessoaUsuaria = 1
And    Cd_Nivel2 Is Null
And    Cd_Nivel3 Is Null

-- DALFecDiario.Rs_ContasNivel2
SELECT A.*
FROM   ContaContabil A
WHERE  Cd_PessoaUsuaria = 1
And    (Not Cd_Nivel2 Is Null)
And    Cd_Nivel3 Is Null

-- DALFecDiario.Rs_SomaContasNivel1
SELECT Sum(A.Vl_Resultado) As SomaDeVl_Resultado,
Sum(A.Vl_Resultado01) As SomaDeVl_Resultado01,
Sum(A.Vl_Resultado02) As SomaDeVl_Resultado02,
Sum(A.Vl_Resultado03) As SomaDeVl_Resultado03,
Sum(A.Vl_Resultado04) As SomaDeVl_Resultado04,
Sum(A.Vl_Resultado05) As SomaDeVl_Resultado05,
Sum(A.Vl_Resultado06) As SomaDeVl_Resultado06,
Sum(A.Vl_Resultado07) As SomaDeVl_Resultado07,
Sum(A.Vl_Resultado08) As SomaDeVl_Resultado08,
Sum(A.Vl_Resultado09) As SomaDeVl_Resultado09,
Sum(A.Vl_Resultado10) As SomaDeVl_Resultado10,
Sum(A.Vl_Resultado11) As SomaDeVl_Resultado11,
Sum(A.Vl_Resultado12) As SomaDeVl_Resultado12
FROM   LanContaContabilConsolidado A
INNER JOIN ContaContabil B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_ContaContabil = B.Cd_ContaContabil
WHERE  A.Cd_PessoaUsuaria = 1
And    A.No_Ano = 2009
And    A.No_Mes = 4
And    B.Cd_Nivel1 = 3
And    (Not B.Cd_Nivel2 Is Null)
And    (Not B.Cd_Nivel3 Is Null)

-- DALFecDiario.Rs_SomaContasNivel2
SELECT Sum(A.Vl_Resultado) As SomaDeVl_Resultado,
Sum(A.Vl_Resultado01) As SomaDeVl_Resultado01,
Sum(A.Vl_Resultado02) As SomaDeVl_Resultado02,
Sum(A.Vl_Resultado03) As SomaDeVl_Resultado03,
Sum(A.Vl_Resultado04) As SomaDeVl_Resultado04,
Sum(A.Vl_Resultado05) As SomaDeVl_Resultado05,
Sum(A.Vl_Resultado06) As SomaDeVl_Resultado06,
Sum(A.Vl_Resultado07) As SomaDeVl_Resultado07,
Sum(A.Vl_Resultado08) As SomaDeVl_Resultado08,
Sum(A.Vl_Resultado09) As SomaDeVl_Resultado09,
Sum(A.Vl_Resultado10) As SomaDeVl_Resultado10,
Sum(A.Vl_Resultado11) As SomaDeVl_Resultado11,
Sum(A.Vl_Resultado12) As SomaDeVl_Resultado12
FROM   LanContaContabilConsolidado A
INNER JOIN ContaContabil B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_ContaContabil = B.Cd_ContaContabil
WHERE  A.Cd_PessoaUsuaria = 1
And    A.No_Ano = 2009
And    A.No_Mes = 4
And    B.Cd_Nivel1 = 3
And    B.Cd_Nivel2 = 11
And    (Not B.Cd_Nivel3 Is Null)

-- DALFecDiario.Rs_SomaResultado
SELECT Sum(A.Vl_Resultado) As SomaDeVl_Resultado,
Sum(A.Vl_Resultado01) As SomaDeVl_Resultado01,
Sum(A.Vl_Resultado02) As SomaDeVl_Resultado02,
Sum(A.Vl_Resultado03) As SomaDeVl_Resultado03,
Sum(A.Vl_Resultado04) As SomaDeVl_Resultado04,
Sum(A.Vl_Resultado05) As SomaDeVl_Resultado05,
Sum(A.Vl_Resultado06) As SomaDeVl_Resultado06,
Sum(A.Vl_Resultado07) As SomaDeVl_Resultado07,
Sum(A.Vl_Resultado08) As SomaDeVl_Resultado08,
Sum(A.Vl_Resultado09) As SomaDeVl_Resultado09,
Sum(A.Vl_Resultado10) As SomaDeVl_Resultado10,
Sum(A.Vl_Resultado11) As SomaDeVl_Resultado11,
Sum(A.Vl_Resultado12) As SomaDeVl_Resultado12
FROM   LanContaContabilConsolidado A
INNER JOIN ContaContabil B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_ContaContabil = B.Cd_ContaContabil
WHERE  A.Cd_PessoaUsuaria = 1
And    A.No_Ano = 2009
And    A.No_Mes = 4
And    (Not B.Cd_Nivel1 Is Null)
And    (Not B.Cd_Nivel2 Is Null)
And    (Not B.Cd_Nivel3 Is Null)
