#include "flows/csv_table.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

#include "posto/core/error_vocabulary.h"
#include "posto/types/text.h"

namespace posto::flows {

CsvTable::CsvTable(const std::string& path) : name_(std::filesystem::path(path).filename().string()), file_(path) {
  std::string header;
  if (!file_.next(header)) throw Erro(erro::kRuleViolation, "flows.CsvTable", name_ + ": o arquivo está vazio");
  columns_ = split_csv(header).value_or(std::vector<std::string>());
}

CsvTable::CsvTable(const std::string& path, std::initializer_list<std::string_view> columns) : CsvTable(path) {
  bool same = columns_.size() == columns.size() && std::all_of(columns.begin(), columns.end(), [&](std::string_view c) {
                return std::find(columns_.begin(), columns_.end(), c) != columns_.end();
              });
  if (same) return;
  std::string wanted;
  for (std::string_view column : columns) wanted += (wanted.empty() ? "" : ",") + std::string(column);
  fail("o cabeçalho não é " + wanted);
}

bool CsvTable::next() {
  std::string line;
  do {
    if (!file_.next(line)) return false;
  } while (trim(line).empty());
  if (!is_valid_utf8(line)) fail("a linha não é UTF-8");
  auto fields = split_csv(line);
  if (!fields) fail("aspas sem par");
  if (fields->size() != columns_.size()) {
    fail(std::to_string(fields->size()) + " campos em lugar de " + std::to_string(columns_.size()));
  }
  fields_ = std::move(*fields);
  return true;
}

const std::string& CsvTable::text(std::string_view column) const {
  auto found = std::find(columns_.begin(), columns_.end(), column);
  if (found == columns_.end()) fail("não há a coluna " + std::string(column));
  return fields_[static_cast<std::size_t>(found - columns_.begin())];
}

const std::string& CsvTable::required(std::string_view column, std::size_t width) const {
  const std::string& field = text(column);
  if (trim(field).empty()) fail(std::string(column) + " em branco");
  if (char_count(field) > width) fail(std::string(column) + " com mais de " + std::to_string(width) + " caracteres");
  return field;
}

std::int32_t CsvTable::integer(std::string_view column, std::int32_t least, std::int32_t most) const {
  const std::string& field = text(column);
  std::int32_t value = 0;
  auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
  if (error != std::errc{} || end != field.data() + field.size() || value < least || value > most) {
    fail(std::string(column) + " inválido: '" + field + "' (de " + std::to_string(least) + " a " +
         std::to_string(most) + ")");
  }
  return value;
}

Currency CsvTable::decimal(std::string_view column) const {
  const std::string& field = text(column);
  try {
    Currency value = Currency::parse(field);
    if (value >= Currency()) return value;
  } catch (const Erro&) {
    // told below, with the place
  }
  fail(std::string(column) + " inválido: '" + field + "'");
}

double CsvTable::figure(std::string_view column) const {
  const std::string& field = text(column);
  double value = 0;
  auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value, std::chars_format::fixed);
  if (error != std::errc{} || end != field.data() + field.size() || value < 0) {
    fail(std::string(column) + " inválido: '" + field + "'");
  }
  return value;
}

Date CsvTable::day(std::string_view column) const {
  const std::string& field = text(column);
  auto date = field.size() == 10 ? Date::parse_iso(field) : std::nullopt;
  if (!date) fail(std::string(column) + " não é uma data (aaaa-mm-dd): '" + field + "'");
  return *date;
}

bool CsvTable::yes(std::string_view column) const {
  const std::string& field = text(column);
  if (field != "S" && field != "N") fail(std::string(column) + " tem de ser S ou N: '" + field + "'");
  return field == "S";
}

void CsvTable::fail(const std::string& what) const {
  throw Erro(erro::kRuleViolation, "flows.CsvTable", name_ + ", linha " + std::to_string(file_.number()) + ": " + what);
}

}  // namespace posto::flows
