// A compiled statement and its prepared form with the driver.
#pragma once

#include <memory>
#include <string_view>

#include "posto/engines/odbc/link.h"
#include "posto/engines/odbc/wire.h"
#include "posto/engines/statement_cache.h"

namespace posto::odbc {

// Prepared once and kept. Not kept are a CREATE TABLE, and a written text that names a value twice or compares a whole
// number with a fraction: a driver has neither numbered places nor one place of two types, so these hold their values.
class KeptStatement {
 public:
  // `temporary`: tables to which the statement and its results may point.
  KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, const Link& link);
  KeptStatement(KeptStatement&&) noexcept = default;

  const tsql::CompiledStatement& compiled() const { return compiled_; }
  const std::shared_ptr<const ResultShape>& shape() const { return shape_; }

  // A command of the driver with the values and rows that are bound to it.
  struct Running {
    Running(const Link& link, const ResultShape* shape);
    Command command;
    ParameterBlock parameters;
    std::unique_ptr<RowBlock> rows;  // of a select
    bool prepared = false;
  };
  // Runs it. `text`: the caller's own. The command stays the statement's until it runs again.
  Running& run(std::string_view text, const Values& values, std::int32_t timeout_seconds);

 private:
  void run_as_written(Running& running, std::string_view text, const Values& values);
  void run_to_the_letter(Running& running, std::string_view text, const Values& values);

  std::string with_places() const;
  std::string with_values(const Values& values) const;

  tsql::CompiledStatement compiled_;
  std::shared_ptr<const ResultShape> shape_;
  const Link* link_;
  bool repeats_place_ = false;
  std::unique_ptr<Running> kept_, single_;
};

}  // namespace posto::odbc
