// The sample's week is closed day by day. One day has faults: what is found names them and nothing else, and behind
// their corrections that day closes as well.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "flows/closing.h"
#include "flows/shift.h"
#include "posto/services/clock.h"
#include "tests/flows/shift_model.h"
#include "tests/flows/week.h"

namespace posto::flows {
namespace {

constexpr int kFaultyDay = 3;
constexpr std::int32_t kForecourtCashier = 51, kShopCashier = 50, kManager = 47;
constexpr int kNozzles = 8;

std::string names(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    text += std::string(finding.name) + "(" + std::to_string(finding.count()) + ") ";
  }
  return text;
}

std::string two_decimals(const std::string& number) { return format_number(std::stod(number), "0.00", kPointLocale); }

class WeekClosing : public ::testing::Test {
 protected:
  WeekClosing() { register_station(station_, kWeek + "cadastro"); }

  // Two shifts a day, those of the forecourt with the odd numbers.
  void open_shifts(int day) {
    const ClockOverride clock(kFirstDay.plus_days(day));
    std::vector<NozzleReading> nozzles;
    for (std::int32_t nozzle = 1; nozzle <= kNozzles; ++nozzle) nozzles.push_back({nozzle, {}, {}});
    EXPECT_EQ(open_shift(station_, kForecourtCashier, nozzles).Cd_Caixa, 2 * day + 1);
    EXPECT_EQ(open_shift(station_, kShopCashier).Cd_Caixa, 2 * day + 2);
  }

  void finish_shift(std::int32_t shift) {
    close_shift(station_, shift);
    const CheckedShift result = check_shift(station_, shift, kManager);
    EXPECT_TRUE(result.checked) << result.coupons.size() << " coupons, " << result.fuellings.size() << " fuellings";
  }

  void run_statements(const std::string& file) {
    std::ifstream text(day_folder(kFaultyDay) + "/" + file);
    ASSERT_TRUE(text);
    station_.connection().Execute(std::string(std::istreambuf_iterator<char>(text), {}));
  }

  Closing close(int day) { return close_day(station_, kFirstDay.plus_days(day), {.user = "MARIANA"}); }

  // The faults, what the closing says of them, and their corrections; the shift of the shop is open.
  void meet_faults() {
    run_statements("defeitos.sql");
    const Closing refused = close(kFaultyDay);
    EXPECT_FALSE(refused.closed);
    EXPECT_EQ(names(refused.mended), "CorrigeProblemaIntervaloNosAbastecimentosDigitados(1) ");
    EXPECT_EQ(names(refused.refused),
              "VerificarSequenciaDeVendasComGtEcf(1) RsItemCupomFiscalSemCardex(1) "
              "Rs_BaixaAbastecimentoDuplicidade(1) Rs_RecebimentoSemCupom(1) Rs_CaixaNaoFechado(1) ");
    EXPECT_NE(refused.refused.at(0).text.find("diferença 45,00"), std::string::npos);
    run_statements("correcoes.sql");
    EXPECT_EQ(sell_from(station_, day_folder(kFaultyDay) + "/vendas.csv").sold, 1u);
    finish_shift(2 * kFaultyDay + 2);
  }

  TemporaryFolder folder_;
  StationDatabase database_;
  Station station_ = database_.registered();
};

std::string lines_of(const std::multiset<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) text += row + "\n";
  return text;
}

void expect_settled(const VOCaixa& shift, const ModelShift& model) {
  EXPECT_EQ(shift.Vl_VendaCombustiveis, model.fuels);
  EXPECT_EQ(shift.Vl_VendaProdutos, model.goods);
  EXPECT_EQ(shift.Vl_VendaServicos, model.services);
  EXPECT_EQ(shift.Vl_DescontoCupons, model.discounts);
  EXPECT_EQ(shift.Vl_Recebimentos, model.receipts);
  EXPECT_EQ(shift.Vl_VendaACredito, model.on_credit);
  EXPECT_EQ(shift.Vl_SomaDebitos, model.fuels + model.goods + model.services - model.discounts);
  EXPECT_EQ(shift.Vl_SomaCreditos, model.receipts + model.on_credit);
  for (const Currency none :
       {shift.Vl_Suprimento, shift.Vl_ContasRecebidas, shift.Vl_AbastecimentosPendentes, shift.Vl_OutrosDebitos,
        shift.Vl_OutrosCreditos, shift.Vl_FaltaSangrias, shift.Vl_SobraSangrias, shift.Vl_Diferenca}) {
    EXPECT_EQ(none, Currency());
  }
}

void expect_summary(Station& station, const VOCaixa& shift, const ModelShift& model) {
  std::multiset<std::string> rows;
  for (const SummaryGroup& group : shift_summary(station, shift)) {
    const std::string code = format_number(group.code, "0.0", kPointLocale);
    for (const SummaryRow& row : group.rows) rows.insert(summary_line(code, row.item, row.name, row.values));
  }
  EXPECT_EQ(lines_of(rows), lines_of(model.summary));
}

TEST_F(WeekClosing, EveryDayClosesAndTheFaultyOneBehindItsCorrections) {
  for (int day = 0; day < kDays; ++day) {
    SCOPED_TRACE(iso(kFirstDay.plus_days(day)));
    open_shifts(day);
    if (day == 0) import(station_, folder_, kSample + "/leituras.csv");
    work_day(station_, folder_, day);
    finish_shift(2 * day + 1);
    day == kFaultyDay ? meet_faults() : finish_shift(2 * day + 2);
    const Closing closing = close(day);
    EXPECT_TRUE(closing.closed) << names(closing.refused);
    EXPECT_EQ(names(closing.refused) + names(closing.mended), "");
  }
  const auto expected = model_shifts();
  const auto shifts = shifts_between(station_, kFirstDay, kFirstDay.plus_days(kDays));
  ASSERT_EQ(shifts.size(), expected.size());
  for (const ShiftLine& line : shifts) {
    SCOPED_TRACE("shift " + std::to_string(line.shift.Cd_Caixa));
    const ModelShift& model = expected.at(line.shift.Cd_Caixa);
    expect_settled(line.shift, model);
    expect_summary(station_, line.shift, model);
  }
  // The recalculated stock and cost, to the two decimals that a product keeps.
  for (const Row& row : rows_of_file(kWeek + "esperado/estoque.csv")) {
    Recordset product = station_.connection().Execute(
        "SELECT Qt_Estoque, Vl_CustoMedio FROM Produto WHERE Cd_CodBarras = '" + row[0] + "'");
    EXPECT_EQ(two_decimals(product["Qt_Estoque"].as<std::string>()), two_decimals(row[4])) << row[1];
    EXPECT_EQ(two_decimals(product["Vl_CustoMedio"].as<std::string>()), two_decimals(row[5])) << row[1];
  }
}

}  // namespace
}  // namespace posto::flows
