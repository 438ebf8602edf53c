// Every statement of the library compiles and runs, and the server's refusals are ours.
#include "tests/dialect/corpus.h"

#include <gtest/gtest.h>

#include "posto/engines/engine.h"
#include "posto/types/erro.h"

namespace posto {
namespace {

using testing::CorpusEntry;

// Runs a batch and reads all of its rows; what it does is undone.
void run_and_undo(Engine& engine, const std::string& batch) {
  engine.begin();
  try {
    Outcome outcome = engine.execute(batch);
    if (outcome.cursor) {
      std::vector<Cell> row(outcome.cursor->shape().columns().size());
      while (outcome.cursor->next(row)) continue;
    }
  } catch (const Erro&) {
    engine.rollback();
    throw;
  }
  engine.rollback();
}

class Corpus : public ::testing::Test {
 protected:
  Corpus() { engine_->create_schema(); }

  std::shared_ptr<Engine> engine_ = open_engine(":memory:", 1, true);
};

TEST_F(Corpus, RunsOrIsRefusedAsOnTheServer) {
  const auto entries = testing::read_corpus();
  ASSERT_GT(entries.size(), 600u);
  for (const CorpusEntry& entry : entries) {
    SCOPED_TRACE(entry.file + ": " + entry.name);
    try {
      run_and_undo(*engine_, entry.statement);
      EXPECT_FALSE(entry.refused);
    } catch (const Erro& e) {
      EXPECT_TRUE(entry.refused) << e.what();
      EXPECT_EQ(e.number(), erro::kSyntax) << e.what();
      EXPECT_NE(e.description().find("(posição "), std::string::npos) << e.what();
    }
  }
}

}  // namespace
}  // namespace posto
