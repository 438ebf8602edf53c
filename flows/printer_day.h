// The end of a fiscal printer's business day: its Z reduction and its line of the summary map, out of the coupons.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "flows/printer_day_figures.h"
#include "posto/schema/fiscal.h"

namespace posto::flows {

// A printer's day: the coupons' figures, its line of the map where there is one, and what does not agree, in sentences.
struct PrinterDay {
  PrinterDayFigures figures;
  std::optional<VOMapaResumoECF> map{};
  std::vector<std::string> findings{};
};

// Prorates the discounts on the totals of the day's coupons over their lines, then writes the Z reduction and the line
// of the map anew. One transaction; run again it writes the same. Nothing but a finding comes of a day without coupons.
//
// The count of reductions is the coupons', and above that of the printer's day before. The grand total begins where
// that day ended, on a printer's first day where its coupons do. A rate that the printer does not have takes its next
// free totaliser, and is a finding where the printer has any; services go to its first totaliser of services. Raises
// the provider's failures.
PrinterDay reduce_printer_day(Station& station, std::int32_t printer, Date day);

// The day as it stands. Whatever the map and the coupons tell otherwise is a finding, and so is a missing map.
PrinterDay printer_day(const Station& station, std::int32_t printer, Date day);

}  // namespace posto::flows
