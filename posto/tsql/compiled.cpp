#include "posto/tsql/compiled.h"

#include <algorithm>

#include "posto/tsql/parser.h"

namespace posto::tsql {

namespace {

std::size_t end_of(const Literal& literal, std::string_view batch) {
  return static_cast<std::size_t>(literal.raw.data() - batch.data()) + literal.raw.size();
}

}  // namespace

BatchPlace::BatchPlace(std::string_view batch, const std::vector<Literal>& literals, std::size_t offset) {
  const auto behind = std::ranges::partition_point(
      literals, [&](const Literal& literal) { return literal.raw.data() < batch.data() + offset; });
  literals_ = static_cast<std::size_t>(behind - literals.begin());
  bytes_ = offset - (literals_ == 0 ? 0 : end_of(literals[literals_ - 1], batch));
}

std::size_t BatchPlace::offset(std::string_view batch, const std::vector<Literal>& literals) const {
  return bytes_ + (literals_ == 0 ? 0 : end_of(literals[literals_ - 1], batch));
}

bool CompiledBatch::serves(const std::vector<Literal>& literals) const {
  for (const auto& [ordinal, raw] : pinned) {
    if (literals[ordinal].raw != raw) return false;
  }
  return true;
}

std::vector<OutputColumn> output_columns(const Select& select) {
  std::vector<OutputColumn> outputs;
  const auto& items = select.parts.front().items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    OutputColumn out{.name = items[i].alias, .type = select.types[i]};
    const Expr& e = *items[i].expr;
    if (e.kind == ExprKind::column) {
      if (out.name.empty()) out.name = std::string(e.column->name);
      if (select.parts.size() == 1) {
        out.table = e.source->table;
        out.column = e.column;
      }
    }
    outputs.push_back(std::move(out));
  }
  return outputs;
}

const Table* row_by_row_table(const Select& select) {
  const SelectCore& core = select.parts.front();
  bool one_table = select.parts.size() == 1 && core.from.size() == 1 && core.from.front()->source;
  return one_table && !core.grouped && !core.distinct ? core.from.front()->source->table : nullptr;
}

CompiledBatch compile(std::string_view batch, const std::vector<Literal>& literals, const Catalogue& catalogue,
                      WriteStatement write) {
  CompiledBatch compiled;
  std::vector<std::size_t> pinned;
  std::vector<Statement> statements = parse(batch, literals, pinned);
  Binder binder(batch, literals, pinned, catalogue);
  for (Statement& statement : statements) {
    binder.bind(statement);
    CompiledStatement one = write(statement);
    one.begin = BatchPlace(batch, literals, statement.position);
    one.end = BatchPlace(batch, literals, statement.end);
    if (statement.kind == StatementKind::create_table) one.creates = binder.created().back();
    compiled.statements.push_back(std::move(one));
  }
  compiled.temporary = binder.created();
  for (std::size_t ordinal : pinned) compiled.pinned.emplace_back(ordinal, std::string(literals[ordinal].raw));
  return compiled;
}

}  // namespace posto::tsql
