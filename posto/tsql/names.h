// Names in the written SQL.
#pragma once

#include <string>
#include <string_view>

namespace posto::tsql {

// In double quotes.
inline std::string quoted_name(std::string_view name) {
  std::string quoted = "\"";
  for (char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

}  // namespace posto::tsql
