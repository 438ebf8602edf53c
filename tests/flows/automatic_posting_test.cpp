#include "flows/automatic_posting.h"

#include "posto/services/clock.h"
#include "tests/flows/sale_station.h"
#include "tests/support/processes.h"

namespace posto::flows {
namespace {

class PostingTest : public SaleTest {
 protected:
  void post_by_age() {
    station_.connection().Execute("UPDATE EmpresaUsuaria SET Ic_BaixaAutomaticaPorTempo = 1");
    read_company(*station_.settings, 1);
  }
  std::string pending() {
    return rows("SELECT Cd_Abastecimento FROM Abastecimento WHERE Ic_Baixado = 0 ORDER BY Cd_Abastecimento");
  }
};

TEST_F(PostingTest, PostsWhatIsMarkedAsTheNozzleWasPreset) {
  const ClockOverride clock(Date::of_moment(2026, 11, 23, 8, 50, 0));
  EXPECT_TRUE(post_automatically(station_, "PISTA02", 1).posted.empty());
  const AutomaticPosting result = post_automatically(station_, "PISTA01", 1);
  ASSERT_EQ(result.posted.size(), 1u);
  EXPECT_EQ(result.posted[0].fuelling, kTyped);
  EXPECT_EQ(result.posted[0].value, Currency::parse("60.75"));  // 10 x 6.075
  EXPECT_EQ(result.calibrations, std::vector<std::int32_t>{kMeasured});
  EXPECT_EQ(pending(), "71\n");
  EXPECT_EQ(rows("SELECT No_CupomFiscal, Ic_BaixaAutomatica FROM CupomFiscal WHERE Hr_Emissao = '08:50:00'"),
            "1,True\n");
  EXPECT_EQ(rows("SELECT Cd_TipoRecebimento, Vl_Recebimento FROM Recebimento"), "3,60.75\n");
}

TEST_F(PostingTest, PostsWhatIsOldEnough) {
  post_by_age();
  for (auto [second, posted] : {std::pair{59, 0u}, std::pair{60, 1u}}) {  // 600 seconds behind 08:00:00
    const ClockOverride clock(Date::of_moment(2026, 11, 23, 8, 9, 0).plus_millis(second * 1000));
    station_.connection().Execute("UPDATE Abastecimento SET Ic_BaixaAutomatica = 0");
    EXPECT_EQ(post_automatically(station_, "PISTA01", 1).posted.size(), posted);
  }
  EXPECT_EQ(rows("SELECT Cd_TipoRecebimento, Vl_Recebimento FROM Recebimento"), "5,123.98\n");
}

TEST_F(PostingTest, AFuellingOnACouponAlreadyIsToldAndTheRestGoesOn) {
  station_.connection().Execute("UPDATE Abastecimento SET Ic_BaixaAutomatica = 1, Ic_Afericao = 0");
  insert(station_, "ItemCupomFiscal",
         "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Abastecimento",
         {"1, 2, 5, '2026-11-23', 1, 71"});
  const AutomaticPosting result = post_automatically(station_, "PISTA01", 1);
  ASSERT_EQ(result.refused.size(), 1u);
  EXPECT_EQ(result.refused[0].fuelling, kTakenIn);
  EXPECT_EQ(result.posted.size(), 2u);
  EXPECT_EQ(pending(), "");
  EXPECT_EQ(rows("SELECT Count(*) As N FROM ItemCupomFiscal WHERE Cd_Abastecimento = 71"), "1\n");
}

TEST_F(PostingTest, AFuellingThatCannotBeSoldEndsTheWork) {
  station_.connection().Execute("UPDATE Abastecimento SET Ic_BaixaAutomatica = 1, Qt_Litros = 0");
  const AutomaticPosting result = post_automatically(station_, "PISTA01", 1);
  ASSERT_EQ(result.refused.size(), 1u);
  EXPECT_EQ(result.refused[0].reason, "quantidade não positiva na linha 1");
  EXPECT_TRUE(result.posted.empty());
  EXPECT_EQ(rows("SELECT * FROM CupomFiscal"), "");
}

// Both begin at once, at two printers, over the fuellings of the same nozzle.
TEST(AutomaticPosting, TwoComputersPostEachFuellingOnce) {
  constexpr int kFuellings = 30;
  StationDatabase database;
  {
    Station station = database.open();
    fill_station(station);
    for (int i = 0; i < kFuellings; ++i) {
      insert(station, "Abastecimento",
             "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Preco, Cd_Caixa, "
             "Ic_BaixaAutomatica, No_EncerranteFechamento",
             {fmt::format("1, {}, '04', '2026-11-23 09:00:{:02}', 1, 5, 1, -1, {}", 100 + i, i, 2000 + i)});
    }
  }
  auto post = [&](std::uint8_t printer) {
    return [&database, printer] {
      Station station = database.open();
      if (!post_automatically(station, "PISTA01", printer).refused.empty()) throw std::runtime_error("refused");
    };
  };
  testing::ChildProcess first(post(1)), second(post(2));
  EXPECT_TRUE(first.end());
  EXPECT_TRUE(second.end());
  Station station = database.open();
  auto rows = [&](const char* query) { return rows_of(station.connection(), query); };
  EXPECT_EQ(rows("SELECT Count(*) As N FROM Abastecimento WHERE Ic_Baixado = 0"), "1\n");  // that was not marked
  EXPECT_EQ(rows("SELECT Count(*) As N FROM ItemCupomFiscal"), fmt::format("{}\n", kFuellings + 1));
  EXPECT_EQ(rows("SELECT Cd_Abastecimento FROM ItemCupomFiscal GROUP BY Cd_Abastecimento HAVING Count(*) > 1"), "");
  EXPECT_EQ(rows("SELECT Qt_Estoque FROM Produto WHERE Cd_Produto = 1"), fmt::format("{}\n", 970 - kFuellings));
}

}  // namespace
}  // namespace posto::flows
