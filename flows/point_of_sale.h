// The places in the station where lines are sold (PonVen).
#pragma once

#include <cstdint>
#include <set>

#include "flows/station.h"

namespace posto::flows {

// Looks codes up, inside the transaction of a sale. Every line of a coupon names a place: what a shift sold is summed
// up only where it does.
class PointsOfSale {
 public:
  explicit PointsOfSale(Station& station) : station_(station) {}

  // The code itself when it stands; for 0 the station's lowest, and a station without any gets "PRINCIPAL" as its 1.
  // Raises 0x80040660 for a code that is not there.
  std::int32_t find(std::int32_t code);

 private:
  std::int32_t lowest();
  void require(std::int32_t code);

  Station& station_;
  std::int32_t lowest_ = 0;          // 0: not looked up yet
  std::set<std::int32_t> standing_;  // codes that were looked up
};

}  // namespace posto::flows
