// What the benchmarks of servers share: the library's work on 20,000 bills of some forty columns.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "measure.h"
#include "posto/ado/recordset.h"
#include "posto/schema/treasury.h"

namespace posto::bench {

// Runs `measured` while a new database stands on a server, to which `run` gives commands. Returns the status of it.
int measure_on_server(const std::string& database, const std::function<void(const std::string&)>& run,
                      const std::function<int()>& measured);

class ServerBills {
 public:
  static constexpr int kRecords = 20'000;

 protected:
  static constexpr int kCalls = 500;  // in a transaction

  // How the peer begins and ends its transactions.
  ServerBills(std::function<void()> begin, std::function<void()> end)
      : begin_(std::move(begin)), end_(std::move(end)) {}

  static std::int32_t some_code(int i) { return 1 + i * 97 % kRecords; }

  // `ours` and `peer` do one of kCalls calls.
  Pair calls(std::string name, const std::function<void(int)>& ours, const std::function<void(int)>& peer);
  // A record by its key, two columns of one, all records; the peer's part is given.
  Pair read(std::string name, const std::function<void(int)>& peer);
  Pair update(std::string name, const std::function<void(int)>& peer);
  Pair scan(std::string name, std::function<void()> peer);

  std::shared_ptr<Connection> connection_ = Connection::create();
  VOContaAReceber record_;
  std::int64_t turn_ = 0;

 private:
  void read_all(const std::string& statement);

  std::function<void()> begin_, end_;
};

}  // namespace posto::bench
