// What engines have in common that compile the dialect into their database's SQL: batches, prepared statements, values.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "posto/engines/row_stream.h"
#include "posto/engines/session.h"
#include "posto/engines/statement_cache.h"
#include "posto/services/clock.h"
#include "posto/tsql/bound_value.h"

namespace posto {

// `Statement`: the form in which the engine keeps a compiled statement; it has compiled() and shape().
template <class Statement>
class DialectEngine : public Engine, public std::enable_shared_from_this<DialectEngine<Statement>> {
 public:
  Outcome execute(std::string_view batch) final { return run(compiled(batch), batch, {}); }
  std::shared_ptr<PreparedStatement> prepare(std::string_view statement) final {
    return std::make_shared<Prepared>(this->shared_from_this(), compiled(statement), statement);
  }
  Variant last_identity() const final { return session().identity(); }
  void set_observer(StatementObserver observer) final { observer_ = std::move(observer); }

 protected:
  using Batch = KeptBatch<Statement>;
  using Markers = std::span<const Variant* const>;  // values given beside the text

  DialectEngine()
      : cache_([this](std::string_view batch, const tsql::Shape& shape) { return compile(batch, shape); }) {}

  virtual const EngineSession& session() const = 0;
  virtual std::shared_ptr<Batch> compile(std::string_view batch, const tsql::Shape& shape) = 0;
  // Runs a statement that gives no rows; the rows that it touched.
  virtual std::int64_t run_writing(Statement& statement, std::string_view text, Markers markers) = 0;
  virtual std::unique_ptr<RowStream> start(const std::shared_ptr<Batch>& batch, Statement& statement,
                                           std::string_view text, Markers markers) = 0;
  virtual void set_date_order(tsql::DateOrder order) = 0;

  std::shared_ptr<Batch> compiled(std::string_view batch) {
    return told_with(batch, [&] { return cache_.find(batch, shape_); });
  }

  // Calls `bind(parameter, value)` for each parameter in its order.
  template <class Bind>
  void each_value(const tsql::CompiledStatement& statement, Markers markers, Bind bind) {
    tsql::BoundValue value;
    for (const tsql::Parameter& p : statement.parameters) {
      read_value(p, markers, value);
      bind(p, value);
    }
  }

  // A failure that was met before the database saw the statement is told as the database's.
  template <class Body>
  auto told_with(std::string_view statement, Body&& body) {
    try {
      return body();
    } catch (const Erro& e) {
      throw Erro(e.number(), std::string(this->name()), e.description(), {.statement = std::string(statement)});
    }
  }

  StatementCache<Statement> cache_;
  tsql::Shape shape_;  // of the text under way; keeps its memory
  StatementObserver observer_;

 private:
  class Prepared final : public PreparedStatement {
   public:
    Prepared(std::shared_ptr<DialectEngine> engine, std::shared_ptr<Batch> batch, std::string_view text)
        : engine_(std::move(engine)), batch_(std::move(batch)), text_(text) {
      literals_.read(text_);
    }
    Outcome run(Markers values) override {
      std::swap(engine_->shape_, literals_);
      struct Back {
        Prepared& self;
        ~Back() { std::swap(self.engine_->shape_, self.literals_); }
      } back{*this};
      return engine_->run(batch_, text_, values);
    }

   private:
    std::shared_ptr<DialectEngine> engine_;
    std::shared_ptr<Batch> batch_;
    std::string text_;
    tsql::Shape literals_;
  };

  Outcome run(const std::shared_ptr<Batch>& batch, std::string_view text, Markers markers) {
    Outcome outcome;
    auto& statements = batch->statements;
    for (std::size_t i = 0; i < statements.size(); ++i) {
      Statement& statement = statements[i];
      const tsql::CompiledStatement& compiled = statement.compiled();
      const std::string_view own_text = statements.size() == 1 ? text : own_part(text, compiled, shape_.literals);
      if (compiled.kind == tsql::StatementKind::set_date_format) {
        set_date_order(tsql::DateOrder::of(compiled.date_format));
      } else if (compiled.kind != tsql::StatementKind::select) {
        outcome.affected = run_writing(statement, own_text, markers);
      } else {
        auto rows = start(batch, statement, own_text, markers);
        if (i + 1 < statements.size()) rows->finish();
        outcome.cursor = std::move(rows);
      }
    }
    return outcome;
  }

  void read_value(const tsql::Parameter& p, Markers markers, tsql::BoundValue& value) {
    const tsql::DateOrder& order = session().date_order;
    switch (p.from) {
      case tsql::Parameter::From::literal:
        return bind_literal(shape_.literals[p.ordinal], p, order, value);
      case tsql::Parameter::From::marker:
        if (p.ordinal >= markers.size()) throw Erro(erro::kSyntax, "tsql", "Falta o valor de um parâmetro (?)");
        return bind_variant(*markers[p.ordinal], p, order, value);
      case tsql::Parameter::From::now:
        return bind_date(clock_now(), value);
      case tsql::Parameter::From::last_identity:
        return bind_variant(session().identity(), p, order, value);
    }
  }
};

}  // namespace posto
