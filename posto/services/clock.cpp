#include "posto/services/clock.h"

#include <chrono>
#include <ctime>

namespace posto {
namespace {

Date local_time() {
  using namespace std::chrono;
  auto now = system_clock::now();
  std::time_t seconds = system_clock::to_time_t(now);
  auto millis = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
  std::tm local{};
  localtime_r(&seconds, &local);
  return Date::of_moment(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                         local.tm_sec == 60 ? 59 : local.tm_sec)
      .plus_millis(millis);
}

std::function<Date()>& clock() {
  static std::function<Date()> current = [] { return local_time(); };
  return current;
}

}  // namespace

Date clock_now() { return clock()(); }

ClockOverride::ClockOverride(std::function<Date()> replacement) : former_(std::move(clock())) {
  clock() = std::move(replacement);
}

ClockOverride::~ClockOverride() { clock() = std::move(former_); }

}  // namespace posto
