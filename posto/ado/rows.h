// The rows behind a record set.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "posto/engines/engine.h"

namespace posto {

// Texts in few large pieces of memory, kept until the arena goes.
class TextArena {
 public:
  std::string_view keep(std::string_view text);

 private:
  static constexpr std::size_t kFirstPiece = 1024, kLargestPiece = 64 * 1024;
  std::vector<std::unique_ptr<char[]>> pieces_;
  std::size_t left_ = 0;
  char* next_ = nullptr;
};

// Reads a cursor row by row, forward only or keeping what it has read.
class RowReader {
 public:
  // `memory`: what another reader's release_memory() gave, for the first row.
  RowReader(std::unique_ptr<Cursor> cursor, bool keep, std::vector<Cell> memory);
  std::vector<Cell> release_memory() { return std::move(first_); }  // at its end

  bool keeps() const { return keep_; }
  bool on_row() const { return position_ >= 0 && !behind_; }
  bool before_first() const { return position_ < 0; }
  bool behind_last() const { return behind_; }
  bool exhausted() const { return cursor_ == nullptr; }
  std::int64_t position() const { return position_; }
  std::int64_t fetched() const { return fetched_; }

  void next();                     // to the next row, or behind the last
  void previous();                 // of kept rows
  void move_to(std::int64_t row);  // of kept rows; behind the last when there is none
  void fetch_all();                // reads the rest and lets the cursor go; of kept rows
  const Cell& cell(std::size_t column) {
    if (current_[column].unread) cursor_->read(column, current_[column]);
    return current_[column];
  }
  std::span<const Cell> whole_row() {
    for (std::size_t i = 0; i < width_; ++i) cell(i);
    return {current_, width_};
  }
  void replace(std::size_t column, Cell cell);  // in the current one of kept rows

 private:
  bool fetch();
  Cell* room_for_next();
  Cell* row(std::int64_t number);
  void keep_texts();
  void show(std::int64_t number) { current_ = row(number); }

  std::unique_ptr<Cursor> cursor_;
  bool keep_;
  std::size_t width_;
  std::vector<Cell> first_;                // row 0, or the current one where none is kept
  std::vector<std::vector<Cell>> others_;  // pieces of twice as many rows each, from row 1 on: no row ever moves
  bool has_texts_ = false;
  bool texts_are_kept_ = true;  // those of the last row; before that they belong to the cursor
  TextArena texts_;
  Cell* current_ = nullptr;
  std::int64_t position_ = -1;
  std::int64_t fetched_ = 0;
  bool behind_ = false;
};

}  // namespace posto
