// An empty station's database for a test: in memory, or on the server of POSTO_TEST_SERVER where that is set.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "posto/engines/engine.h"

namespace posto::testing {

// As failures name the engine on which the tests run.
std::string provider();

class TestDatabase {
 public:
  // `shared`: it can be opened more than once.
  explicit TestDatabase(bool shared = false);
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  ~TestDatabase();  // takes a server's database away

  // A new connection. One in memory is opened once.
  std::shared_ptr<Engine> open();
  // Ends all connections to a server's database, as a server that stops does.
  void disconnect_all() const;
  // What opens it.
  const std::string& address() const { return address_; }
  // What would open another database of the server.
  static std::string address_of(std::string_view name);
  // Whether the driver takes in all rows before it gives the first.
  static bool driver_reads_ahead();
  bool embedded() const { return name_.empty(); }

 private:
  std::string address_ = ":memory:";
  std::string name_;    // on a server
  std::string folder_;  // of a file
};

}  // namespace posto::testing
