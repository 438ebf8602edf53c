#include "posto/ado/rows.h"

#include <algorithm>
#include <cstring>

namespace posto {

std::string_view TextArena::keep(std::string_view text) {
  if (text.size() > left_) {
    left_ = std::max(kPiece, text.size());
    pieces_.push_back(std::make_unique<char[]>(left_));
    next_ = pieces_.back().get();
  }
  std::memcpy(next_, text.data(), text.size());
  std::string_view kept(next_, text.size());
  next_ += text.size();
  left_ -= text.size();
  return kept;
}

RowReader::RowReader(std::unique_ptr<Cursor> cursor, bool keep)
    : cursor_(std::move(cursor)), keep_(keep), width_(cursor_->shape().columns().size()), row_(width_) {}

bool RowReader::fetch() {
  if (!cursor_) return false;
  if (!cursor_->next(row_)) {
    cursor_.reset();
    return false;
  }
  ++fetched_;
  if (keep_) {
    for (Cell cell : row_) {
      if (!cell.null && cell.text.data() != nullptr) cell.text = texts_.keep(cell.text);
      kept_.push_back(cell);
    }
  }
  return true;
}

void RowReader::show(std::int64_t row) {
  current_ = keep_ ? kept_.data() + static_cast<std::size_t>(row) * width_ : row_.data();
}

void RowReader::next() { move_to(position_ + 1); }

void RowReader::previous() {
  behind_ = false;
  position_ = std::max<std::int64_t>(position_ - 1, -1);
  if (position_ >= 0) show(position_);
}

void RowReader::move_to(std::int64_t row) {
  while (fetched_ <= row) {
    if (fetch()) continue;
    behind_ = true;
    position_ = fetched_;
    return;
  }
  behind_ = false;
  position_ = row;
  show(row);
}

void RowReader::replace(std::size_t column, Cell cell) {
  if (!cell.null && cell.text.data() != nullptr) cell.text = texts_.keep(cell.text);
  kept_[static_cast<std::size_t>(position_) * width_ + column] = cell;
}

void RowReader::fetch_all() {
  while (fetch()) continue;
  if (on_row()) show(position_);  // the memory of the rows may have moved
}

}  // namespace posto
