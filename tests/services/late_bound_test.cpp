#include "posto/services/late_bound.h"

#include <gtest/gtest.h>

#include "posto/types/erro.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

TEST(MemoryGrid, LinesOfCellsUnderAHeading) {
  MemoryGrid grid;
  grid.call("AddItem", {{Variant("antigo")}});
  EXPECT_EQ(grid.get("Rows", {}), Variant(2));
  grid.let("rows", {{Variant(1)}});
  grid.call("additem", {{Variant("1\tCentro\t")}});
  grid.call("AddItem", {{Variant("")}});
  EXPECT_EQ(grid.lines(), (std::vector<MemoryGrid::Line>{{}, {"1", "Centro", ""}, {""}}));
}

TEST(MemoryGrid, WhatItDoesNotOffer) {
  MemoryGrid grid;
  EXPECT_EQ(raised([&] { grid.call("Clear", {}); }), erro::kUnknownMember);
  EXPECT_EQ(raised([&] { grid.get("Cols", {}); }), erro::kUnknownMember);
  EXPECT_EQ(raised([&] { grid.let("Cols", {{Variant(1)}}); }), erro::kUnknownMember);
  EXPECT_EQ(raised([&] { grid.let("Rows", {{Variant(-1)}}); }), erro::kInvalidCall);
  EXPECT_EQ(raised([&] { grid.call("AddItem", {}); }), erro::kInvalidCall);
}

}  // namespace
}  // namespace posto
