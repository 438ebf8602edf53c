// An ODBC driver without a server: it writes down what reaches it and answers as a test told it to. A connection string
// names its file ("Driver=/.../librecording_driver.so"); the driver manager and the test then share one recording.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace posto::testing {

// One result of a statement: a row count, rows, or a failure.
struct DriverResult {
  std::int64_t row_count = -1;
  std::vector<std::size_t> sizes{};  // of the columns, as the driver describes them
  std::vector<std::vector<std::optional<std::string>>> rows{};
  std::string state{};  // of a failure
  std::int32_t native = 0;
  std::string message{};

  static DriverResult count(std::int64_t rows) { return {.row_count = rows}; }
  static DriverResult failure(std::string state, std::int32_t native, std::string message) {
    return {.state = std::move(state), .native = native, .message = std::move(message)};
  }
};

struct Recording {
  std::string dbms = "Microsoft SQL Server";
  // The results of a statement, by its whole text; any other touches one row.
  std::map<std::string, std::vector<DriverResult>> answers{};
  // "direct TEXT", "prepare TEXT", "run bigint 12, varchar 'x', null", "fetch", "begin", "commit", "rollback",
  // "timeout 30", in the order of the calls.
  std::vector<std::string> calls{};
  int open_statements = 0;
};

// The name of a function of the driver's file, Recording*().
inline constexpr const char* kRecordingSymbol = "posto_recording";

}  // namespace posto::testing
