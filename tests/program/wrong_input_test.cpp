// What the program answers to what it cannot work with: one line that says why, on standard error, and the status.
#include <filesystem>
#include <fstream>

#include "tests/program/program_station.h"

namespace posto {
namespace {

// A station of one company, beside files of several kinds.
class WrongInput : public ProgramStation {
 protected:
  void SetUp() override {
    ProgramStation::SetUp();
    execute({"INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria) Values (1)"});
    std::ofstream(file("vazio.csv")).flush();
    std::ofstream(file("ponto-e-virgula.csv")) << "bico;contador;termino;segundos;litros;preco;total;encerrante\n";
    std::filesystem::create_directory(file("pasta"));
  }
};

TEST_F(WrongInput, IsToldOnStandardErrorWithItsStatus) {
  const struct {
    std::string arguments;
    int status;
    const char* words;
  } cases[] = {
      {"fexar " + database(), 2, "não há o comando fexar"},
      {"bicos " + database() + " --de 2026-02-31", 2, "'2026-02-31' não é uma data"},
      {"bicos " + database() + " --de 2026-11-25 --ate 2026-11-23", 2, "antes de começar"},
      {"estoque " + database() + " --kardex --produto 1,5", 2, "'1,5' não é um número inteiro de 1 a 2147483647"},
      {"reducao " + database() + " --dia 2026-11-23 --impressora 256", 2, "'256' não é um número inteiro de 1 a 255"},
      {"bicos " + database() + " --csv --json", 2, "--csv não vai com --json"},
      {"importar " + database() + " " + file("nao.csv"), 2, "não há o arquivo"},
      {"importar " + database() + " " + file("pasta"), 2, "não é um arquivo"},
      {"importar " + database() + " " + file("vazio.csv"), 1, "O arquivo está vazio"},
      {"importar " + database() + " " + file("ponto-e-virgula.csv"), 1, "não começa com o cabeçalho"},
      {"vender " + database() + " " + file("vazio.csv"), 1, "vazio.csv: o arquivo está vazio"},
      {"entrada " + database() + " " + file("ponto-e-virgula.csv"), 1, "linha 1: o cabeçalho não é"},
      {"estoque " + database() + " --kardex --produto 9", 1, "Registro nao encontrado(Produto)"},
      {"bicos " + database() + " --empresa 9", 1, "A empresa 9 não está cadastrada"},
      {"bicos " + file("nao.db"), 3, "o arquivo não existe"},
      {"bicos " + file("pasta"), 3, "é uma pasta"},
      {"criar " + file("nao/ha.db"), 3, "não há a pasta"},
      {"bicos " + file("vazio.csv"), 3, "não é um banco do posto"},
      {"criar " + database(), 3, "já existe"},
      {"bicos " + database() + " >/dev/full", 3, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.arguments);
    expect_said(run_program(c.arguments), c.status, c.words);
    EXPECT_EQ(run_program(c.arguments + " 2>/dev/null; true").said, "");
  }
}

TEST_F(WrongInput, AnAnswerThatNobodyReadsEndsQuietly) {
  const ProgramRun run = run_program("sql " + database() + " \"SELECT * FROM EmpresaUsuaria\" | true");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.said, "");
}

TEST(Help, SpeaksOneLanguage) {
  for (const char* command : {"", "importar", "cupom", "estoque", "fechar", "baixar", "caixa"}) {
    const ProgramRun help = run_program(std::string(command) + " --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.said.find("Opções:"), std::string::npos) << help.said;
    for (const char* word :
         {"Options", "OPTIONS", "TEXT:", "INT", "POSITIVE", "DATA:", "FILE", "Usage", "Subcommand"}) {
      EXPECT_EQ(help.said.find(word), std::string::npos) << word << "\n" << help.said;
    }
  }
}

}  // namespace
}  // namespace posto
