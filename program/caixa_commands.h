// What the commands about cash shifts share.
#pragma once

#include "program/caixa_text.h"
#include "program/command.h"

namespace posto::program {

// Adds --caixa, which must be given.
CLI::Option* add_shift(CLI::App* command, std::int32_t& shift);
// The commands that change shifts, and their list.
void add_shift_operations(CLI::App& app, Session& session);

// A shift with the names that belong to it, without the summary.
ShiftPapers papers_of(flows::Station& station, const VOCaixa& shift);
// Its settlement, for a person.
void print_settlement(const ShiftPapers& papers);
// Shifts as a list.
void print_shifts(const std::vector<flows::ShiftLine>& shifts, Form form);

}  // namespace posto::program
