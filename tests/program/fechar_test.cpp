// posto fechar, as a shell sees what refuses a day.
#include <filesystem>

#include "tests/program/program_station.h"

namespace posto {
namespace {

using FecharProgram = ProgramStation;

// The sample's first day without its coupons: each of its 600 fuellings is a movement that no document explains.
TEST_F(FecharProgram, TellsTheFirstRowsOfAFindingOrAll) {
  const std::string sample = std::string(POSTO_SOURCE_DIR) + "/sample";
  const std::string readings = file("leituras.csv");
  std::filesystem::copy_file(sample + "/leituras.csv", readings);
  ASSERT_EQ(run_program("cadastrar " + database() + " " + sample + "/cadastro").status, 0);
  ASSERT_EQ(run_program("importar " + database() + " " + readings).status, 1);

  const ProgramRun first = run_program("fechar " + database() + " --dia 2026-11-23");
  EXPECT_EQ(first.status, 1);
  EXPECT_NE(first.said.find("RECUSADO RsCardexSemVenda (600)"), std::string::npos) << first.said;
  EXPECT_NE(first.said.find("\n... e mais 580 ("), std::string::npos) << first.said;
  EXPECT_EQ(first.said.find("AB 600 "), std::string::npos);

  const ProgramRun all = run_program("fechar " + database() + " --dia 2026-11-23 --tudo");
  EXPECT_EQ(all.status, 1);
  EXPECT_EQ(all.said.find("... e mais"), std::string::npos);
  EXPECT_NE(all.said.find("AB 600 "), std::string::npos);
}

}  // namespace
}  // namespace posto
