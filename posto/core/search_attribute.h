// What a search shows and may ask for.
#pragma once

#include <cstdint>
#include <string>

#include "posto/schema/table.h"

namespace posto {

// One attribute of a search: a column, or an expression in its place.
struct SearchAttribute {
  static constexpr std::int32_t kText = 0, kNumber = 6, kDate = 7;

  std::string name;           // the column
  std::string qualifier{};    // when not empty, stands in place of the name: "Pessoa.Cd_Pessoa"
  std::int32_t type = kText;  // kNumber, kDate; any other is a text
  bool in_order = false;      // takes part in the ordering

  const std::string& term() const { return qualifier.empty() ? name : qualifier; }
};

// The attribute that a column of the catalogue is; a bit is a number.
SearchAttribute search_attribute(const Column& column);

}  // namespace posto
