#include "posto/services/late_bound.h"

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr const char* kList = "MemoryList";
constexpr const char* kGrid = "MemoryGrid";

[[noreturn]] void unknown(const char* control, std::string_view name) {
  throw Erro(erro::kUnknownMember, control, "O objeto não possui " + std::string(name));
}

void require(const char* control, std::span<const Variant> arguments, std::size_t count) {
  if (arguments.size() != count) throw Erro(erro::kInvalidCall, control, "Quantidade de argumentos inválida");
}

std::vector<std::string> cells_of(std::string_view line) {
  std::vector<std::string> cells;
  for (std::size_t tab = 0; tab != std::string_view::npos;) {
    tab = line.find('\t');
    cells.emplace_back(line.substr(0, tab));
    if (tab != std::string_view::npos) line.remove_prefix(tab + 1);
  }
  return cells;
}

}  // namespace

MemoryList::Item& MemoryList::item(const Variant& index) {
  auto i = index.as<std::int32_t>();
  if (i < 0 || static_cast<std::size_t>(i) >= items_.size()) {
    throw Erro(erro::kInvalidCall, kList, "Não há o item " + std::to_string(i));
  }
  return items_[static_cast<std::size_t>(i)];
}

Variant MemoryList::call(std::string_view method, std::span<const Variant> arguments) {
  if (equal_names(method, "Clear")) {
    items_.clear();
  } else if (equal_names(method, "AddItem")) {
    require(kList, arguments, 1);
    items_.push_back({.text = arguments[0].as<std::string>()});
  } else {
    unknown(kList, method);
  }
  return {};
}

Variant MemoryList::get(std::string_view property, std::span<const Variant> arguments) {
  if (equal_names(property, "NewIndex")) return static_cast<std::int32_t>(items_.size()) - 1;
  if (!equal_names(property, "ItemData")) unknown(kList, property);
  require(kList, arguments, 1);
  return item(arguments[0]).data;
}

void MemoryList::let(std::string_view property, std::span<const Variant> arguments) {
  if (!equal_names(property, "ItemData")) unknown(kList, property);
  require(kList, arguments, 2);
  item(arguments[0]).data = arguments[1].as<std::int32_t>();
}

Variant MemoryGrid::call(std::string_view method, std::span<const Variant> arguments) {
  if (!equal_names(method, "AddItem")) unknown(kGrid, method);
  require(kGrid, arguments, 1);
  lines_.push_back(cells_of(arguments[0].as<std::string>()));
  return {};
}

Variant MemoryGrid::get(std::string_view property, std::span<const Variant>) {
  if (!equal_names(property, "Rows")) unknown(kGrid, property);
  return static_cast<std::int32_t>(lines_.size());
}

void MemoryGrid::let(std::string_view property, std::span<const Variant> arguments) {
  if (!equal_names(property, "Rows")) unknown(kGrid, property);
  require(kGrid, arguments, 1);
  auto rows = arguments[0].as<std::int32_t>();
  if (rows < 0) throw Erro(erro::kInvalidCall, kGrid, "Quantidade de linhas inválida");
  lines_.resize(static_cast<std::size_t>(rows));
}

}  // namespace posto
