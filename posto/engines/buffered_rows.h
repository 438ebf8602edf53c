// Rows kept in memory, given out once in their order.
#pragma once

#include <algorithm>
#include <deque>
#include <span>
#include <string>
#include <vector>

#include "posto/engines/engine.h"

namespace posto {

class BufferedRows {
 public:
  void add(std::span<const Cell> row) {
    for (Cell cell : row) {
      keep_text(cell);
      cells_.push_back(cell);
    }
  }
  // Makes a cell's text one that lives as long as the rows.
  void keep_text(Cell& cell) {
    if (!cell.null && cell.text.data() != nullptr) cell.text = texts_.emplace_back(cell.text);
  }
  bool next(std::span<Cell> row) {
    if (at_ == cells_.size()) return false;
    std::copy_n(cells_.begin() + static_cast<std::ptrdiff_t>(at_), row.size(), row.begin());
    at_ += row.size();
    return true;
  }

 private:
  std::deque<std::string> texts_;
  std::vector<Cell> cells_;
  std::size_t at_ = 0;
};

}  // namespace posto
