#include "posto/types/erro.h"

#include <gtest/gtest.h>

namespace posto {
namespace {

TEST(Erro, ShowsObjectNumbersInHexadecimalAndOthersInDecimal) {
  EXPECT_STREQ(Erro(erro::kSyntax, "", "line 1").what(), "0x80040E14: line 1");
  EXPECT_STREQ(platform_erro(erro::kTypeMismatch, "'x' is no number").what(), "13: Type mismatch: 'x' is no number");
  EXPECT_EQ(platform_erro(erro::kOverflow).description(), "Overflow");
}

TEST(Erro, AStepUpKeepsEverythingButTheSource) {
  const Erro low(erro::kIntegrity, "Connection.Execute", "duplicate", {"23505", 7, "INSERT ...", false});
  const Erro high = low.with_step(" -> DALBanco.Incluir").with_step(" -> Flow");
  EXPECT_EQ(high.source(), "Connection.Execute -> DALBanco.Incluir -> Flow");
  EXPECT_EQ(low.source(), "Connection.Execute");
  EXPECT_STREQ(high.what(), low.what());
  ASSERT_TRUE(high.provider());
  EXPECT_EQ(high.provider()->sqlstate, "23505");
  EXPECT_FALSE(high.provider()->connection_good);
}

}  // namespace
}  // namespace posto
