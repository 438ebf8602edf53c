#include "tests/closing/closing_test.h"

namespace posto {
namespace {

class RepairTest : public ClosingTest {
 protected:
  RepairTest() {
    add({"Bomba",
         "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, No_UltEncerrante",
         {"1, 3, '04', 5", "1, 4, '05', 6", "2, 9, '04', 7"}});
  }
  // A fuelling of nozzle 04: origin (3 typed, 1 automation), end, litres, totaliser.
  void fuelling(int code, int origin, std::string_view end, double litres, double totaliser, int company = 1,
                std::string_view address = "04") {
    run(
        fmt::format("INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Tp_OrigemRegistro, Dt_Termino, "
                    "Qt_Litros, No_EncerranteFechamento, De_EnderecoLogicoBico) "
                    "Values ({}, {}, {}, '{}', {}, {}, '{}')",
                    company, code, origin, end, litres, totaliser, address));
  }
  std::string readings() { return rows("SELECT No_EncerranteFechamento FROM Abastecimento ORDER BY Cd_Abastecimento"); }
  std::string nozzles() { return rows("SELECT No_UltEncerrante FROM Bomba ORDER BY Cd_PessoaUsuaria, Cd_Bomba"); }
};

TEST_F(RepairTest, FuellingsWithoutLitresGetWhatWasSold) {
  fuelling(1, 1, "2026-11-23 08:00:00", 0, 100);
  fuelling(2, 1, "2026-11-22 23:59:59", 0, 100);  // ended the day before, sold on the day
  fuelling(3, 1, "2026-11-22 08:00:00", 0, 100);  // neither
  fuelling(4, 1, "2026-11-23 09:00:00", 7, 100);
  const std::string_view line =
      "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Qt_Unidade, Cd_Abastecimento";
  add({"ItemCupomFiscal",
       line,
       {"1, 1, 1, '2026-11-24', 1, 1234.125, 1", "1, 1, 2, '2026-11-23', 1, 0.1234565, 2",
        "1, 1, 3, '2026-11-22', 1, 8, 3", "1, 1, 4, '2026-11-23', 1, 9, 4"}});
  const auto statements = statements_of([&] { EXPECT_TRUE(closing_.CorrigeProblemaAbastecimentoZerado()); });
  EXPECT_EQ(statements.size(), 3u);
  EXPECT_EQ(rows("SELECT Qt_Litros FROM Abastecimento ORDER BY Cd_Abastecimento"), "1234.125\n0.123457\n0\n7\n");
  const auto again = statements_of([&] { closing_.CorrigeProblemaAbastecimentoZerado(); });
  EXPECT_EQ(again.size(), 1u);
}

// Totalisers of one nozzle's fuellings of ten litres each before and after the repair.
struct SequenceCase {
  const char* name;
  std::vector<std::pair<int, double>> fuellings;  // origin and totaliser
  const char* readings;
  const char* nozzle;
};

TEST_F(RepairTest, TypedReadingsFollowOn) {
  const SequenceCase cases[] = {
      {"in order", {{3, 110}, {3, 120}}, "110\n120\n", "120"},
      {"a gap between typed ones", {{3, 110}, {3, 135}, {3, 145}}, "110\n120\n130\n", "130"},
      {"exactly a litre", {{3, 110}, {3, 121}}, "110\n121\n", "121"},
      {"backwards", {{3, 110}, {3, 108}}, "110\n120\n", "120"},
      {"the automation sets the pace", {{3, 110}, {1, 200}, {3, 215}}, "110\n200\n210\n", "210"},
      {"a gap of the automation stays", {{3, 110}, {1, 120}, {1, 300}}, "110\n120\n300\n", "300"},
      // 0.5 does not count as begun, so 500 is taken as the first again
      {"a first reading below a litre", {{3, 0.5}, {3, 500}, {3, 600}}, "0.5\n500\n510\n", "510"},
  };
  for (const SequenceCase& c : cases) {
    SCOPED_TRACE(c.name);
    run("DELETE FROM Abastecimento");
    int code = 0;
    for (const auto& [origin, totaliser] : c.fuellings) {
      ++code;
      fuelling(code, origin, fmt::format("2026-11-23 08:{:02}:00", code), 10, totaliser);
    }
    EXPECT_TRUE(closing_.CorrigeProblemaIntervaloNosAbastecimentosDigitados());
    EXPECT_EQ(readings(), c.readings);
    EXPECT_EQ(nozzles(), std::string(c.nozzle) + "\n6\n7\n");  // the other nozzle and the other company stay
    const auto again = statements_of([&] { closing_.CorrigeProblemaIntervaloNosAbastecimentosDigitados(); });
    EXPECT_EQ(again.size(), 3u);  // the nozzles, the fuellings, the nozzle
  }
}

TEST_F(RepairTest, OnlyTheCompanysFuellingsSinceTheDayAreWalked) {
  fuelling(1, 3, "2026-11-22 08:00:00", 10, 50);  // the day before: its gap stays
  fuelling(2, 3, "2026-11-24 08:00:00", 10, 300);
  fuelling(3, 3, "2026-11-24 09:00:00", 10, 350);
  fuelling(4, 3, "2026-11-24 08:30:00", 10, 900, 2);        // another company's
  fuelling(5, 1, "2026-11-24 08:30:00", 10, 900, 1, "05");  // of a nozzle without typed ones
  closing_.CorrigeProblemaIntervaloNosAbastecimentosDigitados();
  EXPECT_EQ(readings(), "50\n300\n310\n900\n900\n");
  EXPECT_EQ(nozzles(), "310\n6\n7\n");
}

// 1284563.827 as a 32-bit float is 1284563.875: the sum with 10 is taken there.
TEST_F(RepairTest, TheRunningReadingHasThirtyTwoBits) {
  fuelling(1, 1, "2026-11-23 08:00:00", 10, 1284563.827);
  fuelling(2, 3, "2026-11-23 08:01:00", 10, 1284600);
  const auto statements = statements_of([&] { closing_.CorrigeProblemaIntervaloNosAbastecimentosDigitados(); });
  ASSERT_EQ(statements.size(), 4u);
  EXPECT_EQ(statements[2],
            "Update Abastecimento|Set    No_EncerranteFechamento = 1284573.9000|WHERE  Cd_Abastecimento = 2");
  EXPECT_EQ(statements[3],
            "Update Bomba|SET    No_UltEncerrante = 1284573.900,|       No_UltEncerranteAutomacao = 1284573.900|"
            "WHERE  Cd_PessoaUsuaria = 1 And|       Cd_Bomba = 3");
}

}  // namespace
}  // namespace posto
