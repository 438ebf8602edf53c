// Any bytes are a batch: the engine runs it or refuses it with a failure of its own, in the time that it was given.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "posto/engines/engine.h"
#include "posto/types/erro.h"

namespace {

using namespace posto;

std::shared_ptr<Engine> filled_database() {
  auto engine = create_database(":memory:", 1);
  engine->set_command_timeout(1);
  engine->execute(
      "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Tx_Desconto) Values (1, 1, 'A1', 0.5) "
      "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Qt_Emitir) Values (1, 2, 'á ', -7.25) "
      "INSERT INTO Banco (Cd_Banco, Nm_Banco) Values (1, 'Um') "
      "CREATE TABLE #T (Cd int NOT NULL PRIMARY KEY, Nm varchar(20), Vl money, Qt float, Tx real, Dt datetime, Ic bit) "
      "INSERT INTO #T Values (1, 'um', 10, 0.1, 07.10, '2009-04-03 14:05:06', 1) "
      "INSERT INTO #T Values (2, Null, Null, Null, Null, Null, 0)");
  return engine;
}

void run(Engine& engine, std::string_view batch) {
  Outcome outcome = engine.execute(batch);
  if (!outcome.cursor) return;
  const auto& columns = outcome.cursor->shape().columns();
  std::vector<Cell> row(columns.size());
  for (int rows = 0; rows < 100 && outcome.cursor->next(row); ++rows) {
    for (std::size_t i = 0; i < row.size(); ++i) cell_value(row[i], columns[i].type);
  }
}

// Raised by nothing but what the database's own failures may be; anything else is a fault of the engine.
bool expected(const Erro& e) {
  return e.number() == erro::kSyntax || e.number() == erro::kConversion || e.number() == erro::kDataOverflow ||
         e.number() == erro::kIntegrity || e.number() == erro::kTimeout;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto engine = filled_database();
  const std::string_view batch(reinterpret_cast<const char*>(data), size);
  engine->begin();
  try {
    run(*engine, batch);
  } catch (const Erro& e) {
    if (!expected(e)) std::abort();
  }
  if (engine->in_transaction()) engine->rollback();
  engine->execute("SET DATEFORMAT ymd");
  return 0;
}
