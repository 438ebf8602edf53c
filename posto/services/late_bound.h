// Objects that a caller brings and that the library calls by name: list controls, grids, progress forms.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "posto/types/variant.h"

namespace posto {

// Names are blind to case. Each call raises 438 for a name that the object does not offer.
class LateBound {
 public:
  virtual ~LateBound() = default;
  virtual Variant call(std::string_view method, std::span<const Variant> arguments) = 0;
  virtual Variant get(std::string_view property, std::span<const Variant> arguments) = 0;
  // The last argument is the new value.
  virtual void let(std::string_view property, std::span<const Variant> arguments) = 0;
};

// A list control without a screen: Clear, AddItem, NewIndex, ItemData. For tests and for the program.
class MemoryList final : public LateBound {
 public:
  struct Item {
    std::string text;
    std::int32_t data = 0;
    bool operator==(const Item&) const = default;
  };
  const std::vector<Item>& items() const { return items_; }

  Variant call(std::string_view method, std::span<const Variant> arguments) override;
  Variant get(std::string_view property, std::span<const Variant> arguments) override;
  void let(std::string_view property, std::span<const Variant> arguments) override;

 private:
  Item& item(const Variant& index);
  std::vector<Item> items_;
};

// A grid without a screen: Rows, the number of its lines with the heading's among them, and AddItem, which adds a line
// of cells separated by tabs. A new grid has one line without cells.
class MemoryGrid final : public LateBound {
 public:
  using Line = std::vector<std::string>;
  const std::vector<Line>& lines() const { return lines_; }

  Variant call(std::string_view method, std::span<const Variant> arguments) override;
  Variant get(std::string_view property, std::span<const Variant> arguments) override;
  void let(std::string_view property, std::span<const Variant> arguments) override;

 private:
  std::vector<Line> lines_{1};
};

}  // namespace posto
