// Values in PostgreSQL's binary form.
#pragma once

#include <libpq-fe.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/tsql/bound_value.h"

namespace posto::postgres {

// The type in which a parameter is sent. What is only compared is sent wide, so that no digit is lost; a text that is
// compared is one of the columns' type.
Oid type_of(const tsql::Parameter& parameter);

// The values of a statement that is sent.
class Values {
 public:
  void clear();
  // Raises 0x80040E57 for a number that its column has no room for.
  void add(const tsql::Parameter& parameter, const tsql::BoundValue& value);

  int count() const { return static_cast<int>(types_.size()); }
  // Whether all have the types of their parameters. A whole number that is compared with a fraction has not.
  bool usual() const { return usual_; }
  const Oid* types() const { return types_.data(); }
  const char* const* values();
  const int* lengths() const { return lengths_.data(); }
  const int* formats() const { return formats_.data(); }

 private:
  void begin(Oid type);
  void integer(std::int64_t value, int bytes);
  void real(double value, bool single);
  void money(std::int64_t scaled);

  std::string bytes_;
  std::vector<Oid> types_;
  std::vector<std::size_t> begins_;
  std::vector<const char*> pointers_;
  std::vector<int> lengths_, formats_;
  bool usual_ = true;
};

// Reads a row of a binary result; texts live as long as the result. Raises 0x80040E57 for a number outside its column's
// type.
void read_row(const PGresult* result, int row, const ResultShape& shape, std::span<Cell> cells);

}  // namespace posto::postgres
