#include "posto/closing/coupon_walk.h"
#include "tests/closing/closing_test.h"

namespace posto {
namespace {

Currency money(double value) { return Currency(value); }

// A coupon by its net total and the difference that it is to show.
struct Planted {
  double net, difference;
  CouponVerdict verdict;
};

struct WalkCase {
  const char* name;
  std::vector<Planted> coupons;
};

TEST(CouponWalk, Decides) {
  using enum CouponVerdict;
  const WalkCase cases[] = {
      {"all fit", {{10, 0, fits}, {20, 0, fits}}},
      {"the first alone", {{10, -5, first_differs}, {20, 0, fits}}},
      {"the first at 0 too", {{0, 5, first_differs}}},
      {"a difference of the first is not carried", {{10, 5, first_differs}, {10, -5, printer_ahead}}},
      {"printed and not stored", {{10, 0, fits}, {20, -7, printer_ahead}, {5, 0, fits}}},
      {"deleted at the printer", {{10, 0, fits}, {20, 0.01, database_ahead}}},
      {"carried over a coupon at 0", {{10, 0, fits}, {0, 5, fits}, {20, -5, fits}, {20, -5, printer_ahead}}},
      {"over several at 0", {{10, 0, fits}, {0, 5, fits}, {0, 3, fits}, {20, -3, fits}}},
      {"and not its opposite", {{10, 0, fits}, {0, 5, fits}, {20, -4, printer_ahead}, {20, -5, fits}}},
      {"the same sign again", {{10, 0, fits}, {0, 5, fits}, {20, 5, database_ahead}}},
      {"forgotten by one that fits", {{10, 0, fits}, {0, 5, fits}, {10, 0, fits}, {20, -5, printer_ahead}}},
      {"below 0 it only carries", {{10, 0, fits}, {-1, -8, fits}, {20, 8, fits}}},
  };
  for (const WalkCase& c : cases) {
    SCOPED_TRACE(c.name);
    CouponWalk walk;
    walk.start_printer(money(1000), 1);
    Currency total = money(1000);
    std::int32_t number = 1;
    for (const Planted& planted : c.coupons) {
      total = total + money(planted.net) - money(planted.difference);
      const auto step = walk.take({.number = ++number, .net = money(planted.net), .grand_total = total});
      EXPECT_EQ(step.verdict, planted.verdict) << number;
      EXPECT_EQ(step.difference, money(planted.difference)) << number;
      EXPECT_EQ(step.previous_coupon, number - 1);
    }
  }
}

TEST(CouponWalk, EachFigureHasItsPart) {
  CouponWalk walk;
  walk.start_printer(money(1000), 1);
  // 1000 + 90 + (3 - 0) + 1 + 2 + 4, and the next only sees what the cancellations grew by
  const CouponFigures first{.number = 2,
                            .net = money(90),
                            .cancellations = money(3),
                            .iss_retained = money(1),
                            .grand_total = money(1100),
                            .surcharge = money(2),
                            .discount = money(4)};
  EXPECT_EQ(walk.take(first).difference, Currency());
  EXPECT_EQ(walk.take({.net = money(10), .cancellations = money(3.5), .grand_total = money(1110.5)}).difference,
            Currency());
}

TEST(CouponWalk, TheCarriedDifferenceGoesOnToTheNextPrinter) {
  CouponWalk walk;
  walk.start_printer(money(0), 1);
  EXPECT_EQ(walk.take({.net = money(10), .grand_total = money(10)}).verdict, CouponVerdict::fits);
  EXPECT_EQ(walk.take({.grand_total = money(5)}).difference, money(5));
  walk.start_printer(money(0), 1);
  EXPECT_EQ(walk.take({.grand_total = money(5)}).verdict, CouponVerdict::first_differs);
  EXPECT_EQ(walk.take({.net = money(10), .grand_total = money(20)}).verdict, CouponVerdict::fits);  // -5
}

class GrandTotalTest : public ClosingTest {
 protected:
  void map(int printer, double opening, double closing, int first_coupon = 100, double cancelled = 0,
           double discounts = 0) {
    run(
        fmt::format("INSERT INTO MapaResumoECF (Cd_PessoaUsuaria, Dt_Movimento, No_Impressora, Qt_ContReducoes, "
                    "No_CupomFiscalInicial, Vl_GTotalInicial, Vl_GTotalFinal, Vl_Cancelamentos, Vl_Descontos) "
                    "Values (1, '2026-11-23', {}, 7, {}, {}, {}, {}, {})",
                    printer, first_coupon, opening, closing, cancelled, discounts));
  }
  void coupon(int printer, int number, double net, double grand_total, int minute = 0) {
    run(
        fmt::format("INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                    "Dt_Movimento, Hr_Emissao, Qt_ContReducoes, Vl_TotalLiquido, Vl_GTotal) "
                    "Values (1, {}, {}, '2026-11-23', '2026-11-23', '08:{:02}:00', 7, {}, {})",
                    printer, number, minute, net, grand_total));
  }
  bool check() { return closing_.VerificarSequenciaDeVendasComGtEcf(kDay, said_); }
  std::string said_;
};

constexpr const char* kHead =
    "Encontrado inconsistência entre os valores das venda no arquivo dos cupons fiscais e mapa resumo, conforme "
    "segue:";

TEST_F(GrandTotalTest, EqualSumsPassWhateverIsInside) {
  EXPECT_TRUE(check());  // neither coupons nor maps
  map(1, 1000, 1107, 100, 5, 2);
  coupon(1, 101, 60, 5000);  // far from the printer's total
  coupon(1, 102, 40, 1);
  EXPECT_TRUE(check());
  EXPECT_EQ(said_, "");
}

TEST_F(GrandTotalTest, WithoutAMapThereIsOnlyTheSum) {
  coupon(1, 101, 1234.5, 0);
  EXPECT_FALSE(check());
  EXPECT_EQ(said_, std::string(kHead) +
                       "\r\r\n1) O valor das vendas esta divergente: no arquivo de mapa resumo é 0,00 no arquivo de "
                       "cupom fiscal é 1.234,50 diferença -1.234,50. ");
}

TEST_F(GrandTotalTest, TheItemsTellWhereTheyPart) {
  map(2, 500, 530, 200);
  map(1, 1000, 1100, 100);
  coupon(1, 101, 50, 1050, 1);
  coupon(1, 103, 30, 1100, 5);  // 102, of 20, is missing
  coupon(2, 201, 10, 511, 2);   // 1 more than it should be
  coupon(2, 202, 15, 521, 3);   // 5 of it the printer does not know
  said_ = "antes";
  EXPECT_FALSE(check());
  EXPECT_EQ(said_, std::string("antes\r\n") + kHead +
                       "\r\r\n1) O valor das vendas esta divergente: no arquivo de mapa resumo é 130,00 no arquivo "
                       "de cupom fiscal é 105,00 diferença 25,00. "
                       "\r\r\n2) Diferença de: -20,00 entre os cupons fiscais 101 e 103 da impressora 1.\r\n"
                       "Causa provável: O cupom foi impresso e não foi salvo no banco de dados."
                       "\r\r\n3) Diferença de: -1,00 no primeiro cupom do dia (201) da impressora 2.\r\n"
                       "Causa provável: O cupom foi impresso e não foi salvo no banco de dados."
                       "\r\r\n4) Diferença de: 5,00 entre os cupons fiscais 201 e 202 da impressora 2.\r\n"
                       "Causa provável: O cupom foi excluído na impressora, e continua constando no banco de dados.");
}

TEST_F(GrandTotalTest, TheItemNumberIsAByte) {
  map(1, 0, 1);
  for (int i = 1; i <= 255; ++i) coupon(1, i, 1, 0, i / 60);  // each a difference of its own
  EXPECT_EQ(failure_of([&] { check(); }).value().number(), erro::kOverflow);
  EXPECT_EQ(said_, "");
}

}  // namespace
}  // namespace posto
