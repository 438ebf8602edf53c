#include "posto/closing/stock_walk.h"

#include <cmath>
#include <string_view>

#include "posto/types/number_pattern.h"
#include "posto/types/rounding.h"

namespace posto {
namespace {

constexpr int kCarriedDecimals = 6;
constexpr int kComparedDecimals = 4;
constexpr double kSame = 0.0001;
constexpr float kNoStock = 0.01f, kNoCost = 0.0001f, kNoCredit = 0.001f;

float carried_figure(double value) { return static_cast<float>(Round(value, kCarriedDecimals)); }

bool is_off(double figure, double stored) { return std::abs(Round(figure - stored, kComparedDecimals)) > kSame; }

std::string with_dead_zone(float figure, float zone) {
  return std::abs(figure) > zone ? format_number(figure, "########0.0#", kPointLocale) : "0";
}

}  // namespace

const StockFigures& StockWalk::take(const StockMovement& movement) {
  switch (movement.type) {
    case 10:
    case 12:
    case 13:
      enter_at_own_cost(movement);
      break;
    case 11:
    case 14:
      move_at_average(movement.quantity);
      break;
    case 20:
    case 21:
    case 23:
    case 24:
      move_at_average(-movement.quantity);
      break;
    default:
      break;
  }
  carry();
  return figures_;
}

void StockWalk::enter_at_own_cost(const StockMovement& movement) {
  const double before = carried_.quantity;
  const double value = movement.quantity * movement.unit_cost;
  figures_.quantity = before + movement.quantity;
  if (before > 0 && movement.quantity > 0) {
    const double after = movement.quantity + before;
    figures_.cost = Round((value + before * static_cast<double>(carried_.cost)) / after, kCarriedDecimals);
    figures_.icms_credit =
        Round((value * movement.icms_rate / 100 + before * static_cast<double>(carried_.icms_credit)) / after,
              kCarriedDecimals);
  } else if (figures_.quantity > 0) {
    figures_.cost = movement.unit_cost;
    figures_.icms_credit = movement.unit_cost * movement.icms_rate / 100;
  } else {
    figures_.cost = carried_.cost;
    figures_.icms_credit = carried_.icms_credit;
  }
}

void StockWalk::move_at_average(double quantity) {
  figures_.quantity = carried_.quantity + quantity;
  figures_.cost = Round(carried_.cost, kCarriedDecimals);
  figures_.icms_credit = Round(carried_.icms_credit, kCarriedDecimals);
}

void StockWalk::carry() {
  carried_ = {carried_figure(figures_.quantity), carried_figure(figures_.cost), carried_figure(figures_.icms_credit)};
  if (carried_.cost < 0) carried_.cost = 0;
  if (carried_.icms_credit < 0) carried_.icms_credit = 0;
}

bool differs(const StockFigures& figures, double stored_quantity, double stored_cost) {
  return is_off(figures.quantity, stored_quantity) || is_off(figures.cost, stored_cost);
}

ProductFigures product_figures(const StockPosition& closing) {
  return {with_dead_zone(closing.quantity, kNoStock), with_dead_zone(closing.cost, kNoCost),
          with_dead_zone(closing.icms_credit, kNoCredit)};
}

}  // namespace posto
