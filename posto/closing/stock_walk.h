// The arithmetic of the stock recalculation: from the position before a movement to the position behind it. No
// database.
#pragma once

#include <cstdint>
#include <string>

namespace posto {

// What is carried from movement to movement.
struct StockPosition {
  float quantity = 0, cost = 0, icms_credit = 0;  // average cost and ICMS credit of a unit
};

// What a movement's row should hold.
struct StockFigures {
  double quantity = 0, cost = 0, icms_credit = 0;
};

struct StockMovement {
  std::int32_t type = 0;  // No_TipoEstoqueEnum
  double quantity = 0, unit_cost = 0;
  double icms_rate = 0;  // per cent
};

// Takes movements in the order of the ledger.
//  - 10, 12, 13 enter with their own cost: the average is weighted where there was stock and something enters, the
//    movement's own where that leaves stock, and as before otherwise.
//  - 11, 14 enter and 20, 21, 23, 24 leave at the average as it is.
//  - Any other type repeats what the movement before it gave; zeros, where it is the first.
// Figures that are carried are rounded to six decimals and narrowed to 32 bits; a negative average is carried as 0, a
// negative quantity as it is.
class StockWalk {
 public:
  explicit StockWalk(const StockPosition& opening) : carried_(opening) {}

  const StockFigures& take(const StockMovement& movement);
  const StockPosition& carried() const { return carried_; }

 private:
  void enter_at_own_cost(const StockMovement& movement);
  void move_at_average(double quantity);
  void carry();

  StockPosition carried_;
  StockFigures figures_;
};

// Whether a row is to be rewritten: its stock or its cost is off by more than 0.0001, at four decimals. The credit
// alone does not count.
bool differs(const StockFigures& figures, double stored_quantity, double stored_cost);

// The closing figures as literals for the product: two decimals at most, "0" within the dead zones (0.01 of stock,
// 0.0001 of cost, 0.001 of credit).
struct ProductFigures {
  std::string quantity, cost, icms_credit;
};
ProductFigures product_figures(const StockPosition& closing);

}  // namespace posto
