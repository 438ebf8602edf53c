#include "posto/core/DALBuscaGenerica.h"

#include <algorithm>
#include <array>

#include "posto/types/number_pattern.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr Description kBuscaGenerica{.class_name = "DALBuscaGenerica", .table = ""};

// What stands around the value searched.
struct Around {
  std::string_view before, behind;
};

struct Operator {
  std::string_view name;
  Around number, date, text;
};

// The wild cards of the last two stand on the other side than their names say; stored searches count on it.
constexpr Operator kOperators[] = {
    {"IGUAL A", {" = ", ""}, {" = '", "'"}, {" = '", "'"}},
    {"DIFERENTE DE", {" <> ", ""}, {" <> '", "'"}, {" <> '", "'"}},
    {"CONTENDO", {" = ", ""}, {" = '", "'"}, {" Like '%", "%'"}},
    {"INICIANDO COM", {" = ", ""}, {" >= '", "'"}, {" Like '%", "'"}},
    {"TERMINANDO COM", {" = ", ""}, {" <= '", "'"}, {" Like '", "%'"}},
};

constexpr auto kOperatorNames = [] {
  std::array<std::string_view, std::size(kOperators)> names;
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = kOperators[i].name;
  return names;
}();

const Around& around(const Operator& op, std::int32_t type) {
  if (type == SearchAttribute::kNumber) return op.number;
  return type == SearchAttribute::kDate ? op.date : op.text;
}

void append_term(std::string& clause, const SearchAttribute& attribute, bool first) {
  clause.append(first ? "" : ", ").append(attribute.term());
}

constexpr const char* yes_or_no(bool value) { return value ? "SIM" : "NÃO"; }

constexpr const char* kCredit[] = {"", "A DEFINIR", "LIBERADO", "BLOQUEADO", "CANCELADO", "INSOLVENTE"};

const char* credit_text(std::int32_t state) {
  return state > 0 && state < static_cast<std::int32_t>(std::size(kCredit)) ? kCredit[state] : "";
}

std::string cell_text(const Variant& value) {
  constexpr std::string_view kFraction = "###,###,##0.00####";
  switch (value.kind()) {
    case VariantKind::Null:
      return {};
    case VariantKind::Boolean:
      return yes_or_no(value.held<bool>());
    case VariantKind::Float32:
      return format_number(value.held<float>(), kFraction);
    case VariantKind::Float64:
      return format_number(value.held<double>(), kFraction);
    case VariantKind::Currency:
      return format_number(value.held<Currency>(), kFraction);
    case VariantKind::Date:
      return format_date(value.held<Date>(), "dd/mm/yyyy");
    default: {
      std::string text = value.as<std::string>();
      std::ranges::replace(text, '\t', ' ');  // it would begin another cell
      return text;
    }
  }
}

std::string cell_of(const Field& field) {
  const Variant value = field.Value();
  if (value.is_null()) return {};
  if (equal_names(field.Name(), "Fl_CupomAssinado")) return yes_or_no(value.as<bool>());
  if (equal_names(field.Name(), "No_SituacaoCredito")) return credit_text(value.as<std::int32_t>());
  return cell_text(value);
}

std::string line_of(Recordset& record) {
  std::string line;
  for (std::size_t i = 0; i < record.field_count(); ++i) line += (i > 0 ? "\t" : "") + cell_of(record[i]);
  return line;
}

}  // namespace

DALBuscaGenerica::DALBuscaGenerica() : EntityBase(kBuscaGenerica) {}
DALBuscaGenerica::DALBuscaGenerica(std::shared_ptr<VOSistema> settings)
    : EntityBase(kBuscaGenerica, std::move(settings)) {}

std::span<const std::string_view> DALBuscaGenerica::operators() { return kOperatorNames; }

std::string DALBuscaGenerica::Ds_ClausulaSelect() const {
  std::string clause = "SELECT ";
  for (const SearchAttribute& attribute : ColecaoAtributos) {
    append_term(clause, attribute, &attribute == &ColecaoAtributos.front());
  }
  return clause;
}

std::string DALBuscaGenerica::Ds_ClausulaFROM() const {
  const bool apart = !Ds_ClausulaJoin.empty() && Ds_ClausulaJoin.front() != ' ';
  return "FROM " + Nm_Tabela + (apart ? " " : "") + Ds_ClausulaJoin;
}

std::string DALBuscaGenerica::Ds_ClausulaOrderBy() const {
  std::string clause;
  for (const SearchAttribute& attribute : ColecaoAtributos) {
    if (attribute.in_order) append_term(clause, attribute, clause.empty());
  }
  return clause.empty() ? clause : "ORDER BY " + clause;
}

LateBound& DALBuscaGenerica::form() const {
  if (FormBuscaGenerica) return *FormBuscaGenerica;
  throw Erro(erro::kObjectNotSet, std::string(kBuscaGenerica.class_name), "FormBuscaGenerica não foi informado");
}

std::string DALBuscaGenerica::text_of(const std::string& control) const {
  return form().get(control + ".Text", {}).as<std::string>();
}

// The condition of the search row whose controls have `row` behind their names; empty when it asks nothing.
std::string DALBuscaGenerica::condition(std::string_view row, std::int32_t chosen) const {
  const std::string suffix(row);
  const std::string searched = text_of("Ds_Procura" + suffix);
  if (chosen < 0 || searched.empty()) return {};
  const Variant index = form().get("Nm_AtributoPesquisa" + suffix + ".ItemData", {{Variant(chosen)}});
  const auto place = index.as<std::int32_t>();
  if (place < 0 || static_cast<std::size_t>(place) >= ColecaoAtributos.size()) {
    raise_described(erro::kInvalidCall, "Não há o atributo " + std::to_string(place));
  }
  const SearchAttribute& attribute = ColecaoAtributos[static_cast<std::size_t>(place)];
  const std::string name = text_of("Nm_Operador" + suffix);
  const auto op = std::ranges::find(kOperators, name, &Operator::name);
  if (op == std::end(kOperators)) raise_described(erro::kInvalidCall, "Não há o operador '" + name + "'");
  const Around& value = around(*op, attribute.type);
  return attribute.term() + std::string(value.before) + searched + std::string(value.behind);
}

std::string DALBuscaGenerica::conditions() const {
  std::string asked = condition("", form().get("Nm_AtributoPesquisa.ListIndex", {}).as<std::int32_t>());
  std::int32_t chosen = -1;
  try {
    chosen = form().get("Nm_AtributoPesquisa2.ListIndex", {}).as<std::int32_t>();
  } catch (const Erro& failure) {
    if (failure.number() != erro::kUnknownMember) throw;
    return asked;  // the form has no second row
  }
  const std::string second = condition("2", chosen);
  return asked + (asked.empty() || second.empty() ? "" : " AND ") + second;
}

std::string DALBuscaGenerica::Ds_ClausulaWHERE() {
  return routine("Ds_ClausulaWHERE", [&]() -> std::string {
    const std::string asked = conditions();
    const std::string& always = Ds_ComplementoClausulaWHERE;
    if (asked.empty()) return always.empty() ? "" : "Where " + always;
    return " WHERE " + asked + (always.empty() ? "" : " And " + always);
  });
}

std::string DALBuscaGenerica::query() {
  std::string text = Ds_ClausulaSelect() + "\r" + Ds_ClausulaFROM();
  for (const std::string& clause : {Ds_ClausulaWHERE(), Ds_ClausulaOrderBy()}) {
    if (!clause.empty()) text += "\r" + clause;
  }
  return text;
}

void DALBuscaGenerica::CarregarMSFlexGridDeBusca() {
  routine("CarregarMSFlexGridDeBusca", [&] {
    std::string statement = query();
    form().let("Grid.Rows", {{Variant(std::int32_t{1})}});
    Recordset found = open(std::move(statement));
    if (found.EOF() && found.BOF()) raise(erro::kRecordNotFound, "(" + Nm_Tabela + ")");
    std::int64_t count = 0;
    for (; !found.EOF(); found.MoveNext(), ++count) form().call("Grid.AddItem", {{Variant(line_of(found))}});
    found.Close();
    form().let("Qt_Encontrados.Text", {{Variant(format_number(count, "###,###,##0"))}});
  });
}

}  // namespace posto
