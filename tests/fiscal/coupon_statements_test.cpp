#include <functional>

#include "posto/fiscal/DALCuponsFiscais.h"
#include "tests/dialect/corpus.h"
#include "tests/fiscal/fiscal_test.h"

namespace posto {
namespace {

class CouponStatementsTest : public FiscalTest {
 protected:
  CouponStatementsTest() {
    *coupon_.ObVO = coupon(2, 1530, "2009-04-03");
    coupon_.ObVO->Cd_Caixa = 87;
    coupon_.ObVO->Cd_Veiculo = "ABC1234";
    *item_.ObVO = line(*coupon_.ObVO, 1);
  }
  Recordset lines(TipoConsultaItensEnum which) {
    coupon_.Ic_adoRsItensAtualizado = false;
    return std::move(coupon_.ConsultarItens(which));
  }
  Recordset unbilled(std::int32_t product, Date first, Date last, double least, double most, double price, int client,
                     int kind, int count) {
    return coupon_.CuponsSemEmissaoDeNfRs(1, product, first, last, Currency(least), Currency(most), Currency(price),
                                          client, kind, count);
  }

  DALCupomFiscal coupon_{settings_};
  DALItemCupomFiscal item_{settings_};
  DALCuponsFiscais day_of_coupons_{settings_};
};

// The corpus, whose plans and texts are tested elsewhere, has what the classes run.
TEST_F(CouponStatementsTest, AreThoseOfTheCorpus) {
  const Date first = day("2009-04-01"), last = day("2009-04-30");
  const std::pair<const char*, std::function<void()>> kOperations[] = {
      {"DALCupomFiscal.Consultar", [&] { coupon_.Consultar(); }},
      {"DALCupomFiscal.Excluir", [&] { coupon_.Excluir(); }},
      {"DALCupomFiscal.corrigirCaixaRecebimentoDiferenteCaixaCupom", [&] { coupon_.Incluir(); }},
      {"DALCupomFiscal.ConsultarUltimo", [&] { coupon_.ConsultarUltimo(); }},
      {"DALCupomFiscal.ConsultarItens (TodosItens)", [&] { lines(TodosItens); }},
      {"DALCupomFiscal.ConsultarItens (SomenteProdutos)", [&] { lines(SomenteProdutos); }},
      {"DALCupomFiscal.ConsultarItens (SomenteServicos)", [&] { lines(SomenteServicos); }},
      {"DALCupomFiscal.ExcluirRecebimentos (receipts of the coupon)", [&] { coupon_.ExcluirRecebimentos(); }},
      {"DALCupomFiscal.adorsRecebimentos", [&] { coupon_.adorsRecebimentos(); }},
      {"DALCupomFiscal.ConsultarTotalRecebimentos", [&] { coupon_.ConsultarTotalRecebimentos(); }},
      {"DALCupomFiscal.Rs_CuponsNaoConcluidos", [&] { coupon_.Rs_CuponsNaoConcluidos(day("2009-04-02"), 2); }},
      {"DALCupomFiscal.No_UltimoKm", [&] { coupon_.No_UltimoKm(); }},
      {"DALCupomFiscal.Qt_Combustivel", [&] { coupon_.Qt_Combustivel(); }},
      {"DALCupomFiscal.GravarConsumoCombustivel", [&] { coupon_.GravarConsumoCombustivel(9.875f); }},
      {"DALCupomFiscal.ItensPeloKardexRs", [&] { coupon_.ItensPeloKardexRs("90210,90211,90212"); }},
      {"DALCupomFiscal.ItensPeloKardexSomadosPorProdutoRs",
       [&] { coupon_.ItensPeloKardexSomadosPorProdutoRs("90210,90211,90212"); }},
      {"DALCupomFiscal.CuponsSemEmissaoDeNfRs", [&] { unbilled(0, {}, {}, 0, 0, 0, 0, 0, 0); }},
      {"DALCupomFiscal.CuponsSemEmissaoDeNfRs (all filters)",
       [&] { unbilled(5, first, last, 10, 45.125, 2.499, 310, 5, 1); }},
      {"DALCupomFiscal.CuponsSemEmissaoDeNfRs (dates only)", [&] { unbilled(0, first, last, 0, 0, 0, 0, 0, 0); }},
      {"DALCupomFiscal.ObterItensPeloCodigoAbastecimento",
       [&] { coupon_.ObterItensPeloCodigoAbastecimento("4711,4712"); }},
      {"DALCupomFiscal.ObterCuponsFiscaisPeloCodigoAbastecimento",
       [&] { coupon_.ObterCuponsFiscaisPeloCodigoAbastecimento("4711,4712"); }},
      {"DALCupomFiscal.AlterarParaFaturado",
       [&] { coupon_.AlterarParaFaturado(640, last, 42, day("2009-05-10"), last); }},
      {"DALCupomFiscal.rsAbastecimentos", [&] { coupon_.rsAbastecimentos(); }},
      {"DALItemCupomFiscal.Consultar", [&] { item_.Consultar(); }},
      {"DALItemCupomFiscal.Excluir", [&] { item_.Excluir(); }},
      {"DALItemCupomFiscal.ConsultarProduto",
       [&] {
         item_.ObVO->Cd_Produto = 120;
         item_.ConsultarProduto();
       }},
      {"DALCuponsFiscais.rsItensParaEmissaoNFServicosCupons",
       [&] { day_of_coupons_.rsItensParaEmissaoNFServicosCupons(day("2009-04-03")); }},
  };
  for (const auto& [name, operation] : kOperations) {
    SCOPED_TRACE(name);
    const auto wanted = testing::corpus_statement(name);
    ASSERT_TRUE(wanted);
    // A statement that the server refuses, and a record that is not there, fail behind it.
    failure_of(operation);
    const std::string_view of(name);
    const EntityBase& entity = of.starts_with("DALItem")    ? static_cast<const EntityBase&>(item_)
                               : of.starts_with("DALCupom") ? static_cast<const EntityBase&>(coupon_)
                                                            : day_of_coupons_;
    EXPECT_EQ(testing::words_of(entity.statement()), testing::words_of(*wanted));
  }
}

}  // namespace
}  // namespace posto
