// What a batch becomes for an engine: its own text, what to bind where, and what comes back.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "posto/tsql/ast.h"
#include "posto/tsql/binder.h"
#include "posto/tsql/lexer.h"

namespace posto::tsql {

// A place of the written text that gets its value when the statement runs, in the order of the places.
struct Parameter {
  enum class From : std::uint8_t { literal, marker, now, last_identity };
  From from = From::literal;
  std::size_t ordinal = 0;        // which literal or marker
  bool negative = false;          // a minus stands in front of the literal
  bool compared = false;          // keep the digits that the type has no room for: the value is only compared
  SqlType type = SqlType::int32;  // the form in which the database expects it
  const Table* table = nullptr;   // the column that it is written to, for messages
  const Column* column = nullptr;

  bool operator==(const Parameter&) const = default;
};

struct OutputColumn {
  std::string name;
  Type type;
  const Table* table = nullptr;  // of a column as it stands
  const Column* column = nullptr;
};

// A place in a batch that holds for every batch of the same shape, whatever the lengths of its literals.
class BatchPlace {
 public:
  BatchPlace() = default;
  // The place that is `offset` bytes into `batch`, whose literals these are.
  BatchPlace(std::string_view batch, const std::vector<Literal>& literals, std::size_t offset);
  // Its bytes from the start of a batch with these literals.
  std::size_t offset(std::string_view batch, const std::vector<Literal>& literals) const;

 private:
  std::size_t literals_ = 0;  // that stand in front of it
  std::size_t bytes_ = 0;     // from the end of the last of these, or from the start
};

struct CompiledStatement {
  StatementKind kind = StatementKind::select;
  BatchPlace begin, end;
  std::string text;  // empty for a statement that only changes the session
  std::vector<Parameter> parameters;
  std::vector<OutputColumn> outputs;   // of a select
  const Table* target = nullptr;       // the table that it writes; of a select the one table that it reads row by row
  std::vector<const Table*> reads;     // the tables that it reads, with repetitions
  bool may_fail_between_rows = false;  // a value can turn out wrong when some rows are already written
  std::string date_format;
  std::shared_ptr<TemporaryTable> creates;
};

struct CompiledBatch {
  std::vector<CompiledStatement> statements;
  std::vector<std::pair<std::size_t, std::string>> pinned;  // literals that must read so for this form to serve
  std::vector<std::shared_ptr<TemporaryTable>> temporary;   // tables that the batch creates

  bool serves(const std::vector<Literal>& literals) const;
};

// Writes one bound statement in an engine's own SQL.
using WriteStatement = CompiledStatement (*)(const Statement& statement);

// Parses, binds and writes a batch. Raises 0x80040E14.
CompiledBatch compile(std::string_view batch, const std::vector<Literal>& literals, const Catalogue& catalogue,
                      WriteStatement write);

// The columns that a bound select gives.
std::vector<OutputColumn> output_columns(const Select& select);
// The one table whose rows a bound select gives as they stand; null when it joins, groups or combines.
const Table* row_by_row_table(const Select& select);

}  // namespace posto::tsql
