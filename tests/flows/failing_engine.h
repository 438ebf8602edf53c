// An engine that fails at a statement, to cut a sequence there.
#pragma once

#include <memory>
#include <string>

#include "posto/engines/engine.h"
#include "posto/types/erro.h"

namespace posto {

// Forwards to another engine until the n-th statement, which fails with 0x80004005 and is not run; so do all behind it,
// as on a connection that broke. n 0 never fails.
class FailingEngine final : public Engine {
 public:
  FailingEngine(std::shared_ptr<Engine> inner, int fail_at) : inner_(std::move(inner)), fail_at_(fail_at) {}

  int statements() const { return count_; }

  std::string_view name() const override { return inner_->name(); }
  Outcome execute(std::string_view batch) override {
    step();
    return inner_->execute(batch);
  }
  std::shared_ptr<PreparedStatement> prepare(std::string_view statement) override {
    return std::make_shared<Prepared>(*this, inner_->prepare(statement));
  }
  std::string explain(std::string_view statement) override { return inner_->explain(statement); }
  Variant last_identity() const override { return inner_->last_identity(); }
  void begin() override {
    step();
    inner_->begin();
  }
  void commit() override {
    step();
    inner_->commit();
  }
  void rollback() override { inner_->rollback(); }
  bool in_transaction() const override { return inner_->in_transaction(); }
  void set_command_timeout(std::int32_t seconds) override { inner_->set_command_timeout(seconds); }
  void set_observer(StatementObserver observer) override { inner_->set_observer(std::move(observer)); }
  void create_schema() override { inner_->create_schema(); }

 private:
  class Prepared final : public PreparedStatement {
   public:
    Prepared(FailingEngine& engine, std::shared_ptr<PreparedStatement> inner)
        : engine_(engine), inner_(std::move(inner)) {}
    Outcome run(std::span<const Variant* const> values) override {
      engine_.step();
      return inner_->run(values);
    }

   private:
    FailingEngine& engine_;
    std::shared_ptr<PreparedStatement> inner_;
  };

  void step() {
    ++count_;
    if (fail_at_ > 0 && count_ >= fail_at_) throw Erro(erro::kProviderFailure, "FailingEngine", "A conexão caiu");
  }

  std::shared_ptr<Engine> inner_;
  int fail_at_;
  int count_ = 0;
};

}  // namespace posto
