#include <algorithm>

#include "posto/engines/engine.h"
#include "posto/types/text.h"

namespace posto {
namespace {

bool holds_key(const std::vector<ResultColumn>& columns, const Table& table) {
  return table.has_key() && std::all_of(table.columns.begin(), table.columns.end(), [&](const Column& key) {
           return !key.key ||
                  std::any_of(columns.begin(), columns.end(), [&](const ResultColumn& c) { return c.column == &key; });
         });
}

}  // namespace

ResultShape::ResultShape(std::vector<ResultColumn> columns, const Table* rows_of) : columns_(std::move(columns)) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int first = folded_.emplace(ascii_lower(columns_[i].name), static_cast<int>(i)).first->second;
    exact_.emplace(columns_[i].name, first);
    is_first_.push_back(first == static_cast<int>(i));
  }
  if (rows_of != nullptr && holds_key(columns_, *rows_of)) updatable_ = rows_of;
}

int ResultShape::find(std::string_view name) const {
  int& recent = recent_[(reinterpret_cast<std::uintptr_t>(name.data()) >> 3) % kRecent];
  if (static_cast<std::size_t>(recent) < columns_.size() && columns_[static_cast<std::size_t>(recent)].name == name &&
      is_first_[static_cast<std::size_t>(recent)]) {
    return recent;
  }
  if (auto hit = exact_.find(name); hit != exact_.end()) return recent = hit->second;
  auto found = folded_.find(ascii_lower(name));
  return found == folded_.end() ? -1 : found->second;
}

std::span<const Property* const> ResultShape::properties_of(const VoLayout& layout) const {
  for (const auto& [known, properties] : resolved_) {
    if (known == &layout) return properties;
  }
  std::vector<const Property*> properties;
  for (const ResultColumn& column : columns_) properties.push_back(layout.find(column.name));
  return resolved_.emplace_back(&layout, std::move(properties)).second;
}

Variant cell_value(const Cell& cell, SqlType type) {
  if (cell.null) return Null{};
  switch (type) {
    case SqlType::bit:
      return cell.integer != 0;
    case SqlType::byte:
      return static_cast<std::uint8_t>(cell.integer);
    case SqlType::int16:
      return static_cast<std::int16_t>(cell.integer);
    case SqlType::int32:
      return static_cast<std::int32_t>(cell.integer);
    case SqlType::float32:
      return static_cast<float>(cell.real);
    case SqlType::float64:
      return cell.real;
    case SqlType::money:
      return Currency::of_scaled(cell.integer);
    case SqlType::date:
      return Date::of_millis(cell.integer);
    case SqlType::text:
      break;
  }
  return cell.text;
}

}  // namespace posto
