// Rows of a query, with a current record that can be read, and written where the lock type allows it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "posto/ado/connection.h"

// The C library's macro takes the name of a record set's question.
#undef EOF

namespace posto {

enum CursorTypeEnum : std::int32_t { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
enum LockTypeEnum : std::int32_t {
  adLockReadOnly = 1,
  adLockPessimistic = 2,
  adLockOptimistic = 3,
  adLockBatchOptimistic = 4
};
enum CursorLocationEnum : std::int32_t { adUseServer = 2, adUseClient = 3 };

class Recordset;

// One column of a record set, at its current record. A handle: valid while its record set is.
class Field {
 public:
  const std::string& Name() const;
  SqlType type() const;
  std::uint16_t width() const;  // of text: the column's characters, 0 when not known
  Variant Value() const;        // Raises 3021 without a current record.
  bool is_null() const;
  // The value as T. Raises 94 for null, 13 and 6 as conversions do.
  template <class T>
  T as() const;
  // The value as T, or `otherwise` for null.
  template <class T>
  T value_or(T otherwise) const;
  // Writes into the current record; the database gets it at Update. Raises 3251 where the record set is not updatable
  // or the field is calculated, 13 and 6 when the value cannot become the column's type.
  void Value(Variant value) const;
  const Field& operator=(Variant value) const {
    Value(std::move(value));
    return *this;
  }
  // A provider property: "OCTETLENGTH" (characters of a text column, otherwise 0) or "ISAUTOINCREMENT" (boolean).
  // Raises 3265 for any other name.
  Variant Properties(std::string_view name) const;

 private:
  friend class Recordset;
  Field(Recordset& set, std::size_t index) : set_(&set), index_(index) {}
  // Into `value`, where the cell, which is not null, is held as a T is.
  template <class T>
  bool take_plain(const Cell& cell, T& value) const;
  Recordset* set_;
  std::size_t index_;
};

// A record set. It is opened on a connection with a SELECT or the bare name of a table.
//  - CursorLocation 3 (client): all rows are fetched at Open, and it can be detached from the connection.
//  - otherwise rows are fetched when they are asked for; a forward-only one keeps just the current row.
// Movable, not copyable; it closes itself.
class Recordset {
 public:
  Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  std::int32_t CursorType = adOpenForwardOnly;
  std::int32_t LockType = adLockReadOnly;
  std::int32_t CursorLocation = adUseServer;
  std::string Source;

  // Sets the connection to open on; null detaches an open client-side set from its connection.
  // Raises 3705 for another connection on an open set, 3251 when a set that is not on the client side is detached.
  void ActiveConnection(std::shared_ptr<Connection> connection);
  const std::shared_ptr<Connection>& ActiveConnection() const { return connection_; }

  // Runs Source. Raises 3705 when open, 3709 without a connection, the provider's failures, and 3704 at the first use
  // when the statement gave no rows.
  void Open();
  void Close();  // raises 3704 when closed already
  std::int32_t State() const { return open_ ? 1 : 0; }

  bool EOF();                  // behind the last record
  bool BOF();                  // before the first; both when there is no record at all
  void MoveNext();             // raises 3021 behind the last record
  void MovePrevious();         // raises 3251 on a forward-only set
  void MoveFirst();            // on a forward-only set only before the first MoveNext, otherwise 3251
  void MoveLast();             // raises 3021 when there is none, 3251 on a forward-only set
  std::int32_t RecordCount();  // -1 where rows are fetched as asked for and not all are here

  std::size_t field_count() const;
  Field Fields(std::size_t index);      // raises 3265
  Field Fields(std::string_view name);  // blind to case, the first of two columns of one name; raises 3265
  Field operator[](std::string_view name) { return Fields(name); }
  Field operator[](std::size_t index) { return Fields(index); }

  // Starts a new record; fields that are not written keep the column's default. The record stays current until the set
  // moves, and is not among the rows that it then finds. Raises 3251 unless updatable.
  void AddNew();
  // Writes the new record, or of the current one the columns that changed, found by its key and their old values.
  // Raises 0x80040E38 when that row is gone or was changed, the provider's failures, and then keeps the pending values.
  void Update();
  void CancelUpdate();

  // Access without names, for code that resolves them once for a statement's shape.
  const ResultShape& shape() const;
  const Cell& cell(std::size_t index);  // raises 3021 without a current record
  std::span<const Cell> row();          // its cells, in the order of the columns; raises 3021

 private:
  friend class Connection;
  friend class Field;
  struct Rows;
  struct Edit;
  void begin_on(std::unique_ptr<Cursor> cursor, std::shared_ptr<Connection> connection);
  void let_rows_go();
  Rows& rows() { return started_ ? *rows_ : first_rows(); }
  Rows& first_rows();
  void leave_record();
  bool on_new_record() const;  // added, or about to be
  void require_kept();
  void require_updatable() const;
  Variant field_value(std::size_t index);
  // The cell as the database gave it; null where values were written to the record.
  const Cell* stored_cell(std::size_t index) { return edit_ ? nullptr : &cell(index); }
  Variant former_value(std::size_t index);
  void set_field(std::size_t index, Variant&& value);
  bool is_former(std::size_t index, const Variant& value);
  std::string write_key(char kind) const;
  using Compose = std::string (*)(const ResultShape&, std::string_view letters);
  std::shared_ptr<PreparedStatement> kept_write(const std::string& key, Compose compose);
  void insert_pending();
  void update_pending();

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<const ResultShape> shape_;
  std::unique_ptr<Rows> rows_;
  std::unique_ptr<Edit> edit_;
  bool open_ = false;
  bool started_ = false;  // the first row was asked for; false when closed
};

// The types in which a walk over many rows reckons are read without a Variant.
template <class T>
bool Field::take_plain(const Cell& cell, T& value) const {
  const SqlType held = set_->shape_->columns()[index_].type;
  if constexpr (std::is_same_v<T, double>) {
    if (held != SqlType::float64) return false;
    value = cell.real;
    return true;
  } else if constexpr (std::is_same_v<T, std::int32_t>) {
    if (held != SqlType::int32 && held != SqlType::int16 && held != SqlType::byte) return false;
    value = static_cast<std::int32_t>(cell.integer);
    return true;
  } else if constexpr (std::is_same_v<T, Currency>) {
    if (held != SqlType::money) return false;
    value = Currency::of_scaled(cell.integer);
    return true;
  } else {
    return false;
  }
}

template <class T>
T Field::as() const {
  T value{};
  const Cell* cell = set_->stored_cell(index_);
  return cell != nullptr && !cell->null && take_plain(*cell, value) ? value : Value().as<T>();
}

template <class T>
T Field::value_or(T otherwise) const {
  const Cell* cell = set_->stored_cell(index_);
  if (cell != nullptr && (cell->null || take_plain(*cell, otherwise))) return otherwise;
  const Variant value = Value();
  return value.is_null() ? otherwise : value.as<T>();
}

}  // namespace posto
