// The library's statements as they stand in corpus/, for tests.
#pragma once

#include <string>
#include <vector>

namespace posto::testing {

struct CorpusEntry {
  std::string file, name;
  std::string statement;  // its lines end in carriage returns, as the library composes them
  bool refused = false;   // the server does not take it either
};

// All entries but the server commands of maintenance.sql.
std::vector<CorpusEntry> read_corpus();

}  // namespace posto::testing
