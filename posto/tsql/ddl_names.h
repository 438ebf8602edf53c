// The names of which the definitions of tables and indexes are made.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "posto/schema/table.h"

namespace posto::tsql {

// The names of an index's columns, apart.
std::vector<std::string_view> names_of(const Index& index);
// They in quotes and separated by commas, each with `behind` behind it.
std::string quoted_names(const Index& index, std::string_view behind = {});
// The columns of the primary key likewise; empty where there is none.
std::string quoted_key(const Table& table);

}  // namespace posto::tsql
