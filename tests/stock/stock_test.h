// A database with products and ledger movements to ask about.
#pragma once

#include <fmt/format.h>

#include <string>

#include "posto/schema/stock.h"
#include "tests/support/database.h"

namespace posto {

inline Date day(int of_month) { return Date::of_day(2026, 11, of_month); }

class StockTest : public DatabaseTest {
 protected:
  // Adds a product, of the test's company and its first group, and gives its code.
  std::int32_t add_product(std::string_view figures, std::string_view name = "Gasolina", int type = 1) {
    run(
        fmt::format("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Cd_GrupoProduto, No_Tipo, Qt_Estoque, "
                    "Vl_CustoMedio, Vl_CredIcmsMedio) Values ({}, '{}', 1, {}, {})",
                    kTenant, name, type, figures));
    return connection().Execute("SELECT Max(Cd_Produto) FROM Produto")[0].as<std::int32_t>();
  }
  // What the ledger left in the product: quantity, average cost, average ICMS credit.
  std::string figures_of(std::int32_t product) {
    return rows(
        fmt::format("SELECT Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio FROM Produto WHERE Cd_Produto = {}", product));
  }
};

}  // namespace posto
