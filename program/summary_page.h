// The settlement and the summary of a cash shift as a page for A4 paper.
#pragma once

#include <string>

#include "program/caixa_text.h"

namespace posto::program {

// The page as HTML that stands alone, in UTF-8. `printed`: the moment that stands at its foot.
std::string summary_page(const ShiftPapers& papers, Date printed);

}  // namespace posto::program
