// The fuellings that a computer posts by itself.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "flows/station.h"

namespace posto::flows {

struct PostedFuelling {
  std::int32_t fuelling = 0;  // Cd_Abastecimento
  std::int32_t coupon = 0;    // No_CupomFiscal
  Currency value;
};

struct RefusedFuelling {
  std::int32_t fuelling = 0;
  std::string reason;
};

struct AutomaticPosting {
  std::vector<PostedFuelling> posted;
  std::vector<std::int32_t> calibrations;  // marked as posted without a coupon: nothing was sold
  std::vector<RefusedFuelling> refused;
};

// Posts the pending fuellings of the nozzles that name `computer`, those marked for it and, where the company posts by
// age, those older than its seconds: the oldest first, each on a coupon of its own at `printer`, until none is left. It
// is paid by the kind of receipt that the nozzle was preset to, or in cash.
//
// Two computers may post at once: each sale stands in a transaction of its own, and a fuelling that the other one has
// sold meanwhile is passed over. A fuelling that stood on a coupon already without being marked is marked, sold no
// second time, and told as refused. The work ends at the first that cannot be sold for another reason, because it stays
// the oldest. Failures of the database are raised; what was posted before stays.
AutomaticPosting post_automatically(Station& station, const std::string& computer, std::uint8_t printer);

}  // namespace posto::flows
