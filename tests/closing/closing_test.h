// A database with a day to close.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <vector>

#include "posto/closing/DALFecDiario.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {

inline Date day(int of_month) { return Date::of_day(2026, 11, of_month); }
inline const Date kDay = day(23);

// Rows of a table, as the values of these columns.
struct Rows {
  std::string_view table;
  std::string_view columns;
  std::vector<std::string_view> values;
};

class ClosingTest : public DatabaseTest {
 protected:
  ClosingTest() {
    settings_->ObVOEmpresaUsuaria->Dt_CorteMovimento = Date::of_day(2026, 10, 31);
    closing_.ObVO->Cd_PessoaUsuaria = kTenant;
    closing_.ObVO->Dt_FecDiario = kDay;
  }
  void add(const Rows& rows) {
    for (std::string_view values : rows.values) {
      run(fmt::format("INSERT INTO {} ({}) Values ({})", rows.table, rows.columns, values));
    }
  }
  void add(const std::vector<Rows>& tables) {
    for (const Rows& rows : tables) add(rows);
  }

  // A product, and a movement of it: "No_Tipo, Qt_Unidade, Vl_Unitario, Tx_Icms" and the position that is stored.
  void add_product(std::string_view opening, int code = 1, bool fuel = false) {
    run(
        fmt::format("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Fl_VendBomba, Qt_EstoqueInicial, "
                    "Vl_CustoMedioInicial, Vl_CredIcmsMedioInicial) Values (1, 'Produto {}', 1, {}, {})",
                    code, fuel ? -1 : 0, opening));
  }
  void add_movement(int code, int of_month, std::string_view movement, std::string_view stored = "0, 0, 0",
                    int product = 1) {
    run(
        fmt::format("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Cd_Produto, No_Tipo, "
                    "Qt_Unidade, Vl_Unitario, Tx_Icms, Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio) "
                    "Values (1, {}, '2026-11-{:02}', {}, {}, {})",
                    code, of_month, product, movement, stored));
  }
  std::string ledger() {
    return rows(
        "SELECT Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio FROM Cardex ORDER BY Dt_Emissao, "
        "Cd_LancamentoCardex");
  }
  std::string product_figures() {
    return rows("SELECT Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio FROM Produto WHERE Cd_Produto = 1");
  }

  DALFecDiario closing_{settings_};
};

}  // namespace posto
