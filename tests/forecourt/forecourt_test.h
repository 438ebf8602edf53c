// A database with nozzles, shifts and fuellings to ask about.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "posto/forecourt/DALAbastecimento.h"
#include "posto/forecourt/DALBomba.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {

inline Date moment(std::string_view iso) { return Date::parse_iso(iso).value(); }

// A fuelling of nozzle 04, pending and not marked for anything, at the given end.
inline VOAbastecimento fuelling(std::int32_t code, std::string_view end, std::int16_t counter = 1) {
  VOAbastecimento v;
  v.Cd_PessoaUsuaria = 1;
  v.Cd_Abastecimento = code;
  v.De_EnderecoLogicoBico = "04";
  v.Dt_Termino = moment(end);
  v.No_Contador = counter;
  v.No_EncerranteFechamento = 1000.5 + code;
  return v;
}

class ForecourtTest : public DatabaseTest {
 protected:
  void add(const VOAbastecimento& v) {
    DALAbastecimento fuellings(settings_);
    *fuellings.ObVO = v;
    fuellings.Incluir();
  }
  void add_nozzle(int tenant, int number, std::string_view address, std::string_view computer = "PISTA01") {
    run(
        fmt::format("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, Ds_Bomba, De_EnderecoLogicoBico, "
                    "Nm_ComputadorBaixaAutomatica) Values ({}, {}, 'Bomba {}/{}', '{}', '{}')",
                    tenant, number, tenant, number, address, computer));
  }
  // A shift of an employee who is a user and may, or may not, issue coupons.
  void add_shift(int shift, int employee, bool may_issue = true) {
    run(
        fmt::format("INSERT INTO Caixa (Cd_PessoaUsuaria, Cd_Caixa, Cd_Funcionario) Values (1, {0}, {1})\r"
                    "INSERT INTO Funcionario (Cd_PessoaUsuaria, Cd_Funcionario) Values (1, {1})\r"
                    "INSERT INTO Pessoa (Cd_Pessoa, Nm_Pessoa) Values ({1}, 'Frentista {1}')\r"
                    "INSERT INTO Usuario (Cd_PessoaUsuaria, Cd_Usuario, Cd_Funcionario, FlMCupomFiscal_I) "
                    "Values (1, {2}, {1}, '{3}')",
                    shift, employee, 100 + employee, may_issue ? 1 : 0));
  }
  // The codes of the fuellings in a record set, in its order.
  static std::string codes(Recordset rows) {
    std::string text;
    for (; !rows.EOF(); rows.MoveNext()) {
      text += (text.empty() ? "" : " ") + rows["Cd_Abastecimento"].as<std::string>();
    }
    return text;
  }
  std::string posted() { return rows("SELECT Cd_Abastecimento FROM Abastecimento WHERE Ic_Baixado <> 0"); }
};

}  // namespace posto
