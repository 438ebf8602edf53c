-- DALCupomFiscal.Consultar
SELECT    *
FROM     CupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03'
         and Ic_Excluido = 0

-- DALCupomFiscal.Alterar
SELECT    *
FROM     CupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.Incluir
INSERT INTO CupomFiscal
       (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, No_ContadorCupomFiscal, Dt_Emissao, Hr_Emissao,
        Vl_TotProd, Vl_BasCalIcms, Vl_Icms, Vl_TotSer, Vl_BasCalIss, Vl_Iss,
        Vl_Total, Vl_DesAcr, Vl_IssRetido, Vl_TotalLiquido, Tp_Venda, Cd_Veiculo,
        No_Km, Tp_ImpNf, No_NF, Dt_Fechamento, FL_Fechada, Cd_ContaAReceber,
        Dt_Vencimento, Cd_Cfop, Cd_Caixa, Dt_EfeFechamento, Cd_FuncionarioEfeFechamento, Nm_IdCliente,
        Tx_Iss, Fl_IssRetido, Vl_GTotal, Qt_ContReducoes, Vl_Isentas, Vl_NaoTributadoICMS,
        Vl_SubTrib, Vl_Cancelamentos, Id_CampoExtraCF, Ic_CupomConcluido, Cd_SequenciaNotaServico, Cd_SequenciaNotaCupom,
        Cd_Cliente, No_Requisicao, Ic_BaixaAutomatica)
Values (1, 2, 1530, 1530, '2009-04-03', '10:15:42',
        112.785, 12.500, 2.250, 0.00, 0.00, 0.00,
        112.79, 2.79, 0.00, 110.00, 21, Null,
        0, 1, Null, '1899-12-30', 'N', Null,
        '1899-12-30', '5.929', 87, '1899-12-30', Null, '',
        0.00, 0, 987654.32, 412, 0.00, 0.00,
        100.29, 35.40, '', -1, Null, Null,
        Null, Null, 0)

-- DALCupomFiscal.Incluir (on credit)
INSERT INTO CupomFiscal
       (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, No_ContadorCupomFiscal, Dt_Emissao, Hr_Emissao,
        Vl_TotProd, Vl_BasCalIcms, Vl_Icms, Vl_TotSer, Vl_BasCalIss, Vl_Iss,
        Vl_Total, Vl_DesAcr, Vl_IssRetido, Vl_TotalLiquido, Tp_Venda, Cd_Veiculo,
        No_Km, Tp_ImpNf, No_NF, Dt_Fechamento, FL_Fechada, Cd_ContaAReceber,
        Dt_Vencimento, Cd_Cfop, Cd_Caixa, Dt_EfeFechamento, Cd_FuncionarioEfeFechamento, Nm_IdCliente,
        Tx_Iss, Fl_IssRetido, Vl_GTotal, Qt_ContReducoes, Vl_Isentas, Vl_NaoTributadoICMS,
        Vl_SubTrib, Vl_Cancelamentos, Id_CampoExtraCF, Ic_CupomConcluido, Cd_SequenciaNotaServico, Cd_SequenciaNotaCupom,
        Cd_Cliente, No_Requisicao, Ic_BaixaAutomatica)
Values (1, 2, 1531, 1531, '2009-04-03', '10:22:10',
        49.980, 0.000, 0.000, 0.00, 0.00, 0.00,
        49.98, -0.02, 0.00, 50.00, 12, 'ABC1234',
        85210, 12, Null, '2009-04-30', 'N', Null,
        '2009-05-10', '5.929', 87, '1899-12-30', Null, 'JOÃO DA SILVA',
        5.00, -1, 987704.30, 412, 0.00, 0.00,
        49.98, 35.40, 'FROTA 7', -1, Null, Null,
        310, 5521, -1)

-- DALCupomFiscal.Excluir
UPDATE CupomFiscal
SET    Ic_Excluido = -1
WHERE Cd_PessoaUsuaria = 1
      and No_Impressora = 2
      and No_CupomFiscal = 1530
      and Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.corrigirCaixaRecebimentoDiferenteCaixaCupom
Update Recebimento
Set Cd_Caixa = 87
WHERE Cd_PessoaUsuaria = 1
And No_Recebimento In (
SELECT Recebimento.No_Recebimento
FROM CupomFiscal
LEFT JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora
And CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal
And CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
LEFT JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
WHERE CupomFiscal.Cd_Caixa <> Recebimento.Cd_Caixa
And CupomFiscal.No_Impressora = 2
And CupomFiscal.No_CupomFiscal = 1530
And CupomFiscal.Dt_Emissao = '2009-04-03')

-- DALCupomFiscal.ConsultarUltimo
SELECT *
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Emissao = '2009-04-03'
And Ic_Excluido = 0
ORDER BY Hr_Emissao

-- DALCupomFiscal.ConsultarItens (TodosItens)
SELECT A.*, B.Nm_Produto, B.No_Tipo
FROM ItemCupomFiscal A
Left Join Produto B on B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
AND A.No_Impressora = 2
AND A.No_CupomFiscal = 1530
AND A.Dt_Emissao = '2009-04-03'
And Ic_Excluido = 0
ORDER BY A.No_Item

-- DALCupomFiscal.ConsultarItens (SomenteProdutos)
SELECT A.*, B.Nm_Produto, B.No_Tipo
FROM ItemCupomFiscal A
Left Join Produto B on B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
AND A.No_Impressora = 2
AND A.No_CupomFiscal = 1530
AND A.Dt_Emissao = '2009-04-03'
And Ic_Excluido = 0AND B.No_Tipo = 1
ORDER BY A.No_Item

-- DALCupomFiscal.ConsultarItens (SomenteServicos)
SELECT A.*, B.Nm_Produto, B.No_Tipo
FROM ItemCupomFiscal A
Left Join Produto B on B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
AND A.No_Impressora = 2
AND A.No_CupomFiscal = 1530
AND A.Dt_Emissao = '2009-04-03'
And Ic_Excluido = 0AND B.No_Tipo = 2
ORDER BY A.No_Item

-- DALCupomFiscal.ExcluirRecebimentos (receipts of the coupon)
SELECT B.No_Recebimento, A.*
FROM RecebimentoCupom A
INNER JOIN Recebimento AS B ON A.No_Recebimento = B.No_Recebimento
WHERE A.Cd_PessoaUsuaria = 1
AND A.No_Impressora = 2
AND A.No_CupomFiscal = 1530
AND A.Dt_Emissao = '2009-04-03' ;

-- DALCupomFiscal.ExcluirRecebimentos (link)
DELETE
FROM RecebimentoCupom
WHERE Cd_PessoaUsuaria = 1
      and No_Impressora = 2
      and No_CupomFiscal = 1530
      and Dt_Emissao = '2009-04-03'
      and No_Recebimento = 7720

-- DALCupomFiscal.ExcluirRecebimentos (receipt)
DELETE
FROM Recebimento
WHERE Cd_PessoaUsuaria = 1
      and No_Recebimento = 7720

-- DALCupomFiscal.adorsRecebimentos
SELECT TipoRecebimento.Nm_TipoRecebimento, Recebimento.*
FROM RecebimentoCupom
INNER JOIN Recebimento On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
INNER JOIN TipoRecebimento On Recebimento.Cd_TipoRecebimento = TipoRecebimento.Cd_TipoRecebimento
WHERE RecebimentoCupom.Cd_PessoaUsuaria = 1
And RecebimentoCupom.No_Impressora = 2
And RecebimentoCupom.No_CupomFiscal = 1530
And RecebimentoCupom.Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.ConsultarTotalRecebimentos
SELECT Sum(B.Vl_Recebimento) AS SomaDeVl_Recebimento
FROM RecebimentoCupom A
INNER JOIN Recebimento AS B ON B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.No_Recebimento = A.No_Recebimento
WHERE A.Cd_PessoaUsuaria = 1
AND A.No_Impressora = 2
AND A.No_CupomFiscal = 1530
AND A.Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.Rs_CuponsNaoConcluidos
SELECT A.*
FROM CupomFiscal A
WHERE A.Cd_PessoaUsuaria = 1
AND A.Dt_Movimento >= '2009-04-02'
AND A.No_Impressora = 2
And A.Ic_Excluido = 0
ORDER BY A.No_CupomFiscal

-- DALCupomFiscal.No_UltimoKm
SELECT TOP 1 B.No_Km
FROM ItemCupomFiscal A
INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
INNER JOIN Produto C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And A.Cd_Produto = C.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
And B.Cd_Veiculo = 'ABC1234'
And C.Fl_VendBomba <> 0
And A.Dt_Emissao <= '2009-04-03'
And A.No_CupomFiscal < 1530
And B.No_Km > 0
And A.Ic_Excluido = 0
And B.Ic_Excluido = 0
ORDER BY B.Dt_Emissao Desc, B.Hr_Emissao Desc

-- DALCupomFiscal.Qt_Combustivel
SELECT Sum(A.Qt_Unidade) As SomaDeQt_Unidade
FROM ItemCupomFiscal A
INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
INNER JOIN Produto C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria
And A.Cd_Produto = C.Cd_Produto
WHERE A.Cd_PessoaUsuaria = 1
And A.Dt_Emissao = '2009-04-03'
And A.No_CupomFiscal = 1530
And C.Fl_VendBomba <> 0
And A.Ic_Excluido = 0
And B.Ic_Excluido = 0

-- DALCupomFiscal.GravarConsumoCombustivel
UPDATE ItemCupomFiscal
SET Qt_KmPorLitro = 9.875
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.ItensPeloKardexRs
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_LancamentoCardex in (90210,90211,90212)
And A.Ic_Excluido = 0
ORDER BY A.Dt_Emissao, A.No_CupomFiscal;

-- DALCupomFiscal.ItensPeloKardexRs (one code)
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_LancamentoCardex in (90210)
And A.Ic_Excluido = 0
ORDER BY A.Dt_Emissao, A.No_CupomFiscal;

-- DALCupomFiscal.ItensPeloKardexRs (empty list)
-- refused: an empty list of codes
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_LancamentoCardex in ()
And A.Ic_Excluido = 0
ORDER BY A.Dt_Emissao, A.No_CupomFiscal;

-- DALCupomFiscal.ItensPeloKardexSomadosPorProdutoRs
-- refused: Nm_Produto is selected and neither grouped nor aggregated
SELECT B.Cd_Produto, B.Nm_Produto, Sum(A.Qt_Unidade) As SomaDeQt_Unidade, A.Vl_UnitVenda,
Round(Sum(A.Qt_Unidade) * A.Vl_UnitVenda,2) As Vl_Total
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
WHERE A.Cd_LancamentoCardex in (90210,90211,90212)
And A.Ic_Excluido = 0
GROUP BY B.Cd_Produto, A.Vl_UnitVenda;

-- DALCupomFiscal.CuponsSemEmissaoDeNfRs
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total, A.Cd_Abastecimento
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
INNER JOIN CupomFiscal E On E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And E.No_Impressora = A.No_Impressora
And E.No_CupomFiscal = A.No_CupomFiscal
And E.Dt_Emissao = A.Dt_Emissao
WHERE A.Cd_PessoaUsuaria = 1
And A.Ic_Excluido = 0
And E.Ic_Excluido = 0
And (E.No_NF = 0 or E.No_NF Is Null)
And E.Tp_Venda = 21
ORDER BY Round(A.Qt_Unidade * A.Vl_UnitVenda,2);

-- DALCupomFiscal.CuponsSemEmissaoDeNfRs (all filters)
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total, A.Cd_Abastecimento
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
INNER JOIN CupomFiscal E On E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And E.No_Impressora = A.No_Impressora
And E.No_CupomFiscal = A.No_CupomFiscal
And E.Dt_Emissao = A.Dt_Emissao
WHERE A.Cd_PessoaUsuaria = 1
And A.Ic_Excluido = 0
And E.Ic_Excluido = 0
And B.Cd_Produto = 5
And A.Dt_Emissao Between '2009-04-01' And '2009-04-30'
And A.Qt_Unidade Between 10.0 And 45.125
And A.Vl_UnitVenda = 2.499
And E.Cd_Cliente = 310
And (E.No_NF = 0 or E.No_NF Is Null)
And E.Tp_Venda = 21
And Exists(Select * From RecebimentoCupom C
INNER JOIN Recebimento D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And D.No_Recebimento = C.No_Recebimento
Where C.No_Impressora = A.No_Impressora
And C.No_CupomFiscal = A.No_CupomFiscal
And C.Dt_Emissao = A.Dt_Emissao
And D.Cd_TipoRecebimento = 5)
And (Select Count(*) From ItemCupomFiscal E
Where E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And E.No_Impressora = A.No_Impressora
And E.No_CupomFiscal = A.No_CupomFiscal
And E.Dt_Emissao = A.Dt_Emissao) = 1
ORDER BY Round(A.Qt_Unidade * A.Vl_UnitVenda,2);

-- DALCupomFiscal.CuponsSemEmissaoDeNfRs (dates only)
SELECT A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade, A.Vl_UnitVenda,
Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total, A.Cd_Abastecimento
FROM ItemCupomFiscal A
INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.Cd_Produto = A.Cd_Produto
INNER JOIN CupomFiscal E On E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And E.No_Impressora = A.No_Impressora
And E.No_CupomFiscal = A.No_CupomFiscal
And E.Dt_Emissao = A.Dt_Emissao
WHERE A.Cd_PessoaUsuaria = 1
And A.Ic_Excluido = 0
And E.Ic_Excluido = 0
And A.Dt_Emissao Between '2009-04-01' And '2009-04-30'
And (E.No_NF = 0 or E.No_NF Is Null)
And E.Tp_Venda = 21
ORDER BY Round(A.Qt_Unidade * A.Vl_UnitVenda,2);

-- DALCupomFiscal.ObterItensPeloCodigoAbastecimento
SELECT ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms, CupomFiscal.Fl_IssRetido,
ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo,
Sum(ItemCupomFiscal.Qt_Unidade) As SomaDeQt_Unidade, ItemCupomFiscal.Vl_UnitVenda
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria
And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE ItemCupomFiscal.Cd_Abastecimento In(4711,4712)
And ItemCupomFiscal.Ic_Excluido = 0
And CupomFiscal.Ic_Excluido = 0
GROUP BY ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms, CupomFiscal.Fl_IssRetido,
ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo, ItemCupomFiscal.Vl_UnitVenda

-- DALCupomFiscal.ObterCuponsFiscaisPeloCodigoAbastecimento
SELECT Distinct CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_Abastecimento In(4711,4712)
And ItemCupomFiscal.Ic_Excluido = 0
And CupomFiscal.Ic_Excluido = 0

-- DALCupomFiscal.AlterarParaFaturado
UPDATE CupomFiscal
SET Cd_ContaAReceber = 640,
FL_Fechada = 'S',
Dt_EfeFechamento = '2009-04-30',
Cd_FuncionarioEfeFechamento = 42,
Dt_Vencimento = '2009-05-10',
Dt_Fechamento = '2009-04-30'
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'

-- DALCupomFiscal.rsAbastecimentos
SELECT Bomba.Ds_Bomba, Bomba.Ds_Bico, Bomba.Cd_Bomba,
Abastecimento.No_EncerranteFechamento - Abastecimento.Qt_Litros As No_EncerranteAbertura,
Abastecimento.No_EncerranteFechamento
FROM ItemCupomFiscal
INNER JOIN Abastecimento On Abastecimento.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And Abastecimento.Cd_Abastecimento = ItemCupomFiscal.Cd_Abastecimento
INNER JOIN Bomba On Bomba.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria
And Bomba.De_EnderecoLogicoBico = Abastecimento.De_EnderecoLogicoBico
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And ItemCupomFiscal.No_Impressora = 2
And ItemCupomFiscal.No_CupomFiscal = 1530
And ItemCupomFiscal.Dt_Emissao = '2009-04-03'

-- DALItemCupomFiscal.Consultar
SELECT    *
FROM     ItemCupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03' and
         No_Item = 1
         and Ic_Excluido = 0

-- DALItemCupomFiscal.Incluir
INSERT INTO ItemCupomFiscal
       (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade,
        Vl_UnitTabela, Vl_UnitVenda, Vl_AltAut, Vl_AltDig, No_SitTributaria, Cd_Unidade, Tx_Icms, Tx_BaseCalculo,
        No_TribIcms, Cd_SisTubulacao, Cd_PonVen, Cd_CFOP, Cd_CompCFOP, Cd_Abastecimento, Cd_LancamentoCardex,
        Cd_Bomba, Qt_KmPorLitro, Vl_ComissaoVendedor)
Values (1, 2, 1530, '2009-04-03', 1, 5, 40.13000000,
        2.499, 2.499, 0.000, 0.000, '060', 'LT', 0.00000000, 100.00000000,
        '6', 2, Null, '5929', '', 4711, 90213,
        3, 0.000, 0.00)

-- DALItemCupomFiscal.Incluir (shop goods)
INSERT INTO ItemCupomFiscal
       (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade,
        Vl_UnitTabela, Vl_UnitVenda, Vl_AltAut, Vl_AltDig, No_SitTributaria, Cd_Unidade, Tx_Icms, Tx_BaseCalculo,
        No_TribIcms, Cd_SisTubulacao, Cd_PonVen, Cd_CFOP, Cd_CompCFOP, Cd_Abastecimento, Cd_LancamentoCardex,
        Cd_Bomba, Qt_KmPorLitro, Vl_ComissaoVendedor)
Values (1, 2, 1530, '2009-04-03', 2, 120, 1.00000000,
        12.900, 12.500, -0.400, 0.000, '000', 'UN', 18.00000000, 100.00000000,
        '0', Null, 4, '5102', '', Null, 90214,
        Null, 0.000, 0.25)

-- DALItemCupomFiscal.Alterar
UPDATE ItemCupomFiscal
SET Cd_PessoaUsuaria = 1,
No_Impressora = 2,
No_CupomFiscal = 1530,
Dt_Emissao = '2009-04-03',
No_Item = 1,
Cd_Produto = 5,
Qt_Unidade = 40.13000000,
Vl_UnitTabela = 2.49900000,
Vl_UnitVenda = 2.4990,
Vl_AltAut = 0.0000,
Vl_AltDig = 0.0000,
No_SitTributaria = '060',
Cd_Unidade = 'LT',
Tx_Icms = 0.00,
Tx_BaseCalculo = 100.00,
No_TribIcms = '6',
Cd_SisTubulacao = 2,
Cd_PonVen = Null,
Cd_CFOP = '5929',
Cd_CompCFOP = '',
Cd_Abastecimento = 4711,
Cd_LancamentoCardex = 90213,
Cd_Bomba = 3,
Qt_KmPorLitro = 9.87500000,
Vl_ComissaoVendedor = 0.00
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'
And No_Item = 1

-- DALItemCupomFiscal.Alterar (no links)
UPDATE ItemCupomFiscal
SET Cd_PessoaUsuaria = 1,
No_Impressora = 2,
No_CupomFiscal = 1530,
Dt_Emissao = '2009-04-03',
No_Item = 2,
Cd_Produto = 120,
Qt_Unidade = 1.00000000,
Vl_UnitTabela = 12.90000000,
Vl_UnitVenda = 12.5000,
Vl_AltAut = -0.4000,
Vl_AltDig = 0.0000,
No_SitTributaria = '000',
Cd_Unidade = 'UN',
Tx_Icms = 18.00,
Tx_BaseCalculo = 100.00,
No_TribIcms = '0',
Cd_SisTubulacao = Null,
Cd_PonVen = 4,
Cd_CFOP = '5102',
Cd_CompCFOP = '',
Cd_Abastecimento = Null,
Cd_LancamentoCardex = Null,
Cd_Bomba = Null,
Qt_KmPorLitro = 0.00000000,
Vl_ComissaoVendedor = 0.25
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'
And No_Item = 2

-- DALItemCupomFiscal.Excluir
UPDATE ItemCupomFiscal
SET Ic_Excluido = -1,
Cd_LancamentoCardex = NULL,
Cd_Abastecimento = NULL
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'
And No_Item = 1

-- DALItemCupomFiscal.ConsultarProduto
SELECT    *
FROM     Produto
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Produto = 120

-- DALCuponsFiscais.rsItensParaEmissaoNFServicosCupons
SELECT A.Cd_PessoaUsuaria, A.Cd_Produto, Sum(A.Qt_Unidade) AS SomaDeQt_Unidade, A.Vl_UnitVenda, A.Cd_Unidade
FROM ItemCupomFiscal AS A
INNER JOIN CupomFiscal AS B ON (A.Dt_Emissao = B.Dt_Emissao) AND (A.No_CupomFiscal = B.No_CupomFiscal) AND (A.No_Impressora = B.No_Impressora)
WHERE A.Cd_PessoaUsuaria= 1
AND A.Dt_Emissao='2009-04-03'
AND A.Fl_Tipo='SERVIcO'
AND B.No_TipoEnvioNF=1
AND A.Ic_Excluido = 0
AND B.Ic_Excluido = 0
GROUP BY A.Cd_PessoaUsuaria, A.Cd_Produto, A.Vl_UnitVenda, A.Cd_Unidade, A.Dt_Emissao

-- DALRecebimento.Consultar
SELECT    *
FROM     Recebimento
WHERE    Cd_PessoaUsuaria = 1 and
         No_Recebimento = 7720

-- DALRecebimento.Consultar (coupon of the receipt)
SELECT    *
FROM     RecebimentoCupom
WHERE    Cd_PessoaUsuaria = 1 and
         No_Recebimento = 7720

-- DALRecebimento.Incluir
INSERT INTO Recebimento
       (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, No_DocDebito, Cd_TipoRecebimento, Cd_Cmc7Rec, Cd_BancoRec,
        Cd_AgenciaRec, Cd_ContaRec, Nm_IdDocumentoRec, Tp_Operacao, Cd_Tipo0, Cd_Tipo1, Cd_CgcCpf0, Cd_CgcCpf1,
        Dt_Recebimento, Vl_Recebimento, Qt_DiasAtraso, Vl_Amortizacao, Vl_JurosRec, Tx_MoraRec, Dt_Lancamento,
        Cd_Caixa, No_Sangria, Ic_Suprimento)
Values (1, 7720, 20, 1530, 2, '237024500180000115505603', 237,
        245, '0018000-0', '000115', 1, 1, Null, '12345678909', Null,
        '2009-05-03', 110.00, 0, 110.00, 0.00, 0.00, '2009-04-03',
        87, 0, 0)

-- DALRecebimento.Incluir (float)
INSERT INTO Recebimento
       (Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, No_DocDebito, Cd_TipoRecebimento, Cd_Cmc7Rec, Cd_BancoRec,
        Cd_AgenciaRec, Cd_ContaRec, Nm_IdDocumentoRec, Tp_Operacao, Cd_Tipo0, Cd_Tipo1, Cd_CgcCpf0, Cd_CgcCpf1,
        Dt_Recebimento, Vl_Recebimento, Qt_DiasAtraso, Vl_Amortizacao, Vl_JurosRec, Tx_MoraRec, Dt_Lancamento,
        Cd_Caixa, No_Sangria, Ic_Suprimento)
Values (1, 7721, 20, Null, 5, Null, Null,
        Null, Null, 'SUPRIMENTO', 0, 0, 0, '', '',
        '2009-04-03', 150.00, 0, 150.00, 0.00, 0.00, '2009-04-03',
        87, 0, -1)

-- DALRecebimento.ExisteLancamentoDocumento (cash or card)
SELECT Recebimento.No_Recebimento
FROM Recebimento
WHERE Recebimento.Cd_TipoRecebimento = 2
And Recebimento.Nm_IdDocumentoRec='000115'
And Recebimento.Cd_BancoRec Is Null
And Recebimento.Cd_AgenciaRec Is Null
And (Recebimento.Cd_ContaRec='' Or Recebimento.Cd_ContaRec Is Null)

-- DALRecebimento.ExisteLancamentoDocumento (cheque, on an edit)
SELECT Recebimento.No_Recebimento
FROM Recebimento
WHERE Recebimento.Cd_TipoRecebimento = 2
And Recebimento.Nm_IdDocumentoRec='000115'
And Recebimento.Cd_BancoRec=237
And Recebimento.Cd_AgenciaRec=245
And Recebimento.Cd_ContaRec='0018000-0'
And Recebimento.No_Recebimento <> 7720

-- DALRecebimentos.ConsultarRecebimentosNaoSangradosDoCaixa
 SELECT A.*
 FROM Recebimento A
 WHERE A.Cd_PessoaUsuaria = 1
 And A.Cd_Caixa = 87
 And A.No_Sangria = 0
 And A.Cd_TipoRecebimento = 5
 ORDER BY A.No_Recebimento

-- DALRecebimentoCupom.Consultar
SELECT    *
FROM     RecebimentoCupom
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03' and
         No_Recebimento = 7720

-- DALRecebimentoCupom.Incluir
Select * From RecebimentoCupom Where Cd_PessoaUsuaria = 0 and No_Impressora = 0 and No_CupomFiscal = 0 and Dt_Emissao = Null and No_Recebimento = 0

-- DALTipoRecebimento.Consultar (by payment kind)
SELECT *
FROM TipoRecebimento
WHERE No_TipoPagamento = 2
AND No_TipoVencimento = 1
AND Fl_DisNaVenda = 1

-- DALTipoRecebimento.CarregarComboBox
 SELECT *
 FROM TipoRecebimento
 WHERE Fl_DisNaVenda = 1
 ORDER BY Nm_TipoRecebimento

-- DALConsultaCheque.Consultar (by magnetic line)
SELECT    *
FROM     ConsultaCheque
WHERE    Cd_Cmc7 = '237024500180000115505603'
-- ConsultaCheque_03

-- DALConsultaCheque.Consultar (by bank, branch, account and document)
SELECT    *
FROM     ConsultaCheque
WHERE    Cd_Banco = 237 and
         Cd_Agencia = 245 and
         Cd_Conta = '0018000-0' and
         Nm_IdDocumento = '000115'
-- ConsultaCheque_01

-- DALConsultaCheque.Incluir
Select * From ConsultaCheque Where Cd_Banco = 0 and Cd_Agencia = 0 and Cd_Conta = '' and Nm_IdDocumento = ''

-- DALConsultaCheque.Excluir (by magnetic line)
DELETE
FROM ConsultaCheque
WHERE Cd_Cmc7 = '237024500180000115505603'

-- DALConsultaCheque.ConsultarEmpresaUsuaria
SELECT    *
FROM     EmpresaUsuaria
WHERE    Cd_PessoaUsuaria = 1

-- DALVendaCartaoPorCupomFiscal.Consultar
SELECT    *
FROM     VendaCartaoPorCupomFiscal
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2 and
         No_CupomFiscal = 1530 and
         Dt_Emissao = '2009-04-03' and
         Cd_TipoCartao = 3 and
         Cd_Cartao = 51

-- DALCartao.QuantidadeDePendencias
SELECT Count(Cd_Cartao) As Qt_Pendencia
FROM VendaCartaoPorCupomFiscal
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = VendaCartaoPorCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = VendaCartaoPorCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = VendaCartaoPorCupomFiscal.Dt_Emissao
WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = 1
And Tp_Venda = 11
And VendaCartaoPorCupomFiscal.Cd_TipoCartao = 3
And VendaCartaoPorCupomFiscal.Cd_Cartao = 51
And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
And CupomFiscal.FL_Fechada = 'N'

-- DALECF.Consultar
SELECT    *
FROM     ECF
WHERE    Cd_PessoaUsuaria = 1 and
         No_Impressora = 2

-- DALECFRegistro60Analitico.Incluir
Select * From ECFRegistro60Analitico Where Cd_PessoaUsuaria = 0 and No_Impressora = 0 and Ds_TipoRegistro = '' and Dt_Movimento = Null

-- DALECFRegistro60Mestre.Incluir
Select * From ECFRegistro60Mestre Where Cd_PessoaUsuaria = 0 and No_Impressora = 0 and Dt_Movimento = Null

-- DALPDV.CarregarComboBox
 SELECT Cd_PDV, Nm_PDV
 FROM PDV
 WHERE Cd_PessoaUsuaria = 1
 ORDER BY Nm_PDV

-- DALECF.Rs_VolumeCombustiveisVendidos
SELECT Produto.Nm_Produto, ItemCupomFiscal.Cd_Bomba, Sum(ItemCupomFiscal.Qt_Unidade) As SomaDeQt_Unidade
FROM ItemCupomFiscal
INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento='2009-04-03'
And CupomFiscal.No_Impressora=2
And Produto.Fl_VendBomba <> 0
GROUP BY Produto.Nm_Produto, ItemCupomFiscal.Cd_Bomba

-- DALECF.DataUltimoMovimento
SELECT Max(Dt_Movimento) As Dt_Emissao
FROM CupomFiscal
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.No_Impressora = 2

-- DALECF.Rs_Registro60Analitico
SELECT *
FROM ECFRegistro60Analitico
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Movimento = '2009-04-03'

-- DALECF.Rs_Registro60Mestre
SELECT *
FROM ECFRegistro60Mestre
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Movimento = '2009-04-03'

-- DALECF.IncluirLogDocumentoEmitidoECF
INSERT INTO Vr5.dbo.LogDocumentoEmitidoECF
       (Cd_PessoaUsuaria, No_Impressora, Dt_Emissao, No_COO, No_ContadorGNF, No_ContadorGRG, No_ContadorCDC,
        Ds_TipoDocumento, Dt_Inicio, Dt_Fim, Ic_Sangria, Ic_Suprimento, Vl_Documento)
Values (1, 2, '2009-04-03', 1532, 77, 0, 0,
        'CN', '2009-04-03 22:10:00', '2009-04-03 22:10:07', -1, 0, 150.00)

-- DALECF.rsRecebimentosPorPeriodo
CREATE TABLE #RecebimentoCaixa (
Nm_TipoRecebimento varchar(40) NOT NULL,
Vl_RecebimentoFiscal money NOT NULL,
Vl_RecebimentoNaoFiscal money NOT NULL
);
INSERT INTO #RecebimentoCaixa
SELECT TipoRecebimento.Nm_TipoRecebimento,
Case when Tp_DocDebito = 20 then Vl_Recebimento -- Pagamento de Venda
Else 0 End As Vl_RecebimentoFiscal,
0 As Vl_RecebimentoNaoFiscal
FROM Recebimento
INNER JOIN TipoRecebimento On TipoRecebimento.Cd_TipoRecebimento = Recebimento.Cd_TipoRecebimento
INNER JOIN RecebimentoCupom on RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria
And RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
WHERE RecebimentoCupom.Cd_PessoaUsuaria = 1
And RecebimentoCupom.No_Impressora = 2
And RecebimentoCupom.Dt_Emissao Between '2009-04-01' And '2009-04-30'
INSERT INTO #RecebimentoCaixa
SELECT TipoRecebimento.Nm_TipoRecebimento,
0 As Vl_RecebimentoFiscal,
Vl_Recebimento As Vl_RecebimentoNaoFiscal
FROM Recebimento
INNER JOIN TipoRecebimento On TipoRecebimento.Cd_TipoRecebimento = Recebimento.Cd_TipoRecebimento
WHERE Recebimento.Cd_PessoaUsuaria = 1
And Recebimento.Dt_Lancamento Between '2009-04-01' And '2009-04-30'
And Recebimento.Ic_Suprimento = 1;
SELECT Nm_TipoRecebimento,
Sum(Vl_RecebimentoFiscal) as Vl_RecebimentoFiscal,
SUM(Vl_RecebimentoNaoFiscal) as Vl_RecebimentoNaoFiscal
FROM #RecebimentoCaixa
GROUP BY Nm_TipoRecebimento

-- DALECF.CarregarComboBox
SELECT No_Impressora, No_SerieCriptografadaBLOWFISH
FROM ECF
WHERE Cd_PessoaUsuaria = 1
ORDER BY No_Impressora

-- DALECF.rsIdentificacaoECF
SELECT *
FROM IdentificacaoECF
WHERE Ds_TipoECF = 'ECF-IF'
And Ds_MarcaECF = 'BEMA'
And Ds_ModeloECF = 'MP-20 FI II'
And Ds_VersaoSoftwareBasicoECF = '03.25'

-- DALECF.AtualizarValorGT
UPDATE ECF
SET Ds_GTotalCriptografado = 'aes1:mZ0h8K2vQ6yT4dUoXq5b1A=='
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2

-- DALECF.ObterGTotalDeCupons
SELECT Isnull(Max(Vl_GTotal),0) As UltimoVl_GTotal
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2

-- DALReducaoZ.Existe
SELECT    *
FROM     ReducaoZ
WHERE    Cd_PessoaUsuaria = 1 and
         Dt_Movimento = '2009-04-03' and
         No_Impressora = 2

-- DALReducaoZ.Incluir
Select * From ReducaoZ Where Cd_PessoaUsuaria = 0 and Dt_Movimento = Null and No_Impressora = 0

-- DALMapaResumoECF.Incluir
Select * From MapaResumoECF Where Cd_PessoaUsuaria = 0 and Dt_Movimento = Null and No_Impressora = 0 and Qt_ContReducoes = 0

-- DALMapaResumoECF.Consultar
SELECT    *
FROM     MapaResumoECF
WHERE    Cd_PessoaUsuaria = 1 and
         Dt_Movimento = '2009-04-03' and
         No_Impressora = 2

-- DALMapaResumoECF.Excluir
DELETE
FROM MapaResumoECF
WHERE Cd_PessoaUsuaria = 1
      and Dt_Movimento = '2009-04-03'
      and No_Impressora = 2
      and Qt_ContReducoes = 412

-- DALReducaoZ.ConsultarUltimo
 SELECT ReducaoZ.*
 FROM ReducaoZ
 WHERE ( ReducaoZ.Cd_PessoaUsuaria = 1
 And ReducaoZ.No_Impressora=2
 And ReducaoZ.Dt_Movimento <= '2009-04-03' )
 ORDER BY ReducaoZ.Dt_Movimento ;

-- DALMapaResumoECF.ConsultarUltimo
 SELECT MapaResumoECF.*
 FROM MapaResumoECF
 WHERE ( MapaResumoECF.Cd_PessoaUsuaria = 1
 And MapaResumoECF.No_Impressora=2
 And MapaResumoECF.Dt_Movimento <= '2009-04-03' )
 ORDER BY MapaResumoECF.Dt_Movimento ;

-- DALReducaoZ.ConsultarAnterior
SELECT TOP 1 ReducaoZ.*
FROM ReducaoZ
WHERE ReducaoZ.Cd_PessoaUsuaria = 1
And ReducaoZ.No_Impressora=2
And ReducaoZ.Dt_Movimento < '2009-04-03'
ORDER BY ReducaoZ.Dt_Movimento desc

-- DALMapaResumoECF.ConsultarAnterior
SELECT TOP 1 MapaResumoECF.*
FROM MapaResumoECF
WHERE MapaResumoECF.Cd_PessoaUsuaria = 1
And MapaResumoECF.No_Impressora=2
And MapaResumoECF.Dt_Movimento < '2009-04-03'
ORDER BY MapaResumoECF.Dt_Movimento desc

-- DALReducaoZ.ConsultarUltimaNoPeriodo
SELECT A.*
FROM ReducaoZ A
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Impressora = 2
And A.Dt_Movimento = (Select MAX(B.Dt_Movimento)
From ReducaoZ B
WHERE B.Cd_PessoaUsuaria = 1
And B.No_Impressora = 2
And B.Dt_Movimento Between '2009-04-01' and '2009-04-30');

-- DALReducaoZ.ConsultarUltima
SELECT A.*
FROM ReducaoZ A
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Impressora = 2
And A.Dt_Movimento = (Select MAX(B.Dt_Movimento)
From ReducaoZ B
WHERE B.Cd_PessoaUsuaria = 1
And B.No_Impressora = 2);

-- DALMapaResumoECF.ConsultaVendaParaAliquota
SELECT Sum(Round(A.Qt_Unidade * (A.Vl_UnitVenda - A.Vl_AltFinalCupom),2)) As Vl_TotalVenda
FROM ItemCupomFiscal A
INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_Impressora = B.No_Impressora
And A.No_CupomFiscal = B.No_CupomFiscal
And A.Dt_Emissao = B.Dt_Emissao
WHERE B.Cd_PessoaUsuaria = 1
And B.No_Impressora = 2
And B.Dt_Movimento = '2009-04-03'
And A.Tx_Icms = 07.10

-- DALMapaResumoECF.rsCupomFiscaisComDescontoFinalCupom
SELECT Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Vl_DescontoCF, Vl_TotalLiquido, Vl_DescontoCF,
Vl_DescontoCF / (Vl_TotalLiquido + Vl_DescontoCF) As Vl_FatorDescontoFinalCupom
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Movimento = '2009-04-03'
And Vl_DescontoCF > 0

-- DALMapaResumoECF.RatearDescontoFinalCupom
UPDATE ItemCupomFiscal
SET Vl_AltFinalCupom = Vl_UnitVenda * 0.100000000000
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And No_CupomFiscal = 1530
And Dt_Emissao = '2009-04-03'

-- DALMapaResumoECF.ZerarDescontoFinalCupomNulo
UPDATE ItemCupomFiscal
SET Vl_AltFinalCupom = 0
WHERE Dt_Emissao Between '2009-04-02' And '2009-04-04'
And Vl_AltFinalCupom Is Null

-- DALMapaResumoECF.Rs_SomaVendasCFAgrupadosPorECF (exempt value cleared)
UPDATE CupomFiscal
SET Vl_Isentas = 0
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento = '2009-04-03'

-- DALMapaResumoECF.Rs_SomaVendasCFAgrupadosPorECF (exempt value from the lines)
UPDATE CupomFiscal
SET Vl_Isentas = (SELECT SUM(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2))
FROM ItemCupomFiscal
INNER JOIN Produto On Produto.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And Produto.Cd_Produto = ItemCupomFiscal.Cd_Produto
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
And ItemCupomFiscal.No_SitTributaria = '040'
And Produto.No_Tipo = 1)
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento = '2009-04-03'

-- DALMapaResumoECF.Rs_SomaVendasCFAgrupadosPorECF
SELECT No_Impressora,
IsNull(Min(No_CupomFiscal),0) As MinimoDeNo_CupomFiscal,
IsNull(Max(No_CupomFiscal),0) As MaximoDeNo_CupomFiscal,
IsNull(Min(Vl_GTotal),0) As MinimoDeVl_GTotal,
IsNull(Max(Vl_GTotal),0) As MaximoDeVl_GTotal,
IsNull(Max(Vl_Cancelamentos),0) As MaximoDeVl_Cancelamentos,
IsNull(Sum(Vl_Isentas),0) As SomaDeVl_Isentas,
IsNull(Sum(Vl_SubTrib),0) As SomaDeVl_SubTrib,
IsNull(Sum(Vl_DescontoCF),0) As SomaDeVl_DescontoCF,
IsNull(Sum(Vl_TotSer),0) As SomaDeVl_TotSer,
IsNull(Sum(Vl_DesAcr),0) As SomaDeVl_DesAcr,
(SELECT Sum(B.Vl_DesAcr)
FROM CupomFiscal B
WHERE B.Cd_PessoaUsuaria = 1
And B.No_Impressora = 2
And B.Dt_Movimento = '2009-04-03'
And B.Vl_DesAcr > 0) As Vl_Descontos,
(SELECT Sum(C.Vl_DesAcr) * -1
FROM CupomFiscal C
WHERE C.Cd_PessoaUsuaria = 1
And C.No_Impressora = 2
And C.Dt_Movimento = '2009-04-03'
And C.Vl_DesAcr < 0) As Vl_Acrescimos,
(SELECT Round(Sum(D.Qt_Unidade * D.Vl_AltFinalCupom),2)
FROM ItemCupomFiscal D
INNER JOIN CupomFiscal E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria
And D.No_Impressora = E.No_Impressora
And D.No_CupomFiscal = E.No_CupomFiscal
And D.Dt_Emissao = E.Dt_Emissao
WHERE E.Cd_PessoaUsuaria = 1
And E.No_Impressora = 2
And E.Dt_Movimento = '2009-04-03') As Vl_DescontoFinalCupom,
(SELECT Round(Sum(D.Qt_Unidade * D.Vl_AltFinalCupom),2)
FROM ItemCupomFiscal D
INNER JOIN CupomFiscal E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria
And D.No_Impressora = E.No_Impressora
And D.No_CupomFiscal = E.No_CupomFiscal
And D.Dt_Emissao = E.Dt_Emissao
WHERE E.Cd_PessoaUsuaria = 1
And E.No_Impressora = 2
And E.Dt_Movimento = '2009-04-03'
And Cast(D.No_TribIcms As Int) = 6) As Vl_DescontoFinalCupomST,
(SELECT Round(Sum(D.Qt_Unidade * D.Vl_AltFinalCupom),2)
FROM ItemCupomFiscal D
INNER JOIN CupomFiscal E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria
And D.No_Impressora = E.No_Impressora
And D.No_CupomFiscal = E.No_CupomFiscal
And D.Dt_Emissao = E.Dt_Emissao
WHERE E.Cd_PessoaUsuaria = 1
And E.No_Impressora = 2
And E.Dt_Movimento = '2009-04-03'
And Cast(D.No_TribIcms As Int) = 0) As Vl_DescontoFinalCupomTributado
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Movimento = '2009-04-03'
GROUP BY No_Impressora

-- DALMapaResumoECF.rsCupomFiscais
SELECT *
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Movimento = '2009-04-03'
ORDER BY No_CupomFiscal

-- DALMapaResumoECF.rsCupomFiscaisDataMovimentoEProximoDia
SELECT *
FROM CupomFiscal
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Emissao >= '2009-04-03'
ORDER BY No_CupomFiscal

-- DALNotaSaida.Consultar (by number)
SELECT    *
FROM     NotaSaida
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_TipoNF = 1 and
         No_Nota = 2210

-- DALNotaSaida.Consultar (by type and receivable)
SELECT    *
FROM     NotaSaida
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_TipoNF = 1 and
         Cd_ContaAReceber = 640

-- DALNotaSaida.Consultar (by receivable)
SELECT    *
FROM     NotaSaida
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_ContaAReceber = 640

-- DALNotaSaida.Incluir
Select * From NotaSaida Where Cd_PessoaUsuaria = 0 and No_Nota = 0

-- DALNotaSaida.ExcluirLogica (by number)
UPDATE NotaSaida
SET Ic_Cancelada = 1,
Cd_ContaAReceber = Null
WHERE Cd_PessoaUsuaria = 1
And Cd_TipoNF = 1
And No_Nota = 2210

-- DALNotaSaida.ExcluirLogica (by receivable)
UPDATE NotaSaida
SET Ic_Cancelada = 1,
Cd_ContaAReceber = Null
WHERE Cd_PessoaUsuaria = 1
And Cd_ContaAReceber = 640

-- DALNotaSaida.ExcluirFisica (by number)
DELETE
FROM NotaSaida
WHERE Cd_PessoaUsuaria = 1
      and Cd_TipoNF = 1
      and No_Nota = 2210

-- DALNotaSaida.ExcluirFisica (by receivable)
DELETE
FROM NotaSaida
WHERE Cd_PessoaUsuaria = 1
      and Cd_ContaAReceber = 640

-- DALNotaSaida.Excluir (lines)
DELETE FROM ItemNotaSaida
WHERE Cd_PessoaUsuaria = 1
And Cd_TipoNF = 1
And No_Nota = 2210

-- DALNotaSaida.ConsultarItens (TodosItens)
SELECT A.*, B.No_Tipo, B.Nm_Produto, C.Ic_DestacarIcmsST
FROM ItemNotaSaida A
LEFT JOIN Produto B On A.Cd_Produto = B.Cd_Produto
INNER JOIN NaturezaProduto C On B.Cd_Natureza = C.Cd_Natureza
WHERE A.Cd_PessoaUsuaria = 1
AND A.Cd_TipoNF = 1
AND A.No_Nota = 2210
ORDER BY A.No_Item

-- DALNotaSaida.ConsultarItens (SomenteProdutos)
SELECT A.*, B.No_Tipo, B.Nm_Produto, C.Ic_DestacarIcmsST
FROM ItemNotaSaida A
LEFT JOIN Produto B On A.Cd_Produto = B.Cd_Produto
INNER JOIN NaturezaProduto C On B.Cd_Natureza = C.Cd_Natureza
WHERE A.Cd_PessoaUsuaria = 1
AND A.Cd_TipoNF = 1
AND A.No_Nota = 2210
AND B.No_Tipo = 1
ORDER BY A.No_Item

-- DALNotaSaida.ConsultarItens (SomenteServicos)
SELECT A.*, B.No_Tipo, B.Nm_Produto, C.Ic_DestacarIcmsST
FROM ItemNotaSaida A
LEFT JOIN Produto B On A.Cd_Produto = B.Cd_Produto
INNER JOIN NaturezaProduto C On B.Cd_Natureza = C.Cd_Natureza
WHERE A.Cd_PessoaUsuaria = 1
AND A.Cd_TipoNF = 1
AND A.No_Nota = 2210
AND B.No_Tipo = 2
ORDER BY A.No_Item

-- DALNotaSaida.ConsultarCupons
SELECT CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal
FROM ContaAReceber
INNER JOIN CupomFiscal On ContaAReceber.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
And ContaAReceber.Cd_ContaAReceber = CupomFiscal.Cd_ContaAReceber
WHERE ContaAReceber.Cd_PessoaUsuaria = 1
And ContaAReceber.Cd_ContaAReceber = 640
UNION ALL
SELECT CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal
FROM CupomFiscal
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.No_NF = 2210
ORDER BY 2

-- DALNotaSaida.ConsultarCFOPs
SELECT   Cd_CfopItem
FROM     ItemNotaSaida
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_TipoNF = 1 and
         No_Nota = 2210
GROUP BY Cd_CfopItem

-- DALItemNotaSaida.Incluir
Select * From ItemNotaSaida Where Cd_PessoaUsuaria = 0 and No_Nota = 0 and Cd_TipoNF = 0 and No_Item = 0

-- DALNotaEntrada.Consultar (by note)
SELECT    *
FROM     NotaEntrada
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_TipoNF = 1 and
         No_Nota = 88120 and
         Cd_Fornecedor = 61

-- DALNotaEntrada.Consultar (by entry)
SELECT    *
FROM     NotaEntrada
WHERE    Cd_PessoaUsuaria = 1 and
         No_Entrada = 310

-- DALNotaEntrada.Incluir
Select * From NotaEntrada Where Cd_PessoaUsuaria = 0 and No_Nota = 0 and Cd_Fornecedor = 0 and Cd_TipoNF = 0

-- DALItemNotaEntrada.Incluir
Select * From ItemNotaEntrada Where No_Entrada = 0

-- DALNotaEntrada.ItensRs
SELECT ItemNotaEntrada.*, Produto.Nm_Produto, Produto.Fl_VendBomba
FROM ItemNotaEntrada
INNER JOIN Produto On ItemNotaEntrada.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria
AND ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE ItemNotaEntrada.Cd_PessoaUsuaria = 1
And No_Entrada = 310
ORDER BY No_Item

-- DALNotaEntrada.ItensAgrupadoPorCombustivelRs
SELECT Cd_ProdutoItem, Sum(Qt_UnidadeItem) As SomaQt_UnidadeItem
FROM ItemNotaEntrada
Join Produto on ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE No_Entrada = 310
AND Produto.Fl_VendBomba <> 0
GROUP BY Cd_ProdutoItem
ORDER BY Cd_ProdutoItem

-- DALNotaEntrada.SomaDescargaDeUmProdutoRs
SELECT Cd_ProdutoDescarga, Sum(Qt_UnidadeDescarga) As SomaDeQt_UnidadeDescarga
FROM Descarga
WHERE No_Entrada = 310
And Cd_ProdutoDescarga = 5
GROUP BY Cd_ProdutoDescarga

-- DALNotaEntrada.DescargasRs
SELECT Descarga.*, Produto.Nm_Produto
FROM Descarga
INNER JOIN Produto On Descarga.Cd_ProdutoDescarga = Produto.Cd_Produto
WHERE No_Entrada = 310
ORDER BY No_Tanque

-- DALNotaEntrada.ContasAPagarRs
SELECT B.No_ContasAPagar, B.Id_DocumentoFornecedor, B.No_CodigoBarras, B.Qt_DiasProtesto, B.Cd_BancoContaAPagar,
B.Dt_Vencimento, B.Vl_MoraDiaria, B.Vl_Debito
FROM ContaAPagarDeNotaEntrada A
INNER JOIN ContaAPagar B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria
And A.No_ContasAPagar = B.No_ContasAPagar
WHERE A.Cd_PessoaUsuaria = 1
And A.Cd_Fornecedor = 61
And A.Cd_TipoNF = 1
And A.No_Nota = 88120

-- DALNotaEntrada.CFOPsItens
SELECT Cd_CfopItem As Cd_Cfop
FROM ItemNotaEntrada
GROUP BY Cd_CfopItem

-- DALSerieNF.Consultar
SELECT    *
FROM     SerieNF
WHERE    Cd_PessoaUsuaria = 1 and
         Nm_Serie = 'U'

-- DALLayOutNotaFiscalSaida.Consultar
SELECT    *
FROM     LayOutNotaFiscalSaida
WHERE    Cd_PessoaUsuaria = 1

-- DALLayOutCamposNotaFiscalSaida.Consultar
SELECT    *
FROM     LayOutCamposNotaFiscalSaida
WHERE    Cd_PessoaUsuaria = 1 and
         Nm_Campo = 'Nm_Destinatario'
