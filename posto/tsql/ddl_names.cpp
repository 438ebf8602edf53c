#include "posto/tsql/ddl_names.h"

#include <algorithm>

#include "posto/tsql/names.h"
#include "posto/types/text.h"

namespace posto::tsql {
namespace {

void add(std::string& list, std::string_view name, std::string_view behind) {
  if (!list.empty()) list += ", ";
  list += quoted_name(name);
  list += behind;
}

}  // namespace

std::vector<std::string_view> names_of(const Index& index) {
  std::vector<std::string_view> names;
  for (std::string_view rest = index.columns; !rest.empty();) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    names.push_back(trim(rest.substr(0, comma)));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return names;
}

std::string quoted_names(const Index& index, std::string_view behind) {
  std::string list;
  for (std::string_view name : names_of(index)) add(list, name, behind);
  return list;
}

std::string quoted_key(const Table& table) {
  std::string list;
  for (const Column& column : table.columns) {
    if (column.key) add(list, column.name, {});
  }
  return list;
}

}  // namespace posto::tsql
