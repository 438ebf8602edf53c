// Cuts a flow at each of its statements.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "tests/flows/failing_engine.h"
#include "tests/flows/sample_station.h"

namespace posto::flows {

struct CutFlow {
  std::function<void(Station&)> fill;               // registers what the work needs in an empty database
  std::function<void(Station&)> work;               // what is cut
  std::function<std::string(Connection&)> state;    // everything that the work changes
  std::function<void(Connection&)> check_cut = {};  // what must hold behind every cut
};

// A station whose statements fail from the n-th on, counted behind the reading of the company; n 0 never fails.
struct FailingStation {
  FailingStation(StationDatabase& database, int n)
      : engine(std::make_shared<FailingEngine>(database.engine(), n == 0 ? 0 : n + 1)) {
    station.settings->ObConnection = Connection::create();
    station.connection().Use(engine);
    read_company(*station.settings, 0);
  }
  int statements() const { return engine->statements() - 1; }

  std::shared_ptr<FailingEngine> engine;
  Station station{std::make_shared<VOSistema>()};
};

// The work is cut at each of its statements, each time on a database of its own, and run again: it ends like an uncut
// one.
inline void cut_everywhere(const CutFlow& flow) {
  auto filled = [&](StationDatabase& database) {
    Station station = database.open();
    flow.fill(station);
  };
  StationDatabase uncut_database;
  filled(uncut_database);
  FailingStation uncut(uncut_database, 0);
  const std::string before = flow.state(uncut.station.connection());
  const int read_before = uncut.statements();
  flow.work(uncut.station);
  const int statements = uncut.statements() - read_before;
  const std::string wanted = flow.state(uncut.station.connection());
  ASSERT_NE(wanted, before);
  ASSERT_GT(statements, 2);
  for (int n = 1; n <= statements; ++n) {
    SCOPED_TRACE("cut at statement " + std::to_string(n));
    StationDatabase database;
    filled(database);
    {
      FailingStation cut(database, n);
      EXPECT_THROW(flow.work(cut.station), Erro);
    }
    Station reopened = database.open();
    if (flow.check_cut) flow.check_cut(reopened.connection());
    flow.work(reopened);
    ASSERT_TRUE(flow.state(reopened.connection()) == wanted);
  }
}

}  // namespace posto::flows
