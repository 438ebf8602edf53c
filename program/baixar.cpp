#include <fmt/format.h>
#include <unistd.h>

#include <array>

#include "flows/automatic_posting.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct BaixarOptions {
  std::string computer;
  std::uint8_t printer = 1;
  Form form = Form::aligned;
};

std::string this_computer() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

void post(Session& session, const BaixarOptions& options) {
  flows::Station station = session.open();
  const flows::AutomaticPosting result = flows::post_automatically(
      station, options.computer.empty() ? this_computer() : options.computer, options.printer);
  if (options.form == Form::aligned) {
    fmt::print("{} abastecimentos baixados, {} aferições, {} recusados\n", result.posted.size(),
               result.calibrations.size(), result.refused.size());
  }
  Answer answer({{"Abastecimento", "Cd_Abastecimento"},
                 {"Cupom", "No_CupomFiscal"},
                 {"Valor", "Vl_TotalLiquido", "###,##0.00"},
                 {"Recusado", "Ds_Motivo"}});
  for (const auto& posted : result.posted) answer.add({posted.fuelling, posted.coupon, posted.value, Null{}});
  for (const auto& refused : result.refused) answer.add({refused.fuelling, Null{}, Null{}, refused.reason});
  if (answer.size() > 0 || options.form != Form::aligned) answer.print(options.form);
  if (!result.refused.empty()) session.status = kRefused;
}

}  // namespace

void add_baixar(CLI::App& app, Session& session) {
  auto options = std::make_shared<BaixarOptions>();
  CLI::App* command =
      add_command(app, session, "baixar", "Baixa os abastecimentos que um computador baixa por si mesmo",
                  [&session, options] { post(session, *options); });
  auto is_name = [](const std::string& text) {
    return text.find('\'') == std::string::npos ? std::string() : "'" + text + "' não é o nome de um computador";
  };
  command->add_option("--computador", options->computer, "nome do computador (este)")
      ->check(CLI::Validator(is_name, ""));
  command->add_option("--impressora", options->printer, "número da impressora (1)")->check(whole_number(1, 255));
  add_form(command, options->form);
}

}  // namespace posto::program
