#include "flows/station.h"

#include "posto/core/error_vocabulary.h"
#include "posto/core/mapper.h"
#include "posto/core/sql.h"

namespace posto::flows {

Station open_station(std::string_view database, std::int32_t company, StatementObserver observer) {
  Station station{std::make_shared<VOSistema>()};
  station.settings->ObConnection = Connection::create();
  station.connection().observe(std::move(observer));
  station.connection().Open(database);
  read_company(*station.settings, company);
  return station;
}

void read_company(VOSistema& settings, std::int32_t company) {
  Recordset rows = settings.ObConnection->Execute(
      company == 0 ? sql("SELECT * FROM EmpresaUsuaria ORDER BY Cd_PessoaUsuaria")
                   : sql("SELECT * FROM EmpresaUsuaria WHERE Cd_PessoaUsuaria = {}", company));
  if (rows.EOF()) {
    if (company == 0) return;
    throw Erro(erro::kRuleViolation, "flows.read_company",
               "A empresa " + std::to_string(company) + " não está cadastrada");
  }
  auto record = std::make_shared<VOEmpresaUsuaria>();
  read_record(rows, by_name(*record));
  rows.MoveNext();
  if (!rows.EOF()) {
    throw Erro(erro::kRuleViolation, "flows.read_company", "Há mais de uma empresa: escolha com --empresa");
  }
  settings.ObVOEmpresaUsuaria = std::move(record);
}

}  // namespace posto::flows
