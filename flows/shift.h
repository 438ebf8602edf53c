// Cash shifts: opened for an employee, who answers for nozzles; settled, closed, checked, and summed up.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "flows/station.h"
#include "posto/schema/treasury.h"

namespace posto::flows {

// Each of these changes is one transaction: behind a failure or a cut everything is as it was. They raise 0x80040202
// for a shift, employee or nozzle that is not there and 0x80040660 with the reason for what may not be.

// The totalisers of a nozzle, in litres, where a responsibility for it begins or ends.
struct NozzleReading {
  std::int32_t nozzle = 0;           // Cd_Bomba
  std::optional<double> electronic;  // none: behind the last delivery, or where station or responsibility began
  std::optional<double> mechanical;  // none: by the difference that the nozzle is known to have
};

// Opens a shift of today: the employee's next ordinal of the day, and responsibility for the nozzles. The employee may
// have no other shift open.
VOCaixa open_shift(Station& station, std::int32_t employee, const std::vector<NozzleReading>& nozzles = {});

// Responsibility for nozzles from now on: deliveries that are taken in from now on belong to the shift. It must be
// open, and no other open shift may have the nozzle.
void take_nozzles(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles);
// Its end. No totaliser may be lower than where it began.
void leave_nozzles(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles);

// What the shift's divergence of a kind is, instead of what it was; an amount of 0 takes it away. Until the shift is
// checked; never below zero.
void set_divergence(Station& station, std::int32_t shift, std::int32_t kind, Currency amount,
                    const std::string& description);

// The shift with its settlement (treasury/DALCaixa.h), worked out anew and kept; of a checked one as it was kept.
VOCaixa settle_shift(Station& station, std::int32_t shift);

// What the cash drops fell short or ran over, counted by hand; never below zero. None: as it stands.
struct CashDrops {
  std::optional<Currency> missing, surplus;
};

// Closes an open shift with its settlement. The responsibilities in course end: by their readings where these are
// given.
VOCaixa close_shift(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles = {},
                    const CashDrops& drops = {});

struct CouponMismatch {
  std::int32_t printer = 0, number = 0;
  Date day;
  Currency total;
  std::optional<Currency> receipts;  // none: the coupon has no receipt
};
struct PendingFuelling {
  std::int32_t code = 0;
  std::string address;  // of the nozzle
  Date end;
  double litres = 0;
  Currency total;
};
struct CheckedShift {
  bool checked = false;
  VOCaixa shift;
  std::vector<CouponMismatch> coupons;     // settled ones whose receipts are not their total
  std::vector<PendingFuelling> fuellings;  // without a coupon
};

// Checks a closed shift, with a settlement that then stays. Coupons and fuellings that are found refuse it, unless they
// are accepted; the new settlement is kept all the same.
CheckedShift check_shift(Station& station, std::int32_t shift, std::int32_t employee, bool accept_findings = false,
                         const CashDrops& drops = {});

struct ShiftLine {
  VOCaixa shift;
  std::string employee;  // the name
};
// The shifts that were opened in a period, by day, ordinal and name.
std::vector<ShiftLine> shifts_between(Station& station, Date first, Date last);
// The name of a person (an employee, the company); empty where there is none.
std::string person_name(Station& station, std::int32_t code);

struct SummaryRow {
  std::int32_t item = 0;
  std::string name;
  std::array<std::optional<Currency>, 3> values;
};
struct SummaryGroup {
  Currency code;  // its whole part is the item that the group details, 0 of the totals
  std::string name;
  std::array<std::string, 4> heads;  // captions of the name and of the values
  std::vector<SummaryRow> rows;
};
// The summary of a shift that was settled. Totals first: result, debits, credits. Nothing is left in the work table, so
// that two workstations do not see each other's lines.
std::vector<SummaryGroup> shift_summary(Station& station, const VOCaixa& settled);

}  // namespace posto::flows
