#include "posto/forecourt/DALAbastecimento.h"
#include "posto/forecourt/DALBomba.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct PendentesOptions {
  std::string nozzle;
  std::int32_t employee = 0;
  Form form = Form::aligned;
};

Recordset pending(const flows::Station& station, const PendentesOptions& options) {
  if (options.nozzle.empty()) {
    DALAbastecimentos fuellings(station.settings);
    return fuellings.ConsultarAbastecimentoPendentesRs(options.employee);
  }
  DALBomba nozzle(station.settings);
  nozzle.ObVO->Cd_PessoaUsuaria = station.tenant();
  nozzle.ObVO->De_EnderecoLogicoBico = options.nozzle;
  nozzle.Consultar();  // an address that no nozzle has is a failure, not an empty list
  return nozzle.Rs_AbastecimentosPendentes();
}

void show(const Session& session, const PendentesOptions& options) {
  flows::Station station = session.open();
  Recordset rows = pending(station, options);
  Answer answer({{"Código", "Cd_Abastecimento"},
                 {"Bico", "De_EnderecoLogicoBico"},
                 {"Término", "Dt_Termino"},
                 {"Litros", "Qt_Litros", "###,##0.000"},
                 {"Preço", "Vl_Preco", "##0.000"},
                 {"Total", "Vl_Total", "###,##0.00"},
                 {"Encerrante", "No_EncerranteFechamento", kQuantity},
                 {"Caixa", "Cd_Caixa"}});
  for (; !rows.EOF(); rows.MoveNext()) {
    answer.add({rows["Cd_Abastecimento"].Value(), rows["De_EnderecoLogicoBico"].Value(), rows["Dt_Termino"].Value(),
                rows["Qt_Litros"].Value(), rows["Vl_Preco"].Value(), rows["Vl_Total"].Value(),
                rows["No_EncerranteFechamento"].Value(), rows["Cd_Caixa"].Value()});
  }
  answer.print(options.form);
}

}  // namespace

void add_pendentes(CLI::App& app, Session& session) {
  auto options = std::make_shared<PendentesOptions>();
  CLI::App* command = add_command(app, session, "pendentes", "Lista os abastecimentos que ainda não foram baixados",
                                  [&session, options] { show(session, *options); });
  auto* nozzle = command->add_option("--bico", options->nozzle, "endereço lógico do bico");
  auto is_address = [](const std::string& text) {
    bool plain = !text.empty() && text.size() <= 2 && text.find_first_of("'\"") == std::string::npos;
    return plain ? std::string() : "'" + text + "' não é o endereço de um bico";
  };
  nozzle->check(CLI::Validator(is_address, ""));
  command->add_option("--funcionario", options->employee, "código do funcionário do caixa")
      ->check(whole_number())
      ->excludes(nozzle);
  add_form(command, options->form);
}

}  // namespace posto::program
