#include "posto/engines/sqlite/statement_cache.h"

#include <cstring>

#include "posto/tsql/sqlite_writer.h"

namespace posto::sqlite {
namespace {

// The shape lives on in record sets, and with it the temporary tables to which its columns point.
std::shared_ptr<const ResultShape> shape_of(const tsql::CompiledStatement& compiled,
                                            const KeptStatement::Tables& temporary) {
  std::vector<ResultColumn> columns;
  for (const tsql::OutputColumn& out : compiled.outputs) {
    columns.push_back(
        {.name = out.name, .type = out.type.base, .width = out.type.width, .table = out.table, .column = out.column});
  }
  if (temporary.empty()) return std::make_shared<const ResultShape>(std::move(columns), compiled.target);
  struct WithTables {
    WithTables(std::vector<ResultColumn> columns, const Table* rows_of, const KeptStatement::Tables& temporary)
        : tables(temporary), shape(std::move(columns), rows_of) {}
    KeptStatement::Tables tables;
    ResultShape shape;
  };
  auto both = std::make_shared<WithTables>(std::move(columns), compiled.target, temporary);
  return {both, &both->shape};
}

}  // namespace

KeptStatement::KeptStatement(tsql::CompiledStatement compiled, const Tables& temporary, sqlite3* database)
    : compiled_(std::move(compiled)), database_(database) {
  if (compiled_.kind == tsql::StatementKind::select) shape_ = shape_of(compiled_, temporary);
}

sqlite3_stmt* KeptStatement::take() {
  if (!idle_.empty()) {
    sqlite3_stmt* statement = idle_.back().release();
    idle_.pop_back();
    return statement;
  }
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database_, compiled_.text.data(), static_cast<int>(compiled_.text.size()),
                     SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return statement;
}

void KeptStatement::give_back(sqlite3_stmt* statement) {
  sqlite3_reset(statement);
  idle_.emplace_back(statement);
}

// Shapes have some hundred bytes: eight at a time.
std::size_t StatementCache::Hash::operator()(std::string_view text) const {
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

std::list<StatementCache::Entry>::iterator StatementCache::entry_of(std::string_view shape) {
  // A walk asks the same statement again and again: that one is found without its hash.
  if (!entries_.empty() && entries_.front().shape == shape) return entries_.begin();
  auto found = by_shape_.find(shape);
  if (found == by_shape_.end()) return entries_.end();
  entries_.splice(entries_.begin(), entries_, found->second);
  return entries_.begin();
}

std::shared_ptr<KeptBatch> StatementCache::find(std::string_view batch, const tsql::Shape& shape) {
  if (shape.text.size() > kLongestShape) return compile(batch, shape);
  auto entry = entry_of(shape.text);
  if (entry == entries_.end()) {
    auto compiled = compile(batch, shape);
    add({.shape = shape.text, .literals = shape.literals.size(), .forms = {compiled}});
    return compiled;
  }
  // A control character in the text looks like a literal: not kept.
  if (entry->literals != shape.literals.size()) return compile(batch, shape);
  for (const auto& form : entry->forms) {
    if (form->compiled.serves(shape.literals)) return form;
  }
  auto compiled = compile(batch, shape);
  if (entry->forms.size() == kMostForms) entry->forms.erase(entry->forms.begin());
  return entry->forms.emplace_back(std::move(compiled));
}

void StatementCache::add(Entry entry) {
  if (entries_.size() == kMostShapes) {
    by_shape_.erase(entries_.back().shape);
    entries_.pop_back();
  }
  entries_.push_front(std::move(entry));
  by_shape_.emplace(entries_.front().shape, entries_.begin());
}

void StatementCache::clear() {
  by_shape_.clear();
  entries_.clear();
}

std::shared_ptr<KeptBatch> StatementCache::compile(std::string_view batch, const tsql::Shape& shape) {
  auto kept = std::make_shared<KeptBatch>();
  kept->compiled = tsql::compile(
      batch, shape.literals, [this](std::string_view name) { return session_.find_table(name); }, tsql::write_sqlite);
  kept->temporary = session_.temporary_tables;
  KeptStatement::Tables tables = kept->temporary;
  tables.insert(tables.end(), kept->compiled.temporary.begin(), kept->compiled.temporary.end());
  for (tsql::CompiledStatement& statement : kept->compiled.statements) {
    kept->statements.emplace_back(std::move(statement), tables, database_);
  }
  kept->compiled.statements.clear();
  return kept;
}

}  // namespace posto::sqlite
