#include "flows/closing_checks.h"

#include <cmath>
#include <functional>
#include <map>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "posto/closing/DALFecDiario.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/stock/DALProduto.h"
#include "posto/stock/product_kind.h"
#include "posto/types/rounding.h"

namespace posto::flows {
namespace {

constexpr double kTotaliserTolerance = 1;  // litres

// The day under examination.
struct Examination {
  Station& station;
  DALFecDiario& closing;
  Date day;
  std::string unused{};
};

std::vector<Variant> row_of(Recordset& rows, const std::vector<std::string>& columns) {
  std::vector<Variant> values;
  values.reserve(columns.size());
  for (const std::string& column : columns) values.push_back(rows[column].Value());
  return values;
}

// The coupon of a row, where it lives; deleted ones stay in the database and are nobody's business any more.
bool read_coupon(Examination& e, Recordset& row, DALCupomFiscal& coupon) {
  coupon.ObVO->Cd_PessoaUsuaria = e.station.tenant();
  coupon.ObVO->No_Impressora = row["No_Impressora"].as<std::uint8_t>();
  coupon.ObVO->No_CupomFiscal = row["No_CupomFiscal"].as<std::int32_t>();
  coupon.ObVO->Dt_Emissao = row["Dt_Emissao"].as<Date>();
  return stands([&] { coupon.Consultar(); });
}

bool is_live(Examination&, Recordset& row) { return !row["Ic_Excluido"].value_or(false); }

// A service moves no stock: its line has no movement by nature.
bool is_live_of_goods(Examination& e, Recordset& row) {
  if (!is_live(e, row)) return false;
  DALProduto product(e.station.settings);
  product.ObVO->Cd_PessoaUsuaria = e.station.tenant();
  product.ObVO->Cd_Produto = row["Cd_Produto"].value_or(std::int32_t{0});
  return !stands([&] { product.Consultar(); }) || product.ObVO->No_Tipo != kService;
}

bool is_live_of_company(Examination& e, Recordset& row) {
  return is_live(e, row) && row["Cd_PessoaUsuaria"].as<std::int32_t>() == e.station.tenant();
}

// Whether the live lines of a live coupon give another total than the coupon. The record set counts deleted lines too.
bool lines_differ(Examination& e, Recordset& row) {
  const double wanted =
      (row["Vl_TotalLiquido"].value_or(Currency()) + row["Vl_DescontoCF"].value_or(Currency())).as_double();
  const auto differs_from = [&](double sum) { return Round(sum - wanted, 2) != 0; };
  if (!differs_from(row["Vl_Total"].value_or(0.0))) return false;
  DALCupomFiscal coupon(e.station.settings);
  if (!read_coupon(e, row, coupon)) return false;
  double sum = 0;
  for (Recordset& lines = coupon.Rs_ItensTodos(); !lines.EOF(); lines.MoveNext()) {
    sum +=
        round_half_away(lines["Qt_Unidade"].value_or(0.0) * lines["Vl_UnitVenda"].value_or(Currency()).as_double(), 2);
  }
  return differs_from(sum);
}

bool has_no_receipt(Examination& e, Recordset& row) {
  if (!row["SomaDeVl_Recebimento"].is_null() || row["Vl_TotalLiquido"].value_or(Currency()) <= Currency()) return false;
  DALCupomFiscal coupon(e.station.settings);
  return read_coupon(e, row, coupon);
}

// An examination whose finding is the rows of a record set, all or those that `counts`.
struct RowCheck {
  std::string_view name;
  std::vector<std::string> columns;
  Recordset (*ask)(Examination&);
  bool (*counts)(Examination&, Recordset&);
  std::string_view meaning, advice;
};

void add_rows(Examination& e, const RowCheck& check, Recordset rows, Finding& finding) {
  for (; !rows.EOF(); rows.MoveNext()) {
    if (check.counts == nullptr || check.counts(e, rows)) finding.rows.push_back(row_of(rows, check.columns));
  }
}

const std::vector<std::string> kLineColumns = {"No_Impressora", "No_CupomFiscal", "No_Item",
                                               "Cd_Produto",    "Qt_Unidade",     "Vl_UnitVenda"};

const RowCheck kRowChecks[] = {
    {"rsCupomFiscalSemItem",
     {"No_Impressora", "No_CupomFiscal", "Hr_Emissao", "Vl_TotalLiquido"},
     [](Examination& e) { return e.closing.rsCupomFiscalSemItem(e.day); },
     is_live_of_company,
     "Cupons fiscais com valor e sem nenhum item.",
     "Inclua os itens do cupom, ou exclua o cupom se ele foi cancelado."},
    {"RsSomaDeCupomEItens",
     {"No_Impressora", "No_CupomFiscal", "Vl_Total", "Vl_TotalLiquido", "Vl_DescontoCF"},
     [](Examination& e) { return e.closing.RsSomaDeCupomEItens(e.day); },
     lines_differ,
     "Cupons fiscais cujo total não é a soma dos seus itens menos o desconto.",
     "Compare o cupom com a fita da impressora e corrija o item ou o total."},
    {"RsItemCupomFiscalSemCardex", kLineColumns,
     [](Examination& e) { return e.closing.RsItemCupomFiscalSemCardex(e.day); }, is_live_of_goods,
     "Itens de cupom fiscal sem lançamento no cardex: a venda não baixou o estoque.",
     "Lance a saída no cardex e informe o lançamento no item."},
    {"RsItemNotaSaidaSemCardex",
     {"Cd_TipoNF", "No_Nota", "No_Item", "Cd_Produto", "Qt_Unidade"},
     [](Examination& e) { return e.closing.RsItemNotaSaidaSemCardex(e.day); },
     nullptr,
     "Itens de nota de saída sem lançamento no cardex.",
     "Lance a saída no cardex e informe o lançamento no item da nota."},
    {"RsItemNotaEntradaSemCardex",
     {"No_Entrada", "No_Item", "Cd_ProdutoItem", "Qt_UnidadeItem"},
     [](Examination& e) { return e.closing.RsItemNotaEntradaSemCardex(e.day); },
     nullptr,
     "Itens de nota de entrada sem lançamento no cardex: a compra não entrou no estoque.",
     "Conclua a entrada, ou lance a compra no cardex e informe o lançamento no item."},
    {"Rs_BaixaAbastecimentoDuplicidade",
     {"Cd_Abastecimento", "Qt_BaixasDoAbastecimento"},
     [](Examination& e) { return e.closing.Rs_BaixaAbastecimentoDuplicidade(e.day, e.unused); },
     nullptr,
     "Abastecimentos baixados em mais de um item de cupom.",
     "Exclua o item repetido, ou informe nele o abastecimento certo."},
    {"Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente", kLineColumns,
     [](Examination& e) { return e.closing.Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente(e.unused); },
     is_live, "Itens de combustível sem o abastecimento que venderam.",
     "Informe no item o abastecimento; digite-o se a automação não o registrou."},
    {"Rs_QuantidadeBaixaEAbastecimento",
     {"Cd_Abastecimento", "Qt_Unidade", "Qt_Litros"},
     [](Examination& e) { return e.closing.Rs_QuantidadeBaixaEAbastecimento(e.day, e.unused); },
     nullptr,
     "Itens que venderam mais de um litro além do que o abastecimento entregou.",
     "Confira o abastecimento no encerrante do bico e corrija o item."},
    {"Rs_RecebimentosETroco",
     {"No_Impressora", "No_CupomFiscal", "Vl_TotalLiquido", "SomaVl_Recebimento", "Cd_Funcionario"},
     [](Examination& e) { return e.closing.Rs_RecebimentosETroco(e.day, e.unused); },
     nullptr,
     "Cupons à vista cujos recebimentos não somam o total.",
     "Corrija os recebimentos do cupom, ou o troco."},
    {"Rs_SomaDeRecebimentoPorCupom",
     {"No_Impressora", "No_CupomFiscal", "Vl_TotalLiquido"},
     [](Examination& e) { return e.closing.Rs_SomaDeRecebimentoPorCupom(e.day, e.unused); },
     has_no_receipt,
     "Cupons à vista sem nenhum recebimento.",
     "Registre como o cupom foi pago."},
    {"Rs_RecebimentoSemCupom",
     {"No_Recebimento", "Dt_Lancamento", "Cd_TipoRecebimento", "Vl_Recebimento", "Cd_Caixa"},
     [](Examination& e) { return e.closing.Rs_RecebimentoSemCupom(e.day, e.unused); },
     nullptr,
     "Recebimentos de cupons que não existem.",
     "Exclua o recebimento, ou registre o cupom que ele paga."},
    {"Rs_TodasEntradasForamConcluidas",
     {"No_Entrada", "No_Nota", "Cd_Fornecedor", "Dt_Entrega"},
     [](Examination& e) { return e.closing.Rs_TodasEntradasForamConcluidas(e.day, e.unused); },
     nullptr,
     "Notas de entrada do dia que não foram concluídas.",
     "Confira e conclua a entrada, ou exclua a nota."},
    {"Rs_CaixaNaoFechado",
     {"Cd_Caixa", "Cd_Funcionario", "No_Sequencial", "Hr_Abertura", "Cd_Situacao"},
     [](Examination& e) { return e.closing.Rs_CaixaNaoFechado(e.day, e.unused); },
     nullptr,
     "Caixas abertos no dia que ainda não foram conferidos.",
     "Feche e confira o caixa."},
};

Finding examine_rows(Examination& e, const RowCheck& check) {
  Finding finding{.name = check.name, .meaning = check.meaning, .advice = check.advice, .columns = check.columns};
  add_rows(e, check, check.ask(e), finding);
  return finding;
}

// The day's coupons against the printers' totals. More differences than can be numbered are a finding as well.
Finding examine_grand_totals(Examination& e) {
  Finding finding{.name = "VerificarSequenciaDeVendasComGtEcf",
                  .meaning = "As vendas em cupons não são as que as impressoras fiscais contaram.",
                  .advice = "Inclua os cupons que faltam e exclua os que a impressora cancelou."};
  try {
    e.closing.VerificarSequenciaDeVendasComGtEcf(e.day, finding.text);
  } catch (const Erro& failure) {
    if (failure.number() != erro::kOverflow) throw;
    finding.text = "Há mais de 255 diferenças entre os cupons e as impressoras.";
  }
  return finding;
}

// Movements of the day, of every product that moved on it, that no document explains.
Finding examine_movements(Examination& e) {
  const RowCheck check{.name = "RsCardexSemVenda",
                       .columns = {"Cd_LancamentoCardex", "Cd_Produto", "No_Tipo", "Nm_Doc", "Qt_Unidade"},
                       .ask = nullptr,
                       .counts = [](Examination& x, Recordset& row) { return row["Dt_Emissao"].as<Date>() == x.day; },
                       .meaning = "Lançamentos de venda ou compra no cardex que nenhum documento explica.",
                       .advice = "Emita o cupom do abastecimento pendente, ou exclua o lançamento."};
  Finding finding{.name = check.name, .meaning = check.meaning, .advice = check.advice, .columns = check.columns};
  for (Recordset products = e.closing.Rs_ProdutosVendidos(e.day, e.unused); !products.EOF(); products.MoveNext()) {
    if (products["Cd_Produto"].is_null()) continue;
    add_rows(e, check, e.closing.RsCardexSemVenda(products["Cd_Produto"].as<std::int32_t>()), finding);
  }
  return finding;
}

void walk_totaliser(Examination& e, DALBomba& nozzle, Finding& finding) {
  double reading = nozzle.EncerranteAnteriorAoDia(e.day);
  if (reading <= 0) reading = nozzle.ObVO->No_EncerranteInicial;
  for (Recordset rows = nozzle.Rs_AbastecimentoNaoVerificado(e.day); !rows.EOF(); rows.MoveNext()) {
    const double closing = rows["No_EncerranteFechamento"].value_or(0.0);
    const double litres = rows["Qt_Litros"].value_or(0.0);
    const bool is_first = reading <= 0;
    if (!is_first && std::abs(closing - (reading + litres)) > kTotaliserTolerance) {
      finding.rows.push_back({nozzle.ObVO->Cd_Bomba, rows["Cd_Abastecimento"].Value(), rows["Dt_Termino"].Value(),
                              litres, reading, closing});
    }
    reading = closing;
  }
}

// Whether each nozzle's totaliser goes on from fuelling to fuelling.
Finding examine_totalisers(Examination& e) {
  Finding finding{.name = "VerificarSequenciaDeAbastecimentos",
                  .meaning = "Abastecimentos cujo encerrante não segue o do abastecimento anterior do bico.",
                  .advice = "Importe as leituras que faltam, ou digite os abastecimentos.",
                  .columns = {"Cd_Bomba", "Cd_Abastecimento", "Dt_Termino", "Qt_Litros", "No_EncerranteAbertura",
                              "No_EncerranteFechamento"}};
  for (Recordset nozzles = e.closing.RsBicos(); !nozzles.EOF(); nozzles.MoveNext()) {
    DALBomba nozzle(e.station.settings);
    nozzle.ObVO->Cd_Bomba = nozzles["Cd_Bomba"].as<std::uint8_t>();
    nozzle.ObVO->De_EnderecoLogicoBico = nozzles["De_EnderecoLogicoBico"].as<std::string>();
    nozzle.ObVO->No_EncerranteInicial = nozzles["No_EncerranteInicial"].value_or(0.0);
    walk_totaliser(e, nozzle, finding);
  }
  return finding;
}

// The day as the operations of the class ask for it.
void set_day(DALFecDiario& closing, const Station& station, Date day) {
  closing.ObVO->Cd_PessoaUsuaria = station.tenant();
  closing.ObVO->Dt_FecDiario = day;
}

// What the repairs may change in a fuelling.
struct Readings {
  double litres = 0, totaliser = 0;
};
using Fuellings = std::map<std::int32_t, Readings>;

Fuellings fuellings_of(Station& station, Date day) {
  const std::string date = DateSemHoraToSql(day, *station.settings);
  const std::string questions[] = {sql(R"(
      SELECT Cd_Abastecimento, Qt_Litros, No_EncerranteFechamento
      FROM   Abastecimento
      WHERE  Cd_PessoaUsuaria = {} And
             Dt_Termino >= {})",
                                       station.tenant(), date),
                                   sql(R"(
      SELECT Abastecimento.Cd_Abastecimento, Abastecimento.Qt_Litros, Abastecimento.No_EncerranteFechamento
      FROM   ItemCupomFiscal
             INNER JOIN Abastecimento On ItemCupomFiscal.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And
                                         ItemCupomFiscal.Cd_Abastecimento = Abastecimento.Cd_Abastecimento
      WHERE  ItemCupomFiscal.Cd_PessoaUsuaria = {} And
             ItemCupomFiscal.Dt_Emissao = {})",
                                       station.tenant(), date)};
  Fuellings fuellings;
  for (const std::string& question : questions) {
    for (Recordset rows = station.connection().Execute(question); !rows.EOF(); rows.MoveNext()) {
      fuellings[rows["Cd_Abastecimento"].as<std::int32_t>()] = {rows["Qt_Litros"].value_or(0.0),
                                                                rows["No_EncerranteFechamento"].value_or(0.0)};
    }
  }
  return fuellings;
}

void add_change(Finding& repair, std::int32_t fuelling, double before, double after) {
  if (before != after) repair.rows.push_back({fuelling, before, after});
}

template <class Finds>
void keep_found(std::vector<Finding>& findings, Finds&& finds) {
  Finding finding = finds();
  if (!finding.empty()) findings.push_back(std::move(finding));
}

}  // namespace

std::vector<std::string_view> finding_names() {
  std::vector<std::string_view> names = {"VerificarSequenciaDeVendasComGtEcf"};
  for (const RowCheck& check : kRowChecks) names.push_back(check.name);
  names.insert(names.end(), {"RsCardexSemVenda", "VerificarSequenciaDeAbastecimentos", unproved_products().name});
  return names;
}

namespace {

std::vector<Finding> mend(Station& station, Date day) {
  Finding litres{.name = "CorrigeProblemaAbastecimentoZerado",
                 .meaning = "Abastecimentos sem litros receberam a quantidade vendida.",
                 .columns = {"Cd_Abastecimento", "Qt_LitrosAntes", "Qt_Litros"}};
  Finding totalisers{.name = "CorrigeProblemaIntervaloNosAbastecimentosDigitados",
                     .meaning = "Encerrantes de abastecimentos digitados passaram a seguir o anterior.",
                     .columns = {"Cd_Abastecimento", "No_EncerranteAntes", "No_EncerranteFechamento"}};
  DALFecDiario closing(station.settings);
  set_day(closing, station, day);
  const Fuellings before = fuellings_of(station, day);
  closing.CorrigeProblemaAbastecimentoZerado();
  closing.CorrigeProblemaIntervaloNosAbastecimentosDigitados();
  for (const auto& [fuelling, after] : fuellings_of(station, day)) {
    const auto was = before.find(fuelling);
    if (was == before.end()) continue;  // another workstation posted it meanwhile
    add_change(litres, fuelling, was->second.litres, after.litres);
    add_change(totalisers, fuelling, was->second.totaliser, after.totaliser);
  }
  std::vector<Finding> repairs;
  for (Finding* repair : {&litres, &totalisers}) {
    if (!repair->empty()) repairs.push_back(std::move(*repair));
  }
  return repairs;
}

}  // namespace

std::vector<Finding> repair_day(Station& station, Date day) {
  std::vector<Finding> repairs;
  in_transaction(station, [&] { repairs = mend(station, day); });
  return repairs;
}

std::vector<Finding> examine_day(Station& station, Date day) {
  DALFecDiario closing(station.settings);
  set_day(closing, station, day);
  Examination e{station, closing, day};
  std::vector<Finding> findings;
  keep_found(findings, [&] { return examine_grand_totals(e); });
  for (const RowCheck& check : kRowChecks) keep_found(findings, [&] { return examine_rows(e, check); });
  keep_found(findings, [&] { return examine_movements(e); });
  keep_found(findings, [&] { return examine_totalisers(e); });
  return findings;
}

Finding unproved_products() {
  return {.name = "ConferirCalculoEstoque",
          .meaning = "Produtos cujo estoque recalculado não é o que o cardex explica.",
          .advice = "Confira o estoque inicial e os lançamentos do produto, e recalcule-o desde antes da diferença.",
          .columns = {"Cd_Produto", "Nm_Produto", "Qt_Estoque", "Ds_Motivo"}};
}

}  // namespace posto::flows
