// A station's database that several connections can open, for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "posto/ado/recordset.h"
#include "tests/support/test_database.h"
#include "tests/types/raised.h"

namespace posto::testing {

class StationDatabase : public ::testing::Test {
 protected:
  StationDatabase() {
    connection_->Open(file_);
    connection_->observe([this](const StatementReport& report) {
      statements_.emplace_back(report.statement);
      rows_ += report.rows;
    });
  }

  // Another connection to the same file.
  std::shared_ptr<Connection> another() const {
    auto other = Connection::create();
    other->Open(file_);
    return other;
  }
  Recordset open(const std::string& source, std::int32_t type = adOpenKeyset, std::int32_t location = adUseServer) {
    Recordset rs;
    rs.ActiveConnection(connection_);
    rs.CursorType = type;
    rs.LockType = adLockOptimistic;
    rs.CursorLocation = location;
    rs.Source = source;
    rs.Open();
    return rs;
  }
  void run(const std::string& batch) { connection_->Execute(batch); }
  // The first field of the first row, as text.
  std::string ask(const std::string& query) {
    Recordset rs = connection_->Execute(query);
    return rs.EOF() ? "nothing" : rs[0].is_null() ? "null" : rs[0].as<std::string>();
  }

  const TestDatabase database_{true};
  const std::string file_ = database_.address();  // what opens it
  std::shared_ptr<Connection> connection_ = Connection::create();
  std::vector<std::string> statements_;  // that ran, in order
  std::int64_t rows_ = 0;                // that they read or touched
};

}  // namespace posto::testing
