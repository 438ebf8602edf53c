#include "flows/conflict.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

namespace posto::flows {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr std::string_view kRolledBack = "40";  // SQL's class of states
constexpr int kLongestPause = 100;              // milliseconds

// Longer from time to time and never the same, so that two do not meet again and again.
Milliseconds pause(int tries) {
  static std::mt19937 random(std::random_device{}());
  const int longest = std::min(kLongestPause, 1 << std::min(tries, 10));
  return Milliseconds(std::uniform_int_distribution<int>(1, longest)(random));
}

}  // namespace

bool is_conflict(const Erro& failure) {
  return failure.number() == erro::kTimeout && failure.provider() &&
         failure.provider()->sqlstate.starts_with(kRolledBack);
}

Erro conflict(const char* source, const std::string& description) {
  return {erro::kTimeout, source, description, {.sqlstate = "40001"}};
}

void in_transaction(Station& station, const std::function<void()>& work) {
  const auto began = Clock::now();
  const std::chrono::seconds longest(station.connection().CommandTimeout);
  for (int tries = 1;; ++tries) {
    try {
      Transaction transaction(station.settings->ObConnection);
      work();
      transaction.commit();
      return;
    } catch (const Erro& failure) {
      const bool in_time = longest.count() == 0 || Clock::now() - began < longest;
      if (!is_conflict(failure) || !in_time) throw;
    }
    std::this_thread::sleep_for(pause(tries));
  }
}

}  // namespace posto::flows
