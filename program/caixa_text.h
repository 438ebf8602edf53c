// A cash shift as a person reads it, on a terminal or on a page.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "flows/shift.h"

namespace posto::program {

// A shift with what is told of it beside its record.
struct ShiftPapers {
  std::string company, employee, checker;  // names
  VOCaixa shift;
  std::vector<flows::SummaryGroup> summary;
};

// "CAIXA 87: CARLOS, turno 01 de 24/11/2026", and what became of it: "Aberto às 06:00:00; fechado em ...".
std::string shift_title(const ShiftPapers& papers);
std::string shift_history(const ShiftPapers& papers);

// A line of the settlement: what the employee owes stands on the left, what was accounted for on the right.
struct SettlementLine {
  std::string name;
  std::optional<Currency> debit, credit;
  bool total = false;
};
std::vector<SettlementLine> settlement_lines(const VOCaixa& shift);
// "Faltam 20,00", "Sobram 20,00" or "Sem diferença".
std::string difference_text(Currency difference);

std::string money_text(const std::optional<Currency>& amount);  // empty for none
// How the figures of one of the group's three columns are written: litres and totalisers with three decimals, prices
// with all they have, counts without.
std::string_view value_pattern(const flows::SummaryGroup& group, std::size_t column);
// Whether a column of values is one: a caption of a dash says that it is none.
bool is_shown(const flows::SummaryGroup& group, std::size_t column);

}  // namespace posto::program
