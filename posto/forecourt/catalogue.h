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

// Tanks, each with its fuel and the piping system that it feeds.
POSTO_DESCRIPTION(Tanque, keys("Cd_PessoaUsuaria", "No_Tanque"), by_query)
using DALTanque = Entity<VOTanque, kTanque>;

// What of a purchase went into which tank.
POSTO_DESCRIPTION(Descarga, keys("Cd_PessoaUsuaria", "No_Entrada", "No_Tanque"), by_query)
using DALDescarga = Entity<VODescarga, kDescarga>;

}  // namespace posto
