// A database with coupons, lines, receipts and products to ask about.
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/fiscal/DALItemCupomFiscal.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {

inline Date day(std::string_view iso) { return Date::parse_iso(iso).value(); }

// A coupon of company 1 that has a key and nothing else.
inline VOCupomFiscal coupon(std::uint8_t printer, std::int32_t number, std::string_view issued = "2026-11-23") {
  VOCupomFiscal v;
  v.Cd_PessoaUsuaria = 1;
  v.No_Impressora = printer;
  v.No_CupomFiscal = number;
  v.Dt_Emissao = day(issued);
  return v;
}

// A line of it: units of a product at a price.
inline VOItemCupomFiscal line(const VOCupomFiscal& of, std::uint8_t item, std::int32_t product = 0, double units = 1,
                              double price = 1) {
  VOItemCupomFiscal v;
  v.Cd_PessoaUsuaria = of.Cd_PessoaUsuaria;
  v.No_Impressora = of.No_Impressora;
  v.No_CupomFiscal = of.No_CupomFiscal;
  v.Dt_Emissao = of.Dt_Emissao;
  v.No_Item = item;
  v.Cd_Produto = product;
  v.Qt_Unidade = units;
  v.Vl_UnitVenda = Currency(price);
  return v;
}

class FiscalTest : public DatabaseTest {
 protected:
  void add(const VOCupomFiscal& v) {
    DALCupomFiscal coupons(settings_);
    *coupons.ObVO = v;
    coupons.Incluir();
  }
  void add(const VOItemCupomFiscal& v) {
    DALItemCupomFiscal lines(settings_);
    *lines.ObVO = v;
    lines.Incluir();
  }
  // A receipt that pays a coupon, or several when it is told again with the others.
  void add_receipt(const VOCupomFiscal& of, int number, double value, int shift = 0) {
    run(
        fmt::format("INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_TipoRecebimento, Vl_Recebimento, "
                    "Cd_Caixa) Values ({}, {}, 5, {}, {})",
                    of.Cd_PessoaUsuaria, number, value, shift));
    add_link(of, number);
  }
  void add_link(const VOCupomFiscal& of, int receipt) {
    run(fmt::format(
        "INSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
        "No_Recebimento) Values ({}, {}, {}, '{}', {})",
        of.Cd_PessoaUsuaria, of.No_Impressora, of.No_CupomFiscal, format_date(of.Dt_Emissao, "yyyy-mm-dd"), receipt));
  }
  // A product of company 1; gives its code. Kind 1 is goods, 2 a service.
  std::int32_t add_product(std::string_view name, int kind = 1, bool fuel = false) {
    run(fmt::format(
        "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Fl_VendBomba) Values (1, '{}', {}, {})", name,
        kind, fuel ? 1 : 0));
    return connection().Execute("SELECT @@IDENTITY As Codigo")["Codigo"].as<std::int32_t>();
  }
};

}  // namespace posto
