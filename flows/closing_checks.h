// The examinations of a day as a person reads them: what each finds, what that means and what is to be done.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "flows/station.h"
#include "posto/types/date.h"
#include "posto/types/variant.h"

namespace posto::flows {

// What an examination found, or what a repair mended.
struct Finding {
  std::string_view name{};               // the operation, by which a finding is accepted
  std::string_view meaning{}, advice{};  // sentences for the person who closes the day
  std::vector<std::string> columns{};    // of the rows
  std::vector<std::vector<Variant>> rows{};
  std::string text{};  // what the operation says of it, where it says anything

  bool empty() const { return rows.empty() && text.empty(); }
  // Rows, or 1 for a text alone.
  std::size_t count() const { return rows.empty() && !text.empty() ? 1 : rows.size(); }
};

// The names of all findings that can refuse a day, in the order of the examinations.
std::vector<std::string_view> finding_names();

// Mends what can be mended of the day and what comes behind it, and tells what was changed. One transaction.
std::vector<Finding> repair_day(Station& station, Date day);

// Examines the day; those that found something. Run the repairs first.
std::vector<Finding> examine_day(Station& station, Date day);

// The finding of products that cannot be proved. Its name is among finding_names().
Finding unproved_products();

}  // namespace posto::flows
