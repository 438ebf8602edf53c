// Streets.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"

namespace posto {

POSTO_DESCRIPTION(Logradouro, keys("Cd_Logradouro"), list("Nm_Logradouro"), existe)

// The standard operations and Existe.
using DALLogradouro = Entity<VOLogradouro, kLogradouro>;

}  // namespace posto
