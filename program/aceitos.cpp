#include "flows/closing.h"
#include "posto/ado/recordset.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct AceitosOptions {
  Date day;
  Form form = Form::aligned;
};

void list_accepted(const Session& session, const AceitosOptions& options) {
  flows::Station station = session.open();
  Answer answer({{"Dia", "Dt_FecDiario", "dd/mm/yyyy"},
                 {"Verificação", "Nm_Verificacao"},
                 {"Ocorrências", "Qt_Ocorrencias"},
                 {"Aceito por", "Nm_Usuario"},
                 {"Em", "Dt_Aceite"}});
  for (Recordset rows = flows::acceptances(station, options.day); !rows.EOF(); rows.MoveNext()) {
    answer.add({rows["Dt_FecDiario"].Value(), rows["Nm_Verificacao"].Value(), rows["Qt_Ocorrencias"].Value(),
                rows["Nm_Usuario"].Value(), rows["Dt_Aceite"].Value()});
  }
  answer.print(options.form);
}

}  // namespace

void add_aceitos(CLI::App& app, Session& session) {
  auto options = std::make_shared<AceitosOptions>();
  CLI::App* command =
      add_command(app, session, "aceitos", "Lista o que foi aceito ao fechar os dias, por quem e quando",
                  [&session, options] { list_accepted(session, *options); });
  add_day(command, "--dia", options->day, "só deste dia");
  add_form(command, options->form);
}

}  // namespace posto::program
