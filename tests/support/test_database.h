// An empty station's database for a test: in memory, or on the server of POSTO_TEST_SERVER where that is set.
#pragma once

#include <memory>
#include <string>

#include "posto/engines/engine.h"

namespace posto::testing {

class TestDatabase {
 public:
  TestDatabase();
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  ~TestDatabase();  // takes a server's database away

  // A new connection; the database in memory has one alone.
  std::shared_ptr<Engine> open();
  bool embedded() const { return address_.empty(); }

 private:
  std::string address_;  // of a server's database
  std::string name_;
};

}  // namespace posto::testing
