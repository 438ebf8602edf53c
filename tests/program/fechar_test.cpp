// posto fechar, as a shell sees what refuses a day.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/program/run_program.h"

namespace posto {
namespace {

// The sample's first day without its coupons: each of its 600 fuellings is a movement that no document explains.
TEST(FecharProgram, TellsTheFirstRowsOfAFindingOrAll) {
  const std::string sample = std::string(POSTO_SOURCE_DIR) + "/sample";
  std::string folder = (std::filesystem::temp_directory_path() / "posto-XXXXXX").string();
  folder = mkdtemp(folder.data());
  const std::string database = folder + "/posto.db", readings = folder + "/leituras.csv";
  std::filesystem::copy_file(sample + "/leituras.csv", readings);
  ASSERT_EQ(run_program("criar " + database).status, 0);
  ASSERT_EQ(run_program("cadastrar " + database + " " + sample + "/cadastro").status, 0);
  ASSERT_EQ(run_program("importar " + database + " " + readings).status, 1);

  const ProgramRun first = run_program("fechar " + database + " --dia 2026-11-23");
  EXPECT_EQ(first.status, 1);
  EXPECT_NE(first.said.find("RECUSADO RsCardexSemVenda (600)"), std::string::npos) << first.said;
  EXPECT_NE(first.said.find("\n... e mais 580 ("), std::string::npos) << first.said;
  EXPECT_EQ(first.said.find("AB 600 "), std::string::npos);

  const ProgramRun all = run_program("fechar " + database + " --dia 2026-11-23 --tudo");
  EXPECT_EQ(all.status, 1);
  EXPECT_EQ(all.said.find("... e mais"), std::string::npos);
  EXPECT_NE(all.said.find("AB 600 "), std::string::npos);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace posto
