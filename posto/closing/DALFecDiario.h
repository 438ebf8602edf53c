// The daily closing: the examinations of a day's data, the repairs that go before them, and the recalculation of the
// stock ledger with its proofs. The caller decides what runs in which order, and what refuses the day.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "posto/closing/stock_walk.h"
#include "posto/core/entity.h"
#include "posto/schema/closing.h"

namespace posto {

inline constexpr Description kFecDiario{.class_name = "DALFecDiario",
                                        .table = "FecDiario",
                                        .keys = {{"Cd_PessoaUsuaria", "Dt_FecDiario"}},
                                        .empty_query = "Cd_PessoaUsuaria = 0 and Dt_FecDiario = Null"};

struct Verification;

// How far a walk has come in a product's ledger.
struct LedgerPlace {
  Date day;
  std::int32_t code = std::numeric_limits<std::int32_t>::min();  // of the last movement that was walked

  // Whether a movement was walked already.
  bool is_behind(const LedgerPlace& movement) const {
    return movement.day < day || (movement.day == day && movement.code <= code);
  }
};

// A movement that is to hold these figures.
struct StockRewrite {
  std::int32_t company = 0, code = 0;
  StockFigures figures;
};

// Standard operations (core/entity.h) on the record of a closed day, which needs both columns of its key.
//
// All else works for the company and, where an operation takes no Dt_Fechamento, for the day of the value object. A
// record set with rows is a finding, an empty one is a pass; each is detached. Ds_Resultado is accepted everywhere and
// written only where that is told, behind a line end (CR LF) if it holds text.
class DALFecDiario : public Entity<VOFecDiario, kFecDiario> {
 public:
  using Entity::Entity;

  // Declared for hosts that wait for it; nothing raises it.
  std::function<void(std::int32_t Cd_Produto, float Qt_Estoque)> EstoqueNegativoAtualizacaoCardex;

  // Kept without effect: false, whatever the day holds.
  bool AtualizarCardex(Date Dt_Fechamento, std::string& Ds_Resultado);
  bool CalcularEstoqueSistemaTubulacao(Date Dt_Fechamento, std::string& Ds_Resultado);
  bool VerificarSequenciaDeAbastecimentos(Date Dt_Fechamento, std::string& Ds_Resultado);
  bool IncluindoLmc(Date Dt_Fechamento, std::string& Ds_Resultado);

  // Coupons.
  //
  // Of each coupon with lines: its key, Vl_Total (the sum of its lines, each rounded to two decimals first),
  // Vl_TotalLiquido and Vl_DescontoCF, for the caller to compare.
  Recordset RsSomaDeCupomEItens(Date Dt_Fechamento);
  // Coupons above 0 without any line, of whatever company.
  Recordset rsCupomFiscalSemItem(Date Dt_Fechamento);
  // Lines without a ledger movement: of coupons, of issued invoices that move stock, of purchases.
  Recordset RsItemCupomFiscalSemCardex(Date Dt_Fechamento);
  Recordset RsItemNotaSaidaSemCardex(Date Dt_Fechamento);
  Recordset RsItemNotaEntradaSemCardex(Date Dt_Fechamento);
  // Movements of a product, types 10 and 20, that no line points to, behind the company's settled date.
  Recordset RsCardexSemVenda(std::int32_t Cd_Produto);
  // Of each printer with coupons on the day of the value object: the range of its coupons and grand totals and the sums
  // of their figures.
  Recordset Rs_SomaVendasCFAgrupadosPorECF();

  // Fuellings. All nozzles:
  Recordset RsBicos();
  // First takes the fuelling off every line of a product that no pump sells (codes up to 5 excepted); then
  // Cd_Abastecimento and Qt_BaixasDoAbastecimento of fuellings on more than one line, of all days up to this one. The
  // company is that of the settings.
  Recordset Rs_BaixaAbastecimentoDuplicidade(Date Dt_Fechamento, std::string& Ds_Resultado);
  // Fuel lines of the value object's day without a fuelling that is there.
  Recordset Rs_ItemCupomFiscalCombustivelSemAbastecimentoCorrespondente(std::string& Ds_Resultado);
  // Cd_Abastecimento, Qt_Unidade and Qt_Litros of lines that took over a litre more than was delivered.
  Recordset Rs_QuantidadeBaixaEAbastecimento(Date Dt_Fechamento, std::string& Ds_Resultado);

  // Receipts. Settled coupons whose receipts (SomaVl_Recebimento) differ from their total, with their shift; one
  // without any receipt is not among them.
  Recordset Rs_RecebimentosETroco(Date Dt_Fechamento, std::string& Ds_Resultado);
  // Receipts of coupons that are not there, floats excepted.
  Recordset Rs_RecebimentoSemCupom(Date Dt_Fechamento, std::string& Ds_Resultado);
  // Of each settled coupon its net total and SomaDeVl_Recebimento, null where there is no receipt.
  Recordset Rs_SomaDeRecebimentoPorCupom(Date Dt_Fechamento, std::string& Ds_Resultado);

  // Purchase notes of the day that are not concluded; shifts opened that day and not checked.
  Recordset Rs_TodasEntradasForamConcluidas(Date Dt_Fechamento, std::string& Ds_Resultado);
  Recordset Rs_CaixaNaoFechado(Date Dt_Fechamento, std::string& Ds_Resultado);

  // Whether the day's coupons add up to what the printers' summary map says, to the cent. If not, Ds_Resultado gets
  // both sums and, coupon by coupon, where a printer's grand total and the coupons part; amounts as 1.234,56. Raises 6
  // for more than 255 items.
  bool VerificarSequenciaDeVendasComGtEcf(Date Dt_Fechamento, std::string& Ds_Resultado);

  // Repairs, for the day of the value object. A failure leaves what was written; running again is safe. True.
  //
  // Gives fuellings without litres the quantity of the coupon line that sells them.
  bool CorrigeProblemaAbastecimentoZerado();
  // Makes the totaliser readings of typed fuellings, from that day on, follow on from the reading before where they are
  // more than a litre off, and sets the nozzle's last totaliser. Readings of the automation stay and set the pace.
  bool CorrigeProblemaIntervaloNosAbastecimentosDigitados();

  // Recalculation. Cd_Produto of the products that moved on a day, or from a day on.
  Recordset Rs_ProdutosVendidos(Date Dt_Fechamento, std::string& Ds_Resultado);
  Recordset Rs_TodosProdutosVendidosAPartirDaData(Date Dt_Inicial, std::string& Ds_Resultado);
  // Walks a product's ledger from a day on, works out the position behind each movement (stock_walk.h), rewrites those
  // that differ, with four decimals, and gives the product the closing figures with two. With Ic_AtualizarCardex false
  // it walks that one day and leaves the product alone. The three figures hold the opening position and get the closing
  // one; a null figure of a movement counts as 0. Reads forward only and holds a bounded number of rewrites; the caller
  // may hold a transaction, otherwise each row written stands by itself. Failures report themselves as
  // AtualizarEstoqueCardex. True.
  bool AtualizaEstoqueCardex(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto, float& Qt_EstoqueAnt,
                             float& Vl_CustoMedioAnt, float& Vl_CredIcmsMedioAnt, bool Ic_AtualizarCardex = true);
  // Whether the product's stock is what its initial stock and its whole ledger explain, and then
  // ConferirAtualizacaoCardex. Only a shortage counts: above 1 and not below the tolerance, 5 a try for a fuel (the
  // first is Qt_Tentativa 0) and Qt_Tentativa for any other product. Ds_Resultado tells the difference.
  bool ConferirCalculoEstoque(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto, std::string& Ds_Resultado,
                              std::int16_t Qt_Tentativa);
  // Whether the last movement behind the day has this stock, give or take 2; true where there is none.
  bool ConferirAtualizacaoCardex(Date Dt_InicialDeAtualizacao, std::int32_t Cd_Produto, std::string& Ds_Resultado,
                                 double Qt_Estoque);

 private:
  Recordset find(const Verification& verification, Date day);
  std::string day_literal(Date day) const;
  Recordset maps_of(Date day);
  Currency coupon_sum_of(Date day);
  Recordset coupons_of(Recordset& map, Date day);
  void put_fuellings_in_sequence(std::int32_t nozzle, const std::string& address, const std::string& since);
  bool walk_on(LedgerPlace& place, std::int32_t product, std::string_view comparison, StockWalk& walk,
               std::vector<StockRewrite>& rewrites);
  std::string rewrite_statement(const StockRewrite& rewrite) const;
  std::string product_statement(std::int32_t product, const StockPosition& closing) const;
};

}  // namespace posto
