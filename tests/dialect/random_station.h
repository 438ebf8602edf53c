// Random data for tests of statements: rows for every table, and statements with other values than their own.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "posto/schema/table.h"

namespace posto::testing {

// POSTO_TEST_SEED, or another one each time.
std::uint32_t random_seed();

// Values are few and the ones that the statements of the corpus ask for, so that conditions are often true; some are
// null, some are at the ends of their types.
class RandomStation {
 public:
  explicit RandomStation(std::uint32_t seed) : random_(seed) {}

  // INSERTs of about `rows` rows for a table; a generated column is left out.
  std::vector<std::string> rows_for(const Table& table, int rows);
  // The statement with some of the values that it compares or writes replaced.
  std::string with_other_values(const std::string& statement);

 private:
  bool chance(int percent) { return std::uniform_int_distribution<int>(1, 100)(random_) <= percent; }
  template <class List>
  const auto& one_of(const List& list) {
    return list[std::uniform_int_distribution<std::size_t>(0, std::size(list) - 1)(random_)];
  }
  std::string value_for(const Column& column);
  std::string text(std::size_t width);

  std::mt19937 random_;
};

}  // namespace posto::testing
