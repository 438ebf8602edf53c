-- DALExportacaoFiscoEstadual.geraRegistro50NfEmitida
SELECT NotaSaida.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaSaida
INNER JOIN Pessoa On NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And NotaSaida.Dt_Emissao = '2009-04-03'
And TipoNF.Cd_Modelo = 1
ORDER BY No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro50NfEmitida (groups)
SELECT Tx_Icms, Cd_CfopItem
FROM ItemNotaSaida
WHERE Cd_PessoaUsuaria = 1
And No_Nota = 2210
And Cd_TipoNF = 1
GROUP BY Tx_Icms, Cd_CfopItem

-- DALExportacaoFiscoEstadual.geraRegistro50NfEmitida (lines of a group)
SELECT ItemNotaSaida.Qt_Unidade, ItemNotaSaida.Vl_UnitVenda, ItemNotaSaida.No_SitTributaria,
ItemNotaSaida.Vl_BaseCalculoIcmsStAnterior, Produto.No_Tipo
FROM ItemNotaSaida
INNER JOIN Produto On ItemNotaSaida.Cd_Produto = Produto.Cd_Produto
WHERE ItemNotaSaida.Cd_PessoaUsuaria = 1
And ItemNotaSaida.No_Nota = 2210
And ItemNotaSaida.Cd_TipoNF = 1
And ItemNotaSaida.Cd_CfopItem = '5929'
And ItemNotaSaida.Tx_Icms = 07.50

-- DALExportacaoFiscoEstadual.geraRegistro50NfRecebida
SELECT NotaEntrada.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaEntrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN TipoNF On NotaEntrada.Cd_TipoNF = TipoNF.Cd_TipoNF
LEFT JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
LEFT JOIN UF On Cidade.Cd_UF = UF.Cd_UF
WHERE Cd_PessoaUsuaria = 1
And Dt_Entrega = '2009-04-03'
ORDER BY No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro50NfRecebida (groups)
SELECT Distinct Case When ItemNotaEntrada.No_SitTributaria In ('010', '030', '050', '060', '070') Then 0 Else ItemNotaEntrada.Tx_Icms End As Tx_Icms,
ItemNotaEntrada.Cd_CfopItem
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Entrada = 310
GROUP BY ItemNotaEntrada.Tx_Icms, ItemNotaEntrada.Cd_CfopItem, ItemNotaEntrada.No_SitTributaria

-- DALExportacaoFiscoEstadual.geraRegistro50NfRecebida (lines of a taxed group)
SELECT ItemNotaEntrada.Qt_UnidadeItem, ItemNotaEntrada.Vl_UnitNota, ItemNotaEntrada.No_SitTributaria
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Entrada = 310
And ItemNotaEntrada.Tx_Icms = 18.00
And ItemNotaEntrada.Cd_CfopItem = '1102'

-- DALExportacaoFiscoEstadual.geraRegistro50NfRecebida (lines of a group without rate, fuel only)
SELECT ItemNotaEntrada.Qt_UnidadeItem, ItemNotaEntrada.Vl_UnitNota, ItemNotaEntrada.No_SitTributaria
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Entrada = 310
And (ItemNotaEntrada.No_SitTributaria In ('010', '030', '050', '060', '070') or ItemNotaEntrada.Tx_Icms = 0)
And ItemNotaEntrada.Cd_CfopItem = '1102'
And Produto.Fl_VendBomba <> 0

-- DALExportacaoFiscoEstadual.geraRegistro53NfRecebida
SELECT NotaEntrada.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie,
(SELECT Min(Cd_CfopItem)
FROM ItemNotaEntrada
INNER JOIN Produto On ItemNotaEntrada.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada) As Cd_CfopItem
FROM NotaEntrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaEntrada.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE Cd_PessoaUsuaria = 1
And Dt_Entrega = '2009-04-03'
ORDER BY NotaEntrada.Cd_TipoNF, NotaEntrada.No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro53NfRecebida (fuel only)
SELECT NotaEntrada.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie,
(SELECT Min(Cd_CfopItem)
FROM ItemNotaEntrada
INNER JOIN Produto On ItemNotaEntrada.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada) As Cd_CfopItem
FROM NotaEntrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaEntrada.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE Cd_PessoaUsuaria = 1
And Dt_Entrega = '2009-04-03'
And Exists(SELECT Cd_CfopItem
FROM ItemNotaEntrada
INNER JOIN Produto On ItemNotaEntrada.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada And Produto.Fl_VendBomba <> 0)
ORDER BY NotaEntrada.Cd_TipoNF, NotaEntrada.No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro53NfEmitida
SELECT Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, Pessoa.No_TipoPessoa, NotaSaida.Dt_Emissao, UF.Ds_SiglaUF, TipoNF.Cd_Modelo, TipoNF.Ds_Serie,
TipoNF.Cd_SubSerie, NotaSaida.No_Nota, ItemNotaSaida.Cd_CfopItem, NotaSaida.Ic_Cancelada,
Sum(ItemNotaSaida.Vl_BaseCalculoIcmsStAnterior) As SomaDeVl_BaseCalculoIcmsStAnterior,
Sum(ItemNotaSaida.Vl_IcmsStAnterior) As SomaDeVl_IcmsStAnterior
FROM NotaSaida
INNER JOIN ItemNotaSaida On NotaSaida.Cd_PessoaUsuaria = ItemNotaSaida.Cd_PessoaUsuaria
And NotaSaida.Cd_TipoNF = ItemNotaSaida.Cd_TipoNF
And NotaSaida.No_Nota = ItemNotaSaida.No_Nota
INNER JOIN Pessoa On NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And NotaSaida.Dt_Emissao = '2009-04-03'
And TipoNF.Cd_Modelo = 1
And ItemNotaSaida.Vl_BaseCalculoIcmsStAnterior > 0
GROUP BY Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, Pessoa.No_TipoPessoa, NotaSaida.Dt_Emissao, UF.Ds_SiglaUF, TipoNF.Cd_Modelo, TipoNF.Ds_Serie,
TipoNF.Cd_SubSerie, NotaSaida.No_Nota, ItemNotaSaida.Cd_CfopItem, NotaSaida.Ic_Cancelada

-- DALExportacaoFiscoEstadual.geraRegistro54NfRecebida
SELECT NotaEntrada.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaEntrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaEntrada.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE Cd_PessoaUsuaria = 1
And Dt_Entrega = '2009-04-03'
ORDER BY NotaEntrada.Cd_TipoNF, NotaEntrada.No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro54NfRecebida (lines)
SELECT ItemNotaEntrada.No_Entrada, ItemNotaEntrada.Cd_ProdutoItem, ItemNotaEntrada.No_SitTributaria, ItemNotaEntrada.Qt_UnidadeItem,
Case When ItemNotaEntrada.No_SitTributaria In ('010', '030', '050', '060') Then 0 Else ItemNotaEntrada.Tx_Icms End As Tx_Icms,
ItemNotaEntrada.Vl_UnitNota, ItemNotaEntrada.Vl_Despesas, ItemNotaEntrada.Vl_Frete, ItemNotaEntrada.Vl_CredIcms, ItemNotaEntrada.Vl_UnitFinal,
ItemNotaEntrada.Cd_CfopItem, ItemNotaEntrada.Cd_LancamentoCardex, ItemNotaEntrada.Vl_IpiItem, ItemNotaEntrada.Tx_IPI, ItemNotaEntrada.Vl_IcmsSTItem,
ItemNotaEntrada.No_Item, ItemNotaEntrada.Cd_PessoaUsuaria, ItemNotaEntrada.Vl_DescontoItem, ItemNotaEntrada.Tx_DescontoItem, ItemNotaEntrada.Vl_TotalItem,
ItemNotaEntrada.Vl_RateioAcrescimoGeral, ItemNotaEntrada.Vl_RateioDescontoGeral, ItemNotaEntrada.Cd_Cfop, ItemNotaEntrada.Vl_IcmsStAnterior,
ItemNotaEntrada.Vl_BaseCalculoIcmsStAnterior, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Nota = 88120
And NotaEntrada.Cd_Fornecedor = 61
ORDER BY Cd_TipoNF, No_Nota, No_Item

-- DALExportacaoFiscoEstadual.geraRegistro54NfRecebida (lines, fuel only)
SELECT ItemNotaEntrada.No_Entrada, ItemNotaEntrada.Cd_ProdutoItem, ItemNotaEntrada.No_SitTributaria, ItemNotaEntrada.Qt_UnidadeItem,
Case When ItemNotaEntrada.No_SitTributaria In ('010', '030', '050', '060') Then 0 Else ItemNotaEntrada.Tx_Icms End As Tx_Icms,
ItemNotaEntrada.Vl_UnitNota, ItemNotaEntrada.Vl_Despesas, ItemNotaEntrada.Vl_Frete, ItemNotaEntrada.Vl_CredIcms, ItemNotaEntrada.Vl_UnitFinal,
ItemNotaEntrada.Cd_CfopItem, ItemNotaEntrada.Cd_LancamentoCardex, ItemNotaEntrada.Vl_IpiItem, ItemNotaEntrada.Tx_IPI, ItemNotaEntrada.Vl_IcmsSTItem,
ItemNotaEntrada.No_Item, ItemNotaEntrada.Cd_PessoaUsuaria, ItemNotaEntrada.Vl_DescontoItem, ItemNotaEntrada.Tx_DescontoItem, ItemNotaEntrada.Vl_TotalItem,
ItemNotaEntrada.Vl_RateioAcrescimoGeral, ItemNotaEntrada.Vl_RateioDescontoGeral, ItemNotaEntrada.Cd_Cfop, ItemNotaEntrada.Vl_IcmsStAnterior,
ItemNotaEntrada.Vl_BaseCalculoIcmsStAnterior, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Pessoa On NotaEntrada.Cd_Fornecedor = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Nota = 88120
And NotaEntrada.Cd_Fornecedor = 61
And Produto.Fl_VendBomba <> 0
ORDER BY Cd_TipoNF, No_Nota, No_Item

-- DALExportacaoFiscoEstadual.geraRegistro54NfEmitida
SELECT NotaSaida.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg, UF.Ds_SiglaUF,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaSaida
INNER JOIN Pessoa On NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE Cd_PessoaUsuaria = 1
And Dt_Emissao = '2009-04-03'
And TipoNF.Cd_Modelo = 1
ORDER BY No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro54NfEmitida (lines)
SELECT ItemNotaSaida.*, Produto.No_Tipo, Produto.Fl_VendBomba, Produto.Fl_Complemento
FROM ItemNotaSaida
INNER JOIN NotaSaida On ItemNotaSaida.Cd_PessoaUsuaria = NotaSaida.Cd_PessoaUsuaria
And ItemNotaSaida.No_Nota = NotaSaida.No_Nota
And ItemNotaSaida.Cd_TipoNF = NotaSaida.Cd_TipoNF
INNER JOIN Produto On ItemNotaSaida.Cd_Produto = Produto.Cd_Produto
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And NotaSaida.No_Nota = 2210
And NotaSaida.Cd_TipoNF = 1
And Produto.No_Tipo = 1
ORDER BY ItemNotaSaida.No_Item

-- DALExportacaoFiscoEstadual.rsRegistro60CF
SELECT CupomFiscal.Dt_Movimento, ECF.No_Serie, ItemCupomFiscal.No_Impressora
FROM ItemCupomFiscal
INNER JOIN ECF On ItemCupomFiscal.No_Impressora = ECF.No_Impressora
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento Between '2009-04-01' And '2009-04-30'
GROUP BY CupomFiscal.Dt_Movimento, ECF.No_Serie, ItemCupomFiscal.No_Impressora
ORDER BY ItemCupomFiscal.No_Impressora

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_M
SELECT MapaResumoECF.*, ECF.No_Serie
FROM MapaResumoECF
INNER JOIN ECF On MapaResumoECF.Cd_PessoaUsuaria = ECF.Cd_PessoaUsuaria And MapaResumoECF.No_Impressora = ECF.No_Impressora
WHERE MapaResumoECF.Cd_PessoaUsuaria = 1
And MapaResumoECF.No_Impressora = 2
And MapaResumoECF.Dt_Movimento = '2009-04-03'

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_D (groups)
SELECT ItemCupomFiscal.Cd_Produto, CupomFiscal.Dt_Movimento, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo, ItemCupomFiscal.No_Impressora, ECF.No_Serie
FROM ItemCupomFiscal
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
LEFT JOIN ECF On ItemCupomFiscal.Cd_PessoaUsuaria = ECF.Cd_PessoaUsuaria And ItemCupomFiscal.No_Impressora = ECF.No_Impressora
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE CupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.No_Impressora = 2
And CupomFiscal.Dt_Movimento = '2009-04-03'
And Produto.No_Tipo = 1
GROUP BY ItemCupomFiscal.Cd_Produto, CupomFiscal.Dt_Movimento, ItemCupomFiscal.No_TribIcms, Produto.No_Tipo, ItemCupomFiscal.No_Impressora, ECF.No_Serie
ORDER BY ItemCupomFiscal.Cd_Produto, CupomFiscal.Dt_Movimento, ItemCupomFiscal.No_Impressora

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_D (lines of a group)
SELECT ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_Impressora, CupomFiscal.Dt_Movimento, Produto.Nm_Produto, ItemCupomFiscal.No_TribIcms,
ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.Tx_Icms
FROM ItemCupomFiscal
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento= '2009-04-03'
And ItemCupomFiscal.No_Impressora = 2
And ItemCupomFiscal.Cd_Produto = 5
ORDER BY ItemCupomFiscal.Cd_Produto, CupomFiscal.Dt_Movimento

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_I
SELECT CupomFiscal.Dt_Movimento, ItemCupomFiscal.No_Impressora, ItemCupomFiscal.No_CupomFiscal, ItemCupomFiscal.No_Item, ItemCupomFiscal.Cd_Produto,
ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.Tx_Icms, ItemCupomFiscal.No_TribIcms,
Produto.No_Tipo, ECF.No_Serie
FROM ItemCupomFiscal
INNER JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN ECF On ItemCupomFiscal.Cd_PessoaUsuaria = ECF.Cd_PessoaUsuaria And ItemCupomFiscal.No_Impressora = ECF.No_Impressora
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento = '2009-04-03'
And ItemCupomFiscal.No_Impressora = 2
And Produto.No_Tipo = 1
ORDER BY CupomFiscal.Dt_Movimento, ItemCupomFiscal.No_CupomFiscal

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_R (products)
SELECT ItemCupomFiscal.Cd_Produto
FROM ItemCupomFiscal
INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And Produto.No_Tipo = 1
And CupomFiscal.Dt_Movimento Between '2009-04-01' And '2009-04-30'
GROUP BY ItemCupomFiscal.Cd_Produto
ORDER BY ItemCupomFiscal.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistro60_CF_R (lines of a product)
SELECT ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_Impressora, CupomFiscal.Dt_Movimento, Produto.Nm_Produto, ItemCupomFiscal.No_TribIcms,
Produto.No_Tipo, ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.Tx_Icms
FROM ItemCupomFiscal
LEFT JOIN Produto On ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
And CupomFiscal.No_Impressora = ItemCupomFiscal.No_Impressora
And CupomFiscal.No_CupomFiscal = ItemCupomFiscal.No_CupomFiscal
And CupomFiscal.Dt_Emissao = ItemCupomFiscal.Dt_Emissao
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And CupomFiscal.Dt_Movimento Between '2009-04-01' And '2009-04-30'
And ItemCupomFiscal.Cd_Produto = 5
ORDER BY ItemCupomFiscal.Cd_Produto, CupomFiscal.Dt_Movimento

-- DALExportacaoFiscoEstadual.geraRegistro74
SELECT GrupoProduto.Nm_GrupoProduto, EstoqueConsolidado.Cd_Produto, Produto.Nm_Produto, Produto.Vl_Preco,
EstoqueConsolidado.Qt_Estoque, EstoqueConsolidado.Vl_CustoMedio,
Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2) As Vl_Total
FROM EstoqueConsolidado
INNER JOIN Produto On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
INNER JOIN GrupoProduto On GrupoProduto.Cd_GrupoProduto = Produto.Cd_GrupoProduto
WHERE EstoqueConsolidado.Cd_PessoaUsuaria = 1
And EstoqueConsolidado.Dt_Referencia = '2009-04-30'
And EstoqueConsolidado.Qt_Estoque > 0
ORDER BY EstoqueConsolidado.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistro75
SELECT Produto.Cd_Produto, Produto.Cd_ProdutoSEF, Produto.Nm_Produto, Produto.Cd_Unidade, Produto.No_SitTributaria,
Produto.No_TribIcms, Produto.Tx_Icms, Produto.Tx_BaseCalculo, Produto.No_Tipo, Produto.Fl_VendBomba
FROM Produto
WHERE Produto.Cd_PessoaUsuaria = 1
And Produto.No_Tipo = 1
GROUP BY Produto.Cd_Produto, Produto.Cd_ProdutoSEF, Produto.Nm_Produto, Produto.Cd_Unidade, Produto.No_SitTributaria,
Produto.No_TribIcms, Produto.Tx_Icms, Produto.Tx_BaseCalculo, Produto.No_Tipo, Produto.Fl_VendBomba
ORDER BY Produto.Nm_Produto

-- DALExportacaoFiscoEstadual.geraRegistro75 (fuel only)
SELECT Produto.Cd_Produto, Produto.Cd_ProdutoSEF, Produto.Nm_Produto, Produto.Cd_Unidade, Produto.No_SitTributaria,
Produto.No_TribIcms, Produto.Tx_Icms, Produto.Tx_BaseCalculo, Produto.No_Tipo, Produto.Fl_VendBomba
FROM Produto
WHERE Produto.Cd_PessoaUsuaria = 1
And Produto.No_Tipo = 1
And Produto.Fl_VendBomba <> 0
GROUP BY Produto.Cd_Produto, Produto.Cd_ProdutoSEF, Produto.Nm_Produto, Produto.Cd_Unidade, Produto.No_SitTributaria,
Produto.No_TribIcms, Produto.Tx_Icms, Produto.Tx_BaseCalculo, Produto.No_Tipo, Produto.Fl_VendBomba
ORDER BY Produto.Nm_Produto

-- DALExportacaoFiscoEstadual.geraRegistro75 (coupon lines of a product)
SELECT Count(ItemCupomFiscal.Cd_Produto) As SomaDeQt_Unidade
FROM ItemCupomFiscal
WHERE ItemCupomFiscal.Cd_PessoaUsuaria = 1
And ItemCupomFiscal.Cd_Produto = 120
And ItemCupomFiscal.Dt_Emissao Between '2009-04-01' And '2009-04-30'

-- DALExportacaoFiscoEstadual.geraRegistro75 (purchase lines of a product)
SELECT Count(ItemNotaEntrada.Cd_ProdutoItem) As SomaDeQt_Unidade
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And ItemNotaEntrada.Cd_ProdutoItem = 120
And NotaEntrada.Dt_Entrega Between '2009-04-01' And '2009-04-30'

-- DALExportacaoFiscoEstadual.geraRegistro75 (invoice lines of a product)
SELECT Count(ItemNotaSaida.Cd_Produto) As SomaDeQt_Unidade
FROM ItemNotaSaida
INNER JOIN NotaSaida On ItemNotaSaida.Cd_PessoaUsuaria = NotaSaida.Cd_PessoaUsuaria
And ItemNotaSaida.Cd_TipoNF = NotaSaida.Cd_TipoNF
And ItemNotaSaida.No_Nota = NotaSaida.No_Nota
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And ItemNotaSaida.Cd_Produto = 120
And NotaSaida.Dt_Emissao Between '2009-04-01' And '2009-04-30'
And TipoNF.Cd_Modelo = 1

-- DALExportacaoFiscoEstadual.geraRegistro75 (stock of a product)
SELECT GrupoProduto.Nm_GrupoProduto, EstoqueConsolidado.Cd_Produto, Produto.Nm_Produto, Produto.Vl_Preco,
EstoqueConsolidado.Qt_Estoque, EstoqueConsolidado.Vl_CustoMedio,
Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2) As Vl_Total
FROM EstoqueConsolidado
INNER JOIN Produto On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
INNER JOIN GrupoProduto On GrupoProduto.Cd_GrupoProduto = Produto.Cd_GrupoProduto
WHERE EstoqueConsolidado.Cd_PessoaUsuaria = 1
And EstoqueConsolidado.Dt_Referencia = '2009-04-30'
And EstoqueConsolidado.Qt_Estoque > 0
And EstoqueConsolidado.Cd_Produto = 120
ORDER BY EstoqueConsolidado.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistro88cNfEmitida
SELECT NotaSaida.*, TipoNF.*, Pessoa.No_TipoPessoa, Pessoa.Cd_CgcCpf, Pessoa.Cd_IEstRg
FROM NotaSaida
INNER JOIN Pessoa On NotaSaida.Cd_Pessoa = Pessoa.Cd_Pessoa
INNER JOIN Cidade On Pessoa.Cd_Cidade = Cidade.Cd_Cidade
INNER JOIN UF On Cidade.Cd_UF = UF.Cd_UF
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And NotaSaida.Dt_Emissao = '2009-04-03'
And TipoNF.Cd_Modelo = 1
ORDER BY NotaSaida.No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro88cNfEmitida (lines)
SELECT ItemNotaSaida.Cd_Cfop, ItemNotaSaida.No_SitTributaria, ItemNotaSaida.Cd_Produto, ItemNotaSaida.Qt_Unidade, ItemNotaSaida.Vl_UnitVenda,
Produto.Fl_Complemento, ItemNotaSaida.Tx_Icms, ItemNotaSaida.Tx_BaseCalculo, Produto.No_Tipo
FROM ItemNotaSaida
INNER JOIN Produto On ItemNotaSaida.Cd_Produto = Produto.Cd_Produto
WHERE ItemNotaSaida.Cd_PessoaUsuaria = 1
And ItemNotaSaida.No_Nota = 2210
And ItemNotaSaida.Cd_TipoNF = 1
ORDER BY No_Item

-- DALExportacaoFiscoEstadual.geraRegistro88cNfRecebida (lines)
SELECT ItemNotaEntrada.Cd_CfopItem, ItemNotaEntrada.No_SitTributaria, ItemNotaEntrada.Cd_ProdutoItem, ItemNotaEntrada.Qt_UnidadeItem,
ItemNotaEntrada.Vl_UnitNota, Produto.Fl_Complemento, ItemNotaEntrada.Tx_Icms, Produto.No_Tipo
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Nota = 88120
And NotaEntrada.Cd_Fornecedor = 61
ORDER BY No_Item

-- DALExportacaoFiscoEstadual.geraRegistro88cNfRecebida (lines, fuel only)
SELECT ItemNotaEntrada.Cd_CfopItem, ItemNotaEntrada.No_SitTributaria, ItemNotaEntrada.Cd_ProdutoItem, ItemNotaEntrada.Qt_UnidadeItem,
ItemNotaEntrada.Vl_UnitNota, Produto.Fl_Complemento, ItemNotaEntrada.Tx_Icms, Produto.No_Tipo
FROM ItemNotaEntrada
INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Produto On ItemNotaEntrada.Cd_ProdutoItem = Produto.Cd_Produto
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.No_Nota = 88120
And NotaEntrada.Cd_Fornecedor = 61
And Produto.Fl_VendBomba <> 0
ORDER BY No_Item

-- DALExportacaoFiscoEstadual.geraRegistro88dNfEmitida
SELECT NotaSaida.*, NotaSaida.Cd_Destinatário,
PessoaCliente.No_TipoPessoa As No_TipoPessoaCliente, PessoaCliente.Cd_CgcCpf As Cd_CgcCpfCliente, PessoaCliente.Cd_IEstRg As Cd_IEstRgCliente, UFCliente.Ds_SiglaUF,
PessoaFornecedor.No_TipoPessoa As No_TipoPessoaFornecedor, PessoaFornecedor.Cd_CgcCpf As Cd_CgcCpfFornecedor, PessoaFornecedor.Cd_IEstRg As Cd_IEstRgFornecedor,
UFFornecedor.Ds_SiglaUF As Ds_SiglaUFFornecedor,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaSaida
LEFT JOIN Cliente On NotaSaida.Cd_PessoaUsuaria = Cliente.Cd_PessoaUsuaria And NotaSaida.Cd_Pessoa = Cliente.Cd_Cliente
LEFT JOIN Pessoa PessoaCliente On Cliente.Cd_Cliente = PessoaCliente.Cd_Pessoa
LEFT JOIN Cidade CidadeCliente On PessoaCliente.Cd_Cidade = CidadeCliente.Cd_Cidade
LEFT JOIN UF UFCliente On CidadeCliente.Cd_UF = UFCliente.Cd_UF
LEFT JOIN Fornecedor On NotaSaida.Cd_PessoaUsuaria = Fornecedor.Cd_PessoaUsuaria And NotaSaida.Cd_Pessoa = Fornecedor.Cd_Fornecedor
LEFT JOIN Pessoa PessoaFornecedor On Fornecedor.Cd_Fornecedor = PessoaFornecedor.Cd_Pessoa
LEFT JOIN Cidade CidadeFornecedor On PessoaFornecedor.Cd_Cidade = CidadeFornecedor.Cd_Cidade
LEFT JOIN UF UFFornecedor On CidadeFornecedor.Cd_UF = UFFornecedor.Cd_UF
INNER JOIN TipoNF On NotaSaida.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaSaida.Cd_PessoaUsuaria = 1
And NotaSaida.Dt_Emissao = '2009-04-03'
And TipoNF.Cd_Modelo = 1
ORDER BY No_Nota

-- DALExportacaoFiscoEstadual.geraRegistro88e
SELECT Produto.Cd_Produto, Produto.Cd_ProdutoSEF
FROM Produto

-- DALExportacaoFiscoEstadual.geraRegistro88e (fuel only)
SELECT Produto.Cd_Produto, Produto.Cd_ProdutoSEF
FROM Produto
WHERE Produto.Fl_VendBomba <> 0

-- DALExportacaoFiscoEstadual.geraRegistro88q
 SELECT Produto.Cd_Produto
 FROM Produto
 ORDER BY Produto.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistro88q (fuel only)
 SELECT Produto.Cd_Produto
 FROM Produto
 WHERE Produto.Fl_VendBomba <> 0
 ORDER BY Produto.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistro88q (ledger of a product)
SELECT Cardex.Cd_Produto, Cardex.Qt_Estoque, Cardex.Vl_CustoMedio
FROM Cardex
WHERE Cardex.Cd_PessoaUsuaria = 1
AND Cardex.Dt_Emissao <= '2009-04-30'
AND Cardex.Cd_Produto = 120
ORDER BY Cardex.Dt_Emissao DESC, Cardex.Cd_LancamentoCardex DESC

-- DALExportacaoFiscoEstadual.geraRegistro88t
SELECT NotaEntrada.*, PessoaEmitente.No_TipoPessoa As No_TipoPessoaEmitente, PessoaEmitente.Cd_CgcCpf As Cd_CgcCpfEmitente,
PessoaEmitente.Cd_IEstRg As Cd_IEstRgEmitente, UFEmitente.Ds_SiglaUF As Ds_SiglaUFEmitente,
PessoaTransportador.No_TipoPessoa As No_TipoPessoaTransportador, PessoaTransportador.Cd_CgcCpf As Cd_CgcCpfTransportador,
PessoaTransportador.Cd_IEstRg As Cd_IEstRgTransportador, UFTransportador.Ds_SiglaUF As Ds_SiglaUFTransportador,
TipoNF.Cd_Modelo, TipoNF.Cd_SubSerie, TipoNF.Ds_Serie, TipoNF.Cd_SubSerie
FROM NotaEntrada
INNER JOIN Pessoa PessoaEmitente On NotaEntrada.Cd_Fornecedor = PessoaEmitente.Cd_Pessoa
LEFT JOIN Cidade CidadeEmitente On PessoaEmitente.Cd_Cidade = CidadeEmitente.Cd_Cidade
LEFT JOIN UF UFEmitente On CidadeEmitente.Cd_UF = UFEmitente.Cd_UF
LEFT JOIN Pessoa PessoaTransportador On NotaEntrada.Cd_ForFrete = PessoaTransportador.Cd_Pessoa
LEFT JOIN Cidade CidadeTransportador On PessoaTransportador.Cd_Cidade = CidadeTransportador.Cd_Cidade
LEFT JOIN UF UFTransportador On CidadeTransportador.Cd_UF = UFTransportador.Cd_UF
INNER JOIN TipoNF On NotaEntrada.Cd_TipoNF = TipoNF.Cd_TipoNF
WHERE NotaEntrada.Cd_PessoaUsuaria = 1
And NotaEntrada.Dt_Entrega = '2009-04-03'
ORDER BY No_Nota

-- DALExportacaoFiscoEstadual.geraRegistroP2
SELECT *
FROM Produto
WHERE Cd_PessoaUsuaria = 1
ORDER BY Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistroE02
SELECT Produto.Cd_Produto, Produto.Nm_Produto, Produto.Cd_Unidade,
ISNULL(EstoqueConsolidado.Qt_Estoque, 0) As Qt_Estoque,
ISNULL(EstoqueConsolidado.Vl_CustoMedio, 0) As Vl_CustoMedio,
ISNULL(Round(EstoqueConsolidado.Qt_Estoque * EstoqueConsolidado.Vl_CustoMedio, 2),0) As Vl_Total
FROM Produto
LEFT JOIN EstoqueConsolidado On EstoqueConsolidado.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueConsolidado.Cd_Produto = Produto.Cd_Produto
WHERE Produto.Cd_PessoaUsuaria = 1
And (EstoqueConsolidado.Dt_Referencia is null or EstoqueConsolidado.Dt_Referencia = '2009-04-30')
And (EstoqueConsolidado.Qt_Estoque is null or EstoqueConsolidado.Qt_Estoque > 0)
ORDER BY Produto.Cd_Produto

-- DALExportacaoFiscoEstadual.geraRegistroR02
SELECT A.No_OrdemUsuario, A.Qt_ContReducoes, A.Qt_ContOperacoes, B.No_ReinicioDaOperacao AS No_ContadorReinicioDeOperacao,
A.Dt_Movimento, A.Dt_EmissaoReducaoZ,
A.Vl_GTotalFinal - Isnull((SELECT Max(B.Vl_GTotalFinal)
FROM ReducaoZ B
Where B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
AND B.No_Impressora = A.No_Impressora
AND B.Dt_Movimento < A.Dt_Movimento),0) As Vl_VendaBrutaDiaria
FROM ReducaoZ A
INNER JOIN ECFRegistro60Mestre B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_Impressora = A.No_Impressora
And B.Dt_Movimento = A.Dt_Movimento
WHERE A.Cd_PessoaUsuaria = 1
And A.Dt_Movimento Between '2009-04-01' and '2009-04-30'
ORDER BY A.Dt_Movimento, A.No_Impressora

-- DALExportacaoFiscoEstadual.geraRegistroR03
SELECT Tp_T01, Al_T01, Vl_T01,
Tp_T02, Al_T02, Vl_T02,
Tp_T03, Al_T03, Vl_T03,
Tp_T04, Al_T04, Vl_T04,
Tp_T05, Al_T05, Vl_T05,
Tp_T06, Al_T06, Vl_T06,
Tp_T07, Al_T07, Vl_T07,
Tp_T08, Al_T08, Vl_T08,
Tp_T09, Al_T09, Vl_T09,
Tp_T10, Al_T10, Vl_T10,
Tp_T11, Al_T11, Vl_T11,
Tp_T12, Al_T12, Vl_T12,
Tp_T13, Al_T13, Vl_T13,
Tp_T14, Al_T14, Vl_T14,
Tp_T15, Al_T15, Vl_T15,
Tp_T16, Al_T16, Vl_T16,
Vl_SubTribICMS, Vl_IsentasICMS, Vl_NaoIncidenciaICMS, Vl_SubTribISS, Vl_IsentasISS, Vl_NaoIncidenciaISS,
Vl_TotalizadoresNaoFiscais,
Vl_DescontosICMS, Vl_DescontosISS, Vl_AcrescimosICMS, Vl_AcrescimosISS, Vl_CancelamentosICMS, Vl_CancelamentosISS,
Qt_ContReducoes, No_OrdemUsuario
FROM ReducaoZ
WHERE Cd_PessoaUsuaria = 1
And Dt_Movimento Between '2009-04-01' and '2009-04-30'
ORDER BY Dt_Movimento, No_Impressora

-- DALExportacaoFiscoEstadual.geraRegistroR04
SELECT Distinct A.No_ContadorCupomFiscal, --6
A.No_CupomFiscal, --7
A.Dt_Emissao, --8
A.Vl_Total, --9
A.Vl_DesAcr, --10 ou 12
A.Vl_DescontoCF,
A.Vl_TotalLiquido, --14
A.Ic_Excluido, --15
IsNull(C.Nm_Pessoa, '') As Nm_Pessoa, --18
IsNull(C.Cd_CgcCpf, '') As Cd_CgcCpf --19
FROM CupomFiscal A
LEFT JOIN Pessoa C oN C.Cd_Pessoa = A.Cd_Cliente
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Impressora = 2
And A.Dt_Movimento Between '2009-04-01' and '2009-04-30'
ORDER BY A.No_CupomFiscal

-- DALExportacaoFiscoEstadual.geraRegistroR05
SELECT A.No_CupomFiscal, --6
A.No_ContadorCupomFiscal, --7
B.No_Item, --8
B.Cd_Produto, --9
E.Nm_Produto, --10
B.Qt_Unidade, --11
B.Cd_Unidade, --12
B.Vl_UnitTabela, --13
B.Vl_UnitVenda,
B.Vl_AltAut, --14 ou 15
B.Vl_AltDig,
B.Vl_AltFinalCupom,
B.No_SitTributaria, --17
B.Tx_Icms,
E.Tx_Iss,
E.No_Tipo,
B.Ic_Excluido, --18
E.No_CalculoValorTotal, --22
E.No_TipoProducao --23
FROM CupomFiscal A
INNER JOIN ItemCupomFiscal B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_CupomFiscal = A.No_CupomFiscal
And B.Dt_Emissao = A.Dt_Emissao
LEFT JOIN ReducaoZ C On C.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And C.No_Impressora = A.No_Impressora
And C.Dt_Movimento = A.Dt_Movimento
LEFT JOIN Pessoa D On D.Cd_Pessoa = A.Cd_Cliente
INNER JOIN Produto E On E.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And E.Cd_Produto = B.Cd_Produto
INNER JOIN EmpresaUsuaria F On F.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Impressora = 2
And A.Dt_Movimento Between '2009-04-01' and '2009-04-30'
And A.Ic_Excluido = 0
ORDER BY A.No_CupomFiscal, B.No_Item

-- DALExportacaoFiscoEstadual.geraRegistroR06
SELECT No_COO, --6
No_ContadorGNF, --7
No_ContadorGRG, --8
No_ContadorCDC, --9
Ds_TipoDocumento, --10
Dt_Inicio,
Dt_Fim --11 e 12
FROM LogDocumentoEmitidoECF
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Emissao Between '2009-04-01' and '2009-04-30'

-- DALExportacaoFiscoEstadual.geraRegistroR07
SELECT A.No_CupomFiscal As No_ContadorCOO, --6
A.No_ContadorCupomFiscal As No_ContadorCCF, --7
0 As No_ContadorGNF, --8
D.Nm_TipoRecebimento, --9
C.Vl_Recebimento --10
FROM CupomFiscal A
INNER JOIN RecebimentoCupom B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria
And B.No_Impressora = A.No_Impressora
And B.No_CupomFiscal = A.No_CupomFiscal
And B.Dt_Emissao = A.Dt_Emissao
INNER JOIN Recebimento C on C.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And C.No_Recebimento = B.No_Recebimento
INNER JOIN TipoRecebimento D on D.Cd_TipoRecebimento = C.Cd_TipoRecebimento
WHERE A.Cd_PessoaUsuaria = 1
And A.No_Impressora = 2
And A.Dt_Emissao Between '2009-04-01' and '2009-04-30'
UNION ALL
SELECT No_COO As No_ContadorCOO, --6
0 As No_ContadorCCF, --7
No_ContadorGNF, --8
'DINHEIRO' As Nm_TipoRecebimento, --9
IsNull(Vl_Documento,0) as Vl_Recebimento --10
FROM LogDocumentoEmitidoECF
WHERE Cd_PessoaUsuaria = 1
And No_Impressora = 2
And Dt_Emissao Between '2009-04-01' and '2009-04-30'
