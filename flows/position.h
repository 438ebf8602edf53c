// Where the station stands: nozzles between two days, products with their movements.
#pragma once

#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

// What a nozzle gave out in a period, by its totaliser and by its deliveries.
struct NozzlePosition {
  std::string address, description;
  double opening = 0;  // litres on the totaliser before the first day
  double closing = 0;  // and behind the last
  double litres = 0;   // sum of the deliveries, each as the automation told it
  Currency sales{};    // sum of their amounts
  std::int32_t deliveries = 0;

  double difference() const { return closing - opening - litres; }
};

// The nozzles of the company by address, from the first to the last day.
std::vector<NozzlePosition> nozzle_positions(const Station& station, Date first, Date last);

// A product with what came in and went out in a period, and its present stock.
struct ProductPosition {
  std::int32_t code = 0;
  std::string bar_code, name;
  double in = 0, out = 0;  // quantities of the period's ledger movements
  double stock = 0;        // present quantity, average cost and ICMS credit of a unit
  double cost = 0;
  double icms_credit = 0;
};

// The products that have a stock (no services), by code.
std::vector<ProductPosition> product_positions(const Station& station, Date first, Date last);

}  // namespace posto::flows
