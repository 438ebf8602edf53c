#include "posto/engines/row_stream.h"

#include <string>
#include <utility>
#include <vector>

namespace posto {

void raise_no_room(const ResultColumn& column, std::string_view provider) {
  const std::string name = column.name.empty() ? "uma coluna sem nome" : column.name;
  throw Erro(erro::kDataOverflow, std::string(provider), "Estouro aritmético em " + name);
}

bool RowStream::next(std::span<Cell> row) {
  if (rest_) return next_of_rest(row);
  row_ = row;
  return step(row);
}

bool RowStream::next_lazily(std::span<Cell> row) {
  if (rest_) return next_of_rest(row);
  row_ = row;
  return step_lazily(row);
}

void RowStream::read(std::size_t column, Cell& cell) {
  if (rest_) throw *rest_->unread_failure;
  read_cell(column, cell);
  cell.unread = false;
}

bool RowStream::next_of_rest(std::span<Cell> row) {
  if (rest_->rows.next(row)) return true;
  if (rest_->failure) throw *std::exchange(rest_->failure, std::nullopt);
  return false;
}

void RowStream::read_rest() {
  if (rest_) return;
  auto rest = std::make_unique<Rest>();
  take_in_current(*rest);
  std::vector<Cell> row(shape().columns().size());
  try {
    while (step(row)) rest->rows.add(row);
  } catch (const Erro& e) {
    rest->failure = e;
  }
  rest_ = std::move(rest);
}

// The caller still looks at this row.
void RowStream::take_in_current(Rest& rest) {
  for (std::size_t i = 0; i < row_.size(); ++i) {
    try {
      if (row_[i].unread) read(i, row_[i]);
      rest.rows.keep_text(row_[i]);
    } catch (const Erro& e) {
      rest.unread_failure = e;
    }
  }
}

void RowStream::finish() {
  read_rest();
  if (rest_->failure) throw *rest_->failure;
}

}  // namespace posto
