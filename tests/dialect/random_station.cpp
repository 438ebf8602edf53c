#include "tests/dialect/random_station.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdlib>
#include <regex>

namespace posto::testing {
namespace {

constexpr const char* kDates[] = {"2009-04-01", "2009-04-02",          "2009-04-03",          "2009-04-03 14:05:06",
                                  "2009-04-30", "2009-03-31 23:59:59", "2008-02-29",          "2009-05-10",
                                  "1899-12-30", "2009-01-01",          "2026-11-23 06:12:40", "2009-04-03 00:00:01"};
constexpr const char* kTexts[] = {"",       "04",         "A",    "a",    "a ",      "MARIA SILVA", "maria silva",
                                  "ÓLEO",   "óleo",       "Oleo", "100%", "AB_C[1]", "123456789",   "000123",
                                  "-12.50", "2009-04-03", "zz",   "Z ",   "12",      "Ç",           "c"};
// Statements make it a number: of which rows, before or behind another condition, is the engine's affair.
constexpr std::string_view kConverted = "No_TribIcms";
constexpr int kSmall[] = {0, 1, 1, 1, 1, 2, 3, 4, 7, 10, 12, 20, 21, 25};
constexpr const char* kFloats[] = {"0",      "1",   "0.25", "-2.5",       "10.125",
                                   "1234.5", "0.1", "1e-7", "508224.603", "99999.75"};
constexpr const char* kMoney[] = {"0",     "1",   "-1",       "0.0001",       "12.5",
                                  "6.199", "100", "-99.9999", "1234567.8901", "0.005"};

}  // namespace

std::uint32_t random_seed() {
  const char* given = std::getenv("POSTO_TEST_SEED");
  return given != nullptr ? static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
}

// Cut to whole characters.
std::string RandomStation::text(std::size_t width) {
  std::string all = one_of(kTexts);
  std::size_t end = 0, characters = 0;
  for (; end < all.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(all[end]) & 0xC0) != 0x80;
    if (begins && ++characters > width) break;
  }
  return all.substr(0, end);
}

std::string RandomStation::value_for(const Column& column) {
  if (column.nullable && chance(15)) return "Null";
  switch (column.type) {
    case SqlType::bit:
      return chance(50) ? "0" : "-1";
    case SqlType::byte:
      return chance(3) ? "255" : std::to_string(one_of(kSmall));
    case SqlType::int16:
      return chance(3) ? "-32768" : std::to_string(one_of(kSmall));
    case SqlType::int32:
      return chance(2) ? "2147483647" : std::to_string(one_of(kSmall));
    case SqlType::float32:
    case SqlType::float64:
      return one_of(kFloats);
    case SqlType::money:
      return one_of(kMoney);
    case SqlType::date:
      return fmt::format("'{}'", one_of(kDates));
    case SqlType::text:
      if (column.name == kConverted) return fmt::format("'{}'", one_of(kSmall) % 10);
      return fmt::format("'{}'", text(column.width == 0 ? 40 : column.width));
  }
  return {};
}

std::vector<std::string> RandomStation::rows_for(const Table& table, int rows) {
  std::vector<std::string> inserts;
  for (int i = 0; i < rows; ++i) {
    std::vector<std::string> names, values;
    for (const Column& column : table.columns) {
      if (column.identity || (column.nullable && chance(10))) continue;
      names.emplace_back(column.name);
      values.push_back(value_for(column));
    }
    if (names.empty()) break;
    inserts.push_back(
        fmt::format("INSERT INTO {} ({}) Values ({})", table.name, fmt::join(names, ", "), fmt::join(values, ", ")));
  }
  return inserts;
}

// A quoted date becomes another date, another text another text, a number behind a comparison another number.
std::string RandomStation::with_other_values(const std::string& statement) {
  static const std::regex kValue(R"re('([^'\r]*)'|([=<>]\s*)(\d+)(?![\d.]))re");
  static const std::regex kDate(R"re(\d{4}-\d{2}-\d{2}( \d{2}:\d{2}:\d{2})?)re");
  std::string other;
  auto at = statement.cbegin();
  for (std::sregex_iterator match(statement.begin(), statement.end(), kValue), end; match != end; ++match) {
    other.append(at, (*match)[0].first);
    const std::string quoted = (*match)[1];
    if (!chance(50)) {
      other += match->str();
    } else if ((*match)[3].matched) {
      other += match->str(2) + std::to_string(one_of(kSmall));
    } else if (std::regex_match(quoted, kDate)) {
      other += fmt::format("'{}'", one_of(kDates));
    } else if (quoted.find('%') != std::string::npos) {
      other += match->str();
    } else {
      other += fmt::format("'{}'", text(std::max<std::size_t>(quoted.size(), 1)));
    }
    at = (*match)[0].second;
  }
  return other.append(at, statement.cend());
}

}  // namespace posto::testing
