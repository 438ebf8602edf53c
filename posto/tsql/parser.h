// Parses the SQL Server 2000 dialect, as far as the library speaks it.
#pragma once

#include <string_view>
#include <vector>

#include "posto/tsql/ast.h"
#include "posto/tsql/lexer.h"

namespace posto::tsql {

// The statements of a batch, in order. `literals` are those of Shape::read of the same text. Literals whose value is
// part of the form (TOP, ORDER BY a position, widths, styles, decimals of Round) are noted in `pinned`, by their
// position. Raises 0x80040E14 with the position for everything that it does not know; never crashes, whatever the text.
std::vector<Statement> parse(std::string_view batch, const std::vector<Literal>& literals,
                             std::vector<std::size_t>& pinned);

}  // namespace posto::tsql
