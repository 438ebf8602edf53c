#include "flows/bloquear_credito.h"

#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

void block(const Session& session, Form form) {
  flows::Station station = session.open();
  Answer answer({{"Código", "Cd_Cliente"},
                 {"Nome", "Nm_Pessoa"},
                 {"Situação", "Ds_SituacaoCredito"},
                 {"Vencido", "Vl_Vencido", kMoney},
                 {"Vencimento mais antigo", "Dt_VencimentoMaisAntigo", "dd/mm/yyyy"}});
  for (const flows::CreditChange& change : flows::bloquear_credito(station)) {
    answer.add({change.code, change.name, change.cancelled ? "CANCELADO" : "BLOQUEADO", change.overdue,
                change.oldest_due.empty() ? Variant(Null{}) : Variant(change.oldest_due)});
  }
  answer.print(form);
}

}  // namespace

void add_bloquear_credito(CLI::App& app, Session& session) {
  auto form = std::make_shared<Form>(Form::aligned);
  CLI::App* command = add_command(app, session, "bloquear-credito",
                                  "Bloqueia e cancela o crédito dos clientes em atraso e dos seus avalistas",
                                  [&session, form] { block(session, *form); });
  add_form(command, *form);
}

}  // namespace posto::program
