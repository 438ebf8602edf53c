#include <functional>

#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

const Date kDay = Date::of_day(2026, 11, 23);
constexpr const char* kCoupon = "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento";
constexpr const char* kLine =
    "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
    "Tx_Icms, No_SitTributaria, No_TribIcms";

class SummaryMapTest : public FiscalTest {
 protected:
  SummaryMapTest() {
    EXPECT_EQ(add_product("GASOLINA"), 1);
    EXPECT_EQ(add_product("LAVAGEM", 2), 2);
    map_.ObVO->Cd_PessoaUsuaria = 1;
    map_.ObVO->No_Impressora = 2;
    map_.ObVO->Dt_Movimento = kDay;
  }

  // A coupon that was issued on its business day, with further columns and their values.
  void add_coupon(int number, std::string_view columns = {}, std::string_view values = {}, int printer = 2,
                  std::string_view day = "2026-11-23") {
    run(fmt::format("INSERT INTO CupomFiscal ({}{}{}) Values (1, {}, {}, '{}', '{}'{}{})", kCoupon,
                    columns.empty() ? "" : ", ", columns, printer, number, day, day, columns.empty() ? "" : ", ",
                    values));
  }
  // A line of a coupon: product, quantity, price, rate, tax situation and tributation.
  void add_line(int coupon, int item, std::string_view values, int printer = 2, std::string_view day = "2026-11-23") {
    run(fmt::format("INSERT INTO ItemCupomFiscal ({}) Values (1, {}, {}, '{}', {}, {})", kLine, printer, coupon, day,
                    item, values));
  }
  void prorate() {
    Recordset coupons = map_.rsCupomFiscaisComDescontoFinalCupom();
    for (; !coupons.EOF(); coupons.MoveNext()) {
      EXPECT_TRUE(map_.RatearDescontoFinalCupom(
          coupons["Cd_PessoaUsuaria"].as<std::int32_t>(), coupons["No_Impressora"].as<std::int32_t>(),
          coupons["No_CupomFiscal"].as<std::int32_t>(), coupons["Dt_Emissao"].as<Date>(),
          coupons["Vl_FatorDescontoFinalCupom"].as<double>()));
    }
    EXPECT_TRUE(map_.ZerarDescontoFinalCupomNulo(1, kDay));
  }
  // Name and value of each column of the one row, "-" for null.
  static std::string fields_of(Recordset row) {
    std::string text;
    for (std::size_t i = 0; i < row.field_count(); ++i) {
      const Variant value = row[i].Value();
      text += row[i].Name() + " " + (value.is_null() ? "-" : value.as<std::string>()) + "\n";
    }
    row.MoveNext();
    return row.EOF() ? text : "more than one row";
  }

  DALMapaResumoECF map_{settings_};
};

TEST_F(SummaryMapTest, ADiscountOnATotalIsProratedByAFactorOfFourDecimals) {
  struct {
    const char *net, *discount, *price, *factor, *share;
  } cases[] = {
      {"90.00", "10.00", "5.000", "0.1", "0.5"},
      {"20.00", "10.00", "3.339", "0.3333", "1.1128887"},  // a third, cut; the share is not rounded
      {"10.00", "20.00", "1.000", "0.6666", "0.6666"},     // cut, and not rounded up
      {"0.01", "19.99", "2.999", "0.9995", "2.9975005"},
      {"0.00", "7.50", "7.500", "1", "7.5"},
      {"99999.99", "0.01", "99999.999", "0", "0"},  // too small for four decimals
  };
  int number = 0;
  for (const auto& c : cases) {
    add_coupon(++number, "Vl_TotalLiquido, Vl_DescontoCF", fmt::format("{}, {}", c.net, c.discount));
    add_line(number, 1, fmt::format("1, 2, {}, 17, '000', '0'", c.price));
    add_line(number, 2, fmt::format("1, 1, {}, 17, '000', '0'", c.price));
  }
  add_coupon(++number, "Vl_TotalLiquido, Vl_DescontoCF", "10, 0");
  add_line(number, 1, "1, 1, 10, 17, '000', '0'");
  add_coupon(80, "Vl_TotalLiquido, Vl_DescontoCF", "90, 10", 3);
  add_line(80, 1, "1, 1, 100, 17, '000', '0'", 3);

  Recordset coupons = map_.rsCupomFiscaisComDescontoFinalCupom();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.net);
    ASSERT_FALSE(coupons.EOF());
    EXPECT_EQ(coupons["Vl_FatorDescontoFinalCupom"].as<double>(), std::stod(c.factor));
    coupons.MoveNext();
  }
  EXPECT_TRUE(coupons.EOF());  // neither the coupon without a discount nor another printer's

  for (int times : {1, 2}) {
    SCOPED_TRACE(times);
    prorate();
    std::string shares;
    for (const auto& c : cases) shares += fmt::format("{0}\n{0}\n", c.share);
    EXPECT_EQ(rows("SELECT Round(Vl_AltFinalCupom, 9) FROM ItemCupomFiscal ORDER BY No_CupomFiscal, No_Item"),
              shares + "0\n0\n");  // closed by the third step, of whatever printer
  }
}

TEST_F(SummaryMapTest, LinesWithoutAShareGetZeroOnThreeDaysOfEveryCompany) {
  for (std::string_view day : {"2026-11-21", "2026-11-22", "2026-11-23", "2026-11-24", "2026-11-25"})
    add_line(1, 1, "1, 1, 10, 17, '000', '0'", 2, day);
  run("UPDATE ItemCupomFiscal SET Vl_AltFinalCupom = 0.25 WHERE Dt_Emissao = '2026-11-24'");
  run("UPDATE ItemCupomFiscal SET Cd_PessoaUsuaria = 2 WHERE Dt_Emissao = '2026-11-22'");
  map_.ZerarDescontoFinalCupomNulo(1, kDay);
  EXPECT_EQ(rows("SELECT Vl_AltFinalCupom FROM ItemCupomFiscal ORDER BY Dt_Emissao"), "-\n0\n0\n0.25\n-\n");
}

TEST_F(SummaryMapTest, SalesAtARateAreRoundedLineByLine) {
  add_coupon(1);
  add_line(1, 1, "1, 1, 0.125, 7.1, '000', '0'");  // a half of a cent goes up, twice
  add_line(1, 2, "1, 1, 0.125, 7.1, '000', '0'");
  add_line(1, 3, "1, 3, 3.339, 17, '000', '0'");
  add_coupon(2, "Ic_Excluido", "-1");
  add_line(2, 1, "1, 2, 5, 17, '000', '0'");
  add_coupon(3, {}, {}, 3);
  add_line(3, 1, "1, 1, 100, 17, '000', '0'", 3);
  add_coupon(4, {}, {}, 2, "2026-11-24");
  add_line(4, 1, "1, 1, 100, 17, '000', '0'", 2, "2026-11-24");
  DALReducaoZ reduction(settings_);
  *reduction.ObVO = {};
  reduction.ObVO->Cd_PessoaUsuaria = 1;
  reduction.ObVO->No_Impressora = 2;
  reduction.ObVO->Dt_Movimento = kDay;
  auto expect_sales = [&](const char* rate, const char* sales) {
    SCOPED_TRACE(rate);
    EXPECT_EQ(map_.ConsultaVendaParaAliquota(Currency::parse(rate)), Currency::parse(sales));
    EXPECT_EQ(reduction.ConsultaVendaParaAliquota(Currency::parse(rate)), Currency::parse(sales));
  };
  expect_sales("17", "0");  // no line has its share yet
  map_.ZerarDescontoFinalCupomNulo(1, kDay);
  expect_sales("7.1", "0.26");
  expect_sales("7.1049", "0.26");  // two decimals count
  expect_sales("17.00", "20.02");  // with the cancelled coupon
  expect_sales("25.00", "0");
  map_.RatearDescontoFinalCupom(1, 2, 1, kDay, 0.3333);
  expect_sales("17.00", "16.68");  // 3 * (3.339 - 1.1128887) = 6.6783339
}

TEST_F(SummaryMapTest, TheDaysTotalsComeFromTheCoupons) {
  constexpr const char* kFigures =
      "Vl_TotalLiquido, Vl_DescontoCF, Vl_DesAcr, Vl_GTotal, Vl_Cancelamentos, Vl_SubTrib, Vl_TotSer, Vl_Isentas";
  add_coupon(11, kFigures, "20.00, 10.00, 1.25, 1030.00, 0, 12.00, 0, 99");
  add_line(11, 1, "1, 3, 3.339, 0, '060', '6'");     // 10.017
  add_line(11, 2, "1, 1.5, 8.990, 17, '000', '0'");  // 13.485
  add_line(11, 3, "2, 1, 6.480, 0, '040', '4'");     // exempt, but a service
  add_coupon(12, kFigures, "14.00, 0, -0.75, 1044.00, 5.50, 0, 3.00, 99");
  add_line(12, 1, "1, 1.5, 4.333, 0, '040', '4'");  // 6.4995
  add_line(12, 2, "1, 1, 7.505, 0, '040', '4'");
  add_coupon(13, kFigures, "1.00, 0, 0, 1045.00, 8.00, 1.00, 0, 99");
  add_coupon(70, "Vl_GTotal, Vl_Isentas", "9000, 99", 3);
  prorate();
  for (int times : {1, 2}) {
    SCOPED_TRACE(times);
    EXPECT_EQ(fields_of(map_.Rs_SomaVendasCFAgrupadosPorECF()),
              "No_Impressora 2\nMinimoDeNo_CupomFiscal 11\nMaximoDeNo_CupomFiscal 13\n"
              "MinimoDeVl_GTotal 1030\nMaximoDeVl_GTotal 1045\nMaximoDeVl_Cancelamentos 8\n"
              "SomaDeVl_Isentas 14.01\nSomaDeVl_SubTrib 13\nSomaDeVl_DescontoCF 10\nSomaDeVl_TotSer 3\n"
              "SomaDeVl_DesAcr 0.5\nVl_Descontos 1.25\nVl_Acrescimos 0.75\n"
              // a third, cut, of 29.982 units of money; its parts of 10.017 and 13.485
              "Vl_DescontoFinalCupom 9.99\nVl_DescontoFinalCupomST 3.34\nVl_DescontoFinalCupomTributado 4.49\n");
    // null where a coupon has no exempt product; the printer that was not asked for is written too
    EXPECT_EQ(rows("SELECT Vl_Isentas FROM CupomFiscal ORDER BY No_CupomFiscal"), "-\n14.01\n-\n-\n");
  }
  map_.ObVO->Dt_Movimento = kDay.plus_days(1);
  EXPECT_TRUE(map_.Rs_SomaVendasCFAgrupadosPorECF().EOF());
}

TEST_F(SummaryMapTest, ADayWithoutLinesHasNoDiscountsAtAll) {
  add_coupon(11);
  const std::string fields = fields_of(map_.Rs_SomaVendasCFAgrupadosPorECF());
  EXPECT_NE(fields.find("SomaDeVl_SubTrib 0\n"), std::string::npos) << fields;
  EXPECT_NE(fields.find("Vl_Descontos -\nVl_Acrescimos -\nVl_DescontoFinalCupom -\n"), std::string::npos) << fields;
}

TEST_F(SummaryMapTest, ATributationThatIsNoNumberFailsBehindTheWrites) {
  add_coupon(11, "Vl_Isentas", "99");
  add_line(11, 1, "1, 1, 5, 0, '040', '-'");
  const auto failure = failure_of([&] { map_.Rs_SomaVendasCFAgrupadosPorECF(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->source(), testing::provider() + " -> DALMapaResumoECF.Rs_SomaVendasCFAgrupadosPorECF");
  EXPECT_EQ(rows("SELECT Vl_Isentas FROM CupomFiscal"), "5\n");
  run("UPDATE ItemCupomFiscal SET No_TribIcms = '4'");
  EXPECT_FALSE(map_.Rs_SomaVendasCFAgrupadosPorECF().EOF());
}

TEST_F(SummaryMapTest, CouponsOfTheDayAndThoseWithoutALastDay) {
  add_coupon(12);
  add_coupon(11, "Ic_Excluido", "-1");
  add_coupon(9, {}, {}, 2, "2026-11-22");
  add_coupon(10, {}, {}, 2, "2027-01-31");
  add_coupon(13, {}, {}, 3);
  run("UPDATE CupomFiscal SET Dt_Movimento = '2026-11-23' WHERE No_CupomFiscal = 9");  // issued before midnight
  auto numbers = [](Recordset coupons) {
    std::string text;
    for (; !coupons.EOF(); coupons.MoveNext()) text += coupons["No_CupomFiscal"].as<std::string>() + " ";
    return text;
  };
  EXPECT_EQ(numbers(map_.rsCupomFiscais()), "9 11 12 ");
  EXPECT_EQ(numbers(map_.rsCupomFiscaisDataMovimentoEProximoDia()), "10 11 12 ");
}

TEST_F(SummaryMapTest, AFailureTellsItsOperation) {
  const std::pair<const char*, std::function<void()>> kOperations[] = {
      {"Rs_SomaVendasCFAgrupadosPorECF", [&] { map_.Rs_SomaVendasCFAgrupadosPorECF(); }},
      {"rsCupomFiscais", [&] { map_.rsCupomFiscais(); }},
      {"rsCupomFiscaisDataMovimentoEProximoDia", [&] { map_.rsCupomFiscaisDataMovimentoEProximoDia(); }},
      {"rsCupomFiscaisComDescontoFinalCupom", [&] { map_.rsCupomFiscaisComDescontoFinalCupom(); }},
      {"RatearDescontoFinalCupom", [&] { map_.RatearDescontoFinalCupom(1, 2, 1, kDay, 0.1); }},
      {"ZerarDescontoFinalCupomNulo", [&] { map_.ZerarDescontoFinalCupomNulo(1, kDay); }},
      {"ConsultaVendaParaAliquota", [&] { map_.ConsultaVendaParaAliquota(Currency(17)); }}};
  connection().Close();
  for (const auto& [name, run_operation] : kOperations) {
    SCOPED_TRACE(name);
    const auto failure = failure_of(run_operation);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->source().ends_with(std::string(" -> DALMapaResumoECF.") + name)) << failure->source();
    EXPECT_EQ(routines_.back(), std::string("-DALMapaResumoECF.") + name);
  }
}

}  // namespace
}  // namespace posto
