// The value objects of the tables of closing.def.
#pragma once

#include <string>

#include "posto/schema/value_object.h"

namespace posto {
#define POSTO_DEF "posto/schema/closing.def"
#include "posto/schema/value_objects.inc"
}  // namespace posto
