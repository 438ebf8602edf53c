#include "flows/closing.h"

#include <algorithm>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "posto/closing/DALFecDiario.h"
#include "posto/closing/catalogue.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/services/clock.h"

namespace posto::flows {
namespace {

void require_sound(const ClosingOptions& options) {
  const auto names = finding_names();
  for (const std::string& name : options.accepted) {
    if (std::ranges::find(names, name) == names.end()) {
      throw Erro(erro::kRuleViolation, "flows.close_day", "Não há verificação com o nome " + name);
    }
  }
  if (!options.accepted.empty() && options.user.empty()) {
    throw Erro(erro::kRuleViolation, "flows.close_day", "Quem aceita o que foi encontrado precisa dizer quem é");
  }
}

bool is_closed(Station& station, Date day) {
  DALFecDiario closed(station.settings);
  closed.ObVO->Cd_PessoaUsuaria = station.tenant();
  closed.ObVO->Dt_FecDiario = day;
  return stands([&] { closed.Consultar(); });
}

// Puts each finding among those that were accepted or those that refuse the day.
void sort_out(std::vector<Finding> findings, const ClosingOptions& options, Closing& closing) {
  for (Finding& finding : findings) {
    auto& list = options.accepted.contains(finding.name) ? closing.accepted : closing.refused;
    list.push_back(std::move(finding));
  }
}

std::vector<Finding> unproved(const std::vector<RecalculatedProduct>& products) {
  Finding finding = unproved_products();
  for (const RecalculatedProduct& p : products) {
    if (!p.proved) finding.rows.push_back({p.code, p.name, p.quantity, p.reason});
  }
  if (finding.empty()) return {};
  return {std::move(finding)};
}

void mark_closed(Station& station, Date day, const ClosingOptions& options, const Closing& closing) {
  const Date now = clock_now();
  for (const Finding& finding : closing.accepted) {
    DALAceiteFecDiario acceptance(station.settings);
    acceptance.ObVO->Cd_PessoaUsuaria = station.tenant();
    acceptance.ObVO->Dt_FecDiario = day;
    acceptance.ObVO->Nm_Verificacao = finding.name;
    acceptance.ObVO->Qt_Ocorrencias = static_cast<std::int32_t>(finding.count());
    acceptance.ObVO->Nm_Usuario = options.user;
    acceptance.ObVO->Dt_Aceite = now;
    acceptance.Incluir();
  }
  DALFecDiario closed(station.settings);
  closed.ObVO->Cd_PessoaUsuaria = station.tenant();
  closed.ObVO->Dt_FecDiario = day;
  closed.ObVO->Dt_Conclusao = now;
  closed.ObVO->Nm_Usuario = options.user;
  closed.Incluir();
}

}  // namespace

Closing close_day(Station& station, Date day, const ClosingOptions& options) {
  require_sound(options);
  Closing closing;
  if (is_closed(station, day)) {
    closing.closed = closing.was_closed = true;
    return closing;
  }
  closing.mended = repair_day(station, day);
  sort_out(examine_day(station, day), options, closing);
  if (!closing.refused.empty()) return closing;
  closing.products = recalculate(station, day, {.attempts = options.attempts, .progress = options.progress});
  sort_out(unproved(closing.products), options, closing);
  if (!closing.refused.empty()) return closing;
  in_transaction(station, [&] { mark_closed(station, day, options, closing); });
  closing.closed = true;
  return closing;
}

Recordset acceptances(Station& station, Date day) {
  const std::string of_day =
      day.empty() ? std::string() : "And Dt_FecDiario = " + DateSemHoraToSql(day, *station.settings);
  return station.connection().Execute(sql(R"(
      SELECT   *
      FROM     AceiteFecDiario
      WHERE    Cd_PessoaUsuaria = {} {}
      ORDER BY Dt_FecDiario, No_Aceite)",
                                          station.tenant(), of_day));
}

bool reopen_day(Station& station, Date day) {
  if (!is_closed(station, day)) return false;
  DALFecDiario closed(station.settings);
  closed.ObVO->Cd_PessoaUsuaria = station.tenant();
  closed.ObVO->Dt_FecDiario = day;
  closed.Excluir();
  return true;
}

}  // namespace posto::flows
