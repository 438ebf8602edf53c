#include "posto/services/search_form.h"

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr const char* kForm = "SearchForm";
constexpr std::string_view kOfGrid = "Grid.";

[[noreturn]] void not_in_form(std::string_view name) {
  throw Erro(erro::kUnknownMember, kForm, "O formulário não possui " + std::string(name));
}

bool of_grid(std::string_view path) { return equal_names(path.substr(0, kOfGrid.size()), kOfGrid); }
std::string_view member_of_grid(std::string_view path) { return path.substr(kOfGrid.size()); }

}  // namespace

std::string* SearchForm::text(std::string_view path) {
  if (equal_names(path, "Nm_Operador.Text")) return &first.operation;
  if (equal_names(path, "Ds_Procura.Text")) return &first.text;
  if (equal_names(path, "Qt_Encontrados.Text")) return &found;
  if (!second) return nullptr;
  if (equal_names(path, "Nm_Operador2.Text")) return &second->operation;
  return equal_names(path, "Ds_Procura2.Text") ? &second->text : nullptr;
}

Variant SearchForm::item_data(std::span<const Variant> arguments) const {
  const std::int32_t position = arguments.size() == 1 ? arguments[0].as<std::int32_t>() : -1;
  if (position < 0 || static_cast<std::size_t>(position) >= attributes.size()) {
    throw Erro(erro::kInvalidCall, kForm, "Posição inválida na lista de atributos");
  }
  return attributes[static_cast<std::size_t>(position)];
}

Variant SearchForm::call(std::string_view method, std::span<const Variant> arguments) {
  if (!of_grid(method)) not_in_form(method);
  return grid.call(member_of_grid(method), arguments);
}

Variant SearchForm::get(std::string_view property, std::span<const Variant> arguments) {
  if (of_grid(property)) return grid.get(member_of_grid(property), arguments);
  if (const std::string* known = text(property)) return *known;
  if (equal_names(property, "Nm_AtributoPesquisa.ListIndex")) return first.list_index;
  if (equal_names(property, "Nm_AtributoPesquisa.ItemData")) return item_data(arguments);
  if (second && equal_names(property, "Nm_AtributoPesquisa2.ListIndex")) return second->list_index;
  if (second && equal_names(property, "Nm_AtributoPesquisa2.ItemData")) return item_data(arguments);
  not_in_form(property);
}

void SearchForm::let(std::string_view property, std::span<const Variant> arguments) {
  if (of_grid(property)) return grid.let(member_of_grid(property), arguments);
  std::string* known = text(property);
  if (!known) not_in_form(property);
  if (arguments.size() != 1) throw Erro(erro::kInvalidCall, kForm, "Quantidade de argumentos inválida");
  *known = arguments[0].as<std::string>();
}

}  // namespace posto
