#include "posto/services/late_bound.h"

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr const char* kSource = "MemoryList";

[[noreturn]] void unknown(std::string_view name) {
  throw Erro(erro::kUnknownMember, kSource, "O objeto não possui " + std::string(name));
}

void require(std::span<const Variant> arguments, std::size_t count) {
  if (arguments.size() != count) throw Erro(erro::kInvalidCall, kSource, "Quantidade de argumentos inválida");
}

}  // namespace

MemoryList::Item& MemoryList::item(const Variant& index) {
  auto i = index.as<std::int32_t>();
  if (i < 0 || static_cast<std::size_t>(i) >= items_.size()) {
    throw Erro(erro::kInvalidCall, kSource, "Não há o item " + std::to_string(i));
  }
  return items_[static_cast<std::size_t>(i)];
}

Variant MemoryList::call(std::string_view method, std::span<const Variant> arguments) {
  if (equal_names(method, "Clear")) {
    items_.clear();
  } else if (equal_names(method, "AddItem")) {
    require(arguments, 1);
    items_.push_back({.text = arguments[0].as<std::string>()});
  } else {
    unknown(method);
  }
  return {};
}

Variant MemoryList::get(std::string_view property, std::span<const Variant> arguments) {
  if (equal_names(property, "NewIndex")) return static_cast<std::int32_t>(items_.size()) - 1;
  if (!equal_names(property, "ItemData")) unknown(property);
  require(arguments, 1);
  return item(arguments[0]).data;
}

void MemoryList::let(std::string_view property, std::span<const Variant> arguments) {
  if (!equal_names(property, "ItemData")) unknown(property);
  require(arguments, 2);
  item(arguments[0]).data = arguments[1].as<std::int32_t>();
}

}  // namespace posto
