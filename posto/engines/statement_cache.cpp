#include "posto/engines/statement_cache.h"

#include <cstring>

namespace posto {

std::shared_ptr<const ResultShape> shape_of(const tsql::CompiledStatement& compiled, const TemporaryTables& temporary) {
  std::vector<ResultColumn> columns;
  for (const tsql::OutputColumn& out : compiled.outputs) {
    columns.push_back(
        {.name = out.name, .type = out.type.base, .width = out.type.width, .table = out.table, .column = out.column});
  }
  if (temporary.empty()) return std::make_shared<const ResultShape>(std::move(columns), compiled.target);
  struct WithTables {
    WithTables(std::vector<ResultColumn> columns, const Table* rows_of, const TemporaryTables& temporary)
        : tables(temporary), shape(std::move(columns), rows_of) {}
    TemporaryTables tables;
    ResultShape shape;
  };
  auto both = std::make_shared<WithTables>(std::move(columns), compiled.target, temporary);
  return {both, &both->shape};
}

// Eight bytes at a time.
std::size_t ShapeHash::operator()(std::string_view text) const {
  constexpr std::uint64_t kPrime = 0x9E3779B97F4A7C15;
  std::uint64_t hash = text.size() * kPrime;
  const char* p = text.data();
  std::size_t left = text.size();
  auto mix = [&](std::uint64_t word) {
    hash = (hash ^ word) * kPrime;
    hash ^= hash >> 29;
  };
  for (; left >= 8; p += 8, left -= 8) {
    std::uint64_t word;
    std::memcpy(&word, p, 8);
    mix(word);
  }
  std::uint64_t tail = 0;
  std::memcpy(&tail, p, left);
  mix(tail);
  return hash;
}

std::string_view own_part(std::string_view batch, const tsql::CompiledStatement& statement,
                          const std::vector<tsql::Literal>& literals) {
  const std::size_t begin = statement.begin.offset(batch, literals);
  return batch.substr(begin, statement.end.offset(batch, literals) - begin);
}

}  // namespace posto
