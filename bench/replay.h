// Work of the library, done again on SQLite's own interface: the same statements with the same values.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "raw.h"

namespace posto::bench {

using RawValue = std::variant<std::monostate, std::int64_t, double, std::string>;  // nothing is null

// A statement as SQLite ran it, with the values of its parameters in their order.
struct RawStatement {
  std::string sql;
  std::vector<RawValue> values;
};

// The statements that `body` runs on connections that it opens, without those that begin and end transactions.
std::vector<RawStatement> recorded(const std::function<void()>& body);

// Recorded statements, each text prepared once and kept.
class Replay {
 public:
  Replay(RawDatabase& database, const std::vector<RawStatement>& statements);
  void run();  // binds, steps to the end and reads every value, statement by statement

 private:
  struct Step {
    sqlite3_stmt* statement;
    const std::vector<RawValue>* values;
  };
  std::vector<Step> steps_;
};

}  // namespace posto::bench
