#include "posto/services/memory_progress.h"

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr const char* kSource = "MemoryProgress";

[[noreturn]] void unknown(std::string_view name) {
  throw Erro(erro::kUnknownMember, kSource, "O objeto não possui " + std::string(name));
}

void require(std::span<const Variant> arguments, std::size_t count) {
  if (arguments.size() != count) throw Erro(erro::kInvalidCall, kSource, "Quantidade de argumentos inválida");
}

}  // namespace

std::string* MemoryProgress::text(std::string_view property) {
  if (equal_names(property, "Caption")) return &caption;
  if (equal_names(property, "Acao")) return &action;
  return equal_names(property, "Percentual.Caption") ? &percentage : nullptr;
}

std::int32_t* MemoryProgress::number(std::string_view property) {
  if (equal_names(property, "Progresso.Max")) return &max;
  return equal_names(property, "Progresso.Value") ? &value : nullptr;
}

Variant MemoryProgress::call(std::string_view method, std::span<const Variant> arguments) {
  const bool show = equal_names(method, "Show");
  if (!show && !equal_names(method, "Refresh")) unknown(method);
  require(arguments, 0);
  if (show) shown = true;
  if (!show && on_refresh) on_refresh(*this);
  return {};
}

Variant MemoryProgress::get(std::string_view property, std::span<const Variant> arguments) {
  require(arguments, 0);
  if (const std::string* found = text(property)) return *found;
  if (const std::int32_t* found = number(property)) return *found;
  unknown(property);
}

void MemoryProgress::let(std::string_view property, std::span<const Variant> arguments) {
  require(arguments, 1);
  if (std::string* found = text(property)) {
    *found = arguments[0].as<std::string>();
  } else if (std::int32_t* figure = number(property)) {
    *figure = arguments[0].as<std::int32_t>();
  } else {
    unknown(property);
  }
}

}  // namespace posto
