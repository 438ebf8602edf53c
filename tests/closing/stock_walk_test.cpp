#include "posto/closing/stock_walk.h"

#include <gtest/gtest.h>

#include <vector>

namespace posto {
namespace {

// One movement from an opening position: what the row should hold and what is carried on.
struct StoredWalk {
  const char* name;
  StockPosition opening;
  StockMovement movement;
  StockFigures row;
  StockPosition carried;
};

TEST(StockWalk, OneMovement) {
  const StoredWalk cases[] = {
      // (10 * 4 + 10 * 2) / 20; 10 * 4 * 0.18 / 20 + 10 * 0.2 / 20
      {"a purchase is weighted", {10, 2, 0.2f}, {10, 10, 4, 18}, {20, 3, 0.46}, {20, 3, 0.46f}},
      {"so are a return and a packing in", {10, 2, 0}, {13, 10, 4, 0}, {20, 3, 0}, {20, 3, 0}},
      {"without stock it is the purchase's own", {0, 2.5f, 9}, {10, 10, 3, 18}, {10, 3, 0.54}, {10, 3, 0.54f}},
      {"its own is not rounded in the row", {0, 2, 0}, {12, 1, 1.23456789, 0}, {1, 1.23456789, 0}, {1, 1.234568f, 0}},
      {"nothing that enters", {10, 2, 0.5f}, {10, 0, 4, 18}, {10, 4, 0.72}, {10, 4, 0.72f}},
      {"out of negative stock", {-4, 2, 0.5f}, {10, 10, 3, 0}, {6, 3, 0}, {6, 3, 0}},
      {"still below", {-40, 2, 0.5f}, {10, 10, 3, 18}, {-30, 2, 0.5}, {-30, 2, 0.5f}},
      {"a surplus keeps the average", {10, 2, 0.5f}, {11, 5, 99, 18}, {15, 2, 0.5}, {15, 2, 0.5f}},
      {"an adjustment in", {10, 2, 0.5f}, {14, 5, 99, 18}, {15, 2, 0.5}, {15, 2, 0.5f}},
      {"a sale", {10, 2, 0.5f}, {20, 4, 7, 18}, {6, 2, 0.5}, {6, 2, 0.5f}},
      {"a loss below nothing is carried", {3, 2, 0.5f}, {21, 4, 7, 18}, {-1, 2, 0.5}, {-1, 2, 0.5f}},
      {"a packing out", {3, 2, 0.5f}, {23, 1, 7, 18}, {2, 2, 0.5}, {2, 2, 0.5f}},
      {"an adjustment out", {3, 2, 0.5f}, {24, 1, 7, 18}, {2, 2, 0.5}, {2, 2, 0.5f}},
      {"an unknown type first", {3, 2, 0.5f}, {0, 1, 7, 18}, {0, 0, 0}, {0, 0, 0}},
      {"a hole among the types", {3, 2, 0.5f}, {22, 1, 7, 18}, {0, 0, 0}, {0, 0, 0}},
      {"a negative average is carried as 0", {-3, -2, -0.5f}, {20, 1, 7, 0}, {-4, -2, -0.5}, {-4, 0, 0}},
  };
  for (const StoredWalk& c : cases) {
    SCOPED_TRACE(c.name);
    StockWalk walk(c.opening);
    const StockFigures row = walk.take(c.movement);
    EXPECT_DOUBLE_EQ(row.quantity, c.row.quantity);
    EXPECT_DOUBLE_EQ(row.cost, c.row.cost);
    EXPECT_NEAR(row.icms_credit, c.row.icms_credit, 1e-7);
    EXPECT_EQ(walk.carried().quantity, c.carried.quantity);
    EXPECT_EQ(walk.carried().cost, c.carried.cost);
    EXPECT_EQ(walk.carried().icms_credit, c.carried.icms_credit);
  }
}

TEST(StockWalk, AnUnknownTypeRepeatsTheRowBefore) {
  StockWalk walk({0, 0, 0});
  walk.take({10, 3, 1.23456789, 10});
  const StockFigures repeated = walk.take({0, 99, 99, 99});
  EXPECT_EQ(repeated.quantity, 3);
  EXPECT_EQ(repeated.cost, 1.23456789);  // the row's figure, not the carried one
  EXPECT_EQ(walk.carried().cost, 1.234568f);
}

// A third of a unit: the carried figure has six decimals and 32 bits, and the next row reckons with that one.
TEST(StockWalk, WhatIsCarriedIsNarrowed) {
  StockWalk walk({2, 1, 0});
  EXPECT_EQ(walk.take({10, 1, 2, 0}).cost, 1.333333);
  EXPECT_EQ(walk.take({20, 1, 0, 0}).cost, 1.333333);
  EXPECT_EQ(walk.take({10, 2, 1, 0}).cost, 1.166667);  // (2 + 2 * 1.3333330154418945) / 4 = 1.16666650772...
}

TEST(StockWalk, ARowIsRewrittenFromTwoTenThousandthsOn) {
  const struct {
    double quantity, cost;
    bool off;
  } cases[] = {{10, 2, false},      {10.0001, 2, false}, {10.00014, 2, false}, {10.00016, 2, true}, {9.9998, 2, true},
               {10, 2.0001, false}, {10, 1.99984, true}, {10, 1.9999, false},  {0, 2, true}};
  for (const auto& c : cases) {
    EXPECT_EQ(differs({10, 2, 7}, c.quantity, c.cost), c.off) << c.quantity << " at " << c.cost;
  }
}

TEST(StockWalk, TheProductsFiguresHaveTwoDecimalsAndDeadZones) {
  const struct {
    StockPosition closing;
    const char *quantity, *cost, *icms_credit;
  } cases[] = {{{8200.5f, 2.1f, 0.525f}, "8200.5", "2.1", "0.53"},
               {{0.009f, 0.00009f, 0.0009f}, "0", "0", "0"},
               {{0.01f, 0.0001f, 0.001f}, "0", "0", "0"},
               {{0.011f, 0.0011f, 0.0011f}, "0.01", "0.0", "0.0"},
               {{-0.01f, 1, 1}, "0", "1.0", "1.0"},
               {{-1234.567f, 1, 1}, "-1234.57", "1.0", "1.0"}};
  for (const auto& c : cases) {
    const ProductFigures figures = product_figures(c.closing);
    EXPECT_EQ(figures.quantity, c.quantity);
    EXPECT_EQ(figures.cost, c.cost);
    EXPECT_EQ(figures.icms_credit, c.icms_credit);
  }
}

}  // namespace
}  // namespace posto
