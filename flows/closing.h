// The closing of a day: repairs, examinations, recalculation with its proofs, and the mark that the day is closed.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "flows/closing_checks.h"
#include "flows/recalculation.h"
#include "flows/station.h"

namespace posto::flows {

struct ClosingOptions {
  std::set<std::string, std::less<>> accepted{};  // names of findings (finding_names()) that do not refuse the day
  std::string user{};                             // who closes the day and accepts them
  std::int16_t attempts = 3;                      // of the recalculation
  ProductProgress progress{};
};

struct Closing {
  bool closed = false;           // now, or before: then everything below is empty
  bool was_closed = false;       // before
  std::vector<Finding> mended;   // what the repairs changed
  std::vector<Finding> refused;  // why the day is not closed
  std::vector<Finding> accepted;
  std::vector<RecalculatedProduct> products;  // of the days from this one on
};

// Closes a day. A finding that nobody accepted refuses it: behind the examinations nothing is recalculated then, behind
// the proofs the day is not marked; what was mended and recalculated stays. With the mark goes, for each finding that
// was accepted, who did so, when, and how many rows it had (AceiteFecDiario).
//
// Repairs, each product, and the mark with what was accepted are a transaction each, and each can run again: behind a
// cut a new run ends as an uncut one. A day that is closed stays as it is. Raises 0x80040660 for the name of a finding
// that there is not, and for accepted findings without a user; the provider's failures.
Closing close_day(Station& station, Date day, const ClosingOptions& options = {});

// What was accepted when a day was closed, in the order in which it was: of one day, or of all where it is empty. A row
// of AceiteFecDiario each; those of a day that was reopened are among them.
Recordset acceptances(Station& station, Date day = {});

// Takes the mark off; false where there was none. What was accepted stays on record.
bool reopen_day(Station& station, Date day);

}  // namespace posto::flows
