// The present moment.
#pragma once

#include <functional>

#include "posto/types/date.h"

namespace posto {

// The station's local time, to the millisecond.
Date clock_now();

// Puts another clock in its place until it goes out of scope: for tests, and for what is entered behind its time.
class ClockOverride {
 public:
  explicit ClockOverride(std::function<Date()> clock);
  explicit ClockOverride(Date always) : ClockOverride([always] { return always; }) {}
  ~ClockOverride();
  ClockOverride(const ClockOverride&) = delete;
  ClockOverride& operator=(const ClockOverride&) = delete;

 private:
  std::function<Date()> former_;
};

}  // namespace posto
