// Stock recalculated from a day on: each product's ledger walked, the product's figures set, the outcome proved.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/types/date.h"

namespace posto::flows {

// A product as the recalculation left it.
struct RecalculatedProduct {
  std::int32_t code = 0;
  std::string name{};
  double quantity = 0, cost = 0, icms_credit = 0;  // behind its last movement
  int attempts = 0;                                // walks that were made
  bool proved = false;
  std::string reason{};  // why it could not be proved
};

// Told before each product: how many are done, of how many, and its name.
using ProductProgress = std::function<void(std::size_t done, std::size_t total, const std::string& name)>;

struct RecalculationOptions {
  std::int32_t product = 0;   // this one alone, whether it moved or not; 0: those that moved from the day on
  std::int16_t attempts = 3;  // walks until a product is given up, each proved with a wider tolerance
  ProductProgress progress{};
};

// Recalculates, by code. Each product is one transaction: behind a cut those before it are done, and a run from the
// same day ends as an uncut one. A product that cannot be proved keeps what was worked out. Raises 0x80040202 for a
// product that is not there, the provider's failures.
std::vector<RecalculatedProduct> recalculate(Station& station, Date since, const RecalculationOptions& options = {});

}  // namespace posto::flows
