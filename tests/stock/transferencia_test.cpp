#include "posto/stock/DALProdutoTransferencia.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

class TransferenciaTest : public DatabaseTest {
 protected:
  TransferenciaTest() {
    // the company, from, to, automatic
    for (const VOProdutoTransferencia& row : {VOProdutoTransferencia{1, 5, 120, false},
                                              {1, 6, 120, true},
                                              {1, 5, 121, false},
                                              {2, 7, 120, true},
                                              {1, 120, 130, true},
                                              {1, 8, 9, true}}) {
      *transfer_.ObVO = row;
      transfer_.Incluir();
    }
  }
  DALProdutoTransferencia transfer_{settings_};
};

TEST_F(TransferenciaTest, ThreeWaysToFindATransfer) {
  const struct {
    VOProdutoTransferencia asked;
    std::int32_t from;                   // of the transfer that is found; 0 when none is
  } cases[] = {{{1, 5, 120, true}, 5},   // both products: whether it is automatic plays no part
               {{1, 0, 120, true}, 6},   // the automatic source
               {{1, 0, 120, false}, 5},  // any source: the first
               {{1, 0, 121, true}, 0},   // no automatic source, and then no other is looked for
               {{1, 9, 120, true}, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.asked.Cd_ProdutoBaixa);
    *transfer_.ObVO = c.asked;
    EXPECT_EQ(transfer_.Existe(), c.from != 0);
    EXPECT_EQ(*transfer_.ObVO, c.asked);  // Existe fills nothing
    const auto failure = failure_of([&] { transfer_.Consultar(); });
    EXPECT_EQ(failure ? failure->number() : 0, c.from != 0 ? 0 : erro::kRecordNotFound);
    if (c.from != 0) {
      EXPECT_EQ(transfer_.ObVO->Cd_ProdutoBaixa, c.from);
    }
  }
  *transfer_.ObVO = {1, 5, 0, true};
  expect_failure(erro::kMissingKey, " -> DALProdutoTransferencia.Existe,  -> DALProdutoTransferencia.Existe",
                 [&] { transfer_.Existe(); });
  *transfer_.ObVO = {1, 0, 120, true};  // not enough to delete by
  EXPECT_EQ(failure_of([&] { transfer_.Excluir(); }).value().number(), erro::kMissingKey);
  EXPECT_FALSE(transfer_.temCampoSequencial());
}

TEST_F(TransferenciaTest, TransfersOfAProduct) {
  *transfer_.ObVO = {1, 5, 0, false};
  EXPECT_EQ(transfer_.QuantidadeProdutoTransferencia(), 2);
  *transfer_.ObVO = {2, 5, 0, false};
  EXPECT_EQ(transfer_.QuantidadeProdutoTransferencia(), 0);

  // takes the automatic mark from every transfer of 6 or 120 on the one or the other side, of any company
  const std::string automatic =
      "SELECT Cd_ProdutoBaixa, Cd_ProdutoEntrada FROM ProdutoTransferencia "
      "WHERE Ic_TransferenciaAutomatica <> 0 ORDER BY Cd_ProdutoBaixa";
  EXPECT_EQ(rows(automatic), "6,120\n7,120\n8,9\n120,130\n");
  *transfer_.ObVO = {1, 120, 120, false};
  transfer_.LimparTransferenciaAutomaticaProduto();
  EXPECT_EQ(rows(automatic), "8,9\n");
}

TEST_F(TransferenciaTest, ATransferInPackingsIsNumberedByTheDatabase) {
  DALItemTransfEmbalagem item(settings_);
  item.Incluir();
  item.Incluir();
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, No_Transferencia FROM ItemTransfEmbalagem"), "1,1\n1,2\n");
  *item.ObVO = {.Cd_PessoaUsuaria = 1, .No_Transferencia = 1};
  item.Excluir();
  EXPECT_EQ(rows("SELECT No_Transferencia FROM ItemTransfEmbalagem"), "2\n");
}

}  // namespace
}  // namespace posto
