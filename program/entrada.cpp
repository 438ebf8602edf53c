#include <fmt/format.h>

#include "flows/purchase.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct EntradaOptions {
  std::string file;
  Form form = Form::aligned;
};

void take_in(Session& session, const EntradaOptions& options) {
  flows::Station station = session.open();
  const flows::PurchaseResult result = flows::record_purchases(station, options.file);
  if (options.form == Form::aligned) {
    fmt::print("{} notas: {} gravadas, {} repetidas, {} recusadas\n",
               result.stored + result.repeated + result.refused.size(), result.stored, result.repeated,
               result.refused.size());
  }
  Answer refused({{"Nota recusada", "Ds_Nota"}, {"Motivo", "Ds_Motivo"}});
  for (const flows::RefusedNote& note : result.refused) refused.add({note.document, note.reason});
  if (refused.size() > 0 || options.form != Form::aligned) refused.print(options.form);
  if (refused.size() > 0) session.status = kRefused;
}

}  // namespace

void add_entrada(CLI::App& app, Session& session) {
  auto options = std::make_shared<EntradaOptions>();
  CLI::App* command = add_command(app, session, "entrada", "Registra as notas de compra de um arquivo",
                                  [&session, options] { take_in(session, *options); });
  command->add_option("notas", options->file, "arquivo CSV das notas")->required()->check(existing_file());
  add_form(command, options->form);
}

}  // namespace posto::program
