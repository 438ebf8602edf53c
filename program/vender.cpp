#include <fmt/format.h>

#include "flows/sales_file.h"
#include "program/answer.h"
#include "program/command.h"

namespace posto::program {
namespace {

struct VenderOptions {
  std::string file;
  Form form = Form::aligned;
};

void sell(Session& session, const VenderOptions& options) {
  flows::Station station = session.open();
  const flows::SalesResult result = flows::sell_from(station, options.file);
  if (options.form == Form::aligned) {
    fmt::print("{} cupons: {} vendidos ({} cancelados), {} repetidos, {} recusados\n",
               result.sold + result.repeated + result.refused.size(), result.sold, result.cancelled, result.repeated,
               result.refused.size());
  }
  Answer refused({{"Cupom recusado", "Ds_Cupom"}, {"Motivo", "Ds_Motivo"}});
  for (const flows::RefusedSale& sale : result.refused) refused.add({sale.coupon, sale.reason});
  if (refused.size() > 0 || options.form != Form::aligned) refused.print(options.form);
  if (refused.size() > 0) session.status = kRefused;
}

}  // namespace

void add_vender(CLI::App& app, Session& session) {
  auto options = std::make_shared<VenderOptions>();
  CLI::App* command = add_command(app, session, "vender", "Registra as vendas de um arquivo, cupom a cupom",
                                  [&session, options] { sell(session, *options); });
  command->add_option("vendas", options->file, "arquivo CSV das vendas")->required()->check(existing_file());
  add_form(command, options->form);
}

}  // namespace posto::program
