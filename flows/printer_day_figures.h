// What the coupons of a fiscal printer's business day say.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/types/currency.h"
#include "posto/types/date.h"

namespace posto::flows {

// Sums over coupons and lines. Lines are rounded to cents one by one, as the printer does it; net ones are less their
// share of the discount on the coupon's total. A line is cancelled where it or its coupon is.
struct PrinterDayFigures {
  std::int32_t printer = 0;
  Date day;
  std::int32_t coupons = 0;     // cancelled ones among them
  std::int32_t cancelled = 0;   // coupons
  std::int32_t reductions = 0;  // the printer's count of Z reductions, as the coupons bear it

  Currency gross{};          // what the printer registered: before discounts, with what was cancelled
  Currency discounts{};      // without a sign
  Currency surcharges{};     // without a sign
  Currency altered{};        // Vl_DesAcr with its sign, which no line bears; in the two before, too
  Currency withheld{};       // ISS that the customer withholds
  Currency cancellations{};  // lines before discounts
  Currency net{};            // totals of the live coupons
  Currency services_cancelled{}, services_discount{};  // the parts of services in these two sums

  Currency substitution{}, exempt{}, not_liable{}, services{};  // live lines, net
  std::map<Currency, Currency> by_rate{};                       // live taxed lines, net, by rate of ICMS (per cent)
  std::map<Currency, Currency> aside{};                         // all other lines, net, by their rate

  Currency proration{};  // by how much the net lines may miss the net totals: shares are rounded line by line, their
                         // factor is cut at four decimals
  std::vector<std::string> findings{};  // live coupons whose lines do not make their total

  Currency reductions_of_gross() const { return discounts - surcharges + withheld; }
  Currency net_lines() const;
};

// Reads the figures; `coupons` is 0 where there are none. Lines without a share count as having none.
PrinterDayFigures printer_day_figures(const Station& station, std::int32_t printer, Date day);

// The printers and days with coupons, from the first to the last day, by day and printer; `printer` 0 means all.
struct PrinterDayKey {
  std::int32_t printer = 0;
  Date day;
};
std::vector<PrinterDayKey> printer_days(const Station& station, Date first, Date last, std::int32_t printer = 0);

// An amount as findings tell it.
std::string shown(Currency amount);

}  // namespace posto::flows
