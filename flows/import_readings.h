// Takes in the pump automation's file: fuellings with their ledger movements.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "flows/station.h"

namespace posto::flows {

struct ImportResult {
  std::size_t read = 0;  // lines behind the header
  std::size_t stored = 0;
  std::size_t repeated = 0;  // already there: same nozzle, same totaliser, same figures
  std::size_t rejected = 0;
  std::string rejected_file;  // "<name>.rejeitadas.csv" beside the file; empty when every line was good
};

// Told now and then how far the work is: bytes of the file.
using ImportProgress = std::function<void(std::size_t done, std::size_t total)>;

// Stores the good lines of a file of readings (flows/readings.h tells their form). A bad line goes with its number and
// reason to the file of the rejected ones; a line whose reading is stored already is counted and passed over, so that
// an import that was cut can be run again.
//
// A fuelling, its ledger movement of type 20 with the product's new stock, the numbers that they take and the nozzle's
// last totaliser stand in one transaction; several readings share one. A delivery is never refused for want of stock.
// Raises 0x80040660 for a file without the header, 53 and 75 for one that cannot be read or written, the provider's
// failures; what was committed before stays.
ImportResult import_readings(Station& station, const std::string& path, const ImportProgress& progress = {});

}  // namespace posto::flows
