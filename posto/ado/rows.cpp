#include "posto/ado/rows.h"

#include <algorithm>
#include <cstring>

namespace posto {

std::string_view TextArena::keep(std::string_view text) {
  if (text.empty()) return "";
  if (text.size() > left_) {
    left_ = std::max(std::min(kFirstPiece << pieces_.size(), kLargestPiece), text.size());
    pieces_.push_back(std::make_unique_for_overwrite<char[]>(left_));
    next_ = pieces_.back().get();
  }
  std::memcpy(next_, text.data(), text.size());
  std::string_view kept(next_, text.size());
  next_ += text.size();
  left_ -= text.size();
  return kept;
}

RowReader::RowReader(std::unique_ptr<Cursor> cursor, bool keep)
    : cursor_(std::move(cursor)), keep_(keep), width_(cursor_->shape().columns().size()), cells_(width_) {}

bool RowReader::fetch() {
  if (!cursor_) return false;
  keep_texts();
  std::size_t first = keep_ ? static_cast<std::size_t>(fetched_) * width_ : 0;
  if (cells_.size() < first + width_) {
    cells_.resize(first + width_);
    if (on_row()) show(position_);  // the memory of the rows may have moved
  }
  if (!cursor_->next({cells_.data() + first, width_})) {
    cursor_.reset();
    return false;
  }
  ++fetched_;
  texts_are_kept_ = !keep_;
  return true;
}

// A record that is read alone, as most are, never needs its texts copied.
void RowReader::keep_texts() {
  if (texts_are_kept_) return;
  Cell* row = cells_.data() + static_cast<std::size_t>(fetched_ - 1) * width_;
  for (std::size_t i = 0; i < width_; ++i) {
    if (!row[i].null && row[i].text.data() != nullptr) row[i].text = texts_.keep(row[i].text);
  }
  texts_are_kept_ = true;
}

void RowReader::show(std::int64_t row) {
  current_ = keep_ ? cells_.data() + static_cast<std::size_t>(row) * width_ : cells_.data();
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
  cells_[static_cast<std::size_t>(position_) * width_ + column] = cell;
}

void RowReader::fetch_all() {
  while (fetch()) continue;
}

}  // namespace posto
