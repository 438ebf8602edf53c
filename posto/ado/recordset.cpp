#include "posto/ado/recordset.h"

#include <utility>

#include "posto/ado/rows.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

[[noreturn]] void raise(std::int32_t number, const std::string& what) { throw Erro(number, "ADODB.Recordset", what); }

// The kind of value that a column's type holds.
VariantKind kind_of(SqlType type) {
  static constexpr VariantKind kKinds[] = {VariantKind::Boolean,  VariantKind::Byte,    VariantKind::Int16,
                                           VariantKind::Int32,    VariantKind::Float32, VariantKind::Float64,
                                           VariantKind::Currency, VariantKind::Date,    VariantKind::Text};
  return kKinds[static_cast<std::size_t>(type)];
}

// A value as another one of the column's type.
Variant converted(const Variant& value, SqlType type) {
  if (value.is_null() || value.is_empty()) return Null{};
  switch (type) {
    case SqlType::bit:
      return value.as<bool>();
    case SqlType::byte:
      return value.as<std::uint8_t>();
    case SqlType::int16:
      return value.as<std::int16_t>();
    case SqlType::int32:
      return value.as<std::int32_t>();
    case SqlType::float32:
      return value.as<float>();
    case SqlType::float64:
      return value.as<double>();
    case SqlType::money:
      return value.as<Currency>();
    case SqlType::date:
      return value.as<Date>();
    case SqlType::text:
      break;
  }
  return value.as<std::string>();
}

// A value that has been converted to the column's type, as a cell; its text stays the value's own.
Cell cell_of(const Variant& value, SqlType type) {
  Cell cell;
  cell.null = value.is_null();
  if (cell.null) return cell;
  switch (type) {
    case SqlType::bit:
      cell.integer = value.as<bool>();
      break;
    case SqlType::byte:
    case SqlType::int16:
    case SqlType::int32:
      cell.integer = value.as<std::int32_t>();
      break;
    case SqlType::float32:
    case SqlType::float64:
      cell.real = value.as<double>();
      break;
    case SqlType::money:
      cell.integer = value.held<Currency>().scaled();
      break;
    case SqlType::date:
      cell.integer = value.held<Date>().millis();
      break;
    case SqlType::text:
      cell.text = value.held<std::string>();
  }
  return cell;
}

bool cell_holds(const Cell& cell, SqlType type, const Variant& value) {
  const Cell other = cell_of(value, type);
  if (cell.null || other.null) return cell.null == other.null;
  if (type == SqlType::text) return cell.text == other.text;
  if (type == SqlType::float32 || type == SqlType::float64) return cell.real == other.real;
  return cell.integer == other.integer;
}

bool is_table_name(std::string_view source) {
  return !source.empty() && source.find_first_of(" \t\r\n") == std::string_view::npos && find_table(source) != nullptr;
}

}  // namespace

struct Recordset::Rows : RowReader {
  using RowReader::RowReader;
};

// Values that the caller wrote, and what is known of the current record beside its row.
struct Recordset::Edit {
  // Values of some of the fields, by position; empty until the first is set.
  class Values {
   public:
    bool has(std::size_t i) const { return i < set_.size() && set_[i] != 0; }
    const Variant& operator[](std::size_t i) const { return values_[i]; }
    void set(std::size_t i, Variant&& value, std::size_t count) {
      if (values_.empty()) {
        values_.resize(count);
        set_.resize(count);
      }
      values_[i] = std::move(value);
      set_[i] = 1;
    }
    void unset(std::size_t i) {
      if (has(i)) set_[i] = 0;
    }
    // Takes over what `newer` has.
    void merge(Values&& newer) {
      if (values_.empty()) {
        std::swap(*this, newer);
        return;
      }
      for (std::size_t i = 0; i < newer.values_.size(); ++i) {
        if (newer.has(i)) set(i, std::move(newer.values_[i]), values_.size());
      }
    }

   private:
    std::vector<Variant> values_;
    std::vector<std::uint8_t> set_;
  };

  Values pending;       // not yet written
  Values stored;        // written by an earlier Update
  bool adding = false;  // AddNew, not yet Update
  bool added = false;   // the current record is one that was added
  bool changed = false;
};

Recordset::Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() { let_rows_go(); }

// --- opening and closing
// ------------------------------------------------------------------------------------------------

void Recordset::ActiveConnection(std::shared_ptr<Connection> connection) {
  if (open_ && connection) raise(erro::kObjectOpen, "O conjunto de registros está aberto");
  if (open_ && CursorLocation != adUseClient)
    raise(erro::kNotSupported, "Só um cursor do cliente se desliga da conexão");
  connection_ = std::move(connection);
}

void Recordset::Open() {
  if (open_) raise(erro::kObjectOpen, "O conjunto de registros já está aberto");
  if (!connection_) raise(erro::kConnectionInvalid, "O conjunto de registros não tem conexão");
  std::string_view source = trim(Source);
  Outcome outcome = is_table_name(source) ? connection_->engine().execute("SELECT * FROM " + std::string(source))
                                          : connection_->engine().execute(Source);
  if (outcome.cursor) begin_on(std::move(outcome.cursor), connection_);
}

void Recordset::begin_on(std::unique_ptr<Cursor> cursor, std::shared_ptr<Connection> connection) {
  connection_ = std::move(connection);
  shape_ = cursor->shared_shape();
  bool keep = CursorLocation == adUseClient || CursorType != adOpenForwardOnly;
  let_rows_go();
  rows_ = std::make_unique<Rows>(std::move(cursor), keep, std::exchange(connection_->spare_row_, {}));
  edit_.reset();
  open_ = true;
  started_ = false;
  if (CursorLocation == adUseClient) rows_->fetch_all();
}

void Recordset::Close() {
  if (!open_) raise(erro::kObjectClosed, "O conjunto de registros está fechado");
  let_rows_go();
  edit_.reset();
  open_ = started_ = false;
}

// The memory of the row serves the connection's next record set: most are opened for one record.
void Recordset::let_rows_go() {
  if (rows_ && connection_) connection_->spare_row_ = rows_->release_memory();
  rows_.reset();
}

// --- moving
// -------------------------------------------------------------------------------------------------------------

// The first question about the rows fetches the first of them.
Recordset::Rows& Recordset::first_rows() {
  if (!open_) raise(erro::kObjectClosed, "O conjunto de registros está fechado");
  started_ = true;
  rows_->next();
  return *rows_;
}

bool Recordset::EOF() { return rows().behind_last() && !on_new_record(); }

bool Recordset::BOF() {
  Rows& r = rows();
  if (on_new_record()) return false;
  return r.before_first() || (r.behind_last() && r.fetched() == 0);
}

bool Recordset::on_new_record() const { return edit_ && (edit_->adding || edit_->added); }

void Recordset::leave_record() {
  if (edit_ && (edit_->changed || edit_->adding)) Update();
  edit_.reset();
}

void Recordset::MoveNext() {
  if (rows().behind_last()) raise(erro::kNoCurrentRecord, "Não há mais registros");
  leave_record();
  rows_->next();
}

void Recordset::MovePrevious() {
  require_kept();
  if (BOF()) raise(erro::kNoCurrentRecord, "Não há registro anterior");
  leave_record();
  rows_->previous();
}

void Recordset::MoveFirst() {
  Rows& r = rows();
  if (r.fetched() == 0) raise(erro::kNoCurrentRecord, "O conjunto de registros está vazio");
  if (!r.keeps() && r.position() > 0) raise(erro::kNotSupported, "O cursor só anda para a frente");
  leave_record();
  if (r.keeps()) r.move_to(0);
}

void Recordset::MoveLast() {
  require_kept();
  Rows& r = rows();
  leave_record();
  r.fetch_all();
  if (r.fetched() == 0) raise(erro::kNoCurrentRecord, "O conjunto de registros está vazio");
  r.move_to(r.fetched() - 1);
}

void Recordset::require_kept() {
  if (!rows().keeps()) raise(erro::kNotSupported, "O cursor só anda para a frente");
}

std::int32_t Recordset::RecordCount() {
  Rows& r = rows();
  return r.keeps() && r.exhausted() ? static_cast<std::int32_t>(r.fetched()) : -1;
}

// --- fields
// -------------------------------------------------------------------------------------------------------------

const ResultShape& Recordset::shape() const {
  if (!open_) raise(erro::kObjectClosed, "O conjunto de registros está fechado");
  return *shape_;
}

std::size_t Recordset::field_count() const { return shape().columns().size(); }

Field Recordset::Fields(std::size_t index) {
  if (index >= field_count()) raise(erro::kNoSuchItem, "Não há o campo de número " + std::to_string(index));
  return {*this, index};
}

Field Recordset::Fields(std::string_view name) {
  int index = shape().find(name);
  if (index < 0) raise(erro::kNoSuchItem, "Não há o campo " + std::string(name));
  return {*this, static_cast<std::size_t>(index)};
}

const Cell& Recordset::cell(std::size_t index) {
  if (!rows().on_row()) raise(erro::kNoCurrentRecord, "Não há registro corrente");
  return rows_->cell(index);
}

std::span<const Cell> Recordset::row() {
  if (!rows().on_row()) raise(erro::kNoCurrentRecord, "Não há registro corrente");
  return rows_->whole_row();
}

Variant Recordset::field_value(std::size_t index) {
  if (edit_) {
    if (edit_->pending.has(index)) return edit_->pending[index];
    if (edit_->stored.has(index)) return edit_->stored[index];
    if (on_new_record()) return Null{};
  }
  return cell_value(cell(index), shape_->columns()[index].type);
}

void Recordset::set_field(std::size_t index, Variant&& value) {
  const ResultColumn& column = shape().columns()[index];
  require_updatable();
  if (column.column == nullptr) raise(erro::kNotSupported, "O campo " + column.name + " é calculado");
  if (!on_new_record() && !rows().on_row()) raise(erro::kNoCurrentRecord, "Não há registro corrente");
  if (!edit_) edit_ = std::make_unique<Edit>();
  if (value.kind() != kind_of(column.type)) value = converted(value, column.type);
  if (!edit_->adding && is_former(index, value)) return edit_->pending.unset(index);
  edit_->pending.set(index, std::move(value), shape_->columns().size());
  edit_->changed = true;
}

// Whether the database holds this value already.
bool Recordset::is_former(std::size_t index, const Variant& value) {
  if (edit_->stored.has(index)) return edit_->stored[index] == value;
  if (edit_->added) return value.is_null();
  return cell_holds(rows_->cell(index), shape_->columns()[index].type, value);
}

void Recordset::require_updatable() const {
  if (LockType == adLockReadOnly || shape().updatable_table() == nullptr) {
    raise(erro::kNotSupported, "O conjunto de registros não pode ser alterado");
  }
}

// --- writing
// ------------------------------------------------------------------------------------------------------------

void Recordset::AddNew() {
  require_updatable();
  if (edit_ && (edit_->changed || edit_->adding)) Update();
  edit_ = std::make_unique<Edit>();
  edit_->adding = true;
}

void Recordset::Update() {
  require_updatable();
  if (!edit_ || (!edit_->adding && !edit_->changed)) return;
  if (!connection_) raise(erro::kConnectionInvalid, "O conjunto de registros está desligado da conexão");
  edit_->adding ? insert_pending() : update_pending();
  for (std::size_t i = 0; i < shape_->columns().size() && !on_new_record() && rows_->keeps(); ++i) {
    if (edit_->pending.has(i)) rows_->replace(i, cell_of(edit_->pending[i], shape_->columns()[i].type));
  }
  edit_->stored.merge(std::exchange(edit_->pending, {}));
  edit_->added = edit_->added || edit_->adding;
  edit_->adding = edit_->changed = false;
}

void Recordset::CancelUpdate() {
  if (!open_) raise(erro::kObjectClosed, "O conjunto de registros está fechado");
  if (!edit_) return;
  if (edit_->adding) {
    edit_.reset();
    return;
  }
  edit_->pending = {};
  edit_->changed = false;
}

// What makes a kept write the same: the shape and, for each of its columns, a letter.
std::string Recordset::write_key(char kind) const {
  std::string key(1, kind);
  const ResultShape* address = shape_.get();
  key.append(reinterpret_cast<const char*>(&address), sizeof address);
  key.append(shape_->columns().size(), '-');
  return key;
}

namespace {

constexpr std::size_t kKeyHead = 1 + sizeof(void*);

std::string insert_statement(const ResultShape& shape, std::string_view letters) {
  const Table& table = *shape.updatable_table();
  std::string columns, marks;
  auto add = [&](std::string_view name, std::string_view mark) {
    columns += (columns.empty() ? "" : ", ") + std::string(name);
    marks += (marks.empty() ? "" : ", ") + std::string(mark);
  };
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (letters[i] == 's') add(shape.columns()[i].column->name, "?");
  }
  for (const Column& c : table.columns) {  // a record without a value still needs a column to name
    if (columns.empty() && c.nullable) add(c.name, "NULL");
  }
  return "INSERT INTO " + std::string(table.name) + " (" + columns + ") VALUES (" + marks + ")";
}

std::string update_statement(const ResultShape& shape, std::string_view letters) {
  std::string sets, where;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (shape.columns()[i].column == nullptr) continue;
    const Column& column = *shape.columns()[i].column;
    const std::string name(column.name);
    bool set = letters[i] == 's' || letters[i] == 'n';
    if (set) sets += (sets.empty() ? "" : ", ") + name + " = ?";
    if (!set && !column.key) continue;
    where += where.empty() ? "" : " AND ";
    where += letters[i] == 'n' ? name + " IS NULL" : name + " = ?";
  }
  return "UPDATE " + std::string(shape.updatable_table()->name) + " SET " + sets + " WHERE " + where;
}

}  // namespace

std::shared_ptr<PreparedStatement> Recordset::kept_write(const std::string& key, Compose compose) {
  Engine& engine = connection_->engine();
  Connection::KeptWrite& kept = connection_->kept_write(key);
  if (!kept.statement) {
    kept.statement = engine.prepare(compose(*shape_, std::string_view(key).substr(kKeyHead)));
    kept.shape = shape_;
  }
  return kept.statement;
}

void Recordset::insert_pending() {
  const std::size_t count = shape_->columns().size();
  std::string key = write_key('i');
  std::vector<const Variant*> values;
  values.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (!edit_->pending.has(i)) continue;
    key[kKeyHead + i] = 's';
    values.push_back(&edit_->pending[i]);
  }
  auto statement = kept_write(key, insert_statement);
  statement->run(values);
  for (std::size_t i = 0; i < count; ++i) {
    const Column* column = shape_->columns()[i].column;
    if (column == nullptr || edit_->pending.has(i)) continue;
    if (column->identity) {
      edit_->stored.set(i, connection_->engine().last_identity(), count);
    } else if (!column->default_value.empty()) {
      edit_->stored.set(i, converted(Variant(column->default_value), column->type), count);
    }
  }
}

void Recordset::update_pending() {
  const std::size_t count = shape_->columns().size();
  std::string key = write_key('u');
  std::vector<Variant> former;
  std::vector<const Variant*> values;
  former.reserve(count);  // its values are pointed to
  for (std::size_t i = 0; i < count; ++i) {
    const Column* column = shape_->columns()[i].column;
    const bool changed = edit_->pending.has(i);
    if (column == nullptr || (!changed && !column->key)) continue;
    Variant before = former_value(i);
    if (changed) {
      values.push_back(&edit_->pending[i]);
      key[kKeyHead + i] = before.is_null() ? 'n' : 's';
    }
    if (!before.is_null()) former.push_back(std::move(before));
  }
  if (values.empty()) return;
  for (const Variant& before : former) values.push_back(&before);
  auto statement = kept_write(key, update_statement);
  if (statement->run(values).affected == 0) {
    raise(erro::kRowNotFound,
          "O registro foi alterado ou excluído desde a leitura (" + std::string(shape_->updatable_table()->name) + ")");
  }
}

// The value that the database holds, as far as this record set knows.
Variant Recordset::former_value(std::size_t index) {
  if (edit_->stored.has(index)) return edit_->stored[index];
  if (edit_->added) return Null{};
  return cell_value(cell(index), shape_->columns()[index].type);
}

// --- Field
// --------------------------------------------------------------------------------------------------------------

const std::string& Field::Name() const { return set_->shape().columns()[index_].name; }
SqlType Field::type() const { return set_->shape().columns()[index_].type; }
std::uint16_t Field::width() const { return set_->shape().columns()[index_].width; }
Variant Field::Value() const { return set_->field_value(index_); }
bool Field::is_null() const {
  if (const Cell* cell = set_->stored_cell(index_)) return cell->null;
  return set_->field_value(index_).is_null();
}
void Field::Value(Variant value) const { set_->set_field(index_, std::move(value)); }

Variant Field::Properties(std::string_view name) const {
  const ResultColumn& column = set_->shape().columns()[index_];
  if (equal_names(name, "OCTETLENGTH"))
    return std::int32_t{column.type == SqlType::text ? column.width : std::uint16_t{0}};
  if (equal_names(name, "ISAUTOINCREMENT")) return column.column != nullptr && column.column->identity;
  raise(erro::kNoSuchItem, "O campo não tem a propriedade " + std::string(name));
}

}  // namespace posto
