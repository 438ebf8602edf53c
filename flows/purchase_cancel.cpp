#include "flows/purchase_cancel.h"

#include <vector>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "posto/core/sql.h"
#include "posto/fiscal/DALNotaEntrada.h"
#include "posto/fiscal/DALNotaSaida.h"
#include "posto/fiscal/catalogue.h"
#include "posto/forecourt/catalogue.h"
#include "posto/stock/DALCardex.h"

namespace posto::flows {
namespace {

constexpr const char* kSettled = "até o corte do movimento";

bool is_settled(const Station& station, Date day) {
  return day <= station.settings->ObVOEmpresaUsuaria->Dt_CorteMovimento;
}

// The whole numbers of a column, first row last; rows without one are passed over.
std::vector<std::int32_t> backwards(Recordset rows, std::string_view column) {
  std::vector<std::int32_t> numbers;
  for (; !rows.EOF(); rows.MoveNext()) {
    const std::int32_t number = rows[column].value_or(std::int32_t{0});
    if (number != 0) numbers.insert(numbers.begin(), number);
  }
  return numbers;
}

// The last movement first, so that the averages of the first one are those that remain.
void take_out_of_stock(Station& station, const std::vector<std::int32_t>& movements, Cancelled& done) {
  for (std::int32_t code : movements) {
    DALCardex movement(station.settings);
    movement.ObVO->Cd_PessoaUsuaria = station.tenant();
    movement.ObVO->Cd_LancamentoCardex = code;
    movement.Excluir();
    ++done.movements;
  }
}

void remove_purchase(Station& station, DALNotaEntrada& note, Cancelled& done) {
  const std::int32_t entry = note.ObVO->No_Entrada;
  for (std::int32_t number : backwards(note.DescargasRs(), "No_Tanque")) {
    DALDescarga delivery(station.settings);
    delivery.ObVO->Cd_PessoaUsuaria = station.tenant();
    delivery.ObVO->No_Entrada = entry;
    delivery.ObVO->No_Tanque = static_cast<std::uint8_t>(number);
    delivery.Excluir();
    ++done.deliveries;
  }
  take_out_of_stock(station, backwards(note.ItensRs(), "Cd_LancamentoCardex"), done);
  for (std::int32_t number : backwards(note.ItensRs(), "No_Item")) {
    DALItemNotaEntrada line(station.settings);
    line.ObVO->Cd_PessoaUsuaria = station.tenant();
    line.ObVO->No_Entrada = entry;
    line.ObVO->No_Item = number;
    line.Excluir();
    ++done.lines;
  }
  note.Excluir();
}

// The invoice's own view of its lines leaves those out whose product has no nature.
Recordset lines_of(Station& station, const VONotaSaida& invoice) {
  return station.connection().Execute(sql(R"(
      SELECT   No_Item, Cd_LancamentoCardex
      FROM     ItemNotaSaida
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_TipoNF = {} And
               No_Nota = {}
      ORDER BY No_Item)",
                                          station.tenant(), invoice.Cd_TipoNF, invoice.No_Nota));
}

}  // namespace

Cancelled cancel_purchase(Station& station, std::int32_t No_Entrada) {
  Cancelled done;
  in_transaction(station, [&] {
    done = {};
    DALNotaEntrada note(station.settings);
    note.ObVO->Cd_PessoaUsuaria = station.tenant();
    note.ObVO->No_Entrada = No_Entrada;
    if (No_Entrada == 0 || !stands([&] { note.Consultar(); })) {
      done.refused = "não há a entrada " + std::to_string(No_Entrada);
    } else if (is_settled(station, note.ObVO->Dt_Entrega)) {
      done.refused = std::string("entregue ") + kSettled;
    } else if (!note.ContasAPagarRs().EOF()) {
      done.refused = "tem contas a pagar";
    } else {
      remove_purchase(station, note, done);
    }
  });
  return done;
}

Cancelled cancel_invoice(Station& station, std::int32_t Cd_TipoNF, std::int32_t No_Nota,
                         CdTipoExclusao No_TipoExclusao) {
  Cancelled done;
  in_transaction(station, [&] {
    done = {};
    DALNotaSaida invoice(station.settings);
    invoice.ObVO->Cd_PessoaUsuaria = station.tenant();
    invoice.ObVO->Cd_TipoNF = Cd_TipoNF;
    invoice.ObVO->No_Nota = No_Nota;
    if (Cd_TipoNF == 0 || No_Nota == 0 || !stands([&] { invoice.Consultar(); })) {
      done.refused = "não há a nota " + std::to_string(No_Nota) + " do tipo " + std::to_string(Cd_TipoNF);
    } else if (is_settled(station, invoice.ObVO->Dt_Emissao)) {
      done.refused = std::string("emitida ") + kSettled;
    } else if (invoice.ObVO->Ic_Cancelada && No_TipoExclusao == CdTipoExclusaoLogica) {
      done.refused = "já está cancelada";
    } else {
      done.lines = backwards(lines_of(station, *invoice.ObVO), "No_Item").size();
      take_out_of_stock(station, backwards(lines_of(station, *invoice.ObVO), "Cd_LancamentoCardex"), done);
      invoice.Excluir(No_TipoExclusao);
    }
  });
  return done;
}

}  // namespace posto::flows
