// An open station: what every flow works on.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "posto/core/sistema.h"

namespace posto::flows {

// The settings with their open connection and the user company's record.
struct Station {
  std::shared_ptr<VOSistema> settings;

  Connection& connection() const { return *settings->ObConnection; }
  std::int32_t tenant() const { return settings->tenant(); }
};

// Opens a database and reads the user company. `company` 0 takes the only one there is, and none while the station is
// not registered yet. Raises what Connection::Open raises, and 0x80040660 when the company does not exist or must be
// chosen.
Station open_station(std::string_view database, std::int32_t company = 0, StatementObserver observer = {});

// The user company of an open connection, as above.
void read_company(VOSistema& settings, std::int32_t company);

}  // namespace posto::flows
