// What the shifts of the sample's week come to, worked out from its files alone, on whole numbers.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "posto/types/currency.h"

namespace posto::flows {

struct ModelShift {
  Currency fuels, goods, services, discounts, receipts, on_credit;
  // The rows of the summary, as summary_line writes them.
  std::multiset<std::string> summary;
};

// A row of a summary; a value that is not there is a dash.
std::string summary_line(const std::string& group, std::int32_t item, const std::string& name,
                         const std::array<std::optional<Currency>, 3>& values);

// By Cd_Caixa, as they stand when the week is over and the faulty day corrected.
std::map<std::int32_t, ModelShift> model_shifts();

}  // namespace posto::flows
