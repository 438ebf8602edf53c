// The sample station's week: three fiscal printers from their first coupon to their last summary map. The figures were
// worked out by a model on exact decimals: sample/semana/README.md tells how.
#include "tests/flows/week.h"

#include <gtest/gtest.h>

#include <map>

#include "flows/position.h"
#include "posto/core/sql.h"
#include "posto/types/number_pattern.h"

namespace posto::flows {
namespace {

std::string line_of(const Row& row) {
  std::string line;
  for (const std::string& field : row) line += field + " ";
  return line;
}

void expect_rows(const std::vector<Row>& found, const std::vector<Row>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) EXPECT_EQ(line_of(found[i]), line_of(expected[i]));
}

std::string money(Currency value) { return format_number(value, "0.00", kPointLocale); }
std::string figure(double value, const char* pattern) { return format_number(value, pattern, kPointLocale); }

// The week is worked through once for all tests.
class Week : public ::testing::Test {
 protected:
  struct Worked {
    TemporaryFolder folder;
    StationDatabase database;
    Station station = database.registered();
    std::vector<DayResult> days;

    Worked() {
      register_station(station, kWeek + "cadastro");
      for (int shift = 0; shift < 2 * kDays; ++shift) {
        station.connection().Execute("INSERT INTO Caixa (Cd_PessoaUsuaria, Cd_Funcionario) Values (1, 51)");
      }
      import(station, folder, kSample + "/leituras.csv");
      for (int day = 0; day < kDays; ++day) days.push_back(work_day(station, folder, day));
    }
  };

  static void SetUpTestSuite() { worked_ = std::make_unique<Worked>(); }
  static void TearDownTestSuite() { worked_.reset(); }

  static Station& station() { return worked_->station; }
  static const std::vector<DayResult>& days() { return worked_->days; }
  static std::string rows(const std::string& query) { return rows_of(station().connection(), query); }
  static std::vector<Row> expected(const char* file) { return rows_of_file(kWeek + "esperado/" + file); }

 private:
  static std::unique_ptr<Worked> worked_;
};
std::unique_ptr<Week::Worked> Week::worked_;

// The coupon that sells a fuelling again is the only one that is refused.
TEST_F(Week, FilesAreTakenInButForOneSaleThatCannotBe) {
  std::size_t sold = 0, cancelled = 0, notes = 0;
  std::vector<std::string> refused;
  for (const DayResult& day : days()) {
    sold += day.sales.sold;
    cancelled += day.sales.cancelled;
    notes += day.purchases.stored;
    EXPECT_TRUE(day.purchases.refused.empty());
    for (const RefusedSale& sale : day.sales.refused) refused.push_back(sale.coupon + ": " + sale.reason);
  }
  EXPECT_EQ(sold, expected("cupons.csv").size());
  EXPECT_EQ(cancelled, 4u);
  EXPECT_EQ(notes, 4u);
  ASSERT_EQ(refused.size(), 1u);
  EXPECT_TRUE(refused[0].ends_with("Abastecimento baixado anteriormente")) << refused[0];
}

TEST_F(Week, EachPrinterDayIsTheModels) {
  std::vector<Row> found;
  for (const DayResult& day : days()) {
    for (const PrinterDay& d : day.printers) {
      for (const std::string& finding : d.findings) ADD_FAILURE() << iso(d.figures.day) << ": " << finding;
      ASSERT_TRUE(d.map);
      const PrinterDayFigures& f = d.figures;
      auto rate = [&](int per_cent) {
        const auto at = f.by_rate.find(Currency(per_cent));
        return money(at == f.by_rate.end() ? Currency() : at->second);
      };
      found.push_back({iso(f.day), std::to_string(f.printer), std::to_string(f.coupons), std::to_string(f.cancelled),
                       std::to_string(d.map->No_CupomFiscalInicial), std::to_string(d.map->No_CupomFiscalFinal),
                       money(d.map->Vl_GTotalFinal), money(f.gross), money(f.discounts), money(f.cancellations),
                       money(f.net), money(f.substitution), money(f.exempt), money(f.services), rate(12), rate(18)});
    }
  }
  expect_rows(found, expected("dias.csv"));
}

// The maps say what the figures say, and follow each other: a day begins where the printer's last one ended.
TEST_F(Week, MapsAndReductionsHoldTheSameAndFollowEachOther) {
  std::map<std::string, std::pair<std::string, int>> last;  // grand total and count by printer
  for (const Row& day : expected("dias.csv")) {
    SCOPED_TRACE(day[0] + ", " + day[1]);
    const std::string of_day = sql("WHERE Dt_Movimento = '{}' And No_Impressora = {}", day[0], day[1]);
    const auto& before = last.try_emplace(day[1], "0.00", 0).first->second;
    const int count = before.second + 1;
    Recordset map = station().connection().Execute("SELECT * FROM MapaResumoECF " + of_day);
    const auto value = [&](const char* column) { return money(map[column].as<Currency>()); };
    EXPECT_EQ(map["Qt_ContReducoes"].as<std::int32_t>(), count);
    EXPECT_EQ(value("Vl_GTotalInicial"), before.first);
    EXPECT_EQ(value("Vl_GTotalFinal"), day[6]);
    EXPECT_EQ(value("Vl_Descontos"), day[8]);
    EXPECT_EQ(value("Vl_Cancelamentos"), day[9]);
    EXPECT_EQ(value("Vl_SubTrib"), day[11]);
    EXPECT_EQ(value("Vl_Isentas"), day[12]);
    EXPECT_EQ(value("Vl_Servicos"), day[13]);
    EXPECT_EQ(value("Vl_T02"), day[14]);
    EXPECT_EQ(value("Vl_T01"), day[15]);
    EXPECT_EQ(rows("SELECT Qt_ContReducoes, Vl_GTotalFinal, Vl_T01, Vl_T02, Vl_T03 FROM ReducaoZ " + of_day),
              rows("SELECT Qt_ContReducoes, Vl_GTotalFinal, Vl_T01, Vl_T02, Vl_Servicos FROM MapaResumoECF " + of_day));
    last[day[1]] = {day[6], count};
  }
}

TEST_F(Week, EachCouponIsTheModels) {
  std::vector<Row> found;
  for (Recordset c = station().connection().Execute(
           "SELECT A.*, (SELECT Round(Sum(B.Qt_Unidade * B.Vl_AltFinalCupom), 2) FROM ItemCupomFiscal B "
           "WHERE B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And B.No_Impressora = A.No_Impressora And "
           "B.No_CupomFiscal = A.No_CupomFiscal And B.Dt_Emissao = A.Dt_Emissao And B.Ic_Excluido = 0) As Vl_Rateio "
           "FROM CupomFiscal A ORDER BY A.No_Impressora, A.No_CupomFiscal");
       !c.EOF(); c.MoveNext()) {
    const auto value = [&](const char* column) { return money(c[column].as<Currency>()); };
    found.push_back({c["No_Impressora"].as<std::string>(), c["No_CupomFiscal"].as<std::string>(),
                     iso(c["Dt_Emissao"].as<Date>()), iso(c["Dt_Movimento"].as<Date>()),
                     c["Ic_Excluido"].as<bool>() ? "S" : "N", value("Vl_Total"), value("Vl_DescontoCF"),
                     value("Vl_TotalLiquido"), value("Vl_Icms"), value("Vl_Iss"),
                     figure(c["Vl_Rateio"].value_or(0.0), "0.00")});
  }
  expect_rows(found, expected("cupons.csv"));
}

TEST_F(Week, StockAndAverageCostAreTheModels) {
  std::vector<Row> found;
  for (const ProductPosition& p :
       product_positions(station(), Date::of_day(2026, 11, 1), kFirstDay.plus_days(kDays - 1))) {
    if (p.in == 0) continue;  // a service
    found.push_back({p.bar_code, p.name, figure(p.in, "0.000"), figure(p.out, "0.000"), figure(p.stock, "0.000000"),
                     figure(p.cost, "0.000000"), figure(p.icms_credit, "0.000000")});
  }
  std::vector<Row> model = expected("estoque.csv");
  for (Row& row : model) row.pop_back();  // the exact stock, without the ledger's narrow steps
  expect_rows(found, model);
}

TEST_F(Week, ReceiptsFuellingsAndLedgerAgree) {
  std::vector<Row> found;
  for (Recordset sums = station().connection().Execute(
           "SELECT Cd_TipoRecebimento, Sum(Vl_Recebimento) As Vl_Soma FROM Recebimento GROUP BY Cd_TipoRecebimento "
           "ORDER BY Cd_TipoRecebimento");
       !sums.EOF(); sums.MoveNext()) {
    found.push_back({sums["Cd_TipoRecebimento"].as<std::string>(), money(sums["Vl_Soma"].as<Currency>())});
  }
  expect_rows(found, expected("recebimentos.csv"));
  // What was taken is what the coupons that were not sold on credit come to.
  EXPECT_EQ(rows("SELECT Sum(Vl_Recebimento) FROM Recebimento"),
            rows("SELECT Sum(Vl_TotalLiquido) FROM CupomFiscal WHERE Tp_Venda Between 20 And 29"));
  // A fuelling is posted where one live line sells it, and no two do.
  EXPECT_EQ(rows("SELECT Count(*) FROM Abastecimento WHERE Ic_Baixado <> 0"),
            rows("SELECT Count(*) FROM ItemCupomFiscal WHERE Cd_Abastecimento > 0"));
  EXPECT_EQ(rows("SELECT Cd_Abastecimento FROM ItemCupomFiscal WHERE Cd_Abastecimento > 0 GROUP BY Cd_Abastecimento "
                 "HAVING Count(*) > 1"),
            "");
}

TEST_F(Week, TakenInAgainNothingChanges) {
  TemporaryFolder folder;
  const auto state = [&] {
    return state_of(station().connection()) + rows("SELECT * FROM CupomFiscal ORDER BY No_Impressora, No_CupomFiscal") +
           rows("SELECT * FROM ItemCupomFiscal ORDER BY No_Impressora, No_CupomFiscal, No_Item") +
           rows("SELECT * FROM Recebimento ORDER BY No_Recebimento") +
           rows("SELECT * FROM MapaResumoECF ORDER BY Dt_Movimento, No_Impressora") +
           rows("SELECT * FROM ReducaoZ ORDER BY Dt_Movimento, No_Impressora");
  };
  const std::string before = state();
  for (int day = 0; day < kDays; ++day) {
    const std::string files = day_folder(day);
    import(station(), folder, files + "/leituras.csv");
    if (std::filesystem::exists(files + "/notas.csv")) {
      EXPECT_EQ(record_purchases(station(), files + "/notas.csv").stored, 0u);
    }
    EXPECT_EQ(sell_from(station(), files + "/vendas.csv").sold, 0u);
    for (const PrinterDay& d : days()[static_cast<std::size_t>(day)].printers) {
      reduce_printer_day(station(), d.figures.printer, d.figures.day);
    }
  }
  EXPECT_TRUE(state() == before);
}

}  // namespace
}  // namespace posto::flows
