// The statements that a connection keeps, found by their shape.
#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/engines/session.h"
#include "posto/tsql/compiled.h"
#include "posto/tsql/lexer.h"

namespace posto {

using TemporaryTables = std::vector<std::shared_ptr<tsql::TemporaryTable>>;

// What the rows of a compiled select look like. The shape lives on in record sets, and with it the temporary tables to
// which its columns point.
std::shared_ptr<const ResultShape> shape_of(const tsql::CompiledStatement& compiled, const TemporaryTables& temporary);

// A compiled batch; each engine keeps its statements in a form of its own.
template <class Statement>
struct KeptBatch {
  tsql::CompiledBatch compiled;  // without its statements, which stand below
  std::vector<Statement> statements;
  TemporaryTables temporary;  // the session's tables to which the statements may point
};

// Compiles a batch; `keep(compiled statement, temporary tables)` makes the engine's form of each.
template <class Statement, class Keep>
std::shared_ptr<KeptBatch<Statement>> compile_batch(std::string_view batch, const tsql::Shape& shape,
                                                    const EngineSession& session, tsql::WriteStatement write,
                                                    Keep keep) {
  auto kept = std::make_shared<KeptBatch<Statement>>();
  kept->compiled = tsql::compile(
      batch, shape.literals, [&](std::string_view name) { return session.find_table(name); }, write);
  kept->temporary = session.temporary_tables;
  TemporaryTables tables = kept->temporary;
  tables.insert(tables.end(), kept->compiled.temporary.begin(), kept->compiled.temporary.end());
  for (tsql::CompiledStatement& statement : kept->compiled.statements) {
    kept->statements.push_back(keep(std::move(statement), tables));
  }
  kept->compiled.statements.clear();
  return kept;
}

// Of a shape's text, which has some hundred bytes.
struct ShapeHash {
  std::size_t operator()(std::string_view text) const;
};

// The least recently used shapes are dropped first.
template <class Statement>
class StatementCache {
 public:
  using Batch = std::shared_ptr<KeptBatch<Statement>>;
  using Compile = std::function<Batch(std::string_view batch, const tsql::Shape& shape)>;
  explicit StatementCache(Compile compile) : compile_(std::move(compile)) {}

  // The compiled form of a batch whose shape has just been read. Raises 0x80040E14 when it does not compile.
  Batch find(std::string_view batch, const tsql::Shape& shape) {
    if (shape.text.size() > kLongestShape) return compile_(batch, shape);
    auto entry = entry_of(shape.text);
    if (entry == entries_.end()) {
      Batch compiled = compile_(batch, shape);
      add({.shape = shape.text, .literals = shape.literals.size(), .forms = {compiled}});
      return compiled;
    }
    // A control character in the text looks like a literal: not kept.
    if (entry->literals != shape.literals.size()) return compile_(batch, shape);
    for (const Batch& form : entry->forms) {
      if (form->compiled.serves(shape.literals)) return form;
    }
    Batch compiled = compile_(batch, shape);
    if (entry->forms.size() == kMostForms) entry->forms.erase(entry->forms.begin());
    return entry->forms.emplace_back(std::move(compiled));
  }
  void clear() {
    by_shape_.clear();
    entries_.clear();
  }

 private:
  static constexpr std::size_t kMostShapes = 500;
  static constexpr std::size_t kMostForms = 20;
  static constexpr std::size_t kLongestShape = 32 * 1024;  // longer ones are not kept
  struct Entry {
    std::string shape;
    std::size_t literals;
    std::vector<Batch> forms;  // one for each set of pinned literals
  };
  using Place = typename std::list<Entry>::iterator;

  Place entry_of(std::string_view shape) {
    // A walk asks the same statement again and again: that one is found without its hash.
    if (!entries_.empty() && entries_.front().shape == shape) return entries_.begin();
    auto found = by_shape_.find(shape);
    if (found == by_shape_.end()) return entries_.end();
    entries_.splice(entries_.begin(), entries_, found->second);
    return entries_.begin();
  }
  void add(Entry entry) {
    if (entries_.size() == kMostShapes) {
      by_shape_.erase(entries_.back().shape);
      entries_.pop_back();
    }
    entries_.push_front(std::move(entry));
    by_shape_.emplace(entries_.front().shape, entries_.begin());
  }

  Compile compile_;
  std::list<Entry> entries_;  // most recently used first
  std::unordered_map<std::string_view, Place, ShapeHash> by_shape_;
};

// The text of one statement of a batch.
std::string_view own_part(std::string_view batch, const tsql::CompiledStatement& statement,
                          const std::vector<tsql::Literal>& literals);

}  // namespace posto
