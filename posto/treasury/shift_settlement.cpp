// The settlement of a cash shift.
#include "posto/core/sql.h"
#include "posto/stock/product_kind.h"
#include "posto/treasury/DALCaixa.h"
#include "posto/types/rounding.h"

namespace posto {

// A step of CalcularCaixa. Each leaves its figure in the value object.
struct DALCaixa::Step {
  std::string_view name;
  void (*run)(DALCaixa& shift);
};

const DALCaixa::Step DALCaixa::kSteps[] = {
    // a place to look at posted fuellings without a coupon, where nothing is done today
    {"VerificaAbastecimentosBaixadosSemEmissaoCupom", [](DALCaixa&) {}},
    {"VerificarEExcluirRecebimentoSemCupomCorrespondente",
     [](DALCaixa& shift) {
       const VOCaixa& vo = *shift.ObVO;
       shift.execute(sql(R"(
           DELETE FROM Recebimento
           WHERE Recebimento.Cd_PessoaUsuaria = {}
           And No_Recebimento In (SELECT Recebimento.No_Recebimento
           FROM Recebimento
           LEFT JOIN RecebimentoCupom On Recebimento.No_Recebimento = RecebimentoCupom.No_Recebimento
           WHERE Recebimento.Cd_PessoaUsuaria = {}
           And Recebimento.Cd_Caixa = {}
           And Recebimento.Tp_DocDebito = 20
           And RecebimentoCupom.No_Recebimento Is Null
           And Nm_IdDocumentoRec <> 'SUPRIMENTO'))",
                         vo.Cd_PessoaUsuaria, vo.Cd_PessoaUsuaria, vo.Cd_Caixa));
     }},
    {"CalcularVendas", [](DALCaixa& shift) { shift.sum_sales(); }},
    {"CalcularSuprimento",
     [](DALCaixa& shift) {
       shift.ObVO->Vl_Suprimento = shift.sum(sql(R"(
           SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento
           FROM Recebimento
           WHERE Cd_PessoaUsuaria = {}
           And Cd_Caixa = {}
           And Ic_Suprimento <> 0)",
                                                 shift.ObVO->Cd_PessoaUsuaria, shift.ObVO->Cd_Caixa));
     }},
    {"CalcularContasRecebidas",
     [](DALCaixa& shift) {
       shift.ObVO->Vl_ContasRecebidas = shift.sum(sql(R"(
           SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento, Cd_Caixa, Tp_DocDebito
           FROM Recebimento
           WHERE Cd_Caixa = {}
           AND (Tp_DocDebito = 10)
           GROUP BY Cd_Caixa, Tp_DocDebito)",
                                                      shift.ObVO->Cd_Caixa));
     }},
    {"CalcularRecebimentos",
     [](DALCaixa& shift) {
       shift.ObVO->Vl_Recebimentos = shift.sum(sql(R"(
           SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento, Cd_Caixa
           FROM Recebimento
           GROUP BY Cd_Caixa
           HAVING Cd_Caixa = {})",
                                                   shift.ObVO->Cd_Caixa));
     }},
    {"CalcularVendaACredito",
     [](DALCaixa& shift) {
       shift.ObVO->Vl_VendaACredito = shift.sum(sql(R"(
           SELECT Sum(Vl_TotalLiquido) As SomaDeVl_TotalLiquido
           FROM CupomFiscal
           WHERE Tp_Venda BETWEEN 10 And 20
           And Cd_Caixa = {}
           And CupomFiscal.Ic_Excluido = 0
           GROUP BY Cd_Caixa)",
                                                    shift.ObVO->Cd_Caixa));
     }},
    {"CalcularAbastecimentoPendentes",
     [](DALCaixa& shift) {
       shift.ObVO->Vl_AbastecimentosPendentes = shift.sum(sql(R"(
           SELECT Sum(Abastecimento.Vl_Total) As SomaDeVl_Total
           FROM Abastecimento
           WHERE Abastecimento.Cd_Caixa = {}
           And Abastecimento.Ic_Baixado = 0)",
                                                              shift.ObVO->Cd_Caixa));
     }},
    {"CalcularOutrosDebitos",
     [](DALCaixa& shift) { shift.ObVO->Vl_OutrosDebitos = shift.sum(shift.divergences_of(2)); }},
    {"CalcularOutrosCreditos",
     [](DALCaixa& shift) { shift.ObVO->Vl_OutrosCreditos = shift.sum(shift.divergences_of(1)); }},
    {"AtualizaSomaDebitos",
     [](DALCaixa& shift) {
       VOCaixa& vo = *shift.ObVO;
       vo.Vl_SomaDebitos = vo.Vl_VendaProdutos + vo.Vl_VendaServicos + vo.Vl_VendaCombustiveis + vo.Vl_ContasRecebidas +
                           vo.Vl_AbastecimentosPendentes + vo.Vl_Suprimento - vo.Vl_DescontoCupons +
                           vo.Vl_OutrosDebitos;
     }},
    {"AtualizaSomaCreditos",
     [](DALCaixa& shift) {
       VOCaixa& vo = *shift.ObVO;
       vo.Vl_SomaCreditos = vo.Vl_Recebimentos + vo.Vl_VendaACredito + vo.Vl_OutrosCreditos;
     }},
    {"CalcularDiferenca", [](DALCaixa& shift) {
       VOCaixa& vo = *shift.ObVO;
       vo.Vl_Diferenca = vo.Vl_SomaCreditos - vo.Vl_SomaDebitos + vo.Vl_SobraSangrias - vo.Vl_FaltaSangrias;
     }}};

void DALCaixa::CalcularCaixa() {
  routine("CalcularCaixa", [&] {
    for (const Step& step : kSteps) routine(step.name, [&] { step.run(*this); });
  });
}

// The one figure of a statement; no row and null are 0.
Currency DALCaixa::sum(std::string statement) {
  Recordset rs = read(std::move(statement));
  return rs.EOF() ? Currency() : rs[0].value_or(Currency());
}

// Line by line, because each is rounded by itself. A line whose product is gone is in none of the three.
void DALCaixa::sum_sales() {
  Recordset rs = read(sql(R"(
      SELECT ItemCupomFiscal.Qt_Unidade, ItemCupomFiscal.Vl_UnitVenda, CupomFiscal.Cd_Caixa, Produto.No_Tipo, Produto.Fl_VendBomba
      FROM ItemCupomFiscal
      INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
      And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
      And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
      And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
      LEFT JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria
      And ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
      WHERE CupomFiscal.Cd_Caixa = {}
      And CupomFiscal.Ic_Excluido = 0
      And ItemCupomFiscal.Ic_Excluido = 0)",
                          ObVO->Cd_Caixa));
  ObVO->Vl_VendaCombustiveis = ObVO->Vl_VendaProdutos = ObVO->Vl_VendaServicos = Currency();
  for (; !rs.EOF(); rs.MoveNext()) {
    const auto kind = rs["No_Tipo"].value_or(std::uint8_t{0});
    if (kind != kGoods && kind != kService) continue;
    const Currency amount(Round(rs["Qt_Unidade"].as<double>() * rs["Vl_UnitVenda"].as<Currency>(), 2));
    if (kind == kService) {
      ObVO->Vl_VendaServicos += amount;
    } else {
      (rs["Fl_VendBomba"].as<bool>() ? ObVO->Vl_VendaCombustiveis : ObVO->Vl_VendaProdutos) += amount;
    }
  }
  ObVO->Vl_DescontoCupons = sum(sql(R"(
      SELECT Sum(Vl_DescontoCF) As SomaDeVl_DescontoCF
      FROM CupomFiscal
      WHERE Cd_Caixa = {}
      And Ic_Excluido = 0)",
                                    ObVO->Cd_Caixa));
}

// The divergences of a nature: 1 credit, 2 debit.
std::string DALCaixa::divergences_of(int nature) const {
  return sql(R"(
      SELECT Sum(A.Vl_Divergencia) As SomaDeVl_Divergencia
      FROM DivergenciaCaixa A
      INNER JOIN TipoDivergenciaCaixa B On A.Cd_TipoDivergenciaCaixa = B.Cd_TipoDivergenciaCaixa
      WHERE Cd_Caixa = {}
      And B.No_NaturezaDivergencia = {})",
             ObVO->Cd_Caixa, nature);
}

Currency DALCaixa::ValorRecebimentosEmDinheiro() {
  return routine("ValorRecebimentosEmDinheiro", [&] {
    return sum(sql(R"(
        SELECT Sum(Vl_Recebimento) As SomaDeVl_Recebimento
        FROM Recebimento
        WHERE Cd_Caixa = {}
        And Cd_TipoRecebimento = 5)",
                   ObVO->Cd_Caixa));
  });
}

Currency DALCaixa::ValorOutrosRecebimentosEmDinheiro() {
  return routine("ValorOutrosRecebimentosEmDinheiro", [&] {
    return sum(sql(R"(
        SELECT Sum(Vl_Divergencia) As SomaDeVl_Recebimento
        FROM DivergenciaCaixa
        WHERE Cd_Caixa = {}
        And Cd_TipoDivergenciaCaixa = 2 )",
                   ObVO->Cd_Caixa));
  });
}

}  // namespace posto
