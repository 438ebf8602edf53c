// A small station that can sell: fuel, goods and a service, a nozzle with pending fuellings, a shift, two clients.
#pragma once

#include <fmt/format.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "flows/sale.h"
#include "tests/flows/cut.h"

namespace posto::flows {

inline constexpr std::int32_t kFuel = 1, kOil = 2, kWash = 3;              // products
inline constexpr std::int32_t kTakenIn = 71, kTyped = 72, kMeasured = 73;  // fuellings: 73 is a calibration

inline void insert(Station& station, std::string_view table, std::string_view columns,
                   std::initializer_list<std::string_view> rows) {
  for (std::string_view values : rows) {
    station.connection().Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
  }
}

inline void fill_station(Station& station) {
  insert(station, "EmpresaUsuaria",
         "Cd_PessoaUsuaria, Dt_CorteMovimento, Ic_BaixaAutomaticaPorTempo, "
         "Qt_SegundosBaixaAutomatica",
         {"1, '2026-11-20', 0, 600"});
  insert(station, "Produto",
         "Cd_PessoaUsuaria, Nm_Produto, Cd_CodBarras, No_Tipo, Fl_VendBomba, Vl_Preco, Qt_Estoque, Vl_CustoMedio, "
         "No_SitTributaria, No_TribIcms, Tx_Icms, Tx_BaseCalculo, Tx_Iss, Cd_Unidade",
         {"1, 'GASOLINA', '789', 1, 1, 6.199, 980, 5, '060', '6', 0, 0, 0, 'LT'",
          "1, 'OLEO', '790', 1, 0, 46.90, 3, 20, '000', '0', 18, 100, 0, 'UN'",
          "1, 'LAVAGEM', '791', 2, 0, 45, 0, 0, '', '', 0, 0, 5, 'UN'"});
  insert(station, "Bomba",
         "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto, Cd_SisTubulacao, Nm_ComputadorBaixaAutomatica",
         {"1, 4, '04', 1, 1, 'PISTA01'"});
  insert(station, "Caixa", "Cd_PessoaUsuaria, Cd_Funcionario, Cd_Situacao", {"1, 7, 1", "1, 7, 3"});
  insert(station, "Funcionario", "Cd_PessoaUsuaria, Cd_Funcionario", {"1, 7"});
  insert(station, "Usuario", "Cd_PessoaUsuaria, Cd_Usuario, Cd_Funcionario, FlMCupomFiscal_I", {"1, 1, 7, '1'"});
  insert(station, "TipoRecebimento",
         "Cd_TipoRecebimento, Nm_TipoRecebimento, No_TipoPagamento, No_TipoVencimento, Fl_DisNaVenda",
         {"3, 'DEBITO', 3, 1, 1", "5, 'DINHEIRO', 1, 1, 1"});
  insert(station, "Pessoa", "Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf", {"9, 'Ana', '111'", "10, 'Bruno', '222'"});
  insert(station, "Cliente", "Cd_PessoaUsuaria, Cd_Cliente, No_SituacaoCredito", {"1, 9, 2", "1, 10, 3"});
  insert(station, "Cartao", "Cd_PessoaUsuaria, Cd_TipoCartao, Cd_Cartao, Cd_Cliente, Ic_Bloqueado, Dt_Validade",
         {"1, 2, 77, 9, 0, '2026-11-23'", "1, 2, 78, 9, -1, Null", "1, 2, 79, 9, 0, '2026-11-22'"});
  insert(station, "ECF", "Cd_PessoaUsuaria, No_Impressora", {"1, 1", "1, 2"});
  insert(
      station, "Abastecimento",
      "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Preco, Vl_Total, Cd_Caixa, "
      "Tx_DescontoAbastecimento, No_TipoPagamento, No_TipoVencimento, Ic_BaixaAutomatica, Ic_Afericao, "
      "No_EncerranteFechamento",
      {"1, 71, '04', '2026-11-23 08:00:00', 20, 6.199, 123.98, 1, 0, 0, 0, 0, 0, 1020",
       "1, 72, '04', '2026-11-23 08:30:00', 10, 6.199, 61.99, 1, 2, 3, 1, -1, 0, 1030",
       "1, 73, '04', '2026-11-23 08:45:00', 20, 6.199, 123.98, 1, 0, 0, 0, -1, -1, 1050"});
  insert(station, "Cardex",
         "Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, Cd_Produto",
         {"1, 1, '2026-11-23', 'AB 71', 20, 20, 1"});
  insert(station, "SequenciadorGeral", "Nm_Atributo, No_Sequencial", {"'Cd_LancamentoCardex/1', 1"});
}

// Everything that a sale changes, but for the enciphered grand total.
inline std::string state_of_sales(Connection& connection) {
  std::string state;
  for (const char* query :
       {"SELECT * FROM CupomFiscal ORDER BY No_Impressora, No_CupomFiscal",
        "SELECT * FROM ItemCupomFiscal ORDER BY No_Impressora, No_CupomFiscal, No_Item",
        "SELECT * FROM Cardex ORDER BY Cd_LancamentoCardex",
        "SELECT Cd_Produto, Qt_Estoque FROM Produto ORDER BY Cd_Produto",
        "SELECT Cd_Abastecimento, Ic_Baixado FROM Abastecimento ORDER BY Cd_Abastecimento",
        "SELECT * FROM Recebimento ORDER BY No_Recebimento", "SELECT * FROM RecebimentoCupom ORDER BY No_Recebimento",
        "SELECT * FROM VendaCartaoPorCupomFiscal ORDER BY No_CupomFiscal",
        "SELECT * FROM SequenciadorGeral ORDER BY Nm_Atributo",
        "SELECT * FROM LogDocumentoEmitidoECF ORDER BY No_COO, Ds_TipoDocumento"}) {
    state += rows_of(connection, query) + "\n";
  }
  return state;
}

inline SaleLine of_product(std::int32_t product, double units, const char* price = nullptr, bool cancelled = false) {
  SaleLine line;
  line.product = product;
  line.quantity = units;
  if (price != nullptr) line.price = Currency::parse(price);
  line.cancelled = cancelled;
  return line;
}
inline SaleLine of_fuelling(std::int32_t code) {
  SaleLine line;
  line.fuelling = code;
  return line;
}

// A sale at printer 1, paid in cash, of the lines.
inline Sale cash_sale(std::int32_t number, std::vector<SaleLine> lines) {
  Sale sale;
  sale.printer = 1;
  sale.number = number;
  sale.moment = Date::of_moment(2026, 11, 23, 10, 15, 42);
  sale.shift = 1;
  sale.lines = std::move(lines);
  sale.payments.emplace_back().kind = kCash;
  return sale;
}

class SaleTest : public ::testing::Test {
 protected:
  SaleTest() {
    fill_station(station_);
    station_ = database_.open();  // which reads the company
  }
  std::string rows(const std::string& query) { return rows_of(station_.connection(), query); }
  std::string state() { return state_of_sales(station_.connection()); }

  StationDatabase database_;
  Station station_ = database_.open();
};

}  // namespace posto::flows
