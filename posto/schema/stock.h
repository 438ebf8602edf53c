// The value objects of the tables of stock.def.
#pragma once

#include <string>

#include "posto/schema/value_object.h"

namespace posto {
#define POSTO_DEF "posto/schema/stock.def"
#include "posto/schema/value_objects.inc"
}  // namespace posto
