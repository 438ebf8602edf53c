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
  if (!rest_) {
    row_ = row;
    return step(row);
  }
  if (rest_->rows.next(row)) return true;
  if (rest_->failure) throw *std::exchange(rest_->failure, std::nullopt);
  return false;
}

void RowStream::read_rest() {
  if (rest_) return;
  auto rest = std::make_unique<Rest>();
  for (Cell& cell : row_) rest->rows.keep_text(cell);  // the caller still looks at this row
  std::vector<Cell> row(shape().columns().size());
  try {
    while (step(row)) rest->rows.add(row);
  } catch (const Erro& e) {
    rest->failure = e;
  }
  rest_ = std::move(rest);
}

void RowStream::finish() {
  read_rest();
  if (rest_->failure) throw *rest_->failure;
}

}  // namespace posto
