#include "posto/core/entity.h"

#include <fmt/format.h>

#include "posto/core/mapper.h"

namespace posto {
namespace {

struct IsGiven {
  bool operator()(std::monostate) const { return false; }
  bool operator()(const Null&) const { return false; }
  bool operator()(const std::string& text) const { return !text.empty(); }
  bool operator()(Date date) const { return !date.empty(); }
  template <class Number>
  bool operator()(Number number) const {
    return number != Number();
  }
};

// A list control may also offer no collection under the name.
template <class Statement>
void tolerant_of_control(Statement&& statement) {
  tolerant([&] {
    try {
      statement();
    } catch (const Erro& failure) {
      if (failure.number() != erro::kNotACollection) throw;
    }
  });
}

std::string in_parentheses(std::string_view table) { return "(" + std::string(table) + ")"; }

}  // namespace

void ListItems::clear() {
  tolerant_of_control([&] { control_.call("Clear", {}); });
}

void ListItems::add(const Variant& text) {
  tolerant_of_control([&] { control_.call("AddItem", {{text}}); });
}

void ListItems::add(const Variant& text, const Variant& data) {
  add(text);
  tolerant_of_control([&] {
    const Variant item[] = {control_.get("NewIndex", {}), data};
    control_.let("ItemData", item);
  });
}

// --- keys
// ---------------------------------------------------------------------------------------------------------------

bool EntityBase::has_value(std::string_view column) { return std::visit(IsGiven(), vo().get(column).storage()); }

bool EntityBase::has_values(Names columns) {
  for (std::string_view column : columns) {
    if (!has_value(column)) return false;
  }
  return !columns.empty();
}

Names EntityBase::first_given(std::span<const KeySet> sets) {
  for (const KeySet& set : sets) {
    if (has_values(set.names())) return set.names();
  }
  return {};
}

Names EntityBase::key_for(Purpose purpose) {
  if (purpose == Purpose::remove && !description_.remove_keys.empty()) {
    return first_given({&description_.remove_keys, 1});
  }
  Names key = first_given(description_.keys);
  return key.empty() && purpose == Purpose::read ? first_given(description_.read_keys) : key;
}

std::vector<std::string> EntityBase::nomeCamposSequencial() const {
  Names names = description_.sequence.names();
  return {names.begin(), names.end()};
}

// --- failures
// -----------------------------------------------------------------------------------------------------------

void EntityBase::require_settings() const {
  if (!ObVOSistema)
    throw Erro(erro::kObjectNotSet, std::string(description_.class_name), "ObVOSistema não foi informado");
}

void EntityBase::leave_with(const Erro& failure) const {
  const std::string step = std::string(description_.class_name) + "." + std::string(operation_);
  SalvarErro(failure);
  if (ObVOSistema) ObVOSistema->SairRotina(step);
  LevantarErroSalvo(" -> " + step);
}

void EntityBase::raise(std::int32_t number, std::string_view behind) const {
  throw table_erro(number, description_.class_name, operation_, behind);
}

void EntityBase::raise_described(std::int32_t number, const std::string& description) const {
  throw Erro(number, routine_step(description_.class_name, operation_), description);
}

void EntityBase::raise_and_reset(std::int32_t number, std::string_view behind, bool reset) {
  if (reset) vo().RestaurarDefault();
  raise(number, behind);
}

// --- record sets
// --------------------------------------------------------------------------------------------------------

Connection& EntityBase::connection() const {
  if (!ObVOSistema->ObConnection) {
    throw Erro(erro::kConnectionInvalid, std::string(description_.class_name), "ObVOSistema não tem conexão");
  }
  return *ObVOSistema->ObConnection;
}

Recordset EntityBase::open(std::string statement) {
  statement_ = std::move(statement);
  Recordset rows;
  rows.ActiveConnection(ObVOSistema->ObConnection);
  rows.Source = statement_;
  rows.CursorType = ObVOSistema->Cursor;
  if (ObVOSistema->LockType != 0) rows.LockType = ObVOSistema->LockType;
  rows.Open();
  return rows;
}

Recordset EntityBase::read(std::string statement) {
  statement_ = std::move(statement);
  return connection().Execute(statement_);
}

Recordset EntityBase::detached(std::string statement) {
  statement_ = std::move(statement);
  Recordset rows;
  rows.ActiveConnection(ObVOSistema->ObConnection);
  rows.Source = statement_;
  rows.CursorType = adOpenStatic;
  rows.CursorLocation = adUseClient;
  rows.Open();
  rows.ActiveConnection(nullptr);
  return rows;
}

void EntityBase::execute(std::string statement) {
  statement_ = std::move(statement);
  connection().Execute(statement_);
}

// --- operations
// ---------------------------------------------------------------------------------------------------------

Recordset EntityBase::open_by_key(std::string_view table, Names key, bool reset) {
  if (key.empty()) raise_missing(reset);
  Recordset record;
  tolerant([&] { statement_ = sqlSelect(*ObVOSistema, table, vo(), {}, key); });
  tolerant([&] { record = open(std::move(statement_)); });
  return record;
}

void EntityBase::require_record(Recordset& record, std::string_view table, bool reset) {
  if (record.EOF() && record.BOF()) raise_and_reset(erro::kRecordNotFound, in_parentheses(table), reset);
}

// The record that the value object's key finds.
Recordset EntityBase::open_record(Purpose purpose, bool reset) {
  Recordset record = open_by_key(description_.table, key_for(purpose), reset);
  const bool own_words = purpose == Purpose::read && !description_.not_read.empty();
  if (own_words && record.EOF() && record.BOF()) {
    if (reset) vo().RestaurarDefault();
    raise_described(erro::kRecordNotFound, std::string(description_.not_read));
  }
  require_record(record, description_.table, reset);
  return record;
}

void EntityBase::consult(bool reset_when_missing, const Step& then) {
  routine("Consultar", [&] {
    if (description_.enters_reading) ObVOSistema->EntrarRotina("Consultar");
    Recordset record = open_record(Purpose::read, reset_when_missing);
    read_record(record, vo());
    record.Close();
    if (then) then();
    if (description_.enters_reading) ObVOSistema->SairRotina("Consultar");
  });
}

bool EntityBase::exists() {
  return routine("Existe", [&] {
    Names key = key_for(Purpose::read);
    if (key.empty()) raise_missing(false);
    return !read(sqlSelect(*ObVOSistema, description_.table, vo(), {}, key)).EOF();
  });
}

void EntityBase::fill(Recordset& record) { TransferirDadosDeVOParaBd(*ObVOSistema, vo(), record); }

void EntityBase::Alterar(bool Ic_Salvando) {
  alter(Ic_Salvando, [&](Recordset& record) { fill(record); });
}

void EntityBase::alter(bool saving, const Write& write, const Step& then) {
  routine("Alterar", [&] {
    Recordset record = open_record(Purpose::change, !saving);
    change_record(record, description_.sequence.names(), write);
    if (then) then();
  });
}

void EntityBase::change_record(Recordset& record, Names sequence, const Write& write) {
  tolerant([&] { pegarValorCamposSequencial(vo(), sequence, record); });
  tolerant([&] { write(record); });
  tolerant([&] { record.Update(); });
  record.Close();
}

// The query without rows, or the table's name: rows are read when they are asked for, so that reads nothing either.
std::string EntityBase::insert_source() {
  std::string table(description_.insert_table.empty() ? description_.table : description_.insert_table);
  if (!description_.empty_query.empty())
    return "Select * From " + table + " Where " + std::string(description_.empty_query);
  if (!description_.empty_query_by_keys) return table;
  std::string conditions;
  for (std::string_view key : description_.keys[0].names()) {
    conditions += conditions.empty() ? " Where " : " and ";
    conditions += key;
    conditions += vo().get(key).is_text() ? " = ''" : " = 0";
  }
  return "Select * From " + table + conditions;
}

void EntityBase::Incluir() {
  routine("Incluir", [&] { insert_record(insert_source()); });
}

void EntityBase::insert_record(std::string source, Names read_back) {
  Recordset record = open(std::move(source));
  record.AddNew();
  fill(record);
  record.Update();
  pegarValorCamposSequencial(vo(), read_back, record);
  record.Close();
}

void EntityBase::Excluir() {
  routine("Excluir", [&] {
    Names key = key_for(Purpose::remove);
    if (key.empty()) raise_missing(true);
    execute(sqlDelete(*ObVOSistema, description_.table, vo(), key));
  });
}

void EntityBase::load_list(LateBound& control, std::string_view condition) {
  const auto& list = description_.list;
  std::string statement = fmt::format(" SELECT   {}, {}\r FROM     {} \r", list.key, list.display, description_.table);
  if (!list.order.empty()) statement += fmt::format("{}\r ORDER BY {} \r", condition, list.order);
  load_list_of(control, std::move(statement));
}

void EntityBase::load_list_of(LateBound& control, std::string statement) {
  routine("CarregarComboBox", [&] {
    ListItems items(control);
    ObVOSistema->EntrarRotina("CarregarComboBox");
    items.clear();
    Recordset rows = detached(std::move(statement));
    if (rows.EOF() && rows.BOF()) {
      if (description_.list.refuses_empty) raise(erro::kRecordNotFound, in_parentheses(description_.table));
    } else {
      items.add("SELECIONE ->", std::int32_t{0});
      for (; !rows.EOF(); rows.MoveNext()) list_record(items, rows);
    }
    ObVOSistema->SairRotina("CarregarComboBox");
  });
}

void EntityBase::list_record(ListItems& items, Recordset& record) {
  items.add(record[description_.list.display].Value(), record[description_.list.key].Value());
}

}  // namespace posto
