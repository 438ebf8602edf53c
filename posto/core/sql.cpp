#include "posto/core/sql.h"

namespace posto {
namespace {

std::size_t leading_blanks(std::string_view line) {
  std::size_t n = line.find_first_not_of(' ');
  return n == std::string_view::npos ? line.size() : n;
}

void append_line(std::string& out, std::string_view line, std::span<const SqlPart>& parts) {
  for (std::size_t hole = line.find("{}"); hole != std::string_view::npos; hole = line.find("{}")) {
    out += line.substr(0, hole);
    out += parts.front().text();
    parts = parts.subspan(1);
    line.remove_prefix(hole + 2);
  }
  out += line;
}

}  // namespace

std::string compose_sql(std::string_view raw, std::span<const SqlPart> parts) {
  std::string out;
  out.reserve(raw.size() + 24 * parts.size());
  if (raw.starts_with('\n')) raw.remove_prefix(1);
  const std::size_t indent = leading_blanks(raw);
  while (!raw.empty()) {
    std::size_t end = raw.find('\n');
    std::string_view line = raw.substr(0, end);
    raw = end == std::string_view::npos ? std::string_view() : raw.substr(end + 1);
    line.remove_prefix(std::min(indent, leading_blanks(line)));
    if (!out.empty()) out += '\r';
    append_line(out, line, parts);
  }
  return out;
}

}  // namespace posto
