#include "posto/tsql/sqlserver_writer.h"

#include <algorithm>

#include "posto/tsql/postgres_writer.h"

namespace posto::tsql {

// A writer finds the types in which values meet on its way; that of another server finds the same ones.
CompiledStatement write_sqlserver(const Statement& statement) {
  CompiledStatement compiled = write_postgres(statement);
  compiled.text.clear();
  auto& parameters = compiled.parameters;
  std::erase_if(parameters, [](const Parameter& p) { return p.from != Parameter::From::marker; });
  std::ranges::stable_sort(parameters, {}, &Parameter::ordinal);
  const auto same = [](const Parameter& a, const Parameter& b) { return a.ordinal == b.ordinal; };
  parameters.erase(std::unique(parameters.begin(), parameters.end(), same), parameters.end());
  return compiled;
}

}  // namespace posto::tsql
