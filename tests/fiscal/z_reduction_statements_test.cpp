#include <algorithm>
#include <functional>

#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "tests/dialect/corpus.h"
#include "tests/support/database.h"

namespace posto {
namespace {

// The corpus, whose plans and texts are tested elsewhere, has what the classes run.
TEST(ZReductionStatements, AreThoseOfTheCorpus) {
  struct Fixture : DatabaseTest {
    void TestBody() override {}
    using DatabaseTest::settings_;
    using DatabaseTest::statements_of;
  } database;
  DALReducaoZ reduction(database.settings_);
  DALMapaResumoECF map(database.settings_);
  const Date day = Date::of_day(2009, 4, 3), first = Date::of_day(2009, 4, 1), last = Date::of_day(2009, 4, 30);
  auto set_key = [&](auto& vo) {
    vo.Cd_PessoaUsuaria = 1;
    vo.No_Impressora = 2;
    vo.Dt_Movimento = day;
    vo.Qt_ContReducoes = 412;
  };
  set_key(*reduction.ObVO);
  set_key(*map.ObVO);
  const std::pair<const char*, std::function<void()>> kOperations[] = {
      {"DALReducaoZ.Existe", [&] { reduction.Existe(); }},
      {"DALReducaoZ.Incluir", [&] { reduction.Incluir(); }},
      {"DALMapaResumoECF.Incluir", [&] { map.Incluir(); }},
      {"DALMapaResumoECF.Consultar", [&] { map.Consultar(); }},
      {"DALReducaoZ.ConsultarUltimo", [&] { reduction.ConsultarUltimo(); }},
      {"DALMapaResumoECF.ConsultarUltimo", [&] { map.ConsultarUltimo(); }},
      {"DALReducaoZ.ConsultarAnterior", [&] { EXPECT_THROW(reduction.ConsultarAnterior(), Erro); }},
      {"DALMapaResumoECF.ConsultarAnterior", [&] { EXPECT_THROW(map.ConsultarAnterior(), Erro); }},
      {"DALReducaoZ.ConsultarUltimaNoPeriodo", [&] { reduction.ConsultarUltimaNoPeriodo(1, 2, first, last); }},
      {"DALReducaoZ.ConsultarUltima", [&] { reduction.ConsultarUltima(1, 2); }},
      {"DALMapaResumoECF.ConsultaVendaParaAliquota", [&] { map.ConsultaVendaParaAliquota(Currency::parse("7.10")); }},
      {"DALMapaResumoECF.rsCupomFiscaisComDescontoFinalCupom", [&] { map.rsCupomFiscaisComDescontoFinalCupom(); }},
      {"DALMapaResumoECF.RatearDescontoFinalCupom", [&] { map.RatearDescontoFinalCupom(1, 2, 1530, day, 0.1); }},
      {"DALMapaResumoECF.ZerarDescontoFinalCupomNulo", [&] { map.ZerarDescontoFinalCupomNulo(1, day); }},
      {"DALMapaResumoECF.Rs_SomaVendasCFAgrupadosPorECF", [&] { map.Rs_SomaVendasCFAgrupadosPorECF(); }},
      {"DALMapaResumoECF.rsCupomFiscais", [&] { map.rsCupomFiscais(); }},
      {"DALMapaResumoECF.rsCupomFiscaisDataMovimentoEProximoDia",
       [&] { map.rsCupomFiscaisDataMovimentoEProximoDia(); }},
      {"DALMapaResumoECF.Excluir", [&] { map.Excluir(); }}};
  for (const auto& [name, operation] : kOperations) {
    SCOPED_TRACE(name);
    std::vector<std::string> run = database.statements_of(operation);
    std::erase_if(run, [](const std::string& s) { return s.find('?') != std::string::npos; });  // a record set's own
    std::vector<std::string> wanted = testing::corpus_statements(name);
    ASSERT_FALSE(wanted.empty());
    for (auto* statements : {&run, &wanted})
      std::ranges::transform(*statements, statements->begin(), testing::words_of);
    EXPECT_EQ(run, wanted);
  }
}

}  // namespace
}  // namespace posto
