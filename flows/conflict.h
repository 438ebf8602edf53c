// Work that several workstations do on one database at once.
#pragma once

#include <functional>

#include "flows/station.h"

namespace posto::flows {

// Whether a failure says that another transaction was in the way: 0x80040E31 with a SQLSTATE of the class of
// transactions that were rolled back. What the own one did is to be done again.
bool is_conflict(const Erro& failure);
// Such a failure, raised by `source`.
Erro conflict(const char* source, const std::string& description);

// Runs `work` in a transaction and commits it. Where another workstation was in the way the work is rolled back and
// begun afresh, for as long as a statement may take (Connection::CommandTimeout): `work` reads what it needs each time.
// Raises what `work` raises; nothing of it is written then.
void in_transaction(Station& station, const std::function<void()>& work);

}  // namespace posto::flows
