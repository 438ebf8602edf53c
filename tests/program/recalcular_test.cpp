// What goes with the closing of a day: its reopening, what was accepted, and the recalculation, as a shell sees them.
#include "tests/program/program_station.h"

namespace posto {
namespace {

using RecalcularProgram = ProgramStation;

TEST_F(RecalcularProgram, ClosesWithWhatIsAcceptedReopensAndRecalculates) {
  expect_said(run_program("cadastrar " + database() + " " + POSTO_SOURCE_DIR + "/sample/cadastro"), 0, "");
  // 10 at first, 2 sold without a coupon: 8 remain, where the product says 3 and its ledger 7.
  execute(
      {"INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, "
       "No_Tipo, Qt_EstoqueInicial, "
       "Vl_CustoMedioInicial, Qt_Estoque) Values (1, 9020, 'OLEO X', 1, "
       "10, 5, 3)",
       "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, "
       "Cd_Produto, Dt_Emissao, No_Tipo, Qt_Unidade, "
       "Qt_Estoque, Vl_CustoMedio) Values (1, 9001, 9020, '2026-11-23', "
       "20, 2, 7, 5)"});
  const std::string day = database() + " --dia 2026-11-23";
  const struct {
    std::string command;
    int status;
    std::string said;
  } kRuns[] = {
      {"fechar " + day + " --csv", 1, "RECUSADO,RsCardexSemVenda,1,Cd_Produto,9020\n"},
      {"fechar " + day + " --json", 1, "\"Nm_Coluna\": \"Qt_Unidade\", \"Ds_Valor\": 2}"},
      {"reabrir " + day, 1, "O dia 23/11/2026 não estava fechado."},
      {"fechar " + day + " --aceitar RsCardexSemVenda --usuario ana", 0, "ACEITO RsCardexSemVenda (1)"},
      {"fechar " + day, 0, "O dia 23/11/2026 já estava fechado."},
      {"reabrir " + day, 0, "O dia 23/11/2026 está reaberto."},
      {"reabrir " + day, 1, "não estava fechado"},
      {"aceitos " + database() + " --csv", 0, "2026-11-23 00:00:00,RsCardexSemVenda,1,ana,"},
      {"aceitos " + database() + " --dia 2026-11-24 --json", 0, "[\n]"},
      {"recalcular " + database() + " --desde 2026-11-23 --csv", 0, "\n9020,OLEO X,8,5,0,SIM\n"},
      {"recalcular " + database() + " --desde 2026-11-24 --produto 9020 --csv", 0, "\n9020,OLEO X,8,5,0,SIM\n"},
      {"recalcular " + database() + " --desde 2026-11-23 --produto 9021", 1, ""},
      {"recalcular " + database(), 2, "--desde"},
      {"reabrir " + database(), 2, "--dia"},
  };
  for (const auto& run : kRuns) {
    SCOPED_TRACE(run.command);
    expect_said(run_program(run.command), run.status, run.said);
  }
}

}  // namespace
}  // namespace posto
