// The stock consolidated at a day.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/services/late_bound.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

struct ConsolidatedProduct {
  std::string group, name;
  std::int32_t code = 0;
  double quantity = 0, cost = 0;  // average cost of a unit
  Currency total{};               // two decimals
};

struct ConsolidatedStock {
  std::vector<ConsolidatedProduct> products;  // by group and name; those that have a group
  Currency total{};                           // the sum of theirs
};

// Writes the company's stock at the end of a day anew out of the ledger, with or without the products of which there is
// none, and gives it. `form` shows how far the work is (posto/services/memory_progress.h). One transaction: behind a
// cut the day is as it was. Raises the provider's failures and those of the form.
ConsolidatedStock consolidar(Station& station, Date day, LateBound& form, bool without_zero = false);

}  // namespace posto::flows
