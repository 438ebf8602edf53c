// Classes of the closing that are a template and nothing else: one line of facts each.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/closing.h"

namespace posto {

// What was accepted, by whom, when a day was closed.
POSTO_DESCRIPTION(AceiteFecDiario, keys("Cd_PessoaUsuaria", "No_Aceite"), generated)
using DALAceiteFecDiario = Entity<VOAceiteFecDiario, kAceiteFecDiario>;

}  // namespace posto
