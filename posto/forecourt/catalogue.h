// Classes of the forecourt that are the standard entity and nothing else: one line of facts each.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/forecourt.h"

namespace posto {

// The configuration of the pump automation, one record a company.
POSTO_DESCRIPTION(AutomacaoBomba, keys("Cd_PessoaUsuaria"), by_query)
using DALAutomacaoBomba = Entity<VOAutomacaoBomba, kAutomacaoBomba>;

// Piping systems, each with the fuel that it carries.
POSTO_DESCRIPTION(SisTubulacao, keys("Cd_PessoaUsuaria", "Cd_SisTubulacao"), by_query)
using DALSisTubulacao = Entity<VOSisTubulacao, kSisTubulacao>;

}  // namespace posto
