#include "flows/bloquear_credito.h"

#include <algorithm>
#include <map>
#include <utility>

#include "flows/conflict.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/services/clock.h"

namespace posto::flows {
namespace {

constexpr std::int32_t kCancelled = 4;  // of No_SituacaoCredito

// Credit states by company and person.
using States = std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t>;

States credit_states(const Station& station) {
  States states;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT Cd_PessoaUsuaria, Cd_Cliente, No_SituacaoCredito
      FROM   Cliente)"));
  for (; !rows.EOF(); rows.MoveNext()) {
    states[{rows["Cd_PessoaUsuaria"].as<std::int32_t>(), rows["Cd_Cliente"].as<std::int32_t>()}] =
        rows["No_SituacaoCredito"].value_or(std::int32_t{0});
  }
  return states;
}

// The persons whose state rose, with the highest that they have now.
std::map<std::int32_t, std::int32_t> raised(const States& before, const States& after) {
  std::map<std::int32_t, std::int32_t> persons;
  for (const auto& [key, state] : after) {
    if (before.at(key) == state) continue;
    std::int32_t& highest = persons[key.second];
    highest = std::max(highest, state);
  }
  return persons;
}

std::string name_of(const Station& station, std::int32_t person) {
  Recordset rows = station.connection().Execute(sql("SELECT Nm_Pessoa FROM Pessoa WHERE Cd_Pessoa = {}", person));
  return rows.EOF() ? std::string() : rows["Nm_Pessoa"].value_or(std::string());
}

// Adds the overdue bills of a person, or those that the person guarantees for others.
void add_overdue(const Station& station, CreditChange& change, bool guaranteed) {
  const std::string today = DateSemHoraToSql(clock_now(), *station.settings);
  Recordset rows =
      station.connection().Execute(sql(R"(
      SELECT Sum(Vl_Saldo) As SomaDeVl_Saldo, Min(Dt_VencPro) As MinDeDt_VencPro
      FROM   ContaAReceber
      WHERE  {} = {} And
             No_SituacaoPagamento <> 3 And
             Vl_Saldo > 0 And
             Dt_VencPro < {}{})",
                                       guaranteed ? "Cd_PessoaAvalista" : "Cd_Pessoa", change.code, today,
                                       guaranteed ? sql(" And\r       Cd_Pessoa <> {}", change.code) : ""));
  change.overdue += rows["SomaDeVl_Saldo"].value_or(Currency());
  const Date oldest = rows["MinDeDt_VencPro"].value_or(Date());
  if (change.oldest_due.empty() || (!oldest.empty() && oldest < change.oldest_due)) change.oldest_due = oldest;
}

std::vector<CreditChange> block_and_tell(Station& station) {
  const States before = credit_states(station);
  DALEmpresaUsuaria company(station.settings);
  company.BloqueiaAutomaticamenteCreditoClienteEmAtraso();
  std::vector<CreditChange> changes;
  for (const auto& [person, state] : raised(before, credit_states(station))) {
    CreditChange change{.code = person, .name = name_of(station, person), .cancelled = state == kCancelled};
    add_overdue(station, change, false);
    add_overdue(station, change, true);
    changes.push_back(std::move(change));
  }
  return changes;
}

}  // namespace

std::vector<CreditChange> bloquear_credito(Station& station) {
  std::vector<CreditChange> changes;
  in_transaction(station, [&] { changes = block_and_tell(station); });
  return changes;
}

}  // namespace posto::flows
