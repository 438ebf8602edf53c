// Values and rows in the forms that a driver takes and gives: whole numbers in 64 bits, floats as they are, money and
// dates as text on the way in, money as text on the way out, so that no digit passes through a float.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/engines/odbc/link.h"
#include "posto/tsql/bound_value.h"

namespace posto::odbc {

// The values of a statement that is to run.
class Values {
 public:
  struct Value {
    SQLSMALLINT c_type = SQL_C_SBIGINT, sql_type = SQL_INTEGER;
    bool null = false;
    std::string bytes;  // in the form of `c_type`
    // For a person, and for a statement that holds its values.
    std::string text() const;
  };

  void clear() {
    count_ = 0;
    has_fraction_ = false;
  }
  // Raises 0x80040E57 for a number that its column has no room for, 0x80040E07 for a text that no database keeps.
  void add(const tsql::Parameter& parameter, const tsql::BoundValue& value);
  std::span<const Value> all() const { return {values_.data(), count_}; }
  // Whether one is a fraction where the parameter is a whole number: it is only compared.
  bool has_fraction() const { return has_fraction_; }

 private:
  Value& next();

  std::vector<Value> values_;  // keep their memory
  std::size_t count_ = 0;
  bool has_fraction_ = false;
};

// Where a statement's values stand while it runs: bound once, then filled.
class ParameterBlock {
 public:
  void fill(const Command& command, const Values& values);

 private:
  struct Slot {
    SQLSMALLINT c_type = 0;
    std::size_t room = 0;
    std::unique_ptr<char[]> bytes;
    SQLLEN length = 0;
  };
  static void bind(const Command& command, SQLUSMALLINT number, Slot& slot, const Values::Value& value);

  std::vector<Slot> slots_;
};

// The rows of a statement, many with one call of the driver, as far as the sizes of all columns are known; otherwise
// one by one.
class RowBlock {
 public:
  RowBlock(const ResultShape& shape, const Command& command) : shape_(shape), command_(command) {}
  RowBlock(const RowBlock&) = delete;  // the driver knows where it stands
  RowBlock& operator=(const RowBlock&) = delete;

  // Behind an execution that has rows: none of them is here yet.
  void restart();
  // The next row; false behind the last. Texts live until the one behind it is read. Raises what the driver reports,
  // 0x80040E57 for a number outside its column's type or a text longer than its column, 0x80040E07 for a figure that is
  // none. `told`: the statement.
  bool next(std::span<Cell> cells, std::string_view told);

 private:
  struct Field {
    SQLSMALLINT c_type = SQL_C_SBIGINT;
    std::size_t at = 0;  // in a row: the length, then the value
    std::size_t room = 0;
  };
  bool plan_fields();
  void bind();
  bool fetch(std::string_view told);
  void get_single(std::size_t i, std::string_view told);
  void get_text(std::size_t i, std::string_view told);
  void take(std::size_t i, const char* at, SQLLEN length, Cell& cell);

  const ResultShape& shape_;
  const Command& command_;
  std::vector<Field> fields_;
  std::vector<std::string> texts_;  // of the row that was read, by column
  std::unique_ptr<char[]> rows_;
  std::size_t row_bytes_ = 0;
  bool in_blocks_ = false;
  SQLULEN filled_ = 0;
  std::vector<SQLUSMALLINT> states_;  // of the rows that are here
  std::size_t row_ = 0;
};

}  // namespace posto::odbc
