// SQL Server gets statements as they are: nothing is written, only told what is in them.
#pragma once

#include "posto/tsql/compiled.h"

namespace posto::tsql {

// What is known of a bound statement, without a text. Its parameters are the "?" of the statement, in their order: the
// literals stay where they stand.
CompiledStatement write_sqlserver(const Statement& statement);

}  // namespace posto::tsql
