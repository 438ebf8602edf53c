// A compiled statement and its prepared form on the server.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "posto/engines/statement_cache.h"

namespace posto::postgres {

// Names of prepared statements that nobody keeps any more.
using Discarded = std::vector<std::string>;

class KeptStatement {
 public:
  // `temporary`: tables to which the statement and its results may point. `number` makes its name on the server.
  KeptStatement(tsql::CompiledStatement compiled, const TemporaryTables& temporary, std::int64_t number,
                std::shared_ptr<Discarded> discarded);
  KeptStatement(KeptStatement&&) noexcept = default;
  ~KeptStatement();

  const tsql::CompiledStatement& compiled() const { return compiled_; }
  const std::shared_ptr<const ResultShape>& shape() const { return shape_; }
  const std::string& name() const { return name_; }

  bool prepared = false;

 private:
  tsql::CompiledStatement compiled_;
  std::shared_ptr<const ResultShape> shape_;
  std::string name_;
  std::shared_ptr<Discarded> discarded_;
};

}  // namespace posto::postgres
