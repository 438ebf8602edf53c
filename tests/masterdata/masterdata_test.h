// A database with persons, products and what customers owe.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "posto/masterdata/DALCliente.h"
#include "posto/services/clock.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {

inline Currency money(std::string_view text) { return Currency::parse(text); }

class MasterdataTest : public DatabaseTest {
 protected:
  static Date today() { return Date::of_day(2026, 11, 24); }

  void add_person(int code, std::string_view tax_number, std::string_view name) {
    run(fmt::format("INSERT INTO Pessoa (Cd_Pessoa, Cd_CgcCpf, Nm_Pessoa) Values ({}, '{}', '{}')", code, tax_number,
                    name));
  }
  void add_product(int code, std::string_view name, std::string_view price) {
    run(fmt::format("INSERT INTO Produto (Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Vl_Preco) Values (1, {}, '{}', {})",
                    code, name, price));
  }
  struct Sale {
    int number = 1;
    int customer = 7;
    int kind = 12;  // Tp_Venda
    std::string_view state = "N";
    std::string_view total = "0";
    std::string_view vehicle = "";
    std::string_view billed_on = "2026-11-30";
    int company = 1;
    std::string_view commitment = "";
    std::string_view bill = "Null";
  };
  void add_sale(const Sale& s) {
    run(fmt::format(
        "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Cd_Cliente, "
        "Tp_Venda, FL_Fechada, Vl_TotalLiquido, Cd_Veiculo, Dt_Fechamento, Id_Empenho, Cd_ContaAReceber) "
        "Values ({}, 1, {}, '2026-11-20', {}, {}, '{}', {}, '{}', '{}', '{}', {})",
        s.company, s.number, s.customer, s.kind, s.state, s.total, s.vehicle, s.billed_on, s.commitment, s.bill));
  }
  void add_line(int coupon, int item, int product, std::string_view quantity, std::string_view km_per_litre = "Null") {
    run(
        fmt::format("INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
                    "No_Item, Cd_Produto, Qt_Unidade, Qt_KmPorLitro) Values (1, 1, {}, '2026-11-20', {}, {}, {}, {})",
                    coupon, item, product, quantity, km_per_litre));
  }

 private:
  ClockOverride clock_{today().plus_millis(15 * 3'600'000)};  // three in the afternoon
};

}  // namespace posto
