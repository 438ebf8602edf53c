#include "posto/ado/rows.h"

#include <algorithm>
#include <bit>
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

RowReader::RowReader(std::unique_ptr<Cursor> cursor, bool keep, std::vector<Cell> memory)
    : cursor_(std::move(cursor)), keep_(keep), width_(cursor_->shape().columns().size()), first_(std::move(memory)) {
  first_.assign(width_, Cell{});
  const auto is_text = [](const ResultColumn& column) { return column.type == SqlType::text; };
  has_texts_ = std::ranges::any_of(cursor_->shape().columns(), is_text);
}

Cell* RowReader::row(std::int64_t number) {
  if (number == 0 || !keep_) return first_.data();
  const auto at = static_cast<std::size_t>(number);
  const auto piece = static_cast<std::size_t>(std::bit_width(at)) - 1;
  return others_[piece].data() + (at - (std::size_t{1} << piece)) * width_;
}

Cell* RowReader::room_for_next() {
  if (fetched_ == 0 || !keep_) return first_.data();
  const auto at = static_cast<std::size_t>(fetched_);
  if (std::has_single_bit(at)) others_.emplace_back().reserve(at * width_);
  others_.back().resize(others_.back().size() + width_);
  return row(fetched_);
}

bool RowReader::fetch() {
  if (!cursor_) return false;
  keep_texts();
  // A first row is mostly the only one and wanted whole; a walk over many looks at some of their columns.
  const bool lazily = !keep_ && fetched_ > 0;
  const std::span<Cell> next(room_for_next(), width_);
  if (!(lazily ? cursor_->next_lazily(next) : cursor_->next(next))) {
    cursor_.reset();
    return false;
  }
  ++fetched_;
  texts_are_kept_ = !keep_ || !has_texts_;
  return true;
}

// A record that is read alone, as most are, never needs its texts copied.
void RowReader::keep_texts() {
  if (texts_are_kept_) return;
  for (Cell& cell : std::span(row(fetched_ - 1), width_)) {
    if (!cell.null && cell.text.data() != nullptr) cell.text = texts_.keep(cell.text);
  }
  texts_are_kept_ = true;
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
  row(position_)[column] = cell;
}

void RowReader::fetch_all() {
  while (fetch()) continue;
}

}  // namespace posto
