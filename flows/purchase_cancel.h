// Takes documents back: a purchase note, or an invoice that the station issued. Each in one transaction; a failure of
// the provider changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "flows/station.h"
#include "posto/core/enumerations.h"

namespace posto::flows {

struct Cancelled {
  std::string refused;  // why nothing was done; empty when it was
  std::size_t lines = 0;
  std::size_t movements = 0;   // of the ledger, each taken out of its product's stock
  std::size_t deliveries = 0;  // to tanks
};

// Deletes a purchase note with its lines, deliveries and ledger movements. Stock loses what the note brought; the
// product's averages become those that the movement bore, until the closing works them out anew. Refused where the
// note is not there, was delivered up to the company's settled date, or has payables.
Cancelled cancel_purchase(Station& station, std::int32_t No_Entrada);

// Takes an issued invoice back: its ledger movements out of stock, its lines, and the invoice itself, which remains as
// a cancelled one (CdTipoExclusaoLogica) or is deleted (CdTipoExclusaoFisica). Refused where it is not there, was
// issued up to the company's settled date, or is cancelled already and is to be cancelled.
Cancelled cancel_invoice(Station& station, std::int32_t Cd_TipoNF, std::int32_t No_Nota,
                         CdTipoExclusao No_TipoExclusao = CdTipoExclusaoLogica);

}  // namespace posto::flows
