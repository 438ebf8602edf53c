#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <regex>
#include <span>

#include "posto/core/DALBuscaGenerica.h"
#include "posto/core/sql_literals.h"
#include "posto/services/search_form.h"
#include "posto/types/text.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

// What one search row asks, as it was typed.
struct Condition {
  std::optional<std::string> attribute;
  std::string operation, text;
};

struct BuscarOptions {
  std::string table;
  Condition first, second;
  std::vector<std::string> columns, order;
  Form form = Form::aligned;
};

constexpr const char* kTenant = "Cd_PessoaUsuaria";

// Wrong use, told where it was found.
[[noreturn]] void refuse(const std::string& where, const std::string& message) {
  throw CLI::ValidationError(where, message);
}

[[noreturn]] void refuse_name(const std::string& where, const std::string& name,
                              const std::vector<std::string_view>& names) {
  refuse(where, fmt::format("não há '{}'; há: {}", name, fmt::join(names, ", ")));
}

const Table& table_named(const std::string& name) {
  if (const Table* table = find_table(name)) return *table;
  std::vector<std::string_view> names;
  for (const Table& table : all_tables()) names.push_back(table.name);
  std::ranges::sort(names);
  refuse_name("tabela", name, names);
}

const Column& column_named(const Table& table, const std::string& name, const std::string& where) {
  if (const Column* column = table.find(name)) return *column;
  std::vector<std::string_view> names;
  for (const Column& column : table.columns) names.push_back(column.name);
  refuse_name(where, name, names);
}

std::string operator_named(const std::string& name, const std::string& where) {
  const auto operators = DALBuscaGenerica::operators();
  const auto found = std::ranges::find_if(operators, [&](std::string_view known) { return equal_names(known, name); });
  if (found == operators.end()) refuse_name(where, name, {operators.begin(), operators.end()});
  return std::string(*found);
}

std::string with_quotes_doubled(std::string_view text) {
  std::string doubled;
  for (char c : text) doubled.append(c == '\'' ? 2 : 1, c);
  return doubled;
}

std::string searched_date(const std::string& text, const std::string& where, const std::string& format) {
  const auto date = Date::parse_iso(text);
  if (!date) refuse(where, "'" + text + "' não é uma data (aaaa-mm-dd, ou aaaa-mm-dd hh:mm:ss)");
  return format_date(*date, *date == date->day() ? format : format + " hh:Nn:Ss");
}

std::string searched_number(const std::string& text, const std::string& where) {
  static const std::regex kNumber("-?[0-9]+(\\.[0-9]+)?");
  std::string number = SubstituirVirgulaPorPonto(text);
  if (!std::regex_match(number, kNumber)) refuse(where, "'" + text + "' não é um número");
  return number;
}

std::string searched_indicator(const std::string& text, const std::string& where) {
  auto is_one_of = [&](std::initializer_list<const char*> words) {
    return std::ranges::any_of(words, [&](const char* word) { return compare_text(text, word) == 0; });
  };
  if (is_one_of({"SIM", "1", "-1"})) return "1";
  if (is_one_of({"NÃO", "NAO", "0"})) return "0";
  refuse(where, "'" + text + "' não é SIM nem NÃO");
}

// What was typed, as a statement takes it: it can neither break nor extend one.
std::string searched(const Column& column, const std::string& text, const std::string& where,
                     const VOSistema& settings) {
  if (text.empty()) return text;
  switch (column.type) {
    case SqlType::text:
      return with_quotes_doubled(text);
    case SqlType::date:
      return searched_date(text, where, settings.Ds_FormatoData);
    case SqlType::bit:
      return searched_indicator(text, where);
    default:
      return searched_number(text, where);
  }
}

// A grid's lines aligned under the names of the columns; figures stand at the right.
void print_lines(const std::vector<const Column*>& columns, std::span<const MemoryGrid::Line> lines) {
  std::vector<AnswerColumn> titles;
  std::vector<std::size_t> widths(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    titles.push_back({std::string(columns[i]->name), std::string(columns[i]->name)});
    const SqlType type = columns[i]->type;
    if (type == SqlType::text || type == SqlType::date || type == SqlType::bit) continue;
    widths[i] = columns[i]->name.size();
    for (const MemoryGrid::Line& line : lines) widths[i] = std::max(widths[i], line[i].size());
  }
  Answer answer(std::move(titles));
  for (const MemoryGrid::Line& line : lines) {
    std::vector<Variant> row;
    for (std::size_t i = 0; i < line.size(); ++i) row.emplace_back(fmt::format("{:>{}}", line[i], widths[i]));
    answer.add(std::move(row));
  }
  answer.print(Form::aligned);
}

// A search over one table, made of options that have been checked.
class Search {
 public:
  Search(const BuscarOptions& options, const Table& table) : options_(options), table_(table) {
    choose_columns();
    for (const Column* column : columns_) dal_.ColecaoAtributos.push_back(search_attribute(*column));
    for (const Column* column : order_) dal_.ColecaoAtributos[place_of(*column)].in_order = true;
    for (std::size_t i = 0; i < columns_.size(); ++i) form_.attributes.push_back(static_cast<std::int32_t>(i));
    dal_.Nm_Tabela = table.name;
    dal_.FormBuscaGenerica = &form_;
    operation(options.first, form_.first, "--operador");
    if (options.second.attribute) operation(options.second, form_.second.emplace(), "--operador2");
  }

  void run(const flows::Station& station) {
    dal_.ObVOSistema = station.settings;
    if (table_.find(kTenant)) dal_.Ds_ComplementoClausulaWHERE = fmt::format("{} = {}", kTenant, station.tenant());
    value(options_.first, form_.first, "--procura");
    if (form_.second) value(options_.second, *form_.second, "--procura2");
    if (options_.form == Form::aligned) return print_grid();
    Recordset rows = station.connection().Execute(dal_.query());
    print_rows(rows, options_.form);
  }

 private:
  // The columns that are asked for, or all, and those that are searched or ordered by, which a search shows too.
  void choose_columns() {
    if (options_.columns.empty()) {
      for (const Column& column : table_.columns) columns_.push_back(&column);
    }
    for (const std::string& name : options_.columns) add(columns_, name, "--colunas");
    if (options_.first.attribute) add(columns_, *options_.first.attribute, "--atributo");
    if (options_.second.attribute) add(columns_, *options_.second.attribute, "--atributo2");
    for (const std::string& name : options_.order) {
      add(columns_, name, "--ordem");
      add(order_, name, "--ordem");
    }
    // Rows are ordered by the columns as they stand: those of the order trade places until they stand as it says.
    std::vector<std::size_t> places;
    for (const Column* column : order_) places.push_back(place_of(*column));
    std::ranges::sort(places);
    for (std::size_t i = 0; i < places.size(); ++i) columns_[places[i]] = order_[i];
  }

  void add(std::vector<const Column*>& columns, const std::string& name, const std::string& where) const {
    const Column* column = &column_named(table_, name, where);
    if (std::ranges::find(columns, column) == columns.end()) columns.push_back(column);
  }

  std::size_t place_of(const Column& column) const {
    return static_cast<std::size_t>(std::ranges::find(columns_, &column) - columns_.begin());
  }

  void operation(const Condition& asked, SearchRow& row, const char* where) const {
    if (!asked.attribute) return;
    row.operation = operator_named(asked.operation, where);
    row.list_index = static_cast<std::int32_t>(place_of(*table_.find(*asked.attribute)));
  }

  void value(const Condition& asked, SearchRow& row, const char* where) const {
    if (asked.attribute) row.text = searched(*table_.find(*asked.attribute), asked.text, where, *dal_.ObVOSistema);
  }

  void print_grid() {
    try {
      dal_.CarregarMSFlexGridDeBusca();
    } catch (const Erro& failure) {
      if (failure.number() != erro::kRecordNotFound) throw;
      fmt::print("0 encontrados: nenhum registro de {} atende à busca\n", table_.name);
      return;
    }
    print_lines(columns_, std::span(form_.grid.lines()).subspan(1));  // behind the heading
    fmt::print("{} {}\n", form_.found, form_.found == "1" ? "encontrado" : "encontrados");
  }

  const BuscarOptions& options_;
  const Table& table_;
  std::vector<const Column*> columns_, order_;
  DALBuscaGenerica dal_;
  SearchForm form_;
};

void add_condition(CLI::App* command, Condition& condition, const std::string& suffix) {
  auto* attribute = command->add_option("--atributo" + suffix, condition.attribute, "coluna em que se procura");
  auto* operation = command->add_option("--operador" + suffix, condition.operation,
                                        fmt::format("{}", fmt::join(DALBuscaGenerica::operators(), ", ")));
  auto* text = command->add_option("--procura" + suffix, condition.text, "o que se procura; vazio não restringe");
  attribute->needs(operation)->needs(text);
  operation->needs(attribute);
  text->needs(attribute);
}

}  // namespace

void add_buscar(CLI::App& app, Session& session) {
  auto options = std::make_shared<BuscarOptions>();
  CLI::App* command = add_command(app, session, "buscar", "Procura em uma tabela, com a contagem", [&session, options] {
    Search search(*options, table_named(options->table));
    search.run(session.open());
  });
  command->add_option("tabela", options->table, "a tabela")->required();
  add_condition(command, options->first, "");
  add_condition(command, options->second, "2");
  command->add_option("--colunas", options->columns, "colunas mostradas: A,B,C; sem elas todas")
      ->delimiter(',')
      ->allow_extra_args(false);
  command->add_option("--ordem", options->order, "colunas da ordem: A,B")->delimiter(',')->allow_extra_args(false);
  add_form(command, options->form);
}

}  // namespace posto::program
