#include "flows/shift.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>

#include "posto/core/error_vocabulary.h"
#include "posto/services/clock.h"
#include "tests/core/failures.h"
#include "tests/flows/cut.h"
#include "tests/flows/sale_station.h"

namespace posto::flows {
namespace {

const Date kMorning = Date::of_moment(2026, 11, 24, 6, 0, 0);

Currency money(std::string_view text) { return Currency::parse(text); }
NozzleReading at(std::int32_t nozzle) { return {.nozzle = nozzle, .electronic = {}, .mechanical = {}}; }
NozzleReading at(std::int32_t nozzle, double litres) {
  return {.nozzle = nozzle, .electronic = litres, .mechanical = {}};
}

class ShiftTest : public ::testing::Test {
 protected:
  // Two employees, three nozzles, of which one has delivered, and kinds of divergence.
  static void fill(Station& station) {
    auto add = [&](std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
      for (auto values : list)
        station.connection().Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
    };
    add("EmpresaUsuaria", "Cd_PessoaUsuaria", {"1"});
    add("Pessoa", "Cd_Pessoa, Nm_Pessoa", {"42, 'CARLOS'", "43, 'ANA <&>'", "7, 'FROTA'"});
    add("Funcionario", "Cd_PessoaUsuaria, Cd_Funcionario", {"1, 42", "1, 43"});
    add("Produto", "Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, No_Tipo, Fl_VendBomba",
        {"1, 1, 'GASOLINA', 1, 1", "1, 2, 'ÓLEO', 1, 0"});
    add("Bomba",
        "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto, No_EncerranteInicial, "
        "Qt_DiferencaEncerranteMecanico",
        {"1, 1, '04', 1, 1000, 0.5", "1, 2, '05', 1, 2000, 0", "1, 3, '06', 1, 3000, Null"});
    add("Abastecimento",
        "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, No_EncerranteFechamento, Ic_Baixado",
        {"1, 1, '04', '2026-11-23 22:00:00', 1250.5, 1"});
    add("TipoDivergenciaCaixa", "Cd_TipoDivergenciaCaixa, Ds_DivergenciaCaixa, No_NaturezaDivergencia",
        {"1, 'VALE', 1", "2, 'TROCO', 2"});
  }
  // Without the code of a shift: a server does not give a number again that a transaction took and gave up.
  static std::string state(Connection& connection) {
    std::string text;
    for (const char* query :
         {"SELECT Cd_Funcionario, No_Sequencial, Dt_Abertura, Hr_Abertura, Cd_Situacao, Vl_SomaDebitos, "
          "Vl_SomaCreditos, Vl_Diferenca, Dt_Fechamento, Dt_Conferencia, Cd_FuncionarioConferencia "
          "FROM Caixa ORDER BY Cd_Caixa",
          "SELECT No_Sequencial, Cd_Bomba, Dt_RespBomba, No_EncerranteEletronicoAbertura, "
          "No_EncerranteEletronicoFechamento, Qt_Venda FROM RespBomba INNER JOIN Caixa "
          "On RespBomba.Cd_Caixa = Caixa.Cd_Caixa ORDER BY RespBomba.Cd_Caixa, Dt_RespBomba, Cd_Bomba",
          "SELECT Cd_Bomba, No_Sequencial FROM Bomba LEFT JOIN Caixa On Bomba.Cd_Caixa = Caixa.Cd_Caixa "
          "ORDER BY Cd_Bomba",
          "SELECT Cd_TipoDivergenciaCaixa, Vl_Divergencia, Ds_Divergencia FROM DivergenciaCaixa "
          "ORDER BY Cd_Caixa, Cd_TipoDivergenciaCaixa",
          "SELECT No_Recebimento FROM Recebimento ORDER BY No_Recebimento"}) {
      text += rows_of(connection, query) + "\n";
    }
    return text;
  }
  // What the shift sold and received: 40 litres paid, 10 without a coupon, a float, and a receipt of no coupon.
  static void sell(Station& station, std::int32_t shift) {
    station.connection().Execute(fmt::format(
        "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Cd_Caixa, Tp_Venda, "
        "Vl_TotalLiquido) Values (1, 1, 100, '2026-11-24', {0}, 21, 240)\r"
        "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, "
        "Cd_Produto, Qt_Unidade, Vl_UnitVenda) Values (1, 1, 100, '2026-11-24', 1, 1, 40, 6)\r"
        "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_Caixa, Tp_DocDebito, Vl_Recebimento, "
        "Nm_IdDocumentoRec, Ic_Suprimento) Values (1, 1, {0}, 20, 239.5, 'DINHEIRO', 0)\r"
        "INSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento) "
        "Values (1, 1, 100, '2026-11-24', 1)\r"
        "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_Caixa, Tp_DocDebito, Vl_Recebimento, "
        "Nm_IdDocumentoRec, Ic_Suprimento) Values (1, 2, {0}, 20, 100, 'SUPRIMENTO', -1)\r"
        "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_Caixa, Tp_DocDebito, Vl_Recebimento, "
        "Nm_IdDocumentoRec, Ic_Suprimento) Values (1, 3, {0}, 20, 77, 'DINHEIRO', 0)\r"
        "INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Cd_Caixa, "
        "Qt_Litros, Vl_Total, No_EncerranteFechamento, Ic_Baixado) "
        "Values (1, 2, '04', '2026-11-24 07:00:00', {0}, 10, 60, 1300.5, 0)",
        shift));
  }
  static std::int32_t opened(Station& station) { return open_shift(station, 42, {at(1), at(2, 2010)}).Cd_Caixa; }

  Station filled_station() {
    {
      Station empty = database_.open();
      fill(empty);
    }
    return database_.open();
  }
  static std::string nozzles_of(Station& station) {
    return rows_of(station.connection(), "SELECT Cd_Bomba, Cd_Caixa FROM Bomba WHERE Cd_Caixa <> 0 ORDER BY Cd_Bomba");
  }
  static std::string periods_of(Station& station) {
    return rows_of(station.connection(),
                   "SELECT Cd_Bomba, No_EncerranteEletronicoAbertura, No_EncerranteMecanicoAbertura, "
                   "No_EncerranteEletronicoFechamento, No_EncerranteMecanicoFechamento, Qt_Venda FROM RespBomba "
                   "ORDER BY Dt_RespBomba, Cd_Bomba");
  }

  StationDatabase database_;
  Date now_ = kMorning;
  ClockOverride clock_{[this] { return now_; }};
};

TEST_F(ShiftTest, OrdinalsCountTheEmployeesDay) {
  Station station = filled_station();
  EXPECT_EQ(open_shift(station, 43).No_Sequencial, 1);
  const VOCaixa first = open_shift(station, 42);
  EXPECT_EQ(first.No_Sequencial, 1);
  EXPECT_EQ(first.Hr_Abertura, "06:00:00");
  close_shift(station, first.Cd_Caixa);
  const VOCaixa second = open_shift(station, 42);
  EXPECT_EQ(second.No_Sequencial, 2);
  close_shift(station, second.Cd_Caixa);
  now_ = kMorning.plus_days(1);
  EXPECT_EQ(open_shift(station, 42).No_Sequencial, 1);
  std::string list;
  for (const auto& [shift, employee] : shifts_between(station, kMorning.day(), now_.day())) {
    list += fmt::format("{} {} {} {}\n", format_date(shift.Dt_Abertura, "dd"), shift.No_Sequencial, employee,
                        shift.Cd_Situacao);
  }
  EXPECT_EQ(list, "24 1 ANA <&> 1\n24 1 CARLOS 2\n24 2 CARLOS 2\n25 1 CARLOS 1\n");
  EXPECT_EQ(shifts_between(station, now_.day(), now_.day()).size(), 1u);
}

// The first nozzle goes on from its last delivery, and its mechanical totaliser runs half a litre behind.
TEST_F(ShiftTest, NozzlesAreAnsweredForBetweenTotalisers) {
  Station station = filled_station();
  const std::int32_t shift = opened(station);
  const std::string code = std::to_string(shift);
  EXPECT_EQ(nozzles_of(station), "1," + code + "\n2," + code + "\n");
  EXPECT_EQ(periods_of(station), "1,1250.5,1250,0,0,0\n2,2010,2010,0,0,0\n");
  now_ = kMorning.plus_millis(3'600'000);
  leave_nozzles(station, shift, {{.nozzle = 1, .electronic = 1300.5, .mechanical = 1299}});
  take_nozzles(station, shift, {at(3)});
  EXPECT_EQ(nozzles_of(station), "2," + code + "\n3," + code + "\n");
  now_ = now_.plus_millis(1'000);
  take_nozzles(station, shift, {at(1, 1300.5)});
  now_ = now_.plus_millis(3'600'000);
  close_shift(station, shift, {at(1, 1400), at(2, 2100.25)});  // the third as it began
  EXPECT_EQ(nozzles_of(station), "");
  EXPECT_EQ(periods_of(station),
            "1,1250.5,1250,1300.5,1299,50\n2,2010,2010,2100.25,2100.25,90.25\n3,3000,3000,3000,3000,0\n"
            "1,1300.5,1300,1400,1399.5,99.5\n");
}

TEST_F(ShiftTest, WhatMayNotBeIsRefusedAndChangesNothing) {
  Station station = filled_station();
  const std::int32_t shift = opened(station), other = open_shift(station, 43).Cd_Caixa;
  now_ = kMorning.plus_days(1);
  struct {
    const char* what;
    std::function<void()> work;
    std::int32_t number;
  } cases[] = {
      {"no such employee", [&] { open_shift(station, 99); }, erro::kRecordNotFound},
      {"a customer", [&] { open_shift(station, 7); }, erro::kRecordNotFound},
      {"a shift that is open since yesterday", [&] { open_shift(station, 42); }, erro::kRuleViolation},
      {"another's nozzle", [&] { take_nozzles(station, other, {at(1)}); }, erro::kRuleViolation},
      {"its own nozzle again", [&] { take_nozzles(station, shift, {at(1)}); }, erro::kRuleViolation},
      {"no such nozzle",
       [&] {
         take_nozzles(station, other, {at(3), at(9)});
       },
       erro::kRecordNotFound},
      {"a nozzle that no key can be", [&] { take_nozzles(station, other, {at(256)}); }, erro::kRuleViolation},
      {"a negative totaliser", [&] { take_nozzles(station, other, {at(3, -1)}); }, erro::kRuleViolation},
      {"a nozzle that it does not have", [&] { leave_nozzles(station, other, {at(1)}); }, erro::kRuleViolation},
      {"a totaliser that ran back",
       [&] {
         close_shift(station, shift, {at(1), at(2, 2009.999)});
       },
       erro::kRuleViolation},
      {"no such shift", [&] { settle_shift(station, 99); }, erro::kRecordNotFound},
      {"cash drops below zero", [&] { close_shift(station, shift, {}, {.missing = money("-1"), .surplus = {}}); },
       erro::kRuleViolation},
      {"checking what is open", [&] { check_shift(station, shift, 43); }, erro::kRuleViolation},
      {"a divergence below zero", [&] { set_divergence(station, shift, 1, money("-1"), ""); }, erro::kRuleViolation},
      {"a kind that there is not", [&] { set_divergence(station, shift, 3, money("1"), ""); }, erro::kRecordNotFound}};
  const std::string before = state(station.connection());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const auto failure = failure_of(c.work);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), c.number) << failure->description();
    EXPECT_FALSE(station.connection().in_transaction());
    EXPECT_EQ(state(station.connection()), before);
  }
}

// A shift that was closed without the flow, and whose nozzles still bear its code, holds nobody up.
TEST_F(ShiftTest, ANozzleOfAShiftThatIsNotOpenIsFree) {
  Station station = filled_station();
  const std::int32_t stale = opened(station);
  station.connection().Execute("UPDATE Caixa SET Cd_Situacao = 3");
  EXPECT_EQ(failure_of([&] { take_nozzles(station, stale, {at(3)}); })->description(),
            fmt::format("O caixa {} já foi conferido", stale));
  const std::int32_t shift = open_shift(station, 43, {at(1)}).Cd_Caixa;
  EXPECT_EQ(nozzles_of(station), fmt::format("1,{}\n2,{}\n", shift, stale));
}

// debits 240 + 60 + 100 + 3 = 403, credits 339.50 + 2 = 341.50: -61.50, and -62 with half a unit missing from the drops
TEST_F(ShiftTest, FromOpeningToChecking) {
  Station station = filled_station();
  const std::int32_t shift = opened(station);
  sell(station, shift);
  set_divergence(station, shift, 1, money("9"), "trocado");
  set_divergence(station, shift, 1, money("2"), "vale do almoço");
  set_divergence(station, shift, 2, money("3"), "");
  EXPECT_EQ(settle_shift(station, shift).Vl_Diferenca, money("-61.5"));
  EXPECT_EQ(rows_of(station.connection(), "SELECT No_Recebimento FROM Recebimento ORDER BY No_Recebimento"), "1\n2\n");

  now_ = kMorning.plus_millis(8 * 3'600'000 + 250);
  const VOCaixa closed = close_shift(station, shift, {}, {.missing = money("0.5"), .surplus = {}});
  EXPECT_EQ(closed.Vl_Diferenca, money("-62"));
  EXPECT_EQ(closed.Dt_Fechamento, Date::of_moment(2026, 11, 24, 14, 0, 0));
  EXPECT_EQ(failure_of([&] { close_shift(station, shift); })->number(), erro::kRuleViolation);

  const CheckedShift refused = check_shift(station, shift, 43);
  EXPECT_FALSE(refused.checked);
  ASSERT_EQ(refused.coupons.size(), 1u);
  EXPECT_EQ(refused.coupons[0].number, 100);
  EXPECT_EQ(refused.coupons[0].receipts, money("239.5"));
  ASSERT_EQ(refused.fuellings.size(), 1u);
  EXPECT_EQ(refused.fuellings[0].total, money("60"));
  EXPECT_EQ(refused.shift.Cd_Situacao, 2);

  // the coupon is put right, the fuelling accepted
  station.connection().Execute("UPDATE Recebimento SET Vl_Recebimento = 240 WHERE No_Recebimento = 1");
  EXPECT_TRUE(check_shift(station, shift, 43).coupons.empty());
  const CheckedShift checked = check_shift(station, shift, 43, true, {.missing = {}, .surplus = money("1.5")});
  EXPECT_TRUE(checked.checked);
  EXPECT_EQ(checked.shift.Vl_Diferenca, money("-60"));
  EXPECT_EQ(rows_of(station.connection(), "SELECT Cd_Situacao, Vl_Diferenca, Cd_FuncionarioConferencia FROM Caixa"),
            "3,-60,43\n");

  // what is checked stays, whatever happens to its rows
  station.connection().Execute("UPDATE Recebimento SET Vl_Recebimento = 999");
  EXPECT_EQ(settle_shift(station, shift).Vl_Diferenca, money("-60"));
  EXPECT_EQ(failure_of([&] { set_divergence(station, shift, 1, money("5"), ""); })->number(), erro::kRuleViolation);
  EXPECT_EQ(failure_of([&] { check_shift(station, shift, 43); })->number(), erro::kRuleViolation);
}

TEST_F(ShiftTest, ADivergenceOfZeroIsNone) {
  Station station = filled_station();
  const std::int32_t shift = opened(station);
  set_divergence(station, shift, 1, money("2"), "vale");
  set_divergence(station, shift, 1, Currency(), "");
  set_divergence(station, shift, 2, Currency(), "");
  EXPECT_EQ(rows_of(station.connection(), "SELECT * FROM DivergenciaCaixa"), "");
}

TEST_F(ShiftTest, TheSummaryIsReadAndNotLeft) {
  Station station = filled_station();
  const std::int32_t shift = opened(station);
  sell(station, shift);
  station.connection().Execute("INSERT INTO TempRelCaixa14 (Label1, Cd_Grupo) Values ('de outra estação', 9.1)");
  const auto summary = shift_summary(station, settle_shift(station, shift));
  std::string groups;
  for (const SummaryGroup& group : summary) {
    groups += fmt::format("{} {}: {}\n", group.code.text(), group.name, group.rows.size());
  }
  EXPECT_EQ(groups, "0.0000 RESULTADO: 2\n0.1000 DÉBITOS: 7\n0.2000 CRÉDITOS: 4\n1.1000 ENCERRANTES: 2\n");
  EXPECT_EQ(summary[0].rows[0].name, "DÉBITOS");
  EXPECT_EQ(summary[0].rows[0].values[2], money("-400"));
  EXPECT_EQ(summary[1].heads[3], "DÉBITOS");
  EXPECT_EQ(summary[2].rows[0].values[2], money("339.5"));
  EXPECT_EQ(summary[2].rows[1].values[2], std::nullopt);
  EXPECT_EQ(rows_of(station.connection(), "SELECT Label1 FROM TempRelCaixa14"), "de outra estação\n");
}

// Gasoline 123.98, oil 90 and 46.90, a wash 45, less 3.98: 301.90, of which 255 were paid and 46.90 are to be billed.
TEST_F(SaleTest, AShiftOfSalesIsEven) {
  const ClockOverride clock(Date::of_moment(2026, 11, 23, 6, 0, 0));
  const std::int32_t shift = open_shift(station_, 7, {at(4)}).Cd_Caixa;
  Sale paid = cash_sale(100, {of_fuelling(kTakenIn), of_product(kOil, 2, "45"), of_product(kWash, 1)});
  paid.discount = money("3.98");
  paid.payments = {{.kind = 3, .value = money("100")}, {.kind = kCash, .value = {}}};
  Sale on_credit = cash_sale(101, {of_product(kOil, 1)});
  on_credit.payments.clear();
  on_credit.client = 9;
  Sale taken_back = cash_sale(102, {of_product(kWash, 1)});
  for (Sale* sale : {&paid, &on_credit, &taken_back}) {
    sale->shift = shift;
    sell(station_, *sale);
  }
  cancel_coupon(station_, {1, 102, Date::of_day(2026, 11, 23)});
  const VOCaixa closed = close_shift(station_, shift, {at(4, 1050)});
  EXPECT_EQ(closed.Vl_VendaCombustiveis, money("123.98"));
  EXPECT_EQ(closed.Vl_VendaProdutos, money("136.9"));
  EXPECT_EQ(closed.Vl_VendaServicos, money("45"));
  EXPECT_EQ(closed.Vl_DescontoCupons, money("3.98"));
  EXPECT_EQ(closed.Vl_Recebimentos, money("255"));
  EXPECT_EQ(closed.Vl_VendaACredito, money("46.9"));
  EXPECT_EQ(closed.Vl_SomaDebitos, money("301.9"));
  EXPECT_EQ(closed.Vl_Diferenca, Currency());
  EXPECT_TRUE(check_shift(station_, shift, 7).checked);
}

// Cut at each of its statements an operation leaves everything as it was; then it runs. The shift's whole life comes to
// the end that it has without a cut.
TEST_F(ShiftTest, CutAnywhereAnOperationLeavesNothingHalfDone) {
  std::int32_t shift = 0;
  const std::function<void(Station&)> operations[] = {
      [&](Station& s) {
        shift = open_shift(s, 42, {at(1), at(2)}).Cd_Caixa;
      },
      [&](Station& s) {
        leave_nozzles(s, shift, {at(1, 1260), at(2)});
      },
      [&](Station& s) { take_nozzles(s, shift, {at(3)}); },
      [&](Station& s) { set_divergence(s, shift, 1, money("9"), "trocado"); },
      [&](Station& s) { set_divergence(s, shift, 1, money("2"), "vale"); },
      [&](Station& s) { settle_shift(s, shift); },
      [&](Station& s) { close_shift(s, shift, {at(3, 3100)}, {.missing = money("1"), .surplus = {}}); },
      [&](Station& s) { check_shift(s, shift, 43, true); }};
  std::string uncut;
  {
    StationDatabase other;
    Station station = other.open();
    fill(station);
    read_company(*station.settings, 0);
    operations[0](station);
    sell(station, shift);
    for (std::size_t i = 1; i < std::size(operations); ++i) operations[i](station);
    uncut = state(station.connection());
  }
  Station seen = filled_station();
  for (std::size_t i = 0; i < std::size(operations); ++i) {
    if (i == 1) sell(seen, shift);
    const std::string before = state(seen.connection());
    int statement = 0;
    for (bool done = false; !done;) {
      SCOPED_TRACE(fmt::format("operation {}, cut at statement {}", i + 1, ++statement));
      FailingStation cut(database_, statement);
      done = !failure_of([&] { operations[i](cut.station); });
      ASSERT_EQ(state(seen.connection()) == before, !done);
    }
    EXPECT_GT(statement, 4);
  }
  EXPECT_EQ(state(seen.connection()), uncut);
}

}  // namespace
}  // namespace posto::flows
