-- DALBanco.CarregarComboBox
 SELECT   Cd_Banco, Nm_Banco
 FROM     Banco
 ORDER BY Nm_Banco

-- DALCarCob.CarregarComboBox
 SELECT   Cd_CarCob, Nm_CarCob
 FROM     CarCob
 ORDER BY Nm_CarCob

-- DALCidade.CarregarComboBox
 SELECT   Cd_Cidade, Nm_Cidade
 FROM     Cidade
 ORDER BY Nm_Cidade

-- DALFuncao.CarregarComboBox
 SELECT   Cd_Funcao, Nm_Funcao
 FROM     Funcao
 ORDER BY Nm_Funcao

-- DALGrupoProduto.CarregarComboBox
 SELECT   Cd_GrupoProduto, Nm_GrupoProduto
 FROM     GrupoProduto
 ORDER BY Nm_GrupoProduto

-- DALHorarioTrabalho.CarregarComboBox
 SELECT   Cd_HorarioTrabalho, Nm_HorarioTrabalho, Hr_Inicial_AI, Hr_Final_AI, Hr_Inicial_DI, Hr_Final_DI
 FROM     HorarioTrabalho
 ORDER BY Cd_HorarioTrabalho

-- DALTipoCaixa.CarregarComboBox
 SELECT   Cd_TipoCaixa, Nm_TipoCaixa
 FROM     TipoCaixa

-- DALTipoContaAReceber.CarregarComboBox
 SELECT   Cd_TipoContaAReceber, Nm_ContaReceber
 FROM     TipoContaAReceber
 ORDER BY Nm_ContaReceber

-- DALTipoLanCCBancaria.CarregarComboBox
 SELECT   Cd_TipoLanCCBancaria, Nm_TipoLanCCBancaria
 FROM     TipoLanCCBancaria
 ORDER BY Nm_TipoLanCCBancaria

-- DALTipoLogradouro.CarregarComboBox
 SELECT   Cd_TipoLogradouro, Nm_TipoLogradouro
 FROM     TipoLogradouro
 ORDER BY Nm_TipoLogradouro

-- DALUF.CarregarComboBox
 SELECT   Cd_UF, Nm_UF
 FROM     UF
 ORDER BY Nm_UF

-- DALTituloEPatente.CarregarComboBox
 SELECT   Cd_TituloEPatente, Nm_TituloEPatente
 FROM     TituloEPatente
 ORDER BY Nm_TituloEPatente

-- DALTipoNF.CarregarComboBox
 SELECT   Cd_TipoNF, Ds_TipoNF
 FROM     TipoNF
 ORDER BY Cd_TipoNF

-- DALCFOP.CarregarComboBox
 SELECT   Cd_CFOP, Ds_Cfop
 FROM     CFOP
 ORDER BY Cd_CFOP

-- DALTipoContaAPagar.CarregarComboBox
 SELECT   Cd_TipoContaAPagar, Ds_ContaAPagar
 FROM     TipoContaAPagar
 ORDER BY Ds_ContaAPagar

-- DALTipoCartao.CarregarComboBox
 SELECT   Cd_TipoCartao, Nm_TipoCartao
 FROM     TipoCartao
 ORDER BY Nm_TipoCartao

-- DALTipoDivergenciaCaixa.CarregarComboBox
 SELECT   Cd_TipoDivergenciaCaixa, Ds_DivergenciaCaixa
 FROM     TipoDivergenciaCaixa
 ORDER BY Cd_TipoDivergenciaCaixa

-- DALGrupoNBM.CarregarComboBox
 SELECT   Cd_GrupoNBM, Nm_GrupoNBM
 FROM     GrupoNBM
 ORDER BY Nm_GrupoNBM

-- DALLogradouro.CarregarComboBox
 SELECT   Cd_Logradouro, Nm_Logradouro
 FROM     Logradouro
 ORDER BY Nm_Logradouro

-- DALGrupoCliente.CarregarComboBox
 SELECT   Cd_GrupoCliente, Nm_GrupoCliente
 FROM     GrupoCliente
 ORDER BY Nm_GrupoCliente

-- DALBanco.Incluir
Select * From Banco Where Cd_Banco = 0

-- DALCidade.Incluir
Select * From Cidade Where Cd_Cidade = 0

-- DALGrupoProduto.Incluir
Select * From GrupoProduto Where Cd_GrupoProduto = 0

-- DALUF.Incluir
Select * From UF Where Cd_UF = 0

-- DALGrupoNBM.Incluir
Select * From GrupoNBM Where Cd_GrupoNBM = 0

-- DALTEF.Incluir
Select * From TEF Where Cd_PessoaUsuaria = 0 and Ds_TipoOperacao = '' and No_Identificacao = 0

-- DALTecBan.Incluir
Select * From TecBan Where Cd_PessoaUsuaria = 0 and Ds_TipoOperacao = '' and No_Identificacao = 0

-- DALLembrete.Incluir
Select * From Lembrete Where Cd_PessoaUsuaria = 0 and Cd_Lembrete = 0 and Cd_Pessoa = 0

-- DALLoteSaidaCheque.Incluir
Select * From LoteSaidaCheque Where Cd_PessoaUsuaria = 0 and No_LoteSaidaCheque = 0

-- DALCartao.Incluir
Select * From Cartao Where Cd_PessoaUsuaria = 0 and Cd_TipoCartao = 0 and Cd_Cartao = 0

-- DALGradeComissao.Incluir
Select * From GradeComissao Where Cd_PessoaUsuaria = 0 and Cd_GrupoCliente = 0 and Cd_GrupoProduto = 0 and Cd_Funcao = 0

-- DALGrupoCliente.Incluir
Select * From GrupoCliente Where Cd_GrupoCliente = 0

-- DALCondEspecialPreco.Incluir
Select * From CondEspecialPreco Where Cd_PessoaUsuaria = 0 and Cd_Produto = 0 and Cd_Cliente = 0

-- DALRestricaoDeVenda.Incluir
Select * From RestricaoDeVenda Where Cd_PessoaUsuaria = 0 and Cd_Produto = 0 and Cd_Cliente = 0

-- DALIdentificacaoDoCliente.Incluir
Select * From IdentificacaoDoCliente Where Cd_PessoaUsuaria = 0 and Cd_Cliente = 0 and Id_CampoExtraCF = ''

-- DALEmpenho.Incluir
Select * From Empenho Where Cd_PessoaUsuaria = 0 and Cd_Cliente = 0 and Id_Empenho = ''

-- DALItemEmpenho.Incluir
Select * From ItemEmpenho Where Cd_PessoaUsuaria = 0 and Cd_Cliente = 0 and Id_Empenho = '' and No_Item = 0

-- DALUF.Consultar (by abbreviation)
SELECT    *
FROM     UF
WHERE    Ds_SiglaUF = 'MG'

-- DALTipoLogradouro.Consultar (by name)
SELECT    *
FROM     TipoLogradouro
WHERE    Nm_TipoLogradouro = 'AVENIDA'

-- DALTEF.Consultar (by transaction)
SELECT    *
FROM     TEF
WHERE    Cd_PessoaUsuaria = 1 and
         No_Transacao = '000123'

-- DALTecBan.Consultar (by identification)
SELECT    *
FROM     TecBan
WHERE    Cd_PessoaUsuaria = 1 and
         No_Identificacao = 88

-- DALSequenciadorGeral.Consultar
SELECT    *
FROM     SequenciadorGeral
WHERE    Nm_Atributo = 'No_LoteSaidaCheque'

-- DALConPag.Existe
SELECT    *
FROM     ConPag
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ConPag = 3

-- DALLayoutCheque.Existe
SELECT    *
FROM     LayoutCheque
WHERE    Cd_Banco = 237

-- DALFeriado.Excluir
DELETE
FROM Feriado
WHERE Dt_Feriado = '2009-04-21'

-- DALGradeComissao.rsTodosRegistros
SELECT B.Nm_GrupoCliente, C.Nm_GrupoProduto, D.Nm_Funcao, A.Tx_Comissao
FROM GradeComissao A
INNER JOIN GrupoCliente B On A.Cd_GrupoCliente = B.Cd_GrupoCliente
INNER JOIN GrupoProduto C On A.Cd_GrupoProduto = C.Cd_GrupoProduto
INNER JOIN Funcao D On A.Cd_Funcao = D.Cd_Funcao
ORDER BY B.Nm_GrupoCliente, C.Nm_GrupoProduto, D.Nm_Funcao, A.Tx_Comissao

-- DALCartao.rsPendencias
SELECT VendaCartaoPorCupomFiscal.*
FROM VendaCartaoPorCupomFiscal
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = VendaCartaoPorCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = VendaCartaoPorCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = VendaCartaoPorCupomFiscal.Dt_Emissao
WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = 1
And VendaCartaoPorCupomFiscal.Cd_TipoCartao = 3
And VendaCartaoPorCupomFiscal.Cd_Cartao = 51
And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
And CupomFiscal.FL_Fechada = 'N'
And CupomFiscal.Tp_Venda = 11

-- DALPessoa.Consultar (by code)
SELECT    *
FROM     Pessoa
WHERE    Cd_Pessoa = 310

-- DALPessoa.Consultar (by tax number)
SELECT    *
FROM     Pessoa
WHERE    Cd_CgcCpf = '12.345.678/0001-95'

-- DALPessoa.RsTodasPessoas
SELECT * FROM Pessoa

-- DALCliente.Consultar
SELECT    *
FROM     Cliente
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Cliente = 310

-- DALCliente.CnpjOuCpfCadastradoComoCliente
SELECT Cd_Cliente
FROM Pessoa
INNER JOIN Cliente On Pessoa.Cd_Pessoa = Cliente.Cd_Cliente
WHERE Pessoa.Cd_CgcCpf = '12.345.678/0001-95'
And Cliente.Cd_PessoaUsuaria = 1

-- DALFornecedor.Consultar
SELECT    *
FROM     Fornecedor
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Fornecedor = 310

-- DALFornecedor.CnpjOuCpfCadastradoComoFornecedor
SELECT Cd_Fornecedor
FROM Pessoa
INNER JOIN Fornecedor On Pessoa.Cd_Pessoa = Fornecedor.Cd_Fornecedor
WHERE Pessoa.Cd_CgcCpf = '12.345.678/0001-95'
And Fornecedor.Cd_PessoaUsuaria = 1

-- DALFuncionario.Consultar
SELECT    *
FROM     Funcionario
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Funcionario = 310

-- DALFuncionario.CnpjOuCpfCadastradoComoFuncionario
SELECT Cd_Funcionario
FROM Pessoa
INNER JOIN Funcionario On Pessoa.Cd_Pessoa = Funcionario.Cd_Funcionario
WHERE Pessoa.Cd_CgcCpf = '12.345.678/0001-95'
And Funcionario.Cd_PessoaUsuaria = 1

-- DALCliente.CnpjOuCpfCadastradoComoPessoa
SELECT Cd_Pessoa
FROM Pessoa
WHERE Pessoa.Cd_CgcCpf = '12.345.678/0001-95'

-- DALUsuario.Consultar (by code)
SELECT    *
FROM     Usuario
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Usuario = 7

-- DALUsuario.Consultar (by name and password)
SELECT    *
FROM     Usuario
WHERE    Cd_PessoaUsuaria = 1 and
         Nm_Usuario = 'MARIA' and
         Ds_CriptoSenha = 'aes1:9sLq0c=='

-- DALUsuario.Consultar (by employee and password)
SELECT    *
FROM     Usuario
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Funcionario = 42 and
         Ds_CriptoSenha = 'aes1:9sLq0c=='

-- DALUsuario.Consultar (by name)
SELECT    *
FROM     Usuario
WHERE    Cd_PessoaUsuaria = 1 and
         Nm_Usuario = 'MARIA'

-- DALCliente.AcumulosChequeEmitente
SELECT TipoRecebimento.Fl_eCheque, Sum(Recebimento.Vl_Recebimento) AS SomaDeVl_Recebimento
FROM Recebimento
RIGHT JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
WHERE Recebimento.Cd_CgcCpf0 = '12345678909'
And Recebimento.Dt_Recebimento >= '2009-03-29'
GROUP BY TipoRecebimento.Fl_eCheque

-- DALCliente.AcumulosChequeTerceiro
SELECT TipoRecebimento.Fl_eCheque, Sum(Recebimento.Vl_Recebimento) AS SomaDeVl_Recebimento
FROM Recebimento
RIGHT JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
WHERE Recebimento.Cd_CgcCpf1 = '12345678909'
And Recebimento.Dt_Recebimento >= '2009-03-29'
GROUP BY TipoRecebimento.Fl_eCheque

-- DALCliente.AcumulosAFaturar
SELECT Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
FROM CupomFiscal
GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Cd_Cliente, CupomFiscal.Fl_Fechada, CupomFiscal.Tp_Venda
HAVING CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Cliente = 310
And CupomFiscal.Fl_Fechada = 'N'
And CupomFiscal.Tp_Venda Between 10 And 19

-- DALCliente.AcumulosFaturados
SELECT Sum(ContaAReceber.Vl_Saldo) AS SomaDeVl_Saldo
FROM ContaAReceber
GROUP BY ContaAReceber.Cd_PessoaUsuaria, ContaAReceber.Cd_Pessoa, ContaAReceber.No_SituacaoPagamento
HAVING ContaAReceber.Cd_PessoaUsuaria = 1
And ContaAReceber.Cd_Pessoa = 310
And ContaAReceber.No_SituacaoPagamento = 1

-- DALVeiculo.AcumulosAFaturarPeriodoAtual
SELECT Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
FROM CupomFiscal
WHERE CupomFiscal.Cd_Veiculo = 'ABC1234'
And CupomFiscal.Dt_Fechamento Between '2009-04-01' And '2009-04-30'
GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.Fl_Fechada, CupomFiscal.Tp_Venda
HAVING CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Fl_Fechada = 'N'
And CupomFiscal.Tp_Venda Between 10 And 19

-- DALVeiculo.VerificarAcumulos (average consumption)
SELECT Avg(Qt_KmPorLitro) As Qt_ConsumoMedio
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Cd_Veiculo = 'ABC1234'

-- DALCliente.ValorDasContasVencida
SELECT Sum(ContaAReceber.Vl_Saldo) AS SomaDeVl_Saldo
FROM ContaAReceber
WHERE ContaAReceber.Cd_PessoaUsuaria = 1
AND ContaAReceber.Cd_Pessoa= 310
AND ContaAReceber.No_SituacaoPagamento = 1
AND ContaAReceber.Dt_VencPro < '2009-04-03'

-- DALCliente.concederPrazo
UPDATE ContaAReceber
Set Dt_BloqueioCredito = '2009-04-20'
WHERE Cd_Pessoa = 310
And Dt_BloqueioCredito < '2009-04-20'

-- DALCliente.atualizarDebito
SELECT Dt_VencPro, Vl_Saldo, Fl_LiberarXdiasJuros, Tx_Mora, Qt_DiasAtraso, Vl_ComJuros, Cd_PessoaAvalista, Ic_Avalista
FROM ContaAReceber
WHERE ContaAReceber.Vl_Saldo > 0
And (ContaAReceber.Cd_Pessoa = 310 Or ContaAReceber.Cd_PessoaAvalista = 310)

-- DALCliente.AtualizarPrecoCondicaoEspecial
SELECT CondEspecialPreco.*, Produto.Vl_Preco As Vl_UnitTabela
FROM CondEspecialPreco
INNER JOIN Produto On CondEspecialPreco.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And CondEspecialPreco.Cd_Produto = Produto.Cd_Produto
WHERE CondEspecialPreco.Cd_PessoaUsuaria = 1
And CondEspecialPreco.Cd_Cliente = 310

-- DALCliente.AtualizarPrecoCondicaoEspecial (one price)
Update CondEspecialPreco
Set Vl_Preco = 2.449
WHERE Cd_PessoaUsuaria = 1
And Cd_Cliente = 310
And Cd_Produto = 5

-- DALCliente.ConsultarQtEmpenhoPendenteProduto
SELECT Sum(A.Qt_Unidade) As SomaDeQt_Unidade
FROM ItemEmpenho A
INNER JOIN Empenho B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Cliente = B.Cd_Cliente And A.Id_Empenho = B.Id_Empenho
WHERE A.Cd_PessoaUsuaria = 1
And A.Id_Empenho = '2009NE00123'
And A.Cd_Cliente = 310
And A.Cd_Produto = 5
And B.No_Situacao = 1

-- DALCliente.ConsultarQtVendaPendenteProduto
SELECT Sum(A.Qt_Unidade) As SomaDeQt_Unidade
FROM ItemCupomFiscal A
INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
WHERE B.Cd_PessoaUsuaria = 1
And B.Cd_Cliente = 310
And B.Tp_Venda Between 10 And 19
And (B.Fl_Fechada = 'N' or B.Fl_Fechada = '-')
And A.Cd_Produto = 5
And B.Cd_ContaAReceber Is Null
And B.Id_Empenho = '2009NE00123'

-- DALCliente.AlterarEmpenhosParaConcluido
UPDATE Empenho
SET No_Situacao = 2
WHERE Cd_PessoaUsuaria = 1
And Cd_Cliente = 310
And No_Situacao = 1

-- DALCliente.rsEmpenhoPendente
SELECT *
FROM Empenho
WHERE Cd_Cliente = 310
And No_Situacao = 1

-- DALEmpenho.rsItens
SELECT A.*, B.Nm_Produto
FROM ItemEmpenho A
INNER JOIN Produto B On A.Cd_Produto = B.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
And A.Cd_Cliente = 310
And A.Id_Empenho = '2009NE00123'
ORDER BY A.No_Item

-- DALVeiculo.Rs_AbastecimentosVeiculoNoDia
SELECT CupomFiscal.*
FROM CupomFiscal
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
AND CupomFiscal.Cd_Veiculo = 'ABC1234'
AND CupomFiscal.Dt_Emissao = '2009-04-03'

-- DALEmpresaUsuaria.CnpjOuCpfCadastradoComoEmpresaUsuaria
SELECT Cd_PessoaUsuaria
FROM Pessoa
INNER JOIN EmpresaUsuaria On Pessoa.Cd_Pessoa = EmpresaUsuaria.Cd_PessoaUsuaria
WHERE Pessoa.Cd_CgcCpf = '12.345.678/0001-95'

-- DALEmpresaUsuaria.CarregarComboBox
 SELECT   EmpresaUsuaria.Cd_PessoaUsuaria, Pessoa.Nm_Pessoa
 FROM     EmpresaUsuaria
 INNER JOIN Pessoa On EmpresaUsuaria.Cd_PessoaUsuaria = Pessoa.Cd_Pessoa
 ORDER BY Pessoa.Nm_Pessoa

-- DALEmpresaUsuaria.BloqueiaAutomaticamenteCreditoClienteEmAtraso (to block)
SELECT Cd_Pessoa, Cd_PessoaAvalista
FROM ContaAReceber
LEFT JOIN Cliente On ContaAReceber.Cd_Pessoa = Cliente.Cd_Cliente
WHERE Dt_BloqueioCredito Between '1980-01-01' And GetDate()
And No_SituacaoPagamento <> 3
And Vl_Saldo > 0
And No_SituacaoCredito = 2
And Fl_BloqAutCredito = 1
GROUP BY Cd_Pessoa, Cd_PessoaAvalista
ORDER BY Cd_Pessoa

-- DALEmpresaUsuaria.BloqueiaAutomaticamenteCreditoClienteEmAtraso (block)
UPDATE Cliente
Set No_SituacaoCredito = 3
WHERE Cd_Cliente = 310
And No_SituacaoCredito < 3

-- DALEmpresaUsuaria.BloqueiaAutomaticamenteCreditoClienteEmAtraso (to cancel)
SELECT Cd_Pessoa, Cd_PessoaAvalista
FROM ContaAReceber
LEFT JOIN Cliente On ContaAReceber.Cd_Pessoa = Cliente.Cd_Cliente
WHERE Dt_BloqueioCredito <= '2009-04-03'
And Dt_VencPro <= '2009-02-02'
And No_SituacaoPagamento <> 3
And Vl_Saldo > 0
And No_SituacaoCredito <> 4
And Fl_CanCredito = 1
GROUP BY Cd_Pessoa, Cd_PessoaAvalista
ORDER BY Cd_Pessoa

-- DALEmpresaUsuaria.BloqueiaAutomaticamenteCreditoClienteEmAtraso (cancel)
UPDATE Cliente
Set No_SituacaoCredito = 4
WHERE Cd_Cliente = 310
And No_SituacaoCredito < 4

-- DALEmpresaUsuaria.ApagaEstoqueConsolidado
DELETE FROM EstoqueConsolidado
WHERE Cd_PessoaUsuaria = 1
And Dt_Referencia = '2009-04-30'

-- DALEmpresaUsuaria.ApagaEstoqueConsolidadoIgualZero
DELETE FROM EstoqueConsolidado
WHERE Cd_PessoaUsuaria = 1
And Dt_Referencia = '2009-04-30'
And Qt_Estoque = 0

-- DALEmpresaUsuaria.rsProdutosComVendaNoCardexAtePeriodo (opening figures)
INSERT INTO EstoqueConsolidado (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Vl_CustoMedio, Qt_Estoque, Vl_IcmsRecuperar)
SELECT Cd_PessoaUsuaria, '2009-04-30' As Dt_Referencia, Cd_Produto, Vl_CustoMedioInicial, Qt_EstoqueInicial, Vl_CredIcmsMedioInicial
FROM Produto
WHERE Cd_PessoaUsuaria = 1
And No_Tipo = 1

-- DALEmpresaUsuaria.rsProdutosComVendaNoCardexAtePeriodo
SELECT Cardex.Cd_Produto
FROM Cardex
INNER JOIN Produto On Cardex.Cd_Produto = Produto.Cd_Produto
WHERE Cardex.Cd_PessoaUsuaria = 1
And Cardex.Dt_Emissao <= '2009-04-30'
And Produto.No_Tipo = 1
GROUP BY Cardex.Cd_Produto

-- DALEmpresaUsuaria.BuscaEGravaEstoqueConsolidado (ledger)
SELECT *
FROM Cardex
WHERE Cd_PessoaUsuaria = 1
And Dt_Emissao <= '2009-04-30'
And Cd_Produto = 120
And Cd_LancamentoCardex <= 99000
ORDER BY Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc

-- DALEmpresaUsuaria.BuscaEGravaEstoqueConsolidado
UPDATE EstoqueConsolidado
SET Vl_CustoMedio = 5.25,
Qt_Estoque = 14.0,
Vl_IcmsRecuperar = 0.945
WHERE Cd_PessoaUsuaria = 1
And Dt_Referencia = '2009-04-30'
And Cd_Produto = 120

-- DALEmpresaUsuaria.rsEstoqueConsolidado (by group and name)
SELECT GrupoProduto.Cd_GrupoProduto, GrupoProduto.Nm_GrupoProduto, EstoqueConsolidado.Cd_Produto, Produto.Nm_Produto, Produto.Vl_Preco,
EstoqueConsolidado.Qt_Estoque, EstoqueConsolidado.Vl_CustoMedio,
Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2) As Vl_Total
FROM EstoqueConsolidado
INNER JOIN Produto On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
INNER JOIN GrupoProduto On GrupoProduto.Cd_GrupoProduto = Produto.Cd_GrupoProduto
WHERE EstoqueConsolidado.Cd_PessoaUsuaria = 1
And EstoqueConsolidado.Dt_Referencia = '2009-04-30'
ORDER BY GrupoProduto.Nm_GrupoProduto, Produto.Nm_Produto

-- DALEmpresaUsuaria.rsEstoqueConsolidado (by code)
SELECT GrupoProduto.Cd_GrupoProduto, GrupoProduto.Nm_GrupoProduto, EstoqueConsolidado.Cd_Produto, Produto.Nm_Produto, Produto.Vl_Preco,
EstoqueConsolidado.Qt_Estoque, EstoqueConsolidado.Vl_CustoMedio,
Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2) As Vl_Total
FROM EstoqueConsolidado
INNER JOIN Produto On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
INNER JOIN GrupoProduto On GrupoProduto.Cd_GrupoProduto = Produto.Cd_GrupoProduto
WHERE EstoqueConsolidado.Cd_PessoaUsuaria = 1
And EstoqueConsolidado.Dt_Referencia = '2009-04-30'
ORDER BY EstoqueConsolidado.Cd_Produto

-- DALEmpresaUsuaria.PreparaEstoqueConsolidadoFechado (products)
SELECT Cd_Produto, Vl_CustoMedioInicial, Qt_EstoqueInicial, Vl_CredIcmsMedioInicial
FROM Produto
WHERE Cd_PessoaUsuaria = 1
And No_Tipo = 1
ORDER BY Cd_Produto

-- DALEmpresaUsuaria.PreparaEstoqueConsolidadoFechado (ledger)
SELECT TOP 1 Vl_CustoMedio, Qt_Estoque, Vl_CredIcmsMedio
FROM Cardex
WHERE Cd_PessoaUsuaria = 1
And Cd_Produto = 120
And Dt_Emissao <= '2009-04-30'
ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc

-- DALEmpresaUsuaria.PreparaEstoqueConsolidadoFechado
INSERT INTO EstoqueConsolidado (Cd_PessoaUsuaria, Dt_Referencia, Cd_Produto, Vl_CustoMedio, Qt_Estoque, Vl_IcmsRecuperar)
Values (1, '2009-04-30', 120, 5.25, 14.0, 0.0)

-- DALEmpresaUsuaria.ExisteControleResponsabilidadePorTrocaTurno
SELECT Count(*) As Qt_Bombas
FROM Bomba
WHERE Cd_PessoaUsuaria = 1
And No_TipoControleResponsabilidade = 1

-- DALEmpresaUsuaria.ExisteControleResponsabilidadePorDesbloqueioDeBico
SELECT Count(*) As Qt_Bombas
FROM Bomba
WHERE Cd_PessoaUsuaria = 1
And No_TipoControleResponsabilidade = 2

-- DALEmpresaUsuaria.ObterDataUltimoLmc
SELECT Max(Dt_Lmc) As Dt_Lmc
FROM Lmc
WHERE Cd_PessoaUsuaria = 1

-- DALEmpresaUsuaria.ObterDataUltimoLmc (without tenant)
SELECT Max(Dt_Lmc) As Dt_Lmc
FROM   Lmc

-- DALEmpresaUsuaria.AtualizarPrecoCondicaoEspecial
SELECT CondEspecialPreco.*, Produto.Vl_Preco As Vl_UnitTabela
FROM CondEspecialPreco
INNER JOIN Produto On CondEspecialPreco.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And CondEspecialPreco.Cd_Produto = Produto.Cd_Produto
WHERE CondEspecialPreco.Cd_PessoaUsuaria = 1

-- DALEmpresaUsuaria.rsTipoRecebimento
SELECT   Cd_TipoRecebimento, Nm_TipoRecebimento, No_TipoPagamento, No_TipoVencimento, Fl_DisNaVenda, Fl_eCheque
FROM     TipoRecebimento
ORDER BY Nm_TipoRecebimento

-- DALEmpresaUsuaria.rsBombas
SELECT   Bomba.Cd_Bomba, Bomba.Ds_Bomba, Bomba.Ds_Bico, Bomba.De_EnderecoLogicoBico, Bomba.Cd_Produto,
         Produto.Nm_Produto, Produto.Vl_Preco, Bomba.Cd_SisTubulacao, SisTubulacao.Nm_SisTubulacao,
         Bomba.No_UltEncerrante, Bomba.De_Status, Bomba.Fl_BloquearBico
FROM     Bomba
         LEFT JOIN Produto On Bomba.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                              Bomba.Cd_Produto = Produto.Cd_Produto
         LEFT JOIN SisTubulacao On Bomba.Cd_PessoaUsuaria = SisTubulacao.Cd_PessoaUsuaria And
                                   Bomba.Cd_SisTubulacao = SisTubulacao.Cd_SisTubulacao
WHERE    Bomba.Cd_PessoaUsuaria = 1
ORDER BY Bomba.Cd_Bomba

-- DALEmpresaUsuaria.rsEstoqueAtual (all three signs)
SELECT   B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto, A.Cd_Unidade, IsNull(A.Qt_Estoque, 0) As Qt_Estoque,
         IsNull(A.Vl_CustoMedio, 0) As Vl_CustoMedio, A.Vl_Preco,
         Round(IsNull(A.Qt_Estoque, 0) * IsNull(A.Vl_CustoMedio, 0), 2) As Vl_Total
FROM     Produto A
         LEFT JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.No_Tipo = 1 And
         (IsNull(A.Qt_Estoque, 0) < 0 Or IsNull(A.Qt_Estoque, 0) > 0 Or IsNull(A.Qt_Estoque, 0) = 0)
ORDER BY B.Nm_GrupoProduto, A.Nm_Produto

-- DALEmpresaUsuaria.rsEstoqueAtual (none)
SELECT   B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto, A.Cd_Unidade, IsNull(A.Qt_Estoque, 0) As Qt_Estoque,
         IsNull(A.Vl_CustoMedio, 0) As Vl_CustoMedio, A.Vl_Preco,
         Round(IsNull(A.Qt_Estoque, 0) * IsNull(A.Vl_CustoMedio, 0), 2) As Vl_Total
FROM     Produto A
         LEFT JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.No_Tipo = 1 And
         (A.Qt_Estoque = Null)
ORDER BY B.Nm_GrupoProduto, A.Nm_Produto

-- DALEmpresaUsuaria.rsTransferenciaEntrada
SELECT   A.Cd_ProdutoEntrada, C.Nm_Produto As Nm_ProdutoEntrada, A.Qt_UnidadeEntrada,
         C.Qt_Estoque As Qt_EstoqueEntrada, A.Cd_ProdutoBaixa, B.Nm_Produto As Nm_ProdutoBaixa,
         A.Qt_UnidadeBaixa, B.Qt_Estoque As Qt_EstoqueBaixa, A.Ic_TransferenciaAutomatica
FROM     ProdutoTransferencia A
         INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_ProdutoBaixa = B.Cd_Produto
         INNER JOIN Produto C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And A.Cd_ProdutoEntrada = C.Cd_Produto
WHERE    A.Cd_PessoaUsuaria = 1
ORDER BY C.Nm_Produto, B.Nm_Produto

-- DALEmpresaUsuaria.rsMargemContribuicaoPorProdutoEDia
SELECT   A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto, Sum(A.Qt_Unidade) As Qt_Vendida,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)), 2) As Vl_Venda,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2)), 2) As Vl_Custo,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) - Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2)), 2) As Vl_Margem,
         Case When Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) = 0 Then 0
              Else Round((Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) - Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2))) * 100 / Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)), 2) End As Pc_Margem
FROM     Cardex A
         INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.No_Tipo = 20 And
         A.Dt_Emissao Between '2009-04-01' And '2009-04-30'
GROUP BY A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto
ORDER BY A.Dt_Emissao, B.Nm_Produto, A.Cd_Produto

-- DALEmpresaUsuaria.rsMargemContribuicaoPorProdutoEDia (fuel only)
SELECT   A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto, Sum(A.Qt_Unidade) As Qt_Vendida,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)), 2) As Vl_Venda,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2)), 2) As Vl_Custo,
         Round(Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) - Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2)), 2) As Vl_Margem,
         Case When Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) = 0 Then 0
              Else Round((Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)) - Sum(Round(A.Qt_Unidade * A.Vl_CustoMedio, 2))) * 100 / Sum(Round(A.Qt_Unidade * A.Vl_Unitario, 2)), 2) End As Pc_Margem
FROM     Cardex A
         INNER JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.No_Tipo = 20 And
         A.Dt_Emissao Between '2009-04-01' And '2009-04-30' And
         B.Fl_VendBomba <> 0
GROUP BY A.Dt_Emissao, A.Cd_Produto, B.Nm_Produto
ORDER BY A.Dt_Emissao, B.Nm_Produto, A.Cd_Produto

-- DALEmpresaUsuaria.rsPagamentoDebitosOriginadoDeNotaFiscalNoPeriodo
SELECT   A.Dt_Pagamento, A.Cd_Pagamento, A.Vl_Pagamento, C.No_ContasAPagar, C.Id_DocumentoFornecedor,
         C.Dt_Vencimento, C.Vl_Debito, C.Vl_SaldoDebito, C.Cd_Fornecedor, E.Nm_Pessoa, D.Cd_TipoNF, D.No_Nota
FROM     Pagamento A
         LEFT JOIN PagamentoDeConta B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                         A.Cd_Pagamento = B.Cd_Pagamento
         LEFT JOIN ContaAPagar C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                    B.No_ContasAPagar = C.No_ContasAPagar
         LEFT JOIN ContaAPagarDeNotaEntrada D On C.Cd_PessoaUsuaria = D.Cd_PessoaUsuaria And
                                                 C.No_ContasAPagar = D.No_ContasAPagar
         LEFT JOIN Pessoa E On C.Cd_Fornecedor = E.Cd_Pessoa
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.Dt_Pagamento Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
         (Not D.No_Nota Is Null)
ORDER BY A.Dt_Pagamento, E.Nm_Pessoa, A.Cd_Pagamento, C.No_ContasAPagar

-- DALEmpresaUsuaria.rsPagamentoDeContasNoPeriodo
SELECT   A.Dt_Pagamento, A.Cd_Pagamento, A.Vl_Pagamento, C.No_ContasAPagar, C.Id_DocumentoFornecedor,
         C.Dt_Vencimento, C.Vl_Debito, C.Vl_SaldoDebito, C.Cd_Fornecedor, E.Nm_Pessoa
FROM     Pagamento A
         LEFT JOIN PagamentoDeConta B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                         A.Cd_Pagamento = B.Cd_Pagamento
         LEFT JOIN ContaAPagar C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                    B.No_ContasAPagar = C.No_ContasAPagar
         LEFT JOIN Pessoa E On C.Cd_Fornecedor = E.Cd_Pessoa
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.Dt_Pagamento Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
         (Not C.No_ContasAPagar Is Null)
ORDER BY A.Dt_Pagamento, E.Nm_Pessoa, A.Cd_Pagamento, C.No_ContasAPagar

-- DALEmpresaUsuaria.rsRecebimentosDasVendas
SELECT   A.Cd_TipoRecebimento, B.Nm_TipoRecebimento, Count(*) As Qt_Recebimentos,
         Sum(A.Vl_Recebimento) As Vl_Recebimentos
FROM     Recebimento A
         LEFT JOIN TipoRecebimento B On A.Cd_TipoRecebimento = B.Cd_TipoRecebimento
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.Dt_Lancamento Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
         A.Tp_DocDebito = 20 And
         A.Ic_Suprimento = 0
GROUP BY A.Cd_TipoRecebimento, B.Nm_TipoRecebimento
ORDER BY B.Nm_TipoRecebimento

-- DALEmpresaUsuaria.rsEncerranteInicialFinalEVenda
SELECT   A.Cd_Bomba, A.De_EnderecoLogicoBico, A.Ds_Bico, A.Cd_Produto, B.Nm_Produto,
         IsNull((SELECT   TOP 1 No_EncerranteFechamento
                 FROM     Abastecimento
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                          Dt_Termino < '2009-04-01 00:00:00'
                 ORDER BY Dt_Termino Desc, No_Contador Desc, Cd_Abastecimento Desc),
       IsNull(A.No_EncerranteInicial, 0)) As No_EncerranteInicial,
         IsNull((SELECT   TOP 1 No_EncerranteFechamento
                 FROM     Abastecimento
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                          Dt_Termino <= '2009-04-30 23:59:59'
                 ORDER BY Dt_Termino Desc, No_Contador Desc, Cd_Abastecimento Desc),
       IsNull(A.No_EncerranteInicial, 0)) As No_EncerranteFinal,
         Round(IsNull((SELECT Sum(Qt_Litros)
               FROM   Abastecimento
               WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                      De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                      Dt_Termino Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
                      Ic_Afericao = 0), 0), 3) As Qt_Venda,
         Round(IsNull((SELECT Sum(Qt_Litros)
               FROM   Abastecimento
               WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                      De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                      Dt_Termino Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
                      Ic_Afericao = 1), 0), 3) As Qt_Afericao,
         IsNull((SELECT Sum(Vl_Total)
               FROM   Abastecimento
               WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                      De_EnderecoLogicoBico = A.De_EnderecoLogicoBico And
                      Dt_Termino Between '2009-04-01 00:00:00' And '2009-04-30 23:59:59' And
                      Ic_Afericao = 0), 0) As Vl_Venda
FROM     Bomba A
         LEFT JOIN Produto B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And A.Cd_Produto = B.Cd_Produto
WHERE    A.Cd_PessoaUsuaria = 1
ORDER BY A.Cd_Bomba

-- DALEmpresaUsuaria.rsContaAPagarEmAbertoVencimentoMenorIgualA
SELECT   A.Dt_Vencimento, A.No_ContasAPagar, A.Id_DocumentoFornecedor, A.Cd_Fornecedor, B.Nm_Pessoa,
         A.Vl_Debito, A.Vl_Pagamentos, A.Vl_SaldoDebito, A.Vl_MoraDiaria
FROM     ContaAPagar A
         LEFT JOIN Pessoa B On A.Cd_Fornecedor = B.Cd_Pessoa
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.Dt_Vencimento <= '2009-04-30' And
         A.Vl_SaldoDebito > 0
ORDER BY A.Dt_Vencimento, B.Nm_Pessoa, A.No_ContasAPagar

-- DALEmpresaUsuaria.rsEtiquetaProdutos
SELECT   Cd_Produto, Nm_Produto, Cd_CodBarras, Cd_Unidade, Vl_Preco
FROM     Produto
WHERE    Cd_PessoaUsuaria = 1 And
         Cd_Produto In (120,121,122)
ORDER BY Nm_Produto

-- DALEmpresaUsuaria.rsEtiquetaProdutos (none)
SELECT   Cd_Produto, Nm_Produto, Cd_CodBarras, Cd_Unidade, Vl_Preco
FROM     Produto
WHERE    Cd_PessoaUsuaria = 1 And
         Cd_Produto In (Null)
ORDER BY Nm_Produto

-- DALEmpresaUsuaria.rsCuponsDeContaAReceber
SELECT   Dt_Emissao, Hr_Emissao, No_Impressora, No_CupomFiscal, Cd_Veiculo, No_Km, No_Requisicao, Vl_Total,
         Vl_DescontoCF, Vl_TotalLiquido
FROM     CupomFiscal
WHERE    Cd_PessoaUsuaria = 1 And
         Cd_ContaAReceber = 640 And
         Ic_Excluido = 0
ORDER BY Dt_Emissao, Hr_Emissao, No_Impressora, No_CupomFiscal

-- DALEmpresaUsuaria.rsConciliacaoEstoqueSisTubulacao
SELECT   A.Dt_Conciliacao, A.Cd_SisTubulacao, B.Nm_SisTubulacao, B.Cd_Produto, C.Nm_Produto,
         A.Qt_EstoqueSistema, A.Qt_EstoqueFisico, A.Qt_Diferenca, A.Ds_Observacao
FROM     ConciliacaoEstoqueSisTubulacao A
         LEFT JOIN SisTubulacao B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                     A.Cd_SisTubulacao = B.Cd_SisTubulacao
         LEFT JOIN Produto C On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And B.Cd_Produto = C.Cd_Produto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.Dt_Conciliacao Between '2009-04-30 00:00:00' And '2009-04-30 23:59:59'
ORDER BY A.Dt_Conciliacao, A.Cd_SisTubulacao

-- DALEmpresaUsuaria.rsECFsCadastrados
SELECT   A.No_Impressora, A.No_Serie,
         (SELECT Max(Dt_Movimento)
          FROM   ReducaoZ
          WHERE  Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                 No_Impressora = A.No_Impressora) As Dt_UltimaReducaoZ
FROM     ECF A
WHERE    A.Cd_PessoaUsuaria = 1
ORDER BY A.No_Impressora

-- DALEmpresaUsuaria.GerarResumoContaAReceber
DELETE FROM ResumoContaAReceber
WHERE  Cd_PessoaUsuaria = 1 And
       Dt_Inicial = '2009-04-01' And
       Dt_Final = '2009-04-30'

-- DALEmpresaUsuaria.GerarResumoContaAReceber
INSERT INTO ResumoContaAReceber
       (Cd_PessoaUsuaria, Dt_Inicial, Dt_Final, Cd_Pessoa, Qt_Contas, Vl_Debito, Vl_DesPag, Vl_AcrPag,
        Vl_Pagamentos, Vl_Saldo, Vl_Vencido, Dt_VencimentoMaisAntigo)
SELECT   Cd_PessoaUsuaria, '2009-04-01', '2009-04-30', Cd_Pessoa, Count(*), Sum(Vl_Debito), Sum(Vl_DesPag), Sum(Vl_AcrPag),
         Sum(Vl_Pagamentos), Sum(Vl_Saldo),
         Sum(Case When Dt_VencPro < '2026-11-24' And Vl_Saldo > 0 Then Vl_Saldo Else 0 End),
         Min(Case When Vl_Saldo > 0 Then Dt_VencPro Else Null End)
FROM     ContaAReceber
WHERE    Cd_PessoaUsuaria = 1 And
         Dt_VencPro Between '2009-04-01' And '2009-04-30' And
         Not Cd_Pessoa Is Null
GROUP BY Cd_PessoaUsuaria, Cd_Pessoa

-- DALEmpresaUsuaria.rsEstoque
SELECT   B.Nm_GrupoProduto, A.Cd_Produto, A.Nm_Produto, A.Cd_Unidade,
         IsNull((SELECT   TOP 1 Qt_Estoque
                 FROM     Cardex
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          Cd_Produto = A.Cd_Produto And
                          Dt_Emissao <= '2009-04-30'
                 ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc), IsNull(A.Qt_EstoqueInicial, 0)) As Qt_Estoque,
         IsNull((SELECT   TOP 1 Vl_CustoMedio
                 FROM     Cardex
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          Cd_Produto = A.Cd_Produto And
                          Dt_Emissao <= '2009-04-30'
                 ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc), IsNull(A.Vl_CustoMedioInicial, 0)) As Vl_CustoMedio,
         Round(IsNull((SELECT   TOP 1 Qt_Estoque
                 FROM     Cardex
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          Cd_Produto = A.Cd_Produto And
                          Dt_Emissao <= '2009-04-30'
                 ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc), IsNull(A.Qt_EstoqueInicial, 0)) * IsNull((SELECT   TOP 1 Vl_CustoMedio
                 FROM     Cardex
                 WHERE    Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                          Cd_Produto = A.Cd_Produto And
                          Dt_Emissao <= '2009-04-30'
                 ORDER BY Dt_Emissao Desc, Cd_LancamentoCardex Desc), IsNull(A.Vl_CustoMedioInicial, 0)), 2) As Vl_Total
FROM     Produto A
         LEFT JOIN GrupoProduto B On A.Cd_GrupoProduto = B.Cd_GrupoProduto
WHERE    A.Cd_PessoaUsuaria = 1 And
         A.No_Tipo = 1
ORDER BY B.Nm_GrupoProduto, A.Nm_Produto
