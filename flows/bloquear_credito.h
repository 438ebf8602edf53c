// The block and the cancelling of overdue customers' credit.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

// A person whose credit was taken away.
struct CreditChange {
  std::int32_t code = 0;
  std::string name;
  bool cancelled = false;  // otherwise blocked
  Currency overdue{};      // balance of the bills past their extended due date that the person owes or guarantees
  Date oldest_due{};       // of these; the zero date when there are none
};

// Blocks and cancels the credit of overdue customers and their guarantors (DALEmpresaUsuaria tells whose) and tells who
// they are, by code; a person who was blocked and cancelled at once is told as cancelled. Persons are shared: their
// state changes in all companies. All of it stands in one transaction, so that no guarantor is left out by a cut: run
// again it gives the same, and once it was done it finds nobody. Raises the provider's failures; nothing has changed
// then.
std::vector<CreditChange> bloquear_credito(Station& station);

}  // namespace posto::flows
