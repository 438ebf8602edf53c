// The statements that a connection keeps, found by their shape.
#pragma once

#include <functional>
#include <iterator>
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

  // The compiled form of a batch, whose literals are read into `shape`. Raises 0x80040E14 when it does not compile.
  Batch find(std::string_view batch, tsql::Shape& shape) {
    if (is_expected(batch, shape)) return form(*last_, batch, shape);
    shape.read(batch);
    if (shape.text.size() > kLongestShape) return compile_(batch, shape);
    auto found = by_shape_.find(shape.text);
    if (found == by_shape_.end()) {
      Batch compiled = compile_(batch, shape);
      add(shape, compiled);
      return compiled;
    }
    // A control character in the text looks like a literal: not kept.
    if (found->second->shape.places.size() != shape.literals.size()) return compile_(batch, shape);
    went_on_to(found->second);
    return form(*last_, batch, shape);
  }
  void clear() {
    by_shape_.clear();
    entries_.clear();
    last_ = entries_.end();
  }

 private:
  static constexpr std::size_t kMostShapes = 500;
  static constexpr std::size_t kMostForms = 20;
  static constexpr std::size_t kLongestShape = 32 * 1024;  // longer ones are not kept
  struct Entry;
  using Place = typename std::list<Entry>::iterator;
  struct Entry {
    tsql::Shape shape;
    std::vector<Batch> forms;  // one for each set of pinned literals
    Place next;                // which was asked behind this one the last time
  };

  // A walk asks one statement again and again, a flow asks the same ones in the same order: the statement is first
  // tried as the last one, then as the one that came behind that.
  bool is_expected(std::string_view batch, tsql::Shape& shape) {
    if (last_ == entries_.end()) return false;
    if (shape.read_as(last_->shape, batch)) return true;
    if (last_->next == entries_.end() || !shape.read_as(last_->next->shape, batch)) return false;
    went_on_to(last_->next);
    return true;
  }
  void went_on_to(Place entry) {
    if (last_ != entries_.end()) last_->next = entry;
    last_ = entry;
    entries_.splice(entries_.begin(), entries_, entry);
  }
  Batch form(Entry& entry, std::string_view batch, const tsql::Shape& shape) {
    for (const Batch& form : entry.forms) {
      if (form->compiled.serves(shape.literals)) return form;
    }
    Batch compiled = compile_(batch, shape);
    if (entry.forms.size() == kMostForms) entry.forms.erase(entry.forms.begin());
    return entry.forms.emplace_back(std::move(compiled));
  }
  void add(const tsql::Shape& shape, const Batch& compiled) {
    if (entries_.size() == kMostShapes) drop_oldest();
    entries_.push_front({.shape = shape, .forms = {compiled}, .next = entries_.end()});
    entries_.front().shape.literals.clear();  // they stand in the batch
    by_shape_.emplace(entries_.front().shape.text, entries_.begin());
    went_on_to(entries_.begin());
  }
  void drop_oldest() {
    const Place oldest = std::prev(entries_.end());
    for (Entry& entry : entries_) {
      if (entry.next == oldest) entry.next = entries_.end();
    }
    by_shape_.erase(oldest->shape.text);
    entries_.erase(oldest);
  }

  Compile compile_;
  std::list<Entry> entries_;  // most recently used first
  Place last_ = entries_.end();
  std::unordered_map<std::string_view, Place, ShapeHash> by_shape_;
};

// The text of one statement of a batch.
std::string_view own_part(std::string_view batch, const tsql::CompiledStatement& statement,
                          const std::vector<tsql::Literal>& literals);

}  // namespace posto
