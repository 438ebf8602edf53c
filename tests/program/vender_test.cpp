#include <fstream>

#include "tests/program/program_station.h"

namespace posto {
namespace {

// A station that sells a wash.
class VenderProgram : public ProgramStation {
 protected:
  void SetUp() override {
    ProgramStation::SetUp();
    execute({"INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria) Values (1)",
             "INSERT INTO ECF (Cd_PessoaUsuaria, No_Impressora) Values (1, 1)",
             "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (5, 'DINHEIRO')",
             "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_CodBarras, No_Tipo, Vl_Preco) "
             "Values (1, 'LAVAGEM', '791', 2, 45)"});
    std::ofstream(file("vendas.csv")) << "impressora,cupom,data,hora,produto,quantidade,desconto,pagamentos\n"
                                         "1,77,2026-11-23,10:00:00,791,2,5.00,5\n"
                                         "1,77,2026-11-23,,791,1,,\n"
                                         "1,78,2026-11-23,10:05:00,792,1,,5\n";
  }
  ProgramRun coupon(const std::string& options) const {
    return run_program("cupom " + database() + " --impressora 1 --cupom 77 --data 2026-11-23 " + options);
  }
};

TEST_F(VenderProgram, ACouponIsSoldShownAndTakenBack) {
  const ProgramRun sold = run_program("vender " + database() + " " + file("vendas.csv"));
  expect_said(sold, 1, "2 cupons: 1 vendidos (0 cancelados), 0 repetidos, 1 recusados");
  expect_said(sold, 1, "vendas.csv, linha 4: produto desconhecido: 792");
  const ProgramRun shown = coupon("");
  expect_said(shown, 0, "CUPOM 77 DA IMPRESSORA 1, 23/11/2026 10:00:00");
  expect_said(shown, 0, "total 135,00, desconto 5,00, a pagar 130,00\n  DINHEIRO 130,00");
  expect_said(coupon("--csv"), 0, "2,LAVAGEM,1,45.0000,45.0000,\n");
  expect_said(coupon("--cancelar --item 2"), 0, "Item cancelado");
  expect_said(coupon("--cancelar --item 1"), 1, "Recusado: é a única linha do cupom");
  expect_said(coupon(""), 0, "DINHEIRO 85,00");
  expect_said(coupon("--cancelar"), 0, "Cupom cancelado");
  expect_said(coupon(""), 1, "Registro nao encontrado(CupomFiscal)");
  EXPECT_EQ(coupon("--item 1").status, 2);
}

TEST_F(VenderProgram, NothingToPostIsNoRefusal) {
  expect_said(run_program("baixar " + database() + " --computador PISTA01"), 0,
              "0 abastecimentos baixados, 0 aferições, 0 recusados");
  EXPECT_EQ(run_program("baixar " + database() + " --impressora 0").status, 2);
}

}  // namespace
}  // namespace posto
