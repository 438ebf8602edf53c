// The rows of a running statement: read as they are asked for, or taken in at once where the connection is needed.
#pragma once

#include <cmath>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "posto/engines/buffered_rows.h"
#include "posto/engines/engine.h"
#include "posto/types/erro.h"

namespace posto {

// A number that came from the database and that its column's type has no room for: 0x80040E57.
[[noreturn]] void raise_no_room(const ResultColumn& column, std::string_view provider);
// The same for a float that is infinite or no number, which no column has room for.
inline double require_finite(double value, const ResultColumn& column, std::string_view provider) {
  if (!std::isfinite(value)) raise_no_room(column, provider);
  return value;
}

class RowStream : public Cursor {
 public:
  bool next(std::span<Cell> row) final;
  bool next_lazily(std::span<Cell> row) final;
  void read(std::size_t column, Cell& cell) final;
  // Reads all the rows that are left, so that the connection is free of this cursor. A failure comes behind them.
  void read_rest();
  // The same within its batch, which a failure ends.
  void finish();

 protected:
  // Reads a row from the database; false behind the last, and ever after. A failure ends it too.
  virtual bool step(std::span<Cell> row) = 0;
  // The same, but may leave cells unread; read_cell reads one of them.
  virtual bool step_lazily(std::span<Cell> row) { return step(row); }
  virtual void read_cell([[maybe_unused]] std::size_t column, [[maybe_unused]] Cell& cell) {}

 private:
  struct Rest {
    BufferedRows rows;
    std::optional<Erro> failure;         // met behind them
    std::optional<Erro> unread_failure;  // met in a cell of the caller's row, which stays unread
  };
  bool next_of_rest(std::span<Cell> row);
  void take_in_current(Rest& rest);
  std::span<Cell> row_;  // of the caller, while the cursor stands on it
  std::unique_ptr<Rest> rest_;
};

}  // namespace posto
