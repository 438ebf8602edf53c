#include <algorithm>

#include "posto/engines/engine.h"
#include "posto/engines/odbc/connection_string.h"

namespace posto {

std::string shown_address(std::string_view connection_string) {
  if (const odbc::ConnectionString odbc(connection_string); odbc.opens_odbc()) return odbc.shown();
  std::string shown(connection_string);
  const auto mask = [&](std::size_t begin, std::size_t end) { shown.replace(begin, end - begin, "***"); };
  if (const std::size_t option = shown.find("password="); option != std::string::npos) {
    const std::size_t begin = shown.find('=', option) + 1;
    mask(begin, std::min(shown.find_first_of("& ", begin), shown.size()));
  }
  const std::size_t scheme = shown.find("://");
  const std::size_t host = shown.rfind('@');
  if (scheme == std::string::npos || host == std::string::npos) return shown;
  const std::size_t colon = shown.find(':', scheme + 3);
  if (colon < host) mask(colon + 1, host);
  return shown;
}

}  // namespace posto
