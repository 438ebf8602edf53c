#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "posto/services/files.h"
#include "tests/program/run_program.h"

namespace posto {
namespace {

namespace fs = std::filesystem;

class Configurar : public ::testing::Test {
 protected:
  Configurar() { fs::create_directory(folder_); }
  ~Configurar() override { fs::remove_all(folder_); }

  ProgramRun configurar(const std::string& arguments) const { return run_program("configurar " + folder_ + arguments); }

  std::string folder_ = fs::temp_directory_path() / ("posto_configurar_" + std::to_string(getpid()));
  std::string file_ = folder_ + "/posto.ini";
};

bool tells(const ProgramRun& run, const char* text) { return run.said.find(text) != std::string::npos; }

TEST_F(Configurar, ShowsWhatWasSetAndHidesSecrets) {
  replace_file(folder_ + "/posto.db", "");
  const ProgramRun set = configurar(
      "/posto.db venda.no_tipointerface=3 Persistencia.Ds_SenhaDB=abre-te "
      "ConsultaCheque.Ds_Senha=sesamo ECF.No_PortaECF=2 --trace");
  EXPECT_EQ(set.status, 0);
  EXPECT_EQ(set.said, "Gravado em " + file_ + "\n");
  const ProgramRun shown = configurar(" --csv --trace");
  EXPECT_EQ(shown.status, 0);
  for (const char* line :
       {"\nVenda,No_TipoInterface,3\n", "\nPersistencia,Ds_SenhaDB,********\n", "\nConsultaCheque,Ds_Senha,********\n",
        "\nECF,No_PortaECF,********\n", "\nPersistencia,Cursor,\n", "119 sem valor que se leia"}) {
    EXPECT_TRUE(tells(shown, line)) << line << shown.said;
  }
  const ProgramRun open = configurar(" --csv --segredos");
  EXPECT_TRUE(tells(open, "\nPersistencia,Ds_SenhaDB,abre-te\n") && tells(open, "\nECF,No_PortaECF,2\n"));
}

TEST_F(Configurar, WritesNothingOfAWrongLine) {
  const std::string before = "[Venda]\nNo_TipoInterface=1\n";
  replace_file(file_, before);
  for (const auto& [wrong, told] :
       {std::pair("Venda.No_TipoInterface=300", "Venda.No_TipoInterface: o valor não é um número"),
        std::pair("Venda.Nada=1", "Não há a configuração Venda.Nada"),
        std::pair("Vendas.No_TipoInterface=1", "Não há a configuração Vendas.No_TipoInterface"),
        std::pair("ECF.No_PortaECF=quarenta", "ECF.No_PortaECF: o valor não é um número"),
        std::pair("quarenta", "Secao.Chave=valor")}) {
    const ProgramRun run = configurar(std::string(" Venda.Ic_PararNaQuantidade=1 ") + wrong);
    EXPECT_EQ(run.status, 2) << wrong;
    EXPECT_TRUE(tells(run, told) && !tells(run, "quarenta")) << run.said;
    EXPECT_EQ(read_file(file_), before);
  }
  EXPECT_EQ(configurar("/nenhuma").status, 3);
}

TEST_F(Configurar, ChecksWhatIsMissingOrUnreadable) {
  replace_file(file_, "[Venda]\nNo_TipoInterface=1\nIc_PararNaQuantidade=um\n[Persistencia]\nDs_SenhaDB=abre-te\n");
  const ProgramRun run = configurar(" --verificar --csv");
  EXPECT_EQ(run.status, 1);
  for (const char* line : {"\nVenda,Ic_PararNaQuantidade,não é do tipo da chave\n",
                           "\nPersistencia,Ds_SenhaDB,não se decifra\n", "\nPersistencia,Cursor,falta\n"}) {
    EXPECT_TRUE(tells(run, line)) << line;
  }
  EXPECT_FALSE(tells(run, "No_TipoInterface") || tells(run, "abre-te"));
}

}  // namespace
}  // namespace posto
