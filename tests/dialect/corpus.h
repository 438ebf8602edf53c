// The library's statements as they stand in corpus/, for tests.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace posto::testing {

struct CorpusEntry {
  std::string file, name;
  std::string statement;  // its lines end in carriage returns, as the library composes them
  bool refused = false;   // the server does not take it either
};

// All entries but the server commands of maintenance.sql.
std::vector<CorpusEntry> read_corpus();

// The statement of the entry of a name; nothing where there is none.
std::optional<std::string> corpus_statement(std::string_view name);
// The statements of an operation in their order: a name may go on behind it, as in "DALCaixa.Incluir (second key)".
std::vector<std::string> corpus_statements(std::string_view operation);

// A statement with single blanks between its words, so that two can be compared whatever their lines; the end of a
// comment is kept as "|".
std::string words_of(std::string_view statement);

}  // namespace posto::testing
