// The examinations of a day.
#include <algorithm>
#include <vector>

#include "posto/closing/DALFecDiario.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {

// An examination that is no more than its statement: the operation as it stands in the path of a failure, and what
// fills the holes, "c" the company and "d" the day, bare as in '{}'.
struct Verification {
  std::string_view operation;
  std::string_view holes;
  SqlPieces statement;
};

namespace {

constexpr Verification kSumOfLines{"RsVerificarSomaDeCupomEItens", "cd", SqlPieces(R"(
    SELECT ItemCupomFiscal.Cd_PessoaUsuaria, ItemCupomFiscal.No_Impressora, ItemCupomFiscal.No_CupomFiscal, ItemCupomFiscal.Dt_Emissao,
           Sum(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2)) As Vl_Total,
           CupomFiscal.Vl_TotalLiquido, CupomFiscal.Vl_DescontoCF
    FROM   ItemCupomFiscal
           INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                     ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And
                                     ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                     ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
    WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = {} And
           ItemCupomFiscal.Dt_Emissao = '{}'
    GROUP BY ItemCupomFiscal.Cd_PessoaUsuaria, ItemCupomFiscal.No_Impressora, ItemCupomFiscal.No_CupomFiscal, ItemCupomFiscal.Dt_Emissao,
             Vl_Total, CupomFiscal.Vl_TotalLiquido, CupomFiscal.Vl_DescontoCF)")};

constexpr Verification kCouponWithoutLine{"RsVerificarSomaDeCupomEItens", "d", SqlPieces(R"(
    SELECT A.*
    FROM   CupomFiscal A
           LEFT JOIN ItemCupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                          A.No_Impressora = B.No_Impressora And
                                          A.No_CupomFiscal = B.No_CupomFiscal And
                                          A.Dt_Emissao = B.Dt_Emissao
    WHERE  A.Dt_Emissao = '{}' And
           B.No_CupomFiscal Is Null And
           A.Vl_TotalLiquido > 0)")};

constexpr Verification kInvoiceLineWithoutMovement{"VerificarItemNotaSaidaSemCardex", "cd", SqlPieces(R"(
    SELECT ItemNotaSaida.*
    FROM   ItemNotaSaida
           INNER JOIN NotaSaida On ItemNotaSaida.Cd_PessoaUsuaria = NotaSaida.Cd_PessoaUsuaria And
                                   ItemNotaSaida.Cd_TipoNF = NotaSaida.Cd_TipoNF And
                                   ItemNotaSaida.No_Nota = NotaSaida.No_Nota
    WHERE  ItemNotaSaida.Cd_PessoaUsuaria = {} And
           ItemNotaSaida.Cd_LancamentoCardex Is Null And
           Fl_NfServicosDeCupom = 0 And
           Fl_FatVariosCupons = 0 And
           Fl_FatUnicoCupom = 0 And
           NotaSaida.Dt_Emissao = '{}' And
           (NotaSaida.Cd_Operacao = 10 or NotaSaida.Cd_Operacao = 30))")};

constexpr Verification kPurchaseLineWithoutMovement{"VerificarItemNotaEntradaSemCardex", "cd", SqlPieces(R"(
    SELECT ItemNotaEntrada.*
    FROM   ItemNotaEntrada
           INNER JOIN NotaEntrada On ItemNotaEntrada.No_Entrada = NotaEntrada.No_Entrada
    WHERE  NotaEntrada.Cd_PessoaUsuaria = {} And
           ItemNotaEntrada.Cd_LancamentoCardex Is Null And
           NotaEntrada.Dt_Emissao = '{}' And
           NotaEntrada.Cd_Operacao In (10,20))")};

constexpr Verification kCouponLineWithoutMovement{"VerificarItemCupomFiscalSemCardex", "cd", SqlPieces(R"(
    SELECT ItemCupomFiscal.*
    FROM   ItemCupomFiscal
    WHERE  Cd_PessoaUsuaria = {} And
           Cd_LancamentoCardex Is Null And
           Dt_Emissao = '{}')")};

constexpr Verification kNozzles{"RsBicos", "c", SqlPieces(R"(
    SELECT *
    FROM   Bomba
    WHERE  Cd_PessoaUsuaria = {})")};

constexpr Verification kProductsOfDay{"VerificarProdutosVendidos", "cd", SqlPieces(R"(
    SELECT   Cd_Produto
    FROM     Cardex
    WHERE    Cd_PessoaUsuaria = {} And
             Dt_Emissao = '{}'
    GROUP BY Cd_Produto)")};

constexpr Verification kProductsSinceDay{"VerificarProdutosVendidos", "cd", SqlPieces(R"(
    SELECT   Cd_Produto
    FROM     Cardex
    WHERE    Cd_PessoaUsuaria = {} And
             Dt_Emissao >= '{}'
    GROUP BY Cd_Produto)")};

constexpr Verification kFuelLineWithoutFuelling{"VerificarItemCupomFiscalCombustivelSemAbastecimentoCorrespondente",
                                                "cd", SqlPieces(R"(
    SELECT ItemCupomFiscal.*
    FROM   ItemCupomFiscal
           INNER JOIN Produto      On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                                      ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
           LEFT JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And
                                      ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
    WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = {} And
           ItemCupomFiscal.Dt_Emissao = '{}' And
           Produto.Fl_VendBomba <> 0 And
           (ItemCupomFiscal.Cd_Abastecimento Is Null Or Abastecimento.Cd_Abastecimento Is Null))")};

constexpr Verification kReceiptsThatDiffer{"Rs_RecebimentosETroco", "cd", SqlPieces(R"(
    SELECT   CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
             CupomFiscal.Vl_TotalLiquido, Sum(Recebimento.Vl_Recebimento) As SomaVl_Recebimento,
             Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura
    FROM     CupomFiscal
             LEFT JOIN RecebimentoCupom On CupomFiscal.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria And
                                           CupomFiscal.No_Impressora = RecebimentoCupom.No_Impressora And
                                           CupomFiscal.No_CupomFiscal = RecebimentoCupom.No_CupomFiscal And
                                           CupomFiscal.Dt_Emissao = RecebimentoCupom.Dt_Emissao
             LEFT JOIN Recebimento      On RecebimentoCupom.Cd_PessoaUsuaria = Recebimento.Cd_PessoaUsuaria And
                                           RecebimentoCupom.No_Recebimento = Recebimento.No_Recebimento
             INNER JOIN Caixa           On CupomFiscal.Cd_Caixa = Caixa.Cd_Caixa
    WHERE    CupomFiscal.Cd_PessoaUsuaria = {} And
             CupomFiscal.Dt_Emissao = '{}'
    GROUP BY CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal, CupomFiscal.Dt_Emissao,
             CupomFiscal.Vl_TotalLiquido, Caixa.Cd_Funcionario, Caixa.No_Sequencial, Caixa.Dt_Abertura, CupomFiscal.Tp_Venda
    HAVING   Sum(Recebimento.Vl_Recebimento) <> CupomFiscal.Vl_TotalLiquido And
             CupomFiscal.Vl_TotalLiquido > 0 And
             CupomFiscal.Tp_Venda Between 20 and 29)")};

constexpr Verification kReceiptWithoutCoupon{"Rs_RecebimentoSemCupom", "cdd", SqlPieces(R"(
    SELECT   Recebimento.*
    FROM     Recebimento
             LEFT JOIN RecebimentoCupom On Recebimento.Cd_PessoaUsuaria = RecebimentoCupom.Cd_PessoaUsuaria And
                                           Recebimento.No_Recebimento = RecebimentoCupom.No_Recebimento
             LEFT JOIN CupomFiscal      On RecebimentoCupom.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                           RecebimentoCupom.No_Impressora = CupomFiscal.No_Impressora And
                                           RecebimentoCupom.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                           RecebimentoCupom.Dt_Emissao = CupomFiscal.Dt_Emissao
    WHERE    Recebimento.Cd_PessoaUsuaria = {} And
             Recebimento.Dt_Lancamento Between '{} 00:00:00' And '{} 23:59:59' And
             Recebimento.Tp_DocDebito = 20 And
             CupomFiscal.No_CupomFiscal Is Null And
             Recebimento.Ic_Suprimento = 0
    ORDER BY Recebimento.Dt_Lancamento)")};

constexpr Verification kReceiptsOfCoupons{"Rs_SomaDeRecebimentoPorCupom", "cd", SqlPieces(R"(
    SELECT   A.No_Impressora, A.No_CupomFiscal, A.Dt_Emissao, A.Vl_TotalLiquido, Sum(C.Vl_Recebimento) As SomaDeVl_Recebimento
    FROM     CupomFiscal A
             LEFT JOIN RecebimentoCupom B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                             A.No_Impressora = B.No_Impressora And
                                             A.No_CupomFiscal = B.No_CupomFiscal And
                                             A.Dt_Emissao = B.Dt_Emissao
             LEFT JOIN Recebimento C      On B.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                             B.No_Recebimento = C.No_Recebimento
    WHERE    A.Cd_PessoaUsuaria = {} And
             A.Dt_Emissao = '{}' And
             A.Tp_Venda Between 20 And 29
    GROUP BY A.No_Impressora, A.No_CupomFiscal, A.Dt_Emissao, A.Vl_TotalLiquido)")};

constexpr Verification kMoreThanDelivered{"Rs_QuantidadeBaixaEAbastecimento", "cd", SqlPieces(R"(
    SELECT ItemCupomFiscal.Cd_Abastecimento, ItemCupomFiscal.Qt_Unidade, Abastecimento.Qt_Litros
    FROM   ItemCupomFiscal
           LEFT JOIN Abastecimento On ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
    WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = {} And
           ItemCupomFiscal.Dt_Emissao = '{}' And
           ItemCupomFiscal.Qt_Unidade - Abastecimento.Qt_Litros > 1)")};

constexpr Verification kUnfinishedPurchase{"Rs_TodasEntradasForamConcluidas", "cddd", SqlPieces(R"(
    SELECT *
    FROM   NotaEntrada
    WHERE  Cd_PessoaUsuaria = {} And
           Ic_Concluido = 0 And
           (Dt_Entrega = '{}' Or Dt_Saida = '{}' Or Dt_Entrega = '{}'))")};

constexpr Verification kUncheckedShift{"Rs_CaixaNaoFechado", "cd", SqlPieces(R"(
    SELECT *
    FROM   Caixa
    WHERE  Cd_PessoaUsuaria = {} And
           Dt_Abertura = '{}' And
           Cd_Situacao <> 3)")};

constexpr Verification kSalesByPrinter{"Rs_SomaVendasCFAgrupadosPorECF", "cd", SqlPieces(R"(
    SELECT   No_Impressora,
             Min(No_CupomFiscal) As MinimoDeNo_CupomFiscal,
             Max(No_CupomFiscal) As MaximoDeNo_CupomFiscal,
             Min(Vl_GTotal) As MinimoDeVl_GTotal,
             Max(Vl_GTotal) As MaximoDeVl_GTotal,
             Max(Vl_Cancelamentos) As MaximoDeVl_Cancelamentos,
             Sum(Vl_SubTrib) As SomaDeVl_SubTrib,
             Sum(Vl_DescontoCF) As SomaDeVl_DescontoCF,
             Sum(Vl_TotSer) As SomaDeVl_TotSer
    FROM     CupomFiscal
    WHERE    Cd_PessoaUsuaria = {} And
             Dt_Movimento = '{}'
    GROUP BY No_Impressora)")};

}  // namespace

Recordset DALFecDiario::find(const Verification& verification, Date day) {
  return routine(verification.operation, [&] {
    const SqlPart company(ObVO->Cd_PessoaUsuaria);
    const std::string date = format_date(day, ObVOSistema->Ds_FormatoData);
    std::vector<SqlPart> parts;
    for (const char hole : verification.holes) parts.push_back(hole == 'c' ? company : SqlPart(date));
    return detached(compose_sql(verification.statement, parts));
  });
}

bool DALFecDiario::AtualizarCardex(Date, std::string&) { return false; }
bool DALFecDiario::CalcularEstoqueSistemaTubulacao(Date, std::string&) { return false; }
bool DALFecDiario::VerificarSequenciaDeAbastecimentos(Date, std::string&) { return false; }
bool DALFecDiario::IncluindoLmc(Date, std::string&) { return false; }

Recordset DALFecDiario::RsSomaDeCupomEItens(Date Dt_Fechamento) { return find(kSumOfLines, Dt_Fechamento); }
Recordset DALFecDiario::rsCupomFiscalSemItem(Date Dt_Fechamento) { return find(kCouponWithoutLine, Dt_Fechamento); }
Recordset DALFecDiario::RsItemCupomFiscalSemCardex(Date Dt_Fechamento) {
  return find(kCouponLineWithoutMovement, Dt_Fechamento);
}
Recordset DALFecDiario::RsItemNotaSaidaSemCardex(Date Dt_Fechamento) {
  return find(kInvoiceLineWithoutMovement, Dt_Fechamento);
}
Recordset DALFecDiario::RsItemNotaEntradaSemCardex(Date Dt_Fechamento) {
  return find(kPurchaseLineWithoutMovement, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_SomaVendasCFAgrupadosPorECF() { return find(kSalesByPrinter, ObVO->Dt_FecDiario); }
Recordset DALFecDiario::RsBicos() { return find(kNozzles, {}); }
Recordset DALFecDiario::Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente(std::string&) {
  return find(kFuelLineWithoutFuelling, ObVO->Dt_FecDiario);
}
Recordset DALFecDiario::Rs_QuantidadeBaixaEAbastecimento(Date Dt_Fechamento, std::string&) {
  return find(kMoreThanDelivered, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_RecebimentosETroco(Date Dt_Fechamento, std::string&) {
  return find(kReceiptsThatDiffer, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_RecebimentoSemCupom(Date Dt_Fechamento, std::string&) {
  return find(kReceiptWithoutCoupon, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_SomaDeRecebimentoPorCupom(Date Dt_Fechamento, std::string&) {
  return find(kReceiptsOfCoupons, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_TodasEntradasForamConcluidas(Date Dt_Fechamento, std::string&) {
  return find(kUnfinishedPurchase, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_CaixaNaoFechado(Date Dt_Fechamento, std::string&) {
  return find(kUncheckedShift, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_ProdutosVendidos(Date Dt_Fechamento, std::string&) {
  return find(kProductsOfDay, Dt_Fechamento);
}
Recordset DALFecDiario::Rs_TodosProdutosVendidosAPartirDaData(Date Dt_Inicial, std::string&) {
  return find(kProductsSinceDay, Dt_Inicial);
}

Recordset DALFecDiario::RsCardexSemVenda(std::int32_t Cd_Produto) {
  return routine("RsCardexSemVenda", [&] {
    return detached(sql(R"(
        SELECT   Cardex.*
        FROM     Cardex
                 LEFT JOIN ItemCupomFiscal On Cardex.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And
                                              Cardex.Cd_LancamentoCardex = ItemCupomFiscal.Cd_LancamentoCardex
                 LEFT JOIN ItemNotaSaida   On Cardex.Cd_PessoaUsuaria = ItemNotaSaida.Cd_PessoaUsuaria And
                                              Cardex.Cd_LancamentoCardex = ItemNotaSaida.Cd_LancamentoCardex
                 LEFT JOIN ItemNotaEntrada On Cardex.Cd_PessoaUsuaria = ItemNotaEntrada.Cd_PessoaUsuaria And
                                              Cardex.Cd_LancamentoCardex = ItemNotaEntrada.Cd_LancamentoCardex
        WHERE    Cardex.Cd_PessoaUsuaria = {} And
                 Cardex.Cd_Produto = {} And
                 ItemCupomFiscal.Cd_LancamentoCardex Is Null And
                 ItemNotaSaida.Cd_LancamentoCardex Is Null And
                 ItemNotaEntrada.Cd_LancamentoCardex Is Null And
                 Cardex.Dt_Emissao > {} And
                 (Cardex.No_Tipo = 10 or Cardex.No_Tipo = 20)
        ORDER BY Cardex.Cd_LancamentoCardex)",
                        ObVO->Cd_PessoaUsuaria, Cd_Produto,
                        day_literal(ObVOSistema->ObVOEmpresaUsuaria->Dt_CorteMovimento)));
  });
}

std::string DALFecDiario::day_literal(Date day) const { return DateSemHoraToSql(day, *ObVOSistema); }

}  // namespace posto
