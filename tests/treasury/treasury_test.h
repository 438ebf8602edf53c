// A cash shift whose settlement was worked out by hand, and what tests of the treasury ask.
#pragma once

#include <fmt/format.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "posto/services/clock.h"
#include "posto/treasury/DALCaixa.h"
#include "tests/core/failures.h"
#include "tests/dialect/corpus.h"
#include "tests/support/database.h"

namespace posto {

inline constexpr std::int32_t kShift = 87, kEmployee = 42;

inline Currency money(std::string_view text) { return Currency::parse(text); }

using testing::words_of;

class TreasuryTest : public DatabaseTest {
 protected:
  TreasuryTest() {
    shift_.ObVO->Cd_PessoaUsuaria = kTenant;
    shift_.ObVO->Cd_Caixa = kShift;
  }

  void add(std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
    for (auto values : list) run(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
  }
  void add_shift(int code, int ordinal, std::string_view day, int state = 1, int employee = kEmployee) {
    run(
        fmt::format("INSERT INTO Caixa (Cd_PessoaUsuaria, Cd_Caixa, Cd_Funcionario, No_Sequencial, Dt_Abertura, "
                    "Hr_Abertura, Cd_Situacao) Values (1, {}, {}, {}, '{}', '06:00:00', {})",
                    code, employee, ordinal, day, state));
  }
  void add_products() {
    add("GrupoProduto", "Cd_GrupoProduto, Nm_GrupoProduto", {"1, 'COMBUSTIVEIS'", "2, 'LOJA'"});
    add("Produto", "Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Cd_GrupoProduto, No_Tipo, Fl_VendBomba",
        {"1, 1, 'GASOLINA', 1, 1, 1", "1, 2, 'ÓLEO', 2, 1, 0", "1, 3, 'LAVAGEM', 2, 2, 0", "1, 4, 'OUTRO', 2, 9, 0"});
    add("PonVen", "Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen", {"1, 1, 'PISTA'"});
    add("Bomba", "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto", {"1, 3, '04', 1"});
  }
  void add_coupons() {
    add("CupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Hr_Emissao, Cd_Caixa, Tp_Venda, Vl_Total, "
        "Vl_DesAcr, Vl_TotalLiquido, Vl_DescontoCF, Ic_Excluido, Cd_Cliente",
        {"1, 1, 100, '2026-11-24', '09:00:00', 87, 21, 77.22, 1.10, 76.12, 1.10, 0, Null",
         "1, 1, 101, '2026-11-24', '08:00:00', 87, 13, 81.50, 1.50, 80, 0, 0, 7",
         "1, 1, 102, '2026-11-24', '10:00:00', 87, 20, 5, 0, 5, 0, 0, 7",
         "1, 1, 103, '2026-11-24', '11:00:00', 87, 13, 999, 0, 999, 9, 1, 7",
         "1, 1, 104, '2026-11-24', '12:00:00', 88, 13, 50, 0, 50, 4, 0, 7"});
    add("ItemCupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
        "Cd_Bomba, Cd_PonVen, Ic_Excluido",
        {
            "1, 1, 100, '2026-11-24', 1, 1, 0.333, 1.115, 3, 1, 0",  // 0.371295: 0.37
            "1, 1, 100, '2026-11-24', 2, 1, 20.5, 2.499, 3, 1, 0",   // 51.2295: 51.23
            "1, 1, 100, '2026-11-24', 3, 2, 1, 0.125, 0, 1, 0",      // a tie: 0.12, on the server 0.13
            "1, 1, 100, '2026-11-24', 4, 2, 3, 0.125, 0, 1, 0",      // a tie: 0.38 on both
            "1, 1, 100, '2026-11-24', 5, 2, 5, 10, 0, 1, 1",         // deleted
            "1, 1, 100, '2026-11-24', 6, 3, 1, 25, 0, 1, 0",         // a service
            "1, 1, 100, '2026-11-24', 7, 99, 1, 7, 0, 1, 0",         // its product is gone
            "1, 1, 100, '2026-11-24', 8, 4, 1, 6, 0, 1, 0",          // of no kind that is known
            "1, 1, 101, '2026-11-24', 1, 2, 8, 10, 0, 1, 0",         // 80.00
            "1, 1, 103, '2026-11-24', 1, 2, 9, 111, 0, 1, 0",        // of a deleted coupon
            "1, 1, 104, '2026-11-24', 1, 2, 5, 10, 0, 1, 0",         // of another shift
        });
  }
  void add_receipts() {
    add("TipoRecebimento", "Cd_TipoRecebimento, Nm_TipoRecebimento", {"1, 'CHEQUE'", "5, 'DINHEIRO'"});
    add("Recebimento",
        "Cd_PessoaUsuaria, No_Recebimento, Cd_Caixa, Tp_DocDebito, No_DocDebito, Cd_TipoRecebimento, "
        "Nm_IdDocumentoRec, Vl_Recebimento, Vl_JurosRec, Vl_Amortizacao, No_Sangria, Ic_Suprimento",
        {
            "1, 1, 87, 20, 0, 5, 'DINHEIRO', 60, 0, 0, 1, 0",
            "1, 2, 87, 20, 0, 5, 'SUPRIMENTO', 50, 0, 0, 0, 1",   // a float has no coupon
            "1, 3, 87, 20, 0, 5, 'DINHEIRO', 33.33, 0, 0, 0, 0",  // an orphan
            "1, 4, 87, 20, 0, 5, Null, 4, 0, 0, 0, 0",            // without a coupon, but null is not unequal
            "1, 5, 87, 10, 70, 1, 'CH 1', 15.5, 0.5, 15, 0, 0",   // a receivable
            "1, 6, 88, 20, 0, 5, 'DINHEIRO', 8, 0, 0, 0, 0",      // an orphan of another shift
        });
    add("RecebimentoCupom", "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento",
        {"1, 1, 100, '2026-11-24', 1"});
    add("ContaAReceber", "Cd_PessoaUsuaria, Cd_ContaAReceber, Cd_Pessoa", {"1, 70, 7"});
  }
  void add_rest() {
    add("Pessoa", "Cd_Pessoa, Nm_Pessoa", {"7, 'ANA'", "42, 'CARLOS'"});
    add("Cliente", "Cd_PessoaUsuaria, Cd_Cliente", {"1, 7"});
    add("Abastecimento",
        "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Cd_Caixa, Qt_Litros, Vl_Preco, Vl_Total, "
        "Ic_Baixado, Ic_Afericao",
        {"1, 1, '04', 87, 5, 2.468, 12.34, 0, 0", "1, 2, '04', 87, 40, 2.499, 99.96, 1, 0",
         "1, 3, '04', 88, 1, 2, 2, 0, 0", "1, 4, '04', 87, 20, 2.499, 49.98, 1, 1"});
    add("TipoDivergenciaCaixa", "Cd_TipoDivergenciaCaixa, Ds_DivergenciaCaixa, No_NaturezaDivergencia",
        {"1, 'VALE', 1", "2, 'DINHEIRO', 1", "3, 'TROCO', 2"});
    add("DivergenciaCaixa", "Cd_Caixa, Cd_TipoDivergenciaCaixa, Vl_Divergencia, Ds_Divergencia",
        {"87, 1, 3, 'ALMOÇO'", "87, 2, 2, 'MOEDAS'", "87, 3, 7.25, 'ERRO'", "88, 3, 9, 'OUTRO'"});
    add("RespBomba",
        "Cd_PessoaUsuaria, Cd_Caixa, Dt_RespBomba, Cd_Bomba, No_EncerranteEletronicoAbertura, "
        "No_EncerranteEletronicoFechamento, Qt_Venda",
        {"1, 87, '2026-11-24 06:00:00', 3, 1000.5, 1066.5, 66", "1, 87, '2026-11-24 10:30:15', 3, 1066.5, Null, Null"});
  }
  // The shift of which every kind of row has something that counts and something that does not.
  void add_busy_shift() {
    add_shift(kShift, 1, "2026-11-24");
    add_shift(kShift + 1, 2, "2026-11-24");
    add_products();
    add_coupons();
    add_receipts();
    add_rest();
    shift_.ObVO->Vl_SobraSangrias = money("2");
    shift_.ObVO->Vl_FaltaSangrias = money("0.41");
  }

  // The statement that the library is to compose.
  static std::string wanted(const std::string& name) { return words_of(testing::corpus_statement(name).value()); }
  // Runs `body` and compares what it sent, statement by statement.
  template <class Body>
  void expect_statements(std::initializer_list<const char*> names, Body&& body) {
    const auto sent = statements_of(body);
    ASSERT_EQ(sent.size(), names.size());
    auto statement = sent.begin();
    for (const char* name : names) {
      EXPECT_EQ(words_of(*statement++), wanted(std::string("DALCaixa.") + name));
    }
  }

  DALCaixa shift_{settings_};
};

}  // namespace posto
