#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

Date november(int day) { return Date::of_day(2026, 11, day); }

// What both records of a printer's day do alike.
template <class Dal>
class PrinterDayRecordTest : public DatabaseTest {
 protected:
  void ask_for(int company, int printer, Date day) {
    *record_.ObVO = {};
    record_.ObVO->Cd_PessoaUsuaria = company;
    record_.ObVO->No_Impressora = static_cast<std::uint8_t>(printer);
    record_.ObVO->Dt_Movimento = day;
  }
  void add(int company, int printer, Date day, int reductions) {
    ask_for(company, printer, day);
    record_.ObVO->Qt_ContReducoes = reductions;
    record_.Incluir();
  }
  std::string name(std::string_view operation) {
    return "DAL" + std::string(by_name(*record_.ObVO).layout().type_name().substr(2)) + "." + std::string(operation);
  }
  // The failures of the class itself pass its step twice.
  std::string path(std::string_view operation) { return " -> " + name(operation) + ",  -> " + name(operation); }

  Dal record_{settings_};
};

using Records = ::testing::Types<DALReducaoZ, DALMapaResumoECF>;
TYPED_TEST_SUITE(PrinterDayRecordTest, Records);

TYPED_TEST(PrinterDayRecordTest, KeepsEveryColumn) {
  auto& dal = this->record_;
  const VoLayout& layout = by_name(*dal.ObVO).layout();
  std::int32_t next = 1;
  for (const Property& p : layout.properties()) {
    if (p.type == SqlType::date) {
      by_name(*dal.ObVO).let(p, november(++next % 30 + 1));
    } else {
      by_name(*dal.ObVO).let(p, ++next);
    }
  }
  const auto written = *dal.ObVO;
  EXPECT_FALSE(dal.Existe());
  dal.Incluir();
  EXPECT_TRUE(dal.Existe());
  this->ask_for(written.Cd_PessoaUsuaria, written.No_Impressora, written.Dt_Movimento);
  dal.Consultar();
  for (const Property& p : layout.properties()) {
    SCOPED_TRACE(p.name);
    EXPECT_EQ(by_name(*dal.ObVO).get(p).template as<std::string>(),
              by_name(const_cast<std::decay_t<decltype(written)>&>(written)).get(p).template as<std::string>());
  }
  dal.ObVO->Vl_T16 = Currency::parse("0.0001");
  dal.Alterar();
  dal.ObVO->Vl_T16 = Currency();
  EXPECT_EQ(dal.Consultar().Vl_T16, Currency::parse("0.0001"));
  dal.Excluir();
  EXPECT_FALSE(dal.Existe());
}

TYPED_TEST(PrinterDayRecordTest, NeedsCompanyDayAndPrinter) {
  auto& dal = this->record_;
  this->add(1, 2, november(23), 412);
  struct {
    int company, printer;
    Date day;
  } cases[] = {{0, 2, november(23)}, {1, 0, november(23)}, {1, 2, Date()}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.company << " " << c.printer << " " << c.day.empty());
    this->ask_for(c.company, c.printer, c.day);
    dal.ObVO->Qt_ContReducoes = 412;
    expect_failure(erro::kMissingKey, this->path("Existe"), [&] { dal.Existe(); });
    expect_failure(erro::kMissingKey, this->path("Consultar"), [&] { dal.Consultar(); });
    expect_failure(erro::kMissingKey, this->path("Excluir"), [&] { dal.Excluir(); });
  }
  this->ask_for(1, 2, november(23));
  EXPECT_TRUE(dal.Existe());
}

TYPED_TEST(PrinterDayRecordTest, IsFoundUpToADayAndBeforeIt) {
  auto& dal = this->record_;
  this->add(1, 2, november(20), 410);
  this->add(1, 2, november(22), 411);
  this->add(1, 2, november(24), 412);
  this->add(1, 3, november(23), 97);
  this->add(2, 2, november(23), 98);
  this->settings_->Cursor = adOpenForwardOnly;  // the last one is found all the same
  struct {
    int day, up_to, before;  // counts of reductions, 0 for none
  } cases[] = {{19, 0, 0}, {20, 410, 0}, {21, 410, 410}, {24, 412, 411}, {30, 412, 412}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.day);
    auto found = [&](auto operation) {
      this->ask_for(1, 2, november(c.day));
      const auto failure = failure_of([&] { operation(); });
      if (!failure) return dal.ObVO->Qt_ContReducoes;
      EXPECT_EQ(failure->number(), erro::kRecordNotFound);
      EXPECT_EQ(dal.ObVO->No_Impressora, 2);
      return 0;
    };
    EXPECT_EQ(found([&] { dal.ConsultarUltimo(); }), c.up_to);
    EXPECT_EQ(found([&] { dal.ConsultarAnterior(); }), c.before);
  }
  for (bool reset : {false, true}) {
    this->ask_for(1, 2, november(1));
    expect_failure(erro::kRecordNotFound, this->path("ConsultarUltimo"), [&] { dal.ConsultarUltimo(reset); });
    EXPECT_EQ(dal.ObVO->No_Impressora, reset ? 0 : 2);
    this->ask_for(1, 2, november(1));
    expect_failure(erro::kRecordNotFound, this->path("ConsultarAnterior"), [&] { dal.ConsultarAnterior(reset); });
    EXPECT_EQ(dal.ObVO->No_Impressora, reset ? 0 : 2);
  }
}

class ZReductionTest : public PrinterDayRecordTest<DALReducaoZ> {};

TEST_F(ZReductionTest, TheLatestOfAPeriodAndOfAllTimes) {
  add(1, 2, november(20), 410);
  add(1, 2, november(22), 411);
  add(1, 2, november(24), 412);
  add(1, 3, november(25), 97);
  add(2, 2, november(25), 98);
  struct {
    int first, last, found;
  } cases[] = {{1, 30, 412}, {20, 22, 411}, {20, 23, 411}, {20, 20, 410}, {21, 21, 0}, {25, 30, 0}, {24, 20, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.first << " to " << c.last);
    *record_.ObVO = {};
    const auto failure =
        failure_of([&] { record_.ConsultarUltimaNoPeriodo(1, 2, november(c.first), november(c.last)); });
    EXPECT_EQ(record_.ObVO->Qt_ContReducoes, c.found);
    EXPECT_EQ(failure.has_value(), c.found == 0);
  }
  EXPECT_EQ(record_.ConsultarUltima(1, 2).Dt_Movimento, november(24));
  expect_failure(erro::kRecordNotFound, path("ConsultarUltima"), [&] { record_.ConsultarUltima(1, 4); });
  EXPECT_EQ(record_.ObVO->Qt_ContReducoes, 412);
  const auto failure = failure_of([&] { record_.ConsultarUltimaNoPeriodo(1, 4, november(1), november(30), true); });
  EXPECT_EQ(failure->description(), "Registro nao encontrado(ReducaoZ)");
  EXPECT_EQ(record_.ObVO->Qt_ContReducoes, 0);
}

}  // namespace
}  // namespace posto
