// The form of a search screen without a screen.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "posto/services/late_bound.h"

namespace posto {

// A condition of a search screen.
struct SearchRow {
  std::int32_t list_index = -1;  // the position chosen in the list of attributes; -1 none
  std::string operation{}, text{};
};

// What a search screen asks and shows, called by name. A control's property is asked for by its path, raising 438 for
// any other: Nm_AtributoPesquisa.ListIndex and .ItemData, Nm_Operador.Text, Ds_Procura.Text, of a second search row
// Nm_AtributoPesquisa2 and so on, Grid.Rows, Grid.AddItem, Qt_Encontrados.Text. Raises 5 for a position that the list
// of attributes does not have.
class SearchForm final : public LateBound {
 public:
  SearchRow first;
  std::optional<SearchRow> second;       // where the form has a second row
  std::vector<std::int32_t> attributes;  // of each position in the list of attributes, its ItemData
  MemoryGrid grid;
  std::string found;

  Variant call(std::string_view method, std::span<const Variant> arguments) override;
  Variant get(std::string_view property, std::span<const Variant> arguments) override;
  void let(std::string_view property, std::span<const Variant> arguments) override;

 private:
  std::string* text(std::string_view path);
  Variant item_data(std::span<const Variant> arguments) const;
};

}  // namespace posto
