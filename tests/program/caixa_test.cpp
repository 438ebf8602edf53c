#include "posto/services/files.h"
#include "tests/program/program_station.h"

namespace posto {
namespace {

// A database with an employee and a kind of divergence whose names a page must not take for its own.
class CaixaProgram : public ProgramStation {
 protected:
  void SetUp() override {
    ProgramStation::SetUp();
    execute({"INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria) Values (1)",
             "INSERT INTO Pessoa (Cd_Pessoa, Nm_Pessoa) Values (42, 'JOÃO <i>& \"Filho\"')",
             "INSERT INTO Funcionario (Cd_PessoaUsuaria, Cd_Funcionario) Values (1, 42)",
             "INSERT INTO TipoDivergenciaCaixa (Ds_DivergenciaCaixa, No_NaturezaDivergencia) Values ('VALE', 1)"});
  }
  std::string page() const { return file("resumo.html"); }
};

TEST_F(CaixaProgram, AShiftFromOpeningToItsPage) {
  const std::string shift = database() + " --caixa 1";
  EXPECT_EQ(run_program("abrir-caixa " + database() + " --funcionario 42").status, 0);
  EXPECT_EQ(run_program("divergencia " + shift + " --tipo 1 --valor 1234,5 --descricao '<script>'").status, 0);
  const ProgramRun closed = run_program("fechar-caixa " + shift + " --falta 0,25");
  EXPECT_EQ(closed.status, 0);
  EXPECT_NE(closed.said.find("Sobram 1.234,25"), std::string::npos) << closed.said;
  EXPECT_EQ(run_program("conferir-caixa " + shift + " --funcionario 42").status, 0);

  const ProgramRun shown = run_program("caixa " + shift + " --resumo --html " + page());
  EXPECT_EQ(shown.status, 0);
  for (const char* line : {"\nSoma                         0,00  1.234,50\n", "\n9 - OUTROS CRÉDITOS      1.234,50\n",
                           "\n7 - RECEBIMENTOS                -\n", "\nVALE - <script>  1.234,50\n"}) {
    EXPECT_NE(shown.said.find(line), std::string::npos) << line << shown.said;
  }
  const std::string html = read_file(page());
  EXPECT_NE(html.find("JOÃO &lt;i&gt;&amp; &quot;Filho&quot;, turno 01"), std::string::npos);
  EXPECT_NE(html.find("<td>VALE - &lt;script&gt;</td><td class=\"n\">1.234,50</td>"), std::string::npos);
  EXPECT_EQ(html.find("<script>"), std::string::npos);
  EXPECT_NE(html.find("size: A4"), std::string::npos);
  EXPECT_TRUE(html.ends_with("</html>\n"));

  EXPECT_NE(run_program("caixas " + database() + " --csv").said.find(",conferido,0.0000,1234.5000,1234.2500\n"),
            std::string::npos);
  EXPECT_NE(run_program("caixa " + shift + " --json").said.find("\"Vl_FaltaSangrias\": 0.2500"), std::string::npos);
}

TEST_F(CaixaProgram, WhatIsRefusedAndWrongUse) {
  EXPECT_EQ(run_program("abrir-caixa " + database() + " --funcionario 42").status, 0);
  const std::string shift = database() + " --caixa 1";
  const struct {
    std::string arguments;
    int status;
    const char* words;
  } cases[] = {
      {"abrir-caixa " + database() + " --funcionario 42", 1, "tem o caixa 1 aberto"},
      {"abrir-caixa " + database() + " --funcionario 42 --bico 1=", 2, "não é BICO nem BICO=ENCERRANTE"},
      {"assumir-bico " + shift, 2, "--bico"},
      {"fechar-caixa " + shift + " --sobra 1.000,50", 2, "não é um valor"},
      {"conferir-caixa " + shift + " --funcionario 42", 1, "está aberto"},
      {"caixa " + database() + " --caixa 9", 1, "(Caixa)"},
      {"caixa " + shift + " --html " + file("nao/ha.html"), 3, "nao/ha.html não existe"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.arguments);
    const ProgramRun run = run_program(c.arguments);
    EXPECT_EQ(run.status, c.status);
    EXPECT_NE(run.said.find(c.words), std::string::npos) << run.said;
  }

  // a fuelling without a coupon: 1 until it is accepted
  execute({"INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Cd_Caixa, Vl_Total) Values (1, 5, 1, 10)"});
  EXPECT_EQ(run_program("fechar-caixa " + shift).status, 0);
  const std::string check = "conferir-caixa " + shift + " --funcionario 42";
  const ProgramRun refused = run_program(check);
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.said.find("Abastecimentos sem cupom"), std::string::npos) << refused.said;
  EXPECT_EQ(run_program(check + " --aceitar").status, 0);
}

}  // namespace
}  // namespace posto
