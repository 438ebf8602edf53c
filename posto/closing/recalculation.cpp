// The stock ledger walked again, and the proofs of what came out.
#include <cmath>

#include "posto/closing/DALFecDiario.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

constexpr std::int32_t kFuelTolerance = 5, kOtherTolerance = 1;  // of each try
constexpr double kLastRowTolerance = 2;
constexpr std::uint8_t kStoredDecimals = 4;
constexpr std::size_t kMostRewrites = 10'000;  // that are held at once

// A statement in which a null is no failure: it is skipped.
template <class Statement>
void unless_null(Statement&& statement) {
  try {
    statement();
  } catch (const Erro& failure) {
    if (failure.number() != erro::kInvalidUseOfNull) throw;
  }
}

LedgerPlace place_of(Recordset& row) {
  return {.day = row["Dt_Emissao"].as<Date>(), .code = row["Cd_LancamentoCardex"].as<std::int32_t>()};
}

bool is_entry(std::int32_t type) { return type >= 10 && type < 20; }
bool is_exit(std::int32_t type) { return type >= 20 && type < 30; }

// What initial stock and ledger say less what the product says.
struct Proof {
  Currency difference{};
  double stock = 0;
  bool is_fuel = false;

  void begin(Recordset& row) {
    unless_null(
        [&] { difference = Currency(row["Qt_EstoqueInicial"].value_or(0.0) - row["Qt_Estoque"].as<double>()); });
    unless_null([&] { stock = row["Qt_Estoque"].as<double>(); });
  }
  void add(Recordset& row) {
    is_fuel = row["Fl_VendBomba"].value_or(false);
    if (row["No_Tipo"].is_null()) return;
    const std::int32_t type = row["No_Tipo"].as<std::int32_t>();
    const double direction = is_entry(type) ? 1 : is_exit(type) ? -1 : 0;
    if (direction == 0) return;
    unless_null([&] { difference = Currency(difference.as_double() + direction * row["Qt_TotUnidade"].as<double>()); });
  }
  bool fails(std::int32_t attempt) const {
    const std::int32_t tolerance = is_fuel ? (attempt + 1) * kFuelTolerance : attempt * kOtherTolerance;
    return std::abs(difference.as_double()) >= tolerance && difference > Currency(1);
  }
};

}  // namespace

bool DALFecDiario::AtualizaEstoqueCardex(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto, float& Qt_EstoqueAnt,
                                         float& Vl_CustoMedioAnt, float& Vl_CredIcmsMedioAnt, bool Ic_AtualizarCardex) {
  return routine("AtualizarEstoqueCardex", [&] {
    StockWalk walk({Qt_EstoqueAnt, Vl_CustoMedioAnt, Vl_CredIcmsMedioAnt});
    LedgerPlace place{.day = Dt_InicialDeAtualizacao};
    for (bool ended = false; !ended;) {
      std::vector<StockRewrite> rewrites;
      ended = walk_on(place, Cd_Produto, Ic_AtualizarCardex ? ">=" : "=", walk, rewrites);
      for (const StockRewrite& rewrite : rewrites) execute(rewrite_statement(rewrite));
      Qt_EstoqueAnt = walk.carried().quantity;
      Vl_CustoMedioAnt = walk.carried().cost;
      Vl_CredIcmsMedioAnt = walk.carried().icms_credit;
    }
    if (Ic_AtualizarCardex) execute(product_statement(Cd_Produto, walk.carried()));
    return true;
  });
}

// Walks from behind a place until the ledger ends, or as many movements are to be rewritten as are held: they are
// written when the rows are let go, because a database must take in the rest of a table that changes while it is read.
bool DALFecDiario::walk_on(LedgerPlace& place, std::int32_t product, std::string_view comparison, StockWalk& walk,
                           std::vector<StockRewrite>& rewrites) {
  Recordset rows = read(sql(R"(
      SELECT   *
      FROM     Cardex
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_Produto = {} And
               Dt_Emissao {} {}
      ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao, Cardex.Cd_LancamentoCardex)",
                            ObVO->Cd_PessoaUsuaria, product, comparison, day_literal(place.day)));
  while (!rows.EOF() && place.is_behind(place_of(rows))) rows.MoveNext();
  const Field company = rows["Cd_PessoaUsuaria"], code = rows["Cd_LancamentoCardex"], type = rows["No_Tipo"],
              quantity = rows["Qt_Unidade"], unit_cost = rows["Vl_Unitario"], icms_rate = rows["Tx_Icms"],
              stock = rows["Qt_Estoque"], cost = rows["Vl_CustoMedio"];
  for (; !rows.EOF(); rows.MoveNext()) {
    const StockFigures& figures = walk.take({.type = type.as<std::int32_t>(),
                                             .quantity = quantity.value_or(0.0),
                                             .unit_cost = unit_cost.value_or(0.0),
                                             .icms_rate = icms_rate.value_or(Currency()).as_double()});
    if (!differs(figures, stock.value_or(0.0), cost.value_or(0.0))) continue;
    rewrites.push_back({.company = company.as<std::int32_t>(), .code = code.as<std::int32_t>(), .figures = figures});
    if (rewrites.size() < kMostRewrites) continue;
    place = place_of(rows);
    return false;
  }
  return true;
}

std::string DALFecDiario::rewrite_statement(const StockRewrite& rewrite) const {
  return sql(R"(
      UPDATE Cardex
      SET    Qt_Estoque = {},
             Vl_CustoMedio = {},
             Vl_CredIcmsMedio = {}
      WHERE  Cd_PessoaUsuaria = {} And
             Cd_LancamentoCardex = {})",
             DoubleToSql(rewrite.figures.quantity, kStoredDecimals), DoubleToSql(rewrite.figures.cost, kStoredDecimals),
             DoubleToSql(rewrite.figures.icms_credit, kStoredDecimals), rewrite.company, rewrite.code);
}

std::string DALFecDiario::product_statement(std::int32_t product, const StockPosition& closing) const {
  const ProductFigures figures = product_figures(closing);
  return sql(R"(
      UPDATE Produto
      SET    Produto.Qt_Estoque = {},
             Produto.Vl_CustoMedio = {},
             Produto.Vl_CredIcmsMedio = {}
      WHERE  Cd_PessoaUsuaria = {} And
             Produto.Cd_Produto={})",
             figures.quantity, figures.cost, figures.icms_credit, ObVO->Cd_PessoaUsuaria, product);
}

bool DALFecDiario::ConferirCalculoEstoque(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto,
                                          std::string& Ds_Resultado, std::int16_t Qt_Tentativa) {
  return routine("ConferirCalculoEstoque", [&] {
    Proof proof;
    Recordset rows = read(sql(R"(
        SELECT   Produto.Cd_Produto, Cardex.No_Tipo, Sum(Cardex.Qt_Unidade) as Qt_TotUnidade, Produto.Qt_EstoqueInicial, Produto.Qt_Estoque, Produto.Fl_VendBomba
        FROM     Produto
                 LEFT JOIN Cardex ON Produto.Cd_PessoaUsuaria = Cardex.Cd_PessoaUsuaria And
                                     Cardex.Cd_Produto = Produto.Cd_Produto
        WHERE    Produto.Cd_PessoaUsuaria = {} And
                 Produto.Cd_Produto = {}
        GROUP BY Produto.Cd_Produto, Cardex.No_Tipo, Produto.Qt_EstoqueInicial, Produto.Qt_Estoque, Produto.Fl_VendBomba
        ORDER BY Produto.Cd_Produto, Cardex.No_Tipo)",
                              ObVO->Cd_PessoaUsuaria, Cd_Produto));
    if (!rows.EOF()) proof.begin(rows);
    for (; !rows.EOF(); rows.MoveNext()) proof.add(rows);
    rows.Close();
    if (!proof.fails(Qt_Tentativa)) {
      return ConferirAtualizacaoCardex(Dt_InicialDeAtualizacao, Cd_Produto, Ds_Resultado, proof.stock);
    }
    if (!Ds_Resultado.empty()) Ds_Resultado += "\r\n";
    Ds_Resultado += "Erro na conferencia do cálculo do estoque, econtrada diferença de:" +
                    format_number(proof.difference, "###,###,##0.0") + " no produto:" + std::to_string(Cd_Produto);
    return false;
  });
}

bool DALFecDiario::ConferirAtualizacaoCardex(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto, std::string&,
                                             double Qt_Estoque) {
  return routine("ConferirAtualizacaoCardex", [&] {
    Recordset rows = read(sql(R"(
        SELECT   *
        FROM     Cardex
        WHERE    Cd_PessoaUsuaria = {} And
                 Cd_Produto = {} And
                 Dt_Emissao > {}
        ORDER BY Cardex.Cd_PessoaUsuaria, Cardex.Cd_Produto, Cardex.Dt_Emissao Desc, Cardex.Cd_LancamentoCardex Desc)",
                              ObVO->Cd_PessoaUsuaria, Cd_Produto, day_literal(Dt_InicialDeAtualizacao)));
    bool holds = true;
    if (!rows.EOF()) {
      unless_null([&] { holds = !(std::abs(Qt_Estoque - rows["Qt_Estoque"].as<double>()) > kLastRowTolerance); });
    }
    return holds;
  });
}

}  // namespace posto
