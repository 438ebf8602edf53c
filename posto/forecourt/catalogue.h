// Classes of the forecourt that are the standard entity and nothing else: one line of facts each.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/forecourt.h"

namespace posto {

// The configuration of the pump automation, one record a company.
inline constexpr Description kAutomacaoBomba{.class_name = "DALAutomacaoBomba",
                                             .table = "AutomacaoBomba",
                                             .keys = {{"Cd_PessoaUsuaria"}},
                                             .empty_query = "Cd_PessoaUsuaria = 0"};
using DALAutomacaoBomba = Entity<VOAutomacaoBomba, kAutomacaoBomba>;

// Piping systems, each with the fuel that it carries.
inline constexpr Description kSisTubulacao{.class_name = "DALSisTubulacao",
                                           .table = "SisTubulacao",
                                           .keys = {{"Cd_PessoaUsuaria", "Cd_SisTubulacao"}},
                                           .empty_query = "Cd_PessoaUsuaria = 0 and Cd_SisTubulacao = 0"};
using DALSisTubulacao = Entity<VOSisTubulacao, kSisTubulacao>;

}  // namespace posto
