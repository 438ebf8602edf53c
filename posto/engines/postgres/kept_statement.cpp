#include "posto/engines/postgres/kept_statement.h"

#include <utility>

namespace posto::postgres {

KeptStatement::KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, std::int64_t number,
                             std::shared_ptr<Discarded> discarded)
    : compiled_(std::move(compiled)), name_("posto" + std::to_string(number)), discarded_(std::move(discarded)) {
  if (compiled_.kind == tsql::StatementKind::select) shape_ = shape_of(compiled_, temporary);
}

KeptStatement::~KeptStatement() {
  if (discarded_ && prepared) discarded_->push_back(name_);
}

}  // namespace posto::postgres
