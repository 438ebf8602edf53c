// Classes that are the standard entity (core/entity.h) and nothing else, each a line of catalogue.def: DALBairro,
// DALBanco, ... The classes with something of their own have their descriptions there too.
#pragma once

#include "posto/core/describe.h"
#include "posto/schema/masterdata.h"
#include "posto/schema/treasury.h"

namespace posto {

#define CLASS(table, ...) POSTO_DESCRIPTION(table, __VA_ARGS__)
#define CATALOGUE(table, ...)           \
  POSTO_DESCRIPTION(table, __VA_ARGS__) \
  using DAL##table = Entity<VO##table, k##table>;
#include "posto/masterdata/catalogue.def"
#undef CATALOGUE
#undef CLASS

}  // namespace posto
