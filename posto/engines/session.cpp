#include "posto/engines/session.h"

#include <utility>

#include "posto/types/text.h"

namespace posto {

const Table* EngineSession::find_table(std::string_view name) const {
  for (const auto& temporary : temporary_tables) {
    if (equal_names(temporary->table().name, name)) return &temporary->table();
  }
  return posto::find_table(name);
}

Variant EngineSession::identity() const {
  if (!last_identity) return Null{};
  return static_cast<std::int32_t>(*last_identity);
}

bool EngineSession::drops_table(const tsql::CompiledStatement& ran) {
  if (ran.creates) temporary_tables.push_back(ran.creates);
  if (ran.kind != tsql::StatementKind::drop_table) return false;
  std::erase_if(temporary_tables, [&](const auto& temporary) { return &temporary->table() == ran.target; });
  return true;
}

bool EngineSession::transaction_rolled_back() {
  if (!tables_at_begin_) return false;
  const auto stood_before = *std::exchange(tables_at_begin_, std::nullopt);
  if (temporary_tables == stood_before) return false;
  temporary_tables = stood_before;
  return true;
}

}  // namespace posto
