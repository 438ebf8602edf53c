#include "flows/sequence.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <thread>

#include "flows/conflict.h"
#include "tests/flows/sample_station.h"
#include "tests/support/processes.h"

namespace posto::flows {
namespace {

std::string numbers_of(const StationDatabase& database) {
  return rows_of(database.open().connection(), "SELECT * FROM SequenciadorGeral ORDER BY Nm_Atributo");
}

TEST(Sequence, ATransactionThatIsRolledBackGivesItsNumbersBack) {
  StationDatabase database;
  Station station = database.open();
  Sequence sequence(station.settings, "Cd_Abastecimento");
  for (bool commits : {false, true, false, true}) {
    Transaction transaction(station.settings->ObConnection);
    sequence.forget();
    sequence.next();
    sequence.next();
    sequence.store();
    if (commits) transaction.commit();
  }
  EXPECT_EQ(numbers_of(database), "Cd_Abastecimento/0,4\n");
}

// The first one holds the number, new or not, when the second one asks.
TEST(Sequence, TwoProcessesAtOnceGetDifferentNumbers) {
  StationDatabase database;
  for (const char* wanted : {"1 2", "3 4"}) {
    std::array<int, 2> held{}, given{};
    ASSERT_EQ(pipe(held.data()) + pipe(given.data()), 0);
    auto take = [&](const std::function<void()>& while_held) {
      Station station = database.open();
      std::int32_t number = 0;
      in_transaction(station, [&] {
        Sequence sequence(station.settings, "Cd_Abastecimento");
        number = sequence.next();
        while_held();
        sequence.store();
      });
      if (write(given[1], &number, sizeof number) < 0) throw std::runtime_error("pipe");
    };
    testing::ChildProcess first([&] {
      take([&] {
        if (write(held[1], "!", 1) < 0) throw std::runtime_error("pipe");
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
      });
    });
    testing::ChildProcess second([&] {
      char mark = 0;
      if (read(held[0], &mark, 1) < 0) throw std::runtime_error("pipe");
      take([] {});
    });
    EXPECT_TRUE(first.end());
    EXPECT_TRUE(second.end());
    std::array<std::int32_t, 2> numbers{};
    ASSERT_EQ(read(given[0], numbers.data(), sizeof numbers), static_cast<ssize_t>(sizeof numbers));
    EXPECT_EQ(std::to_string(numbers[0]) + " " + std::to_string(numbers[1]), wanted);
    for (int end : {held[0], held[1], given[0], given[1]}) close(end);
  }
  EXPECT_EQ(numbers_of(database), "Cd_Abastecimento/0,4\n");
}

}  // namespace
}  // namespace posto::flows
