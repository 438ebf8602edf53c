-- DALCaixa.Consultar (by code)
SELECT    *
FROM     Caixa
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Caixa = 87

-- DALCaixa.Consultar (by employee, sequence and day)
SELECT    *
FROM     Caixa
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Funcionario = 42 and
         No_Sequencial = 1 and
         Dt_Abertura = '2009-04-03'

-- DALCaixa.Incluir
Select * From Caixa Where Cd_PessoaUsuaria = 0 and Cd_Funcionario = 0 and No_Sequencial = 0 and Dt_Abertura = Null

-- DALCaixa.ConsultarUltimoCaixa
SELECT A.*
FROM Caixa A
WHERE A.Cd_PessoaUsuaria = 1
AND A.Cd_Funcionario = 42
AND A.Dt_Abertura <= '2009-04-03'
AND A.Cd_Situacao = 1
ORDER BY A.Dt_Abertura, A.No_Sequencial ;

-- DALCaixa.ConsultarUltimoSequencial
SELECT A.*
FROM Caixa A
WHERE A.Cd_PessoaUsuaria = 1
AND A.Cd_Funcionario = 42
AND A.Dt_Abertura = '2009-04-03'
ORDER BY A.Dt_Abertura, A.No_Sequencial ;

-- DALCaixa.ExisteRespBomba
SELECT    *
FROM     RespBomba
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Caixa = 87

-- DALCaixa.VerificarEExcluirRecebimentoSemCupomCorrespondente
DELETE FROM Recebimento
WHERE Recebimento.Cd_PessoaUsuaria = 1
And No_Recebimento In (SELECT Recebimento.No_Recebimento
FROM Recebimento
LEFT JOIN RecebimentoCupom On Recebimento.No_Recebimento = RecebimentoCupom.No_Recebimento
WHERE Recebimento.Cd_PessoaUsuaria = 1
And Recebimento.Cd_Caixa = 87
And Recebimento.Tp_DocDebito = 20
And RecebimentoCupom.No_Recebimento Is Null
And Nm_IdDocumentoRec <> 'SUPRIMENTO')

-- DALCaixa.CalcularVendas
SELECT ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda, CupomFiscal.Cd_Caixa, Produto.No_Tipo, Produto.Fl_VendBomba
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
LEFT JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria
And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_Caixa = 87
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0

-- DALCaixa.CalcularVendas (discounts of the coupons)
SELECT Sum(Vl_DescontoCF) As SomaDeVl_DescontoCF
FROM CupomFiscal
WHERE Cd_Caixa = 87
And Ic_Excluido = 0

-- DALCaixa.CalcularSuprimento
SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento
FROM Recebimento
WHERE Cd_PessoaUsuaria = 1
And Cd_Caixa = 87
And Ic_Suprimento <> 0

-- DALCaixa.CalcularContasRecebidas
SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento, Cd_Caixa, Tp_DocDebito
FROM Recebimento
WHERE Cd_Caixa = 87
AND (Tp_DocDebito = 10)
GROUP BY Cd_Caixa, Tp_DocDebito

-- DALCaixa.CalcularRecebimentos
SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento, Cd_Caixa
FROM Recebimento
GROUP BY Cd_Caixa
HAVING Cd_Caixa = 87

-- DALCaixa.CalcularVendaACredito
SELECT Sum(Vl_TotalLiquido) As SomaDeVl_TotalLiquido
FROM CupomFiscal
WHERE Tp_Venda BETWEEN 10 And 20
And Cd_Caixa = 87
And CupomFiscal.Ic_Excluido = 0
GROUP BY Cd_Caixa

-- DALCaixa.CalcularAbastecimentoPendentes
SELECT Sum(Abastecimento.Vl_Total) As SomaDeVl_Total
FROM Abastecimento
WHERE Abastecimento.Cd_Caixa = 87
And Abastecimento.Ic_Baixado = 0

-- DALCaixa.CalcularOutrosDebitos
SELECT Sum(A.Vl_Divergencia) As SomaDeVl_Divergencia
FROM DivergenciaCaixa A
INNER JOIN TipoDivergenciaCaixa B On A.Cd_TipoDivergenciaCaixa = B.Cd_TipoDivergenciaCaixa
WHERE Cd_Caixa = 87
And B.No_NaturezaDivergencia = 2

-- DALCaixa.CalcularOutrosCreditos
SELECT Sum(A.Vl_Divergencia) As SomaDeVl_Divergencia
FROM DivergenciaCaixa A
INNER JOIN TipoDivergenciaCaixa B On A.Cd_TipoDivergenciaCaixa = B.Cd_TipoDivergenciaCaixa
WHERE Cd_Caixa = 87
And B.No_NaturezaDivergencia = 1

-- DALCaixa.ValorRecebimentosEmDinheiro
SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento
FROM Recebimento
WHERE Cd_Caixa = 87
And Cd_TipoRecebimento = 5

-- DALCaixa.ValorOutrosRecebimentosEmDinheiro
SELECT Sum(Vl_Divergencia) As SomaDeVl_Recebimento
FROM DivergenciaCaixa
WHERE Cd_Caixa = 87
And Cd_TipoDivergenciaCaixa = 2

-- DALCaixa.Rs_RecebimentosETroco
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
And Caixa.Cd_Caixa = 87
And CupomFiscal.Ic_Excluido = 0
GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
CupomFiscal.Vl_TotalLiquido, Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura, CupomFiscal.Tp_Venda
HAVING (Sum(Recebimento.Vl_Recebimento) <> CupomFiscal.Vl_TotalLiquido Or Sum(Recebimento.Vl_Recebimento) Is Null)
And CupomFiscal.Vl_TotalLiquido > 0
And CupomFiscal.Tp_Venda Between 20 and 29

-- DALCaixa.Rs_CuponsFiscais
SELECT *
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And Cd_Caixa = 87
And Ic_Excluido = 0
ORDER BY Dt_Emissao, Hr_Emissao

-- DALCaixa.Rs_VolumeCombustiveisVendidos
SELECT A.Cd_PessoaUsuaria, A.Cd_Bomba, A.De_EnderecoLogicoBico, B.Nm_Produto, Sum(C.Qt_Litros) As SomaDeQt_Litros,
A.No_UltEncerrante, A.No_UltEncerranteAutomacao
FROM Bomba A
INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
INNER JOIN Abastecimento C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And A.De_EnderecoLogicoBico = C.De_EnderecoLogicoBico
WHERE A.Cd_PessoaUsuaria = 1
GROUP BY A.Cd_PessoaUsuaria, A.Cd_Bomba, A.De_EnderecoLogicoBico, B.Nm_Produto, A.No_UltEncerrante, A.No_UltEncerranteAutomacao
ORDER BY A.Cd_Bomba

-- DALCaixa.rsAbastecimento
SELECT Abastecimento.*
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
INNER JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria
And ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsPessoa
SELECT Pessoa.*
FROM CupomFiscal
INNER JOIN Pessoa On CupomFiscal.Cd_Cliente = Pessoa.Cd_Pessoa
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsCliente
SELECT Cliente.*, Pessoa.*
FROM CupomFiscal
INNER JOIN Cliente On CupomFiscal.Cd_Cliente = Cliente.Cd_Cliente
INNER JOIN Pessoa On Pessoa.Cd_Pessoa = Cliente.Cd_Cliente
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsVeiculo
SELECT Veiculo.*
FROM CupomFiscal
INNER JOIN Veiculo On CupomFiscal.Cd_Veiculo = Veiculo.Cd_Veiculo
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsCardex
SELECT Cardex.*
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
INNER JOIN Cardex On ItemCupomFiscal.Cd_PessoaUsuaria = Cardex.Cd_PessoaUsuaria
And ItemCupomFiscal.Cd_LancamentoCardex = Cardex.Cd_LancamentoCardex
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsCupomFiscal
SELECT CupomFiscal.*
FROM CupomFiscal
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsItemCupomFiscal
SELECT ItemCupomFiscal.*
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsRecebimento
SELECT Recebimento.*
FROM CupomFiscal
INNER JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
INNER JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.rsRecebimentoCupom
SELECT RecebimentoCupom.*
FROM CupomFiscal
INNER JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Caixa = 87

-- DALCaixa.CarregarComboBox
SELECT *
FROM Caixa
WHERE Cd_PessoaUsuaria = 1 And Dt_Abertura = '2009-04-03'
ORDER BY No_Sequencial

-- DALCaixa.CarregarComboBox2
SELECT Cd_Caixa, Pessoa.Nm_Pessoa + '-SEQ:' + Cast(Caixa.No_Sequencial As VARchar(2)) As Ds_Caixa
FROM Caixa
INNER JOIN Pessoa On Pessoa.Cd_Pessoa = Caixa.Cd_Funcionario
WHERE Caixa.Cd_PessoaUsuaria = 1 And Caixa.Cd_Situacao = 1
ORDER BY Pessoa.Nm_Pessoa

-- DALLanCaixaGeral.Consultar (by entry)
SELECT    *
FROM     LanCaixaGeral
WHERE    Cd_PessoaUsuaria = 1 and
         No_LancamentoCaixaGeral = 940

-- DALLanCaixaGeral.Consultar (by shift)
SELECT    *
FROM     LanCaixaGeral
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Caixa = 87

-- DALLanCaixaGeral.Incluir
Select * From LanCaixaGeral Where Cd_PessoaUsuaria = 0 and No_LancamentoCaixaGeral = 0

-- DALLanCaixaGeral.Excluir (by shift)
DELETE
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
      and Cd_Caixa = 87

-- DALLanCaixaGeral.ObterPagamentoDeContaAPagarRelacionada
SELECT D.Cd_PessoaUsuaria, D.No_ContasAPagar
FROM LanCaixaGeral A
INNER JOIN PagamentoPorCaixa B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_LancamentoCaixaGeral = A.No_LancamentoCaixaGeral
INNER JOIN Pagamento C On C.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And C.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoDeConta D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And D.Cd_Pagamento = C.Cd_Pagamento
WHERE A.No_LancamentoCaixaGeral = 940

-- DALLanCaixaGeral.ObterPagamentoDeDespesaRelacionada
SELECT D.Cd_PessoaUsuaria, D.No_Despesa
FROM LanCaixaGeral A
INNER JOIN PagamentoPorCaixa B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_LancamentoCaixaGeral = A.No_LancamentoCaixaGeral
INNER JOIN Pagamento C On C.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And C.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoDeDespesa D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And D.Cd_Pagamento = C.Cd_Pagamento
WHERE A.No_LancamentoCaixaGeral = 940

-- DALLanCaixaGeral.ObterPagamentoDeContaAPagarRelacionadaComValorDivergente
SELECT D.Cd_PessoaUsuaria, D.No_ContasAPagar
FROM LanCaixaGeral A
INNER JOIN PagamentoPorCaixa B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_LancamentoCaixaGeral = A.No_LancamentoCaixaGeral
INNER JOIN Pagamento C On C.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And C.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoDeConta D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And D.Cd_Pagamento = C.Cd_Pagamento
WHERE A.No_LancamentoCaixaGeral = 940
And A.Vl_Lancamento <> C.Vl_Pagamento

-- DALLanCaixaGeral.ObterPagamentoDeDespesaRelacionadaComValorDivergente
SELECT D.Cd_PessoaUsuaria, D.No_Despesa
FROM LanCaixaGeral A
INNER JOIN PagamentoPorCaixa B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_LancamentoCaixaGeral = A.No_LancamentoCaixaGeral
INNER JOIN Pagamento C On C.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And C.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoDeDespesa D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And D.Cd_Pagamento = C.Cd_Pagamento
WHERE A.No_LancamentoCaixaGeral = 940
And A.Vl_Lancamento <> C.Vl_Pagamento

-- DALCaixaGeral.SaldoFinal
SELECT TOP 1 Vl_Saldo
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
ORDER BY Dt_Lancamento DESC, No_LancamentoCaixaGeral DESC

-- DALCaixaGeral.SaldoAnterior
SELECT TOP 1 Vl_Saldo
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
And Dt_Lancamento < '2009-04-03'
ORDER BY Dt_Lancamento DESC, No_LancamentoCaixaGeral DESC

-- DALCaixaGeral.rsLancamentos
SELECT *
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
And Dt_Lancamento = '2009-04-03'
ORDER BY Dt_Lancamento, No_LancamentoCaixaGeral

-- DALCaixaGeral.ExisteErroNoCalculoDoSaldo
SELECT Sum(Vl_Lancamento) As Vl_SaldoCalculado
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1

-- DALCaixaGeral.AtualizaSaldo (walk)
SELECT *
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
And Dt_Lancamento >= '2009-04-03'
ORDER BY Dt_Lancamento, No_LancamentoCaixaGeral

-- DALCaixaGeral.AtualizaSaldo (walk of the whole book)
SELECT *
FROM LanCaixaGeral
WHERE Cd_PessoaUsuaria = 1
And Dt_Lancamento >= '1899-12-30'
ORDER BY Dt_Lancamento, No_LancamentoCaixaGeral

-- DALCaixaGeral.AtualizaSaldo (one entry)
UPDATE LanCaixaGeral
SET LanCaixaGeral.Vl_Saldo = -1250.40
WHERE Cd_PessoaUsuaria = 1
AND LanCaixaGeral.No_LancamentoCaixaGeral = 940

-- DALDivergenciaCaixa.Consultar
SELECT    *
FROM     DivergenciaCaixa
WHERE    Cd_Caixa = 87 and
         Cd_TipoDivergenciaCaixa = 2

-- DALDivergenciaCaixa.Incluir
Select * From DivergenciaCaixa Where Cd_Caixa = 0 and Cd_TipoDivergenciaCaixa = 0

-- DALConBan.Consultar
SELECT    *
FROM     ConBan
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Banco = 237 and
         Cd_Agencia = 245 and
         Cd_Conta = 180000

-- DALLanCcBancaria.Consultar (by account and entry)
SELECT    *
FROM     LanCcBancaria
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Banco = 237 and
         Cd_Agencia = 245 and
         Cd_Conta = 180000 and
         No_LanCcBancaria = 512

-- DALLanCcBancaria.Consultar (by entry)
SELECT    *
FROM     LanCcBancaria
WHERE    Cd_PessoaUsuaria = 1 and
         No_LanCcBancaria = 512

-- DALLanCcBancaria.Incluir
Select * From LanCcBancaria Where Cd_PessoaUsuaria = 0 and No_LanCcBancaria = 0

-- DALConBan.rsLancamentosNaoConciliado
SELECT B.Nm_TipoLanCCBancaria, A.Id_Lancamento, A.Vl_Lancamento, A.Vl_Saldo, A.No_LanCcBancaria
FROM LanCCBancaria A
INNER JOIN TipoLanCCBancaria B On A.Cd_TipoLanCCBancaria = B.Cd_TipoLanCCBancaria
WHERE A.Cd_Banco = 237
And A.Cd_Agencia = 245
And A.Cd_Conta = 180000
And A.Ic_Conciliado = 0
ORDER BY Dt_LanPrevisto, Vl_Lancamento DESC, No_LanCcBancaria

-- DALConBan.rsLancamentosConciliado
SELECT B.Nm_TipoLanCCBancaria, A.Id_Lancamento, A.Vl_Lancamento, A.Vl_Saldo, A.No_LanCcBancaria
FROM LanCCBancaria A
INNER JOIN TipoLanCCBancaria B On A.Cd_TipoLanCCBancaria = B.Cd_TipoLanCCBancaria
WHERE A.Cd_Banco = 237
And A.Cd_Agencia = 245
And A.Cd_Conta = 180000
And A.Ic_Conciliado <> 0
And A.Dt_LanRealizado = '2009-04-03'
ORDER BY A.Dt_LanRealizado, A.Vl_Lancamento Desc, A.No_LanCcBancaria

-- DALConBan.SaldoAtual (pending)
SELECT TOP 1 Vl_Saldo
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Ic_Conciliado = 0
And Dt_LanPrevisto <= '2009-04-03'
ORDER BY Dt_LanPrevisto DESC, Vl_Lancamento, No_LanCcBancaria DESC

-- DALConBan.SaldoAtual (reconciled)
SELECT TOP 1 Vl_Saldo
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Ic_Conciliado <> 0
And Dt_LanRealizado <= '2009-04-03'
ORDER BY Dt_LanRealizado DESC, Vl_Lancamento, No_LanCcBancaria DESC

-- DALConBan.SaldoFinal (pending)
SELECT TOP 1 Vl_Saldo
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Ic_Conciliado = 0
ORDER BY Dt_LanPrevisto DESC, Vl_Lancamento, No_LanCcBancaria DESC

-- DALConBan.SaldoFinal (reconciled)
SELECT TOP 1 Vl_Saldo
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Ic_Conciliado <> 0
ORDER BY Dt_LanRealizado DESC, Vl_Lancamento, No_LanCcBancaria DESC

-- DALConBan.AtualizaSaldo (reconciled stretch)
SELECT *
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Dt_LanRealizado > '2009-03-31'
And Ic_Conciliado <> 0
ORDER BY Dt_LanRealizado, Vl_Lancamento DESC, No_LanCcBancaria

-- DALConBan.AtualizaSaldo (pending stretch)
SELECT *
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
And Ic_Conciliado = 0
ORDER BY Dt_LanPrevisto, Vl_Lancamento DESC, No_LanCcBancaria

-- DALConBan.AtualizaSaldo (one entry)
UPDATE LanCcBancaria
SET LanCcBancaria.Vl_Saldo = 1890.55
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000
AND LanCcBancaria.No_LanCcBancaria = 512

-- DALConBan.ErroNoCalculoDoSaldo
SELECT Sum(Vl_Lancamento) As Vl_SaldoCalculado
FROM LanCcBancaria
WHERE Cd_PessoaUsuaria = 1
And Cd_Banco = 237
And Cd_Agencia = 245
And Cd_Conta = 180000

-- DALLanCcBancaria.ExisteLancamentoDocumento
SELECT LanCcBancaria.No_LanCcBancaria
FROM LanCcBancaria
WHERE LanCcBancaria.Cd_TipoLanCcBancaria = 3
And LanCcBancaria.Id_Lancamento='DOC 8812'

-- DALLanCcBancaria.ExisteLancamentoDocumento (on an edit)
SELECT LanCcBancaria.No_LanCcBancaria
FROM LanCcBancaria
WHERE LanCcBancaria.Cd_TipoLanCcBancaria = 3
And LanCcBancaria.Id_Lancamento='DOC 8812'
 And LanCcBancaria.No_LanCcBancaria <> 512

-- DALLanCcPessoa.Consultar
SELECT    *
FROM     LanCcPessoa
WHERE    Cd_Pessoa = 310 and
         Dt_Lancamento = '2009-04-03' and
         No_LancamentoCcPessoa = 75

-- DALLanCcPessoa.Incluir
Select * From LanCcPessoa Where Cd_Pessoa = 0 and Dt_Lancamento = Null and No_LancamentoCcPessoa = 0

-- DALLanCcPessoa.AtualizaSaldo (balance before)
SELECT LanCcPessoa.Cd_Pessoa , LanCcPessoa.Dt_Lancamento, LanCcPessoa.No_LancamentoCcPessoa , LanCcPessoa.Vl_Saldo
FROM LanCcPessoa
WHERE LanCcPessoa.Cd_Pessoa = 310
AND LanCcPessoa.Dt_Lancamento < '2009-04-03'
ORDER BY LanCcPessoa.Cd_Pessoa, LanCcPessoa.Dt_Lancamento, LanCcPessoa.No_LancamentoCcPessoa

-- DALLanCcPessoa.AtualizaSaldo (walk)
SELECT *
FROM LanCcPessoa
WHERE LanCcPessoa.Cd_Pessoa =310
AND LanCcPessoa.Dt_Lancamento >='2009-04-03'
ORDER BY LanCcPessoa.Cd_Pessoa , LanCcPessoa.Dt_Lancamento, LanCcPessoa.No_LancamentoCcPessoa

-- DALLanCcPessoa.AtualizaSaldo (one entry)
UPDATE LanCcPessoa
SET LanCcPessoa.Vl_Saldo = 40.00
WHERE LanCcPessoa.Cd_Pessoa = 310
AND LanCcPessoa.Dt_Lancamento = '2009-04-03'
AND LanCcPessoa.No_LancamentoCcPessoa = 75

-- DALContaAPagar.ExisteCodigoBarras
SELECT *
FROM ContaAPagar
WHERE No_CodigoBarras = '23791110209234567890123456789012345678901234'

-- DALContaAPagar.ExisteCodigoBarras (a saved payable)
SELECT *
FROM ContaAPagar
WHERE No_CodigoBarras = '23791110209234567890123456789012345678901234'
 And No_ContasAPagar <> 205

-- DALContaAPagar.ExisteDocumentoFornecedor
SELECT *
FROM ContaAPagar
WHERE Cd_PessoaUsuaria = 1
And Cd_Fornecedor = 61
And Id_DocumentoFornecedor = '88120/1'

-- DALContaAPagar.ExisteDocumentoFornecedor (on an edit)
SELECT *
FROM ContaAPagar
WHERE Cd_PessoaUsuaria = 1
And Cd_Fornecedor = 61
And Id_DocumentoFornecedor = '88120/1'
 And No_ContasAPagar <> 205

-- DALContaAPagar.PagamentosRs
SELECT B.*
FROM PagamentoDeConta A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
WHERE A.Cd_PessoaUsuaria = 1
And A.No_ContasAPagar = 205

-- DALContaAPagar.ContaCorrenteRs
SELECT D.No_LancamentoCcPessoa, B.Cd_Pagamento, D.Dt_Lancamento, D.Ds_Historico, D.Vl_Lancamento
FROM PagamentoDeConta A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorLanCcPessoa C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCcPessoa D On C.Cd_Pessoa = D.Cd_Pessoa And C.Dt_Lancamento = D.Dt_Lancamento And C.No_LancamentoCcPessoa = D.No_LancamentoCcPessoa
WHERE A.Cd_PessoaUsuaria = 1
And A.No_ContasAPagar = 205

-- DALContaAPagar.CaixaGeralRs
SELECT D.No_LancamentoCaixaGeral, B.Cd_Pagamento, D.Dt_Lancamento, D.Ds_Historico, D.Vl_Lancamento
FROM PagamentoDeConta A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorCaixa C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCaixaGeral D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.Dt_Lancamento = D.Dt_Lancamento And C.No_LancamentoCaixaGeral = D.No_LancamentoCaixaGeral
WHERE A.Cd_PessoaUsuaria = 1
And A.No_ContasAPagar = 205

-- DALContaAPagar.LanCCBancariaRs
SELECT D.No_LanCcBancaria, E.Nm_TipoLanCcBancaria, D.Id_Lancamento, D.Vl_Lancamento
FROM PagamentoDeConta A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorLanCCBancaria C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCcBancaria D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.No_LanCcBancaria = D.No_LanCcBancaria
INNER JOIN TipoLanCcBancaria E On D.Cd_TipoLanCcBancaria = E.Cd_TipoLanCcBancaria
WHERE A.Cd_PessoaUsuaria = 1
And A.No_ContasAPagar = 205

-- DALContaAPagar.SomaDosPagamentosRs
SELECT Sum(Vl_Pagamento) As Vl_TotalPagamento
FROM Pagamento
INNER JOIN PagamentoDeConta On Pagamento.Cd_PessoaUsuaria = PagamentoDeConta.Cd_PessoaUsuaria
And Pagamento.Cd_Pagamento = PagamentoDeConta.Cd_Pagamento
WHERE PagamentoDeConta.No_ContasAPagar = 205

-- DALPagamento.Consultar
SELECT    *
FROM     Pagamento
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Pagamento = 733

-- DALPagamentoDeDespesa.Excluir (by payment)
DELETE
FROM PagamentoDeDespesa
WHERE Cd_PessoaUsuaria = 1
      and Cd_Pagamento = 733

-- DALPagamentoDeDespesa.Excluir (by expense)
DELETE
FROM PagamentoDeDespesa
WHERE Cd_PessoaUsuaria = 1
      and No_Despesa = 12

-- DALPagamentoPorCaixa.Incluir
INSERT INTO PagamentoPorCaixa (
Cd_PessoaUsuaria,
Cd_Pagamento,
Dt_Lancamento,
No_LancamentoCaixaGeral)
Values (
1,
733,
'2009-04-03',
940)

-- DALPagamentoPorCaixa.Consultar (by entry)
SELECT    *
FROM     PagamentoPorCaixa
WHERE    Cd_PessoaUsuaria = 1 and
         Dt_Lancamento = '2009-04-03' and
         No_LancamentoCaixaGeral = 940

-- DALPagamentoPorLanCcBancaria.Excluir (by all keys)
DELETE
FROM PagamentoPorLanCcBancaria
WHERE Cd_PessoaUsuaria = 1
      and Cd_Pagamento = 733
      and Cd_Banco = 237
      and Cd_Agencia = 245
      and Cd_Conta = 180000
      and No_LanCcBancaria = 512

-- DALPagamentoPorLanCcBancaria.Excluir (by payment and entry)
DELETE
FROM PagamentoPorLanCcBancaria
WHERE Cd_PessoaUsuaria = 1
      and Cd_Pagamento = 733
      and No_LanCcBancaria = 512

-- DALPagamentoPorLanCcBancaria.Excluir (by payment)
DELETE
FROM PagamentoPorLanCcBancaria
WHERE Cd_PessoaUsuaria = 1
      and Cd_Pagamento = 733

-- DALPagamentoPorLanCcBancaria.Excluir (by entry)
DELETE
FROM PagamentoPorLanCcBancaria
WHERE Cd_PessoaUsuaria = 1
      and No_LanCcBancaria = 512

-- DALPagamentoPorLanCcPessoa.Incluir
Select * From PagamentoPorLanCcPessoa Where Cd_Pessoa = 0 and Dt_Lancamento = Null And No_LancamentoCcPessoa = 0 and Cd_PessoaUsuaria = 0 and Cd_Pagamento = 0

-- DALPagamentoPorLanCcPessoa.Excluir
DELETE
FROM PagamentoPorLanCcPessoa
WHERE Cd_Pessoa = 310
      and Dt_Lancamento = '2009-04-03'
      and No_LancamentoCcPessoa = 75
      and Cd_PessoaUsuaria = 1
      and Cd_Pagamento = 733

-- DALContaAPagarDeDespesa.Excluir (by expense)
DELETE
FROM ContaAPagarDeDespesa
WHERE Cd_PessoaUsuaria = 1
      and No_Despesa  = 12

-- DALContaAPagarDeNotaEntrada.Consultar
SELECT    *
FROM     ContaAPagarDeNotaEntrada
WHERE    Cd_PessoaUsuaria = 1 and
         No_ContasAPagar = 205 and
         Cd_Fornecedor = 61 and
         Cd_TipoNF = 1 and
         No_Nota = 88120

-- DALContaAReceber.Consultar
SELECT    *
FROM     ContaAReceber
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ContaAReceber = 640

-- DALContaAReceber.Incluir
INSERT INTO ContaAReceber
       (Cd_PessoaUsuaria, Cd_ContaAReceber, Cd_TipoContaAReceber, Cd_Banco, Cd_Agencia, Cd_Conta, Nm_IdDocumento,
        Dt_Emissao, No_SituacaoPagamento, Dt_Vencimento, Qt_DiasPro, Dt_VencPro, Tx_Mora,
        Vl_Debito, Vl_DesPag, Vl_AcrPag, Vl_Pagamentos, Vl_Saldo, Dt_Lanc, Ic_EFechamento,
        Dt_ProCarCob, Tp_ProCarCob, Dt_IncNegativo, Dt_ExcNegativo, Dt_IncInsoluvel, Dt_BloqueioCredito, Fl_LiberarXdiasJuros,
        Cd_Origem, Cd_RecebimentoOrigem, Cd_Pessoa, Cd_CarCob, Cd_Funcionario, Vl_ComJuros, Qt_DiasAtraso,
        Cd_Cmc7, Ds_Observacao, Cd_PessoaAvalista, Ic_Avalista)
Values (1, 640, 1, Null, 0, '', '',
        '2009-04-30', 1, '2009-05-10', 0, '2009-05-10', 6.0000,
        412.5000, 0.0000, 0.0000, 0.0000, 412.5000, '2009-04-30', -1,
        '1899-12-30', '', '1899-12-30', '1899-12-30', '1899-12-30', '2009-05-25', 1,
        1, Null, 310, 2, 42, 0, 0,
        '', 'FECHAMENTO 04/2009', Null, 0)

-- DALContaAReceber.Incluir (cheque)
INSERT INTO ContaAReceber
       (Cd_PessoaUsuaria, Cd_ContaAReceber, Cd_TipoContaAReceber, Cd_Banco, Cd_Agencia, Cd_Conta, Nm_IdDocumento,
        Dt_Emissao, No_SituacaoPagamento, Dt_Vencimento, Qt_DiasPro, Dt_VencPro, Tx_Mora,
        Vl_Debito, Vl_DesPag, Vl_AcrPag, Vl_Pagamentos, Vl_Saldo, Dt_Lanc, Ic_EFechamento,
        Dt_ProCarCob, Tp_ProCarCob, Dt_IncNegativo, Dt_ExcNegativo, Dt_IncInsoluvel, Dt_BloqueioCredito, Fl_LiberarXdiasJuros,
        Cd_Origem, Cd_RecebimentoOrigem, Cd_Pessoa, Cd_CarCob, Cd_Funcionario, Vl_ComJuros, Qt_DiasAtraso,
        Cd_Cmc7, Ds_Observacao, Cd_PessoaAvalista, Ic_Avalista)
Values (1, 641, 2, 237, 245, '0018000-0', '000115',
        '2009-04-03', 1, '2009-05-03', 0, '2009-05-03', 0.0000,
        110.0000, 0.0000, 0.0000, 0.0000, 110.0000, '2009-04-03', 0,
        '2009-04-10', 'B', '1899-12-30', '1899-12-30', '1899-12-30', '1899-12-30', 0,
        2, 2, 310, 1, 42, 0, 0,
        '237024500180000115505603', '', 311, 0)

-- DALContaAReceber.MudarCupomFaturadoParaPendente
UPDATE CupomFiscal
Set Fl_Fechada = 'N',
Cd_ContaAReceber = Null,
Dt_EfeFechamento = Null,
Cd_FuncionarioEfeFechamento = Null
WHERE Cd_PessoaUsuaria = 1
And Cd_ContaAReceber = 640

-- DALContaAReceber.RecebimentosRs
SELECT Recebimento.*, Pessoa.Nm_Pessoa
FROM Recebimento
LEFT JOIN Caixa On Recebimento.Cd_Caixa = Caixa.Cd_Caixa
LEFT JOIN Pessoa On Caixa.Cd_Funcionario = Pessoa.Cd_Pessoa
WHERE Tp_DocDebito = 10
And No_DocDebito = 640

-- DALContaAReceber.Excluir
DELETE
FROM ContaAReceber
WHERE Cd_PessoaUsuaria = 1
      and Cd_ContaAReceber = 640

-- DALFaturamento.CuponsAFaturaRs
SELECT CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_Cliente, Pessoa.Nm_Pessoa, Cliente.Cd_CarCob, Cliente.No_TipoPagamento,
Sum(CupomFiscal.Vl_TotalLiquido) As SomaDeVl_TotalLiquido, CupomFiscal.Dt_Fechamento, CupomFiscal.Dt_Vencimento,
Cliente.No_TipoEnvioNF, Cliente.No_RestricaoDeVenda
FROM Cliente
INNER JOIN CupomFiscal On Cliente.Cd_Cliente = CupomFiscal.Cd_Cliente
INNER JOIN Pessoa On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Fechamento <= '2009-04-30'
And CupomFiscal.FL_Fechada ='N'
And CupomFiscal.Cd_ContaAReceber is null
And CupomFiscal.Tp_Venda Between 10 And 19
AND Cliente.No_RestricaoDeVenda <> 3
GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_Cliente, Pessoa.Nm_Pessoa, Cliente.Cd_CarCob, Cliente.No_TipoPagamento,
CupomFiscal.Dt_Fechamento, CupomFiscal.Dt_Vencimento, Cliente.No_TipoEnvioNF, Cliente.No_RestricaoDeVenda
ORDER BY Pessoa.Nm_Pessoa, CupomFiscal.Dt_Fechamento, CupomFiscal.Dt_Vencimento

-- DALFaturamento.CuponsAFaturaSeletivoRs
SELECT CupomFiscal.*, Cliente.Cd_CarCob, Cliente.No_TipoEnvioNF, Cliente.No_TipoPagamento
FROM Cliente
INNER JOIN CupomFiscal On Cliente.Cd_Cliente = CupomFiscal.Cd_Cliente
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Cliente = 310
And CupomFiscal.FL_Fechada ='N'
And CupomFiscal.Cd_ContaAReceber is null
And CupomFiscal.Tp_Venda Between 10 And 19
ORDER BY CupomFiscal.FL_Fechada, CupomFiscal.Cd_ContaAReceber, CupomFiscal.Tp_Venda

-- DALFaturamento.MudarCupomPendenteParaFaturado
UPDATE CupomFiscal
Set Fl_Fechada = 'S',
Cd_ContaAReceber = 640,
Dt_EfeFechamento = '2009-05-02',
Cd_FuncionarioEfeFechamento = 42
WHERE Cd_PessoaUsuaria = 1
And Cd_Cliente = 310
And Dt_Fechamento = '2009-04-30'
And Dt_Vencimento = '2009-05-10'
And FL_Fechada ='N'
And Cd_ContaAReceber Is null
And Tp_Venda Between 10 And 19

-- DALFaturamento.BuscarTotalDosCuponsDaConta
SELECT Sum(Vl_TotalLiquido) As SomaDeVl_TotalLiquido
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And Cd_ContaAReceber = 640

-- DALFaturamento.ItensCompoeNfFaturamentoRs
SELECT ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
GROUP BY ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo,
CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_ContaAReceber
HAVING CupomFiscal.Cd_ContaAReceber = 640
And CupomFiscal.Cd_PessoaUsuaria = 1

-- DALFaturamento.ItensCompoeNfFaturamentoRs (no services)
SELECT ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
GROUP BY ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo,
CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_ContaAReceber
HAVING CupomFiscal.Cd_ContaAReceber = 640
And CupomFiscal.Cd_PessoaUsuaria = 1
And Produto.No_Tipo = 1

-- DALFaturamento.ValorVendidoDoItem
SELECT ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_ContaAReceber = 640
And ItemCupomFiscal.Cd_Produto = 120
And ItemCupomFiscal.Vl_UnitVenda = 12.50
And ItemCupomFiscal.No_SitTributaria = '000'
And ItemCupomFiscal.Tx_Icms = 18.00
And CupomFiscal.Fl_IssRetido = -1
And ItemCupomFiscal.Tx_BaseCalculo = 61.11
And ItemCupomFiscal.No_TribIcms = '0'

-- DALFaturamento.NotasFiscaisDoFaturamentoRs
SELECT Pessoa.Nm_Pessoa, NotaSaida.No_Nota, NotaSaida.Vl_TotalLiquido
FROM NotaSaida
INNER JOIN Pessoa On NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
WHERE NotaSaida.Cd_ContaAReceber between 640 And 655

-- DALFaturamento.ContaAReceberDoFaturamentoRs
SELECT Pessoa.Nm_Pessoa, ContaAReceber.Cd_ContaAReceber, ContaAReceber.Vl_Debito, Cliente.No_TipoPagamento
FROM ContaAReceber
INNER JOIN Pessoa On ContaAReceber.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN Cliente On ContaAReceber.Cd_PessoaUsuaria = Cliente.Cd_PessoaUsuaria And ContaAReceber.Cd_Pessoa = Cliente.Cd_Cliente
WHERE ContaAReceber.Cd_ContaAReceber between 640 And 655
ORDER BY Pessoa.Nm_Pessoa

-- DALFaturamento.RsCuponsAgrupadosPorVeiculo
SELECT ContaAReceber.Dt_Emissao, ContaAReceber.Vl_Debito, CupomFiscal.Cd_Veiculo, Sum(CupomFiscal.Vl_TotalLiquido) As SomaDeVl_TotalLiquido
FROM CupomFiscal
INNER JOIN ContaAReceber On CupomFiscal.Cd_ContaAReceber = ContaAReceber.Cd_ContaAReceber
GROUP BY ContaAReceber.Dt_Emissao, ContaAReceber.Vl_Debito, CupomFiscal.Cd_Veiculo, CupomFiscal.Cd_ContaAReceber
Having CupomFiscal.Cd_ContaAReceber = 640

-- DALFaturamento.RsCuponsAnalitico
SELECT Produto.Nm_Produto, CupomFiscal.Dt_Emissao, ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Qt_KmPorLitro, ItemCupomFiscal.Vl_UnitVenda,
CupomFiscal.Id_CampoExtraCF, CupomFiscal.Cd_Veiculo, Veiculo.Nm_IdCliente, CupomFiscal.No_Km, IdentificacaoDoCliente.Nm_IdentificacaoDoCliente
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
INNER JOIN Veiculo On CupomFiscal.Cd_PessoaUsuaria = Veiculo.Cd_PessoaUsuaria And CupomFiscal.Cd_Veiculo = Veiculo.Cd_Veiculo
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
LEFT JOIN IdentificacaoDoCliente On CupomFiscal.Cd_PessoaUsuaria = IdentificacaoDoCliente.Cd_PessoaUsuaria
And CupomFiscal.Cd_Cliente = IdentificacaoDoCliente.Cd_Cliente
And CupomFiscal.Id_CampoExtraCF = IdentificacaoDoCliente.Id_CampoExtraCF
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_ContaAReceber = 640
ORDER BY CupomFiscal.Dt_Emissao, CupomFiscal.Cd_Veiculo

-- DALFaturamento.RsCuponsAnaliticoDoVeiculo
SELECT Produto.Nm_Produto, CupomFiscal.Dt_Emissao, ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Qt_KmPorLitro, ItemCupomFiscal.Vl_UnitVenda,
CupomFiscal.Id_CampoExtraCF, CupomFiscal.Cd_Veiculo, Veiculo.Nm_IdCliente, CupomFiscal.No_Km, IdentificacaoDoCliente.Nm_IdentificacaoDoCliente
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
INNER JOIN Veiculo On CupomFiscal.Cd_PessoaUsuaria = Veiculo.Cd_PessoaUsuaria And CupomFiscal.Cd_Veiculo = Veiculo.Cd_Veiculo
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
LEFT JOIN IdentificacaoDoCliente On CupomFiscal.Cd_PessoaUsuaria = IdentificacaoDoCliente.Cd_PessoaUsuaria
And CupomFiscal.Cd_Cliente = IdentificacaoDoCliente.Cd_Cliente
And CupomFiscal.Id_CampoExtraCF = IdentificacaoDoCliente.Id_CampoExtraCF
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_ContaAReceber = 640
And CupomFiscal.Cd_Veiculo = 'ABC1234'
ORDER BY CupomFiscal.Dt_Emissao, CupomFiscal.Hr_Emissao

-- DALFaturamento.RsCuponsSintetico
SELECT CupomFiscal.Cd_Veiculo, Veiculo.Nm_Marca, Veiculo.Nm_Cor,
Sum(ItemCupomFiscal.Qt_KmPorLitro * ItemCupomFiscal.Qt_Unidade) As Qt_KmRodado,
Sum(ItemCupomFiscal.Qt_Unidade) As Qt_Litros
FROM CupomFiscal
INNER JOIN ItemCupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN Veiculo On CupomFiscal.Cd_PessoaUsuaria = Veiculo.Cd_PessoaUsuaria And CupomFiscal.Cd_Veiculo = Veiculo.Cd_Veiculo
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_ContaAReceber = 640
And Produto.Fl_VendBomba <> 0
GROUP BY CupomFiscal.Cd_Veiculo, Veiculo.Nm_Marca, Veiculo.Nm_Cor

-- DALDespesa.Consultar
SELECT    *
FROM     Despesa
WHERE    Cd_PessoaUsuaria = 1 and
         No_Despesa = 12

-- DALDespesa.Incluir
Select * From Despesa Where Cd_PessoaUsuaria = 0 and No_Despesa = 0

-- DALDespesa.Excluir (items)
DELETE FROM ItemDespesa
WHERE Cd_SeqDespesa = 12

-- DALItemDespesa.Incluir
INSERT INTO ItemDespesa
       (Cd_PessoaUsuaria, No_ItemDespesa, Cd_SeqDespesa, Cd_ContaContabil, Nm_HistoricoComplementar, Vl_Lancamento)
Values (1, 1, 12, 31102, 'ENERGIA 03/2009', 318.72)

-- DALItemDespesa.Consultar
SELECT    *
FROM     ItemDespesa
WHERE    Cd_SeqDespesa = 12 and
         No_ItemDespesa = 1

-- DALDespesa.rsItens
 SELECT A.*
 FROM ItemDespesa A
 WHERE A.Cd_PessoaUsuaria = 1
 AND A.Cd_SeqDespesa = 12
 ORDER BY A.No_ItemDespesa ;

-- DALDespesa.ContasAPagarRs
SELECT B.*
FROM ContaAPagarDeDespesa A
INNER JOIN ContaAPagar B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.No_ContasAPagar = B.No_ContasAPagar
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.ContaCorrenteRs
SELECT D.No_LancamentoCcPessoa, B.Cd_Pagamento, D.Dt_Lancamento, D.Ds_Historico, D.Vl_Lancamento
FROM PagamentoDeDespesa A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorLanCcPessoa C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCcPessoa D On C.Cd_Pessoa = D.Cd_Pessoa And C.Dt_Lancamento = D.Dt_Lancamento And C.No_LancamentoCcPessoa = D.No_LancamentoCcPessoa
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.CaixaGeralRs
SELECT D.No_LancamentoCaixaGeral, B.Cd_Pagamento, D.Dt_Lancamento, D.Ds_Historico, D.Vl_Lancamento
FROM PagamentoDeDespesa A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorCaixa C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCaixaGeral D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.Dt_Lancamento = D.Dt_Lancamento And C.No_LancamentoCaixaGeral = D.No_LancamentoCaixaGeral
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.LanCCBancariaRs
SELECT D.No_LanCcBancaria, E.Nm_TipoLanCcBancaria, D.Id_Lancamento, D.Vl_Lancamento
FROM PagamentoDeDespesa A
INNER JOIN Pagamento B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Pagamento = B.Cd_Pagamento
INNER JOIN PagamentoPorLanCCBancaria C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN LanCcBancaria D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.No_LanCcBancaria = D.No_LanCcBancaria
INNER JOIN TipoLanCcBancaria E On D.Cd_TipoLanCcBancaria = E.Cd_TipoLanCcBancaria
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.TributosDespesaRs
SELECT *
FROM TributosDespesa
WHERE Cd_PessoaUsuaria = 1
And No_Despesa = 12

-- DALDespesa.ObterValorTributosRs
SELECT Sum(Vl_TotalItem) As SomaDeVl_TotalItem
FROM TributosDespesa
WHERE Cd_PessoaUsuaria = 1
And No_Despesa = 12

-- DALDespesa.ObterContrapartidaRs
SELECT IsNull(Sum(Pagamento.Vl_Pagamento),0) As SomaDeVl_Pagamento
FROM Despesa
INNER JOIN PagamentoDeDespesa On Despesa.Cd_PessoaUsuaria = PagamentoDeDespesa.Cd_PessoaUsuaria
And Despesa.No_Despesa = PagamentoDeDespesa.No_Despesa
INNER JOIN Pagamento On PagamentoDeDespesa.Cd_PessoaUsuaria = Pagamento.Cd_PessoaUsuaria
And PagamentoDeDespesa.Cd_Pagamento = Pagamento.Cd_Pagamento
WHERE Despesa.Cd_PessoaUsuaria = 1
And Despesa.No_Despesa = 12
UNION ALL
SELECT Isnull(Sum(ContaAPagar.Vl_Debito),0) * -1 As SomaDeVl_Pagamento
FROM Despesa
INNER JOIN ContaAPagarDeDespesa On Despesa.Cd_PessoaUsuaria = ContaAPagarDeDespesa.Cd_PessoaUsuaria
And Despesa.No_Despesa = ContaAPagarDeDespesa.No_Despesa
INNER JOIN ContaAPagar On ContaAPagarDeDespesa.Cd_PessoaUsuaria = ContaAPagar.Cd_PessoaUsuaria
And ContaAPagarDeDespesa.No_ContasAPagar = ContaAPagar.No_ContasAPagar
WHERE Despesa.Cd_PessoaUsuaria = 1
And Despesa.No_Despesa = 12

-- DALDespesa.ObterChavesParaExclusaoLancamentoContaBancaria
SELECT Distinct A.Cd_PessoaUsuaria, IsNull(A.No_Despesa,0) As No_Despesa, IsNull(B.Cd_Pagamento,0) As Cd_Pagamento,
IsNull(D.No_LanCcBancaria,0) As No_LanCcBancaria
FROM Despesa A
INNER JOIN PagamentoDeDespesa B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.No_Despesa = B.No_Despesa
INNER JOIN Pagamento C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN PagamentoPorLanCcBancaria D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.Cd_Pagamento = D.Cd_Pagamento
INNER JOIN LanCcBancaria E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria And D.No_LanCcBancaria = E.No_LanCcBancaria
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.ObterChavesParaExclusaoLancamentoContaCorrentePessoa
SELECT Distinct A.No_Despesa, B.Cd_Pagamento, D.Cd_PessoaUsuaria, D.Cd_Pessoa, D.Dt_Lancamento, D.No_LancamentoCcPessoa, D.Cd_Pagamento
FROM Despesa A
INNER JOIN PagamentoDeDespesa B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.No_Despesa = B.No_Despesa
INNER JOIN Pagamento C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
INNER JOIN PagamentoPorLanCcPessoa D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.Cd_Pagamento = D.Cd_Pagamento
INNER JOIN LanCcPessoa E On D.Cd_Pessoa = E.Cd_Pessoa And D.Dt_Lancamento = E.Dt_Lancamento And D.No_LancamentoCcPessoa = E.No_LancamentoCcPessoa
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.ObterChavesParaExclusaoLancamentoCaixa
SELECT Distinct A.Cd_PessoaUsuaria, A.No_Despesa, B.Cd_Pagamento, D.No_LancamentoCaixaGeral
FROM Despesa A
LEFT JOIN PagamentoDeDespesa B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.No_Despesa = B.No_Despesa
LEFT JOIN Pagamento C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Pagamento = C.Cd_Pagamento
LEFT JOIN PagamentoPorCaixa D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And C.Cd_Pagamento = D.Cd_Pagamento
LEFT JOIN LanCaixaGeral E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria And D.No_LancamentoCaixaGeral = E.No_LancamentoCaixaGeral
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALDespesa.ObterChavesParaExclusaoContaAPagar
SELECT Distinct A.Cd_PessoaUsuaria, A.No_Despesa, B.No_ContasAPagar
FROM Despesa A
INNER JOIN ContaAPagarDeDespesa B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.No_Despesa = B.No_Despesa
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Despesa = 12

-- DALTributosDespesa.Excluir
DELETE
FROM TributosDespesa
WHERE Cd_PessoaUsuaria = 1
      and No_Despesa = 12
      and Cd_Cfop = '1.253'
      and No_SitTributaria = '000'
      and Tx_Icms = 18

-- DALCaixa.GerarDadosParaResumoDeCaixa (work table emptied)
DELETE FROM TempRelCaixa14

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 1)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'VALOR' As Label4,
0.0 As Cd_Grupo, 'RESULTADO' As Nm_Grupo, 0 As Cd_Item, 'DÉBITOS' As Nm_Item,
NULL As Valor1, NULL As Valor2, -1830.45 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 2)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'VALOR' As Label4,
0.0 As Cd_Grupo, 'RESULTADO' As Nm_Grupo, 0 As Cd_Item, 'CRÉDITOS' As Nm_Item,
NULL As Valor1, NULL As Valor2, 1830.45 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 3)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 1 As Cd_Item, '1 - VENDAS DE COMBUSTIVEIS' As Nm_Item,
NULL As Valor1, NULL As Valor2,
IsNull(Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)),0) As Valor3 -- Calculo Combustíveis
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_Caixa = 87
And No_Tipo = 1
And Produto.Fl_VendBomba <> 0
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 4)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 2 As Cd_Item, '2 - VENDAS DE PRODUTOS' As Nm_Item,
NULL As Valor1, NULL As Valor2,
IsNull(Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)),0) As Valor3 -- Calculo Produtos
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_Caixa = 87
And No_Tipo = 1
And Produto.Fl_VendBomba = 0
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 5)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label3,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 3 As Cd_Item, '3 - VENDAS DE SERVIÇOS' As Nm_Item,
NULL As Valor1, NULL As Valor2,
IsNull(Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)),0) As Valor3 -- Calculo Serviços
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_Caixa = 87
And No_Tipo = 2
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 6)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 4 As Cd_Item, '4 - CONTAS RECEBIDAS' As Nm_Item,
NULL As Valor1, NULL As Valor2, IsNull(Sum(Vl_Recebimento),0) As Valor3
FROM Recebimento
WHERE Cd_Caixa = 87
And (Tp_DocDebito = 10)

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 7)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 5 As Cd_Item, '5 - SUPRIMENTOS' As Nm_Item,
NULL As Valor1, NULL As Valor2, Isnull(Sum(Vl_Recebimento),0) As Valor2
FROM Recebimento
WHERE Cd_PessoaUsuaria = 1
And Cd_Caixa = 87
And Ic_Suprimento <> 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 8)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 6 As Cd_Item, '6 - OUTROS DÉBITOS' As Nm_Item,
NULL As Valor1, NULL As Valor2, 10.00 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 9)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'DÉBITOS' As Label4,
0.1 As Cd_Grupo, 'DÉBITOS' As Nm_Grupo, 7 As Cd_Item, '7 - FALTA NAS SANGRIAS' As Nm_Item,
NULL As Valor1, NULL As Valor2, 0.00 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 10)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'CRÉDITOS' As Label3,
0.2 As Cd_Grupo, 'CRÉDITOS' As Nm_Grupo, 7 As Cd_Item, '7 - RECEBIMENTOS' As Nm_Item,
NULL As Valor1, NULL As Vl_Valor2, Sum(Vl_Recebimento) As Valor3
FROM Recebimento
WHERE Cd_Caixa = 87

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 11)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'CRÉDITOS' As Label4,
0.2 As Cd_Grupo, 'CRÉDITOS' As Nm_Grupo, 8 As Cd_Item, '8 - VENDAS A CRÉDITO' As Nm_Item,
NULL As Valor1, NULL As Valor2, Sum(Vl_TotalLiquido) As Valor3
FROM CupomFiscal
WHERE Tp_Venda BETWEEN 10 And 20
And Cd_Caixa = 87
And CupomFiscal.Ic_Excluido = 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 12)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'CRÉDITOS' As Label4,
0.2 As Cd_Grupo, 'CRÉDITOS' As Nm_Grupo, 9 As Cd_Item, '9 - OUTROS CRÉDITOS' As Nm_Item,
NULL As Valor1, NULL As Valor2, 0.00 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 13)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, ' - ' As Label2, ' - ' As Label3, 'CRÉDITOS' As Label4,
0.2 As Cd_Grupo, 'CRÉDITOS' As Nm_Grupo, 10 As Cd_Item, '10 - SOBRA NAS SANGRIAS' As Nm_Item,
NULL As Valor1, NULL As Valor2, 2.35 As Valor3

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 14)
INSERT INTO TempRelCaixa14
SELECT 'BOMBA - COMBUSTÍVEL - INICIO TURNO' As Label1, 'ENCER.FINAL' As Label2, 'ENCER.INICIAL' As Label3, 'VENDA LITROS' As Label4,
1.1 As Cd_Grupo, 'ENCERRANTES' As Nm_Grupo, RespBomba.Cd_Bomba As Cd_Item,
Substring(Rtrim(Convert(Char,RespBomba.Cd_Bomba)) + ' - ' + Rtrim(Produto.Nm_Produto) + ' - ' + Rtrim(Convert(Char, RespBomba.Dt_RespBomba, 108)),1,80) As Nm_Item,
RespBomba.No_EncerranteEletronicoFechamento As Valor1, RespBomba.No_EncerranteEletronicoAbertura As Valor2, RespBomba.Qt_Venda As Valor3
FROM RespBomba
INNER JOIN Bomba On RespBomba.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And RespBomba.Cd_Bomba = Bomba.Cd_Bomba
INNER JOIN Produto On Bomba.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And Bomba.Cd_Produto = Produto.Cd_Produto
WHERE RespBomba.Cd_Caixa = 87
ORDER BY RespBomba.Cd_Bomba, RespBomba.Dt_RespBomba

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 15)
INSERT INTO TempRelCaixa14
SELECT 'BOMBA - COMBUSTÍVEL - ABASTECIMENTO' As Label1, 'LITROS' As Label2, 'PREÇO' As Label3, 'TOTAL' As Label4,
1.2 As Cd_Grupo, 'AFERICOES' As Nm_Grupo, B.Cd_Bomba As Cd_Item,
Substring(Rtrim(Convert(Char,B.Cd_Bomba)) + ' - ' + Rtrim(C.Nm_Produto) + ' - ' + Convert(Char,A.Cd_Abastecimento) ,1,80) As Nm_Item,
A.Qt_Litros As Valor1, A.Vl_Preco As Valor2, A.Vl_Total As Valor3
FROM Abastecimento A
INNER JOIN Bomba B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico
INNER JOIN Produto C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Produto = C.Cd_Produto
WHERE A.Cd_Caixa = 87
And A.Ic_Afericao <> 0

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 16)
INSERT INTO TempRelCaixa14
SELECT 'BOMBA - COMBUSTÍVEL' As Label1, 'VENDA LITROS' As Label2, 'PREÇO' As Label3, 'TOTAL' As Label4,
1.3 As Cd_Grupo, '1 - VENDAS DE COMBUSTÍVEIS' As Nm_Grupo, ItemCupomFiscal.Cd_Bomba As Cd_Item,
Substring(Rtrim(Convert(Char,ItemCupomFiscal.Cd_Bomba)) + ' - ' + RTrim(Produto.Nm_Produto),1,80) As Nm_Item,
SUM(ItemCupomFiscal.Qt_Unidade) As Valor1, ItemCupomFiscal.Vl_UnitVenda As Valor2,
SUM(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)) As Valor3
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN Bomba On ItemCupomFiscal.Cd_PessoaUsuaria = Bomba.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Bomba = Bomba.Cd_Bomba
WHERE CupomFiscal.Cd_Caixa = 87
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0
GROUP BY ItemCupomFiscal.Cd_Bomba, Produto.Nm_Produto, ItemCupomFiscal.Vl_UnitVenda

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 17)
INSERT INTO TempRelCaixa14
SELECT 'GRUPO - PRODUTO - CODIGO' As Label1, 'QUANT.' As Label2, 'PREÇO' As Label3, 'TOTAL' As Label4,
2.1 As Cd_Grupo, '2 - VENDAS DE PRODUTOS' As Nm_Grupo, '1' As Cd_Item,
Substring(RTrim(GrupoProduto.Nm_GrupoProduto) + ' - ' + RTrim(Produto.Nm_Produto) + ' - ' + Rtrim(Convert(Char,Produto.Cd_Produto)),1,80) As Nm_Item,
Sum(ItemCupomFiscal.Qt_Unidade) As Valor1, ItemCupomFiscal.Vl_UnitVenda As Valor2,
Sum(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda) As Valor3
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN PonVen On ItemCupomFiscal.Cd_PessoaUsuaria = PonVen.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_PonVen = PonVen.Cd_PonVen
INNER JOIN GrupoProduto On Produto.Cd_GrupoProduto = GrupoProduto.Cd_GrupoProduto
WHERE CupomFiscal.Cd_Caixa = 87
And Produto.Fl_VendBomba = 0
And Produto.No_Tipo = 1
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0
GROUP BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto, Produto.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda
ORDER BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 18)
INSERT INTO TempRelCaixa14
SELECT 'GRUPO - SERVIÇO - CODIGO' As Label1, 'QUANT.' As Label2, 'PREÇO' As Label3, 'TOTAL' As Label4,
3.1 As Cd_Grupo, '3 - VENDAS DE SERVIÇOS' As Nm_Grupo, '1' As Cd_Item,
Substring(RTrim(GrupoProduto.Nm_GrupoProduto) + ' - ' + RTrim(Produto.Nm_Produto) + ' - ' + Rtrim(Convert(Char,Produto.Cd_Produto)),1,80) As Nm_Item,
Sum(ItemCupomFiscal.Qt_Unidade) As Valor1, ItemCupomFiscal.Vl_UnitVenda As Valor2,
Sum(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda) As Valor3
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN PonVen On ItemCupomFiscal.Cd_PessoaUsuaria = PonVen.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_PonVen = PonVen.Cd_PonVen
INNER JOIN GrupoProduto On Produto.Cd_GrupoProduto = GrupoProduto.Cd_GrupoProduto
WHERE CupomFiscal.Cd_Caixa = 87
And Produto.Fl_VendBomba = 0
And Produto.No_Tipo = 2
And CupomFiscal.Ic_Excluido = 0
And ItemCupomFiscal.Ic_Excluido = 0
GROUP BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto, Produto.Cd_Produto, ItemCupomFiscal.Vl_UnitVenda
ORDER BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 19)
INSERT INTO TempRelCaixa14
SELECT 'SACADO - CODIGO  - CONTA' As Label1, 'JUROS' As Label2, 'PRINCIPAL' As Label3, 'VALOR PAGO' As Label4,
4.1 As Cd_Grupo, '4 - CONTAS RECEBIDAS' As Nm_Grupo, 1 As Cd_Item,
Substring(RTrim(Pessoa.Nm_Pessoa) + ' - ' + Rtrim(Convert(Char,ContaAReceber.Cd_Pessoa)) + ' - Conta:' + Rtrim(Convert(Char,Recebimento.No_DocDebito)),1,80) As Nm_Item,
Sum(Recebimento.Vl_JurosRec) As Valor1, Sum(Recebimento.Vl_Amortizacao) As Valor2, Sum(Recebimento.Vl_Recebimento) As Valor3
FROM Recebimento
INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
INNER JOIN ContaAReceber On Recebimento.No_DocDebito = ContaAReceber.Cd_ContaAReceber
INNER JOIN Pessoa On ContaAReceber.Cd_Pessoa = Pessoa.Cd_Pessoa
WHERE Recebimento.Cd_Caixa = 87
And Recebimento.Tp_DocDebito=10
GROUP BY Recebimento.No_DocDebito, Pessoa.Nm_Pessoa, ContaAReceber.Cd_Pessoa
ORDER BY Recebimento.No_DocDebito, Pessoa.Nm_Pessoa

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 20)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, '-' As Label2, '-' As Label3, 'VALOR' As Label4,
6.1 As Cd_Grupo, '6 - OUTROS DÉBITOS' As Nm_Grupo, 1 As Cd_Item,
Substring(RTrim(Ds_DivergenciaCaixa) + ' - ' + RTrim(Ds_Divergencia),1,80) As Nm_Item,
0 As Valor1, 0 As Valor2, Vl_Divergencia As Valor3
FROM DivergenciaCaixa
INNER JOIN TipoDivergenciaCaixa On DivergenciaCaixa.Cd_TipoDivergenciaCaixa = TipoDivergenciaCaixa.Cd_TipoDivergenciaCaixa
WHERE Cd_Caixa = 87
And No_NaturezaDivergencia = 2

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 21)
INSERT INTO TempRelCaixa14
SELECT 'FORMA - SANGRIA' As Label1, ' - ' As Label2, 'QUANT.' As Label3, 'VALOR' As Label4,
7.1 As Cd_Grupo, '7 - RECEBIMENTOS' As Nm_Grupo, 1 As Cd_Item,
Substring(RTrim(TipoRecebimento.Nm_TipoRecebimento) + ' - ' + Rtrim(Convert(Char,Recebimento.No_Sangria)),1,80) As Nm_Item,
NULL As Valor1, COUNT(Recebimento.No_Recebimento) As Valor2, SUM(Recebimento.Vl_Recebimento) As Valor1
FROM Recebimento
INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
WHERE Recebimento.Cd_Caixa = 87
GROUP BY TipoRecebimento.Nm_TipoRecebimento, Recebimento.No_Sangria
ORDER BY TipoRecebimento.Nm_TipoRecebimento, Recebimento.No_Sangria

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 22)
INSERT INTO TempRelCaixa14
SELECT 'CLIENTE - CUPOM' As Label1, 'VAL.BRUTO' As Label2, 'DESC/ACRE' As Label3, 'VAL.LÍQUIDO' As Label4,
8.1 As Cd_Grupo, '8 - VENDAS A CRÉDITO' As Nm_Grupo, 1 As Cd_Item,
Substring(Pessoa.Nm_Pessoa + ' - ' + Rtrim(Convert(Char,CupomFiscal.No_CupomFiscal)),1,80) As Nm_Item,
CupomFiscal.Vl_Total As Valor1, CupomFiscal.Vl_DesAcr As Valor2, CupomFiscal.Vl_TotalLiquido As Valor3
FROM CupomFiscal
LEFT JOIN Cliente On CupomFiscal.Cd_PessoaUsuaria = Cliente.Cd_PessoaUsuaria And CupomFiscal.Cd_Cliente = Cliente.Cd_Cliente
LEFT JOIN Pessoa On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa
WHERE CupomFiscal.Cd_Caixa = 87
And Tp_Venda BETWEEN 10 And 19
And CupomFiscal.Ic_Excluido = 0
ORDER BY Pessoa.Nm_Pessoa, CupomFiscal.No_CupomFiscal

-- DALCaixa.GerarDadosParaResumoDeCaixa (line 23)
INSERT INTO TempRelCaixa14
SELECT 'DESCRIÇÃO' As Label1, '-' As Label2, '-' As Label3, 'VALOR' As Label4,
9.1 As Cd_Grupo, '9 - OUTROS CRÉDITOS' As Nm_Grupo, 1 As Cd_Item,
RTrim(Ds_DivergenciaCaixa) + ' - ' + RTrim(Ds_Divergencia) As Nm_Item,
0 As Valor1, 0 As Valor2, Vl_Divergencia As Valor3
FROM DivergenciaCaixa
INNER JOIN TipoDivergenciaCaixa On DivergenciaCaixa.Cd_TipoDivergenciaCaixa = TipoDivergenciaCaixa.Cd_TipoDivergenciaCaixa
WHERE Cd_Caixa = 87
And No_NaturezaDivergencia = 1
