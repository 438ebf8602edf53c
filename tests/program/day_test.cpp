// What a day of the sample brings, as a shell takes it in: a purchase note and the printers' coupons.
#include <filesystem>

#include "tests/program/program_station.h"

namespace posto {
namespace {

class DayProgram : public ProgramStation {
 protected:
  void SetUp() override {
    ProgramStation::SetUp();
    expect("cadastrar", kSample + "cadastro", 0, "bicos.csv");
    expect("cadastrar", kSample + "semana/cadastro", 0, "ECF.csv                     3 novos");
  }

  // Runs a command on the station's database.
  void expect(const std::string& command, const std::string& arguments, int status, const std::string& words) const {
    SCOPED_TRACE(command + " " + arguments);
    expect_said(run_program(command + " " + database() + " " + arguments), status, words);
  }

  const std::string kSample = std::string(POSTO_SOURCE_DIR) + "/sample/";
};

TEST_F(DayProgram, APurchaseNoteIsTakenInShownAndCancelled) {
  const std::string notes = kSample + "semana/2026-11-24/notas.csv";
  const struct {
    const char* command;
    std::string arguments;
    int status;
    const char* words;
  } cases[] = {
      {"entrada", notes, 0, "1 notas: 1 gravadas, 0 repetidas, 0 recusadas"},
      {"entrada", notes + " --csv", 0, "Ds_Nota,Ds_Motivo\n"},
      {"nota", "--csv", 0, "1,1,8842,ATACADO BOM CAMINHO LTDA,2026-11-23 00:00:00,2026-11-24 00:00:00,769.0000,"},
      {"nota", "--entrada 1", 0, "GUIA RODOVIÁRIO"},
      {"nota", "--entrada 1 --cancelar --csv", 0, "Qt_Linhas,Qt_Movimentos,Qt_Descargas\n2,2,0\n"},
      {"nota", "--entrada 1 --cancelar", 1, "Recusado: não há a entrada 1"},
      {"nota", "--entrada 1", 1, "Registro nao encontrado(NotaEntrada)"},
      {"nota", "--cancelar", 2, "pede --entrada, ou --tipo e --numero"},
      {"entrada", notes, 0, "1 notas: 1 gravadas"},
  };
  for (const auto& c : cases) expect(c.command, c.arguments, c.status, c.words);
}

// The figures are those of sample/semana/esperado/dias.csv.
TEST_F(DayProgram, ThePrintersDayAgreesWithItsCoupons) {
  const std::string readings = file("leituras.csv");
  std::filesystem::copy_file(kSample + "leituras.csv", readings);
  expect("importar", readings, 1, "600 gravadas");
  for (const char* employee : {"51", "50"}) {
    expect("abrir-caixa", std::string("--funcionario ") + employee + " --em '2026-11-23 00:00:00'", 0, "CAIXA");
  }
  expect("vender", kSample + "semana/2026-11-23/vendas.csv", 0, "605 vendidos (1 cancelados)");
  const std::string day = "--dia 2026-11-23";
  expect("reducao", day + " --listar", 1, "sem mapa");
  expect("reducao", day + " --impressora 1 --csv", 0,
         "2026-11-23 00:00:00,1,1,371,1,47279.9000,0.0000,0.0000,110.6800,47169.2200,confere\n");
  expect("reducao", day, 0, "23/11/2026           2        1     230           0  55.297,05      10,59");
  expect("reducao", day + " --listar --aliquotas --csv", 0, "2026-11-23 00:00:00,1,tributada,18.0000,29.9000\n");
  expect("reducao", "--dia 2026-11-22", 1, "não há cupons no período");
}

}  // namespace
}  // namespace posto
