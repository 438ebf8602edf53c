#include "flows/purchase.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "flows/purchase_cancel.h"
#include "tests/flows/cut.h"

namespace posto::flows {
namespace {

constexpr const char* kNoteHeader =
    "tipo_nf,numero,fornecedor,emissao,entrega,desconto,frete,despesas,total,produto,cfop,situacao,quantidade,unitario,"
    "desconto_item,icms,ipi,icms_st,descargas\n";

// A row of a note: 1,000 litres at 5.00, all into tank 1.
struct Row {
  std::string kind = "1", number = "78", supplier = "92520282000176", issued = "2026-11-22", delivered = "2026-11-23",
              discount = "0", freight = "0", expenses = "0", total = "5000", product = "789GAS", cfop = "1652",
              situation = "000", quantity = "1000", unit = "5", line_discount = "0", icms = "18", ipi = "0",
              substituted = "0", deliveries = "1=1000";
  std::string text() const {
    return fmt::format("{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{},{}\n", kind, number, supplier, issued,
                       delivered, discount, freight, expenses, total, product, cfop, situation, quantity, unit,
                       line_discount, icms, ipi, substituted, deliveries);
  }
};

// Gasoline and oil with discounts, freight, IPI and substituted ICMS; the figures stand at the test below.
std::string two_lines() {
  const Row gasoline{.number = "77",
                     .discount = "100",
                     .freight = "274.50",
                     .total = "27681.84",
                     .quantity = "5000",
                     .unit = "5.40",
                     .deliveries = "1=3000 2=2000"};
  Row oil = gasoline;
  oil.product = "789OIL";
  oil.cfop = "1403";
  oil.situation = "060";
  oil.quantity = "24";
  oil.unit = "20";
  oil.line_discount = "30";
  oil.ipi = "10";
  oil.substituted = "12.34";
  oil.deliveries = "";
  return gasoline.text() + oil.text();
}

class PurchaseTest : public ::testing::Test {
 protected:
  // Settled up to the 21st; 1,000 litres of gasoline at 5.00 with a credit of 0.90, no oil; tanks of gasoline on two
  // piping systems and one of ethanol.
  static void fill(Station& station) {
    auto add = [&](std::string_view table, std::string_view columns, std::initializer_list<std::string_view> list) {
      for (auto values : list)
        station.connection().Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
    };
    add("EmpresaUsuaria", "Cd_PessoaUsuaria, Dt_CorteMovimento", {"1, '2026-11-21'"});
    add("TipoNF", "Cd_TipoNF, Ds_TipoNF", {"1, 'NOTA FISCAL'"});
    add("Pessoa", "Cd_Pessoa, Nm_Pessoa, Cd_CgcCpf", {"5, 'SERRA CLARA', '92520282000176'"});
    add("Fornecedor", "Cd_PessoaUsuaria, Cd_Fornecedor", {"1, 5"});
    add("Produto",
        "Cd_PessoaUsuaria, Cd_Produto, Nm_Produto, Cd_CodBarras, No_Tipo, Fl_VendBomba, Qt_Estoque, Vl_CustoMedio, "
        "Vl_CredIcmsMedio",
        {"1, 1, 'GASOLINA', '789GAS', 1, 1, 1000, 5, 0.9", "1, 2, 'OLEO', '789OIL', 1, 0, 0, 0, 0",
         "1, 3, 'LAVAGEM', '789WASH', 2, 0, 0, 0, 0", "2, 4, 'ALHEIO', '789OTHER', 1, 0, 0, 0, 0"});
    add("Tanque", "Cd_PessoaUsuaria, No_Tanque, Cd_SisTubulacao, Cd_Produto",
        {"1, 1, 1, 1", "1, 2, 2, 1", "1, 3, 3, 9"});
  }
  void SetUp() override {
    {
      Station empty = database_.open();
      fill(empty);
    }
    station_ = database_.open();
  }
  PurchaseResult take(const std::string& rows) {
    return record_purchases(station_, folder_.write("nota.csv", kNoteHeader + rows));
  }
  std::string asked(const std::string& query) { return rows_of(station_.connection(), query); }
  std::string stock() {
    return asked(
        "SELECT Cd_Produto, Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio FROM Produto "
        "WHERE Cd_Produto < 3 ORDER BY Cd_Produto");
  }
  // Everything that a note changes, but for No_Entrada: a transaction that is rolled back may use one up.
  static std::string state(Connection& connection) {
    std::string text;
    for (const char* query :
         {"No_Nota, Cd_Fornecedor, Dt_Entrega, Vl_TotalNota, Ic_Concluido FROM NotaEntrada ORDER BY No_Nota",
          "No_Item, Cd_ProdutoItem, Vl_UnitFinal, Cd_LancamentoCardex FROM ItemNotaEntrada ORDER BY No_Entrada, "
          "No_Item",
          "No_Tanque, Cd_ProdutoDescarga, Qt_UnidadeDescarga FROM Descarga ORDER BY No_Entrada, No_Tanque",
          "* FROM Cardex ORDER BY Cd_LancamentoCardex", "* FROM Produto ORDER BY Cd_Produto",
          "* FROM SequenciadorGeral ORDER BY Nm_Atributo"}) {
      text += rows_of(connection, std::string("SELECT ") + query);
    }
    return text;
  }

  TemporaryFolder folder_;
  StationDatabase database_;
  Station station_;
};

// Lines are worth 5000 x 5.40 = 27,000.00 and 24 x 20 - 30 = 450.00. Of the discount of 100.00 the first bears 98.36,
// of the freight of 274.50 it bears 270.00; so it costs 27,171.64, or 5.434328 a litre, with a credit of 18 %:
// 4,890.90. The oil costs 450 - 1.64 + 4.50 = 452.86, IPI of 10 % on 450 = 45.00, substituted ICMS 12.34: 510.20; it
// gives no credit. Gasoline then: (1000 x 5 + 27,171.64) / 6000 = 5.36194 and (1000 x 0.9 + 27,171.64 x 18 %) / 6000 =
// 0.9651492; oil, of which there was none: 510.20 / 24.
TEST_F(PurchaseTest, WhatANoteCostsEntersStock) {
  const PurchaseResult result = take(two_lines());
  ASSERT_TRUE(result.refused.empty()) << result.refused[0].reason;
  EXPECT_EQ(result.stored, 1u);
  EXPECT_EQ(stock(), "1,6000,5.36194,0.965149\n2,24,21.258333,0\n");
  EXPECT_EQ(asked("SELECT No_Item, Vl_TotalItem, Vl_RateioDescontoGeral, Vl_Frete, Vl_CredIcms, Vl_IpiItem, "
                  "Vl_UnitFinal, Cd_LancamentoCardex FROM ItemNotaEntrada ORDER BY No_Item"),
            "1,27000,98.36,270,4890.9,0,5.4343,1\n2,450,1.64,4.5,0,45,21.2583,2\n");
  EXPECT_EQ(asked("SELECT Vl_TotalProdutos, Vl_TotalDesconto, Vl_TotalIpi, Vl_IcmsST, Vl_BasCalIcms, Vl_TotalIcms, "
                  "Vl_TotalNota, Ic_Concluido FROM NotaEntrada"),
            "27480,130,45,12.34,27171.64,4890.9,27681.84,True\n");
  EXPECT_EQ(asked("SELECT Nm_Doc, No_Tipo, Qt_Unidade, Cd_SisTubulacao, Qt_Estoque FROM Cardex "
                  "WHERE Dt_Emissao = '2026-11-23' ORDER BY Cd_LancamentoCardex"),
            "NF 77,10,5000,-,6000\nNF 77,10,24,-,24\n");
  EXPECT_EQ(asked("SELECT No_Tanque, Cd_ProdutoDescarga, Qt_UnidadeDescarga FROM Descarga ORDER BY No_Tanque"),
            "1,1,3000\n2,1,2000\n");
}

TEST_F(PurchaseTest, ALineIntoOnePipingSystemMovesThatOne) {
  Row first{.total = "10000", .deliveries = "1=400 1=600"}, second{.total = "10000", .deliveries = "1=1000"};
  EXPECT_EQ(take(first.text() + second.text()).stored, 1u);
  EXPECT_EQ(asked("SELECT Cd_SisTubulacao FROM Cardex"), "1\n1\n");
  EXPECT_EQ(asked("SELECT No_Tanque, Qt_UnidadeDescarga FROM Descarga"), "1,2000\n");
}

TEST_F(PurchaseTest, AFileIsTakenInAgainAndANoteWithOtherFiguresIsNot) {
  take(two_lines());
  PurchaseResult again = take(two_lines() + Row{}.text());
  EXPECT_EQ(again.repeated, 1u);
  EXPECT_EQ(again.stored, 1u);
  again = take(Row{.number = "77"}.text());
  ASSERT_EQ(again.refused.size(), 1u);
  EXPECT_EQ(again.refused[0].document, "tipo 1, nota 77, fornecedor 92520282000176");
  EXPECT_EQ(again.refused[0].reason, "já registrada com outros valores, entrada 1");
  cancel_purchase(station_, 2);
  EXPECT_EQ(asked("SELECT No_Nota FROM NotaEntrada"), "77\n");
}

TEST_F(PurchaseTest, FuelThatIsInNoTankLeavesTheNoteOpen) {
  EXPECT_EQ(take(Row{.deliveries = ""}.text()).stored, 1u);
  EXPECT_EQ(asked("SELECT Ic_Concluido FROM NotaEntrada"), "False\n");
}

TEST_F(PurchaseTest, ABadRowRefusesItsNoteAndTheOthersGoOn) {
  struct Case {
    const char* what;
    std::string rows;
    const char* reason;
  };
  const Row good{.number = "80"};
  auto two = [](Row second) { return Row{.total = "10000"}.text() + second.text(); };
  const Case cases[] = {
      {"total", Row{.total = "5000.01"}.text(),
       "o total da nota é 5.000,01 e as linhas somam 5.000,00: diferença de -0,01"},
      {"litres", Row{.deliveries = "1=600 2=399.5"}.text(),
       "as descargas do produto 1 somam 999,500 de 1.000,000: diferença de -0,500"},
      {"kind", Row{.kind = "9"}.text(), "nota.csv, linha 2: tipo de nota desconhecido: 9"},
      {"number", Row{.number = "0"}.text(), "nota.csv, linha 2: numero inválido: '0' (de 1 a 2147483647)"},
      {"supplier", Row{.supplier = "1'2"}.text(), "nota.csv, linha 2: fornecedor desconhecido: 1'2"},
      {"before issue", Row{.issued = "2026-11-24"}.text(), "nota.csv, linha 2: entrega anterior à emissão"},
      {"settled", Row{.issued = "2026-11-20", .delivered = "2026-11-21"}.text(),
       "nota.csv, linha 2: entrega até o corte do movimento: 2026-11-21"},
      {"day", Row{.delivered = "2026-02-30"}.text(),
       "nota.csv, linha 2: entrega não é uma data (aaaa-mm-dd): '2026-02-30'"},
      {"other header", two({.total = "10001"}), "nota.csv, linha 3: os dados da nota não são os da linha anterior"},
      {"product", two({.total = "10000", .product = "000"}), "nota.csv, linha 3: produto desconhecido: 000"},
      {"another company's", Row{.product = "789OTHER"}.text(), "nota.csv, linha 2: produto desconhecido: 789OTHER"},
      {"service", Row{.product = "789WASH"}.text(), "nota.csv, linha 2: um serviço não entra no estoque: 789WASH"},
      {"nothing", Row{.total = "0", .quantity = "0"}.text(), "nota.csv, linha 2: quantidade inválida: '0'"},
      {"negative", Row{.unit = "-5"}.text(), "nota.csv, linha 2: unitario inválido: '-5'"},
      {"too much", Row{.unit = "1000000.01"}.text(), "nota.csv, linha 2: unitario acima de 1000000.0000: '1000000.01'"},
      {"rate", Row{.icms = "180"}.text(), "nota.csv, linha 2: icms acima de 100.0000: '180'"},
      {"discount", Row{.line_discount = "5000.01"}.text(), "nota.csv, linha 2: desconto_item acima do valor da linha"},
      {"cfop", Row{.cfop = "1.652"}.text(), "nota.csv, linha 2: cfop não tem quatro algarismos: '1.652'"},
      {"delivery", Row{.deliveries = "1:1000"}.text(),
       "nota.csv, linha 2: descarga inválida: '1:1000' (tanque=litros)"},
      {"tank", Row{.deliveries = "8=1000"}.text(), "nota.csv, linha 2: tanque desconhecido: '8=1000'"},
      {"other fuel", Row{.deliveries = "3=1000"}.text(),
       "nota.csv, linha 2: o tanque é de outro combustível: '3=1000'"},
      {"oil in a tank", Row{.product = "789OIL"}.text(), "nota.csv, linha 2: só combustível tem descarga"},
      {"fields", Row{.total = "10000"}.text() + "1,78\n" + Row{.total = "10000"}.text(),
       "nota.csv, linha 3: 2 campos em lugar de 19"},
  };
  const std::string before = state(station_.connection());
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const PurchaseResult result = take(c.rows);
    EXPECT_EQ(state(station_.connection()), before);
    ASSERT_EQ(result.refused.size(), 1u);
    EXPECT_EQ(result.refused[0].reason, c.reason);
  }
  const PurchaseResult mixed = take("stray\n" + cases[0].rows + good.text());
  EXPECT_EQ(mixed.stored, 1u);
  ASSERT_EQ(mixed.refused.size(), 2u);
  EXPECT_EQ(mixed.refused[0].document, "");
  EXPECT_EQ(asked("SELECT No_Nota FROM NotaEntrada"), "80\n");
}

// Gasoline keeps the averages that its movement bore; the closing works them out.
TEST_F(PurchaseTest, ACancelledNoteLeavesStockAsItWas) {
  take(two_lines() + Row{}.text());
  const Cancelled done = cancel_purchase(station_, 1);
  EXPECT_EQ(done.refused, "");
  EXPECT_EQ(fmt::format("{} {} {}", done.lines, done.movements, done.deliveries), "2 2 2");
  EXPECT_EQ(stock(), "1,2000,5.36194,0.965149\n2,0,21.258333,0\n");
  EXPECT_EQ(asked("SELECT No_Nota FROM NotaEntrada"), "78\n");
  EXPECT_EQ(asked("SELECT No_Entrada FROM ItemNotaEntrada"), "2\n");
  EXPECT_EQ(asked("SELECT No_Entrada FROM Descarga"), "2\n");
  EXPECT_EQ(asked("SELECT Nm_Doc FROM Cardex"), "NF 78\n");

  EXPECT_EQ(cancel_purchase(station_, 1).refused, "não há a entrada 1");
  station_.connection().Execute(
      "INSERT INTO ContaAPagar (Cd_PessoaUsuaria, Vl_Debito) Values (1, 5000)\r"
      "INSERT INTO ContaAPagarDeNotaEntrada (Cd_PessoaUsuaria, No_ContasAPagar, Cd_Fornecedor, Cd_TipoNF, No_Nota) "
      "Values (1, 1, 5, 1, 78)");
  EXPECT_EQ(cancel_purchase(station_, 2).refused, "tem contas a pagar");
  station_.settings->ObVOEmpresaUsuaria->Dt_CorteMovimento = Date::of_day(2026, 11, 23);
  EXPECT_EQ(cancel_purchase(station_, 2).refused, "entregue até o corte do movimento");
  EXPECT_EQ(asked("SELECT No_Nota FROM NotaEntrada"), "78\n");
}

// 100 litres of 1,000 were sold with the invoice; its second line moves no stock and its product has no nature.
TEST_F(PurchaseTest, AnIssuedInvoiceIsCancelledInTwoForms) {
  auto sell = [&] {
    station_.connection().Execute(
        "DELETE FROM NotaSaida\rUPDATE Produto SET Qt_Estoque = 900 WHERE Cd_Produto = 1\r"
        "INSERT INTO NotaSaida (Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, Dt_Emissao) Values (1, 1, 10, '2026-11-23')\r"
        "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Cd_Produto, "
        "Vl_CustoMedio, Vl_CredIcmsMedio) Values (1, 50, '2026-11-23', 20, 100, 1, 5, 0.9)\r"
        "INSERT INTO ItemNotaSaida (Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, No_Item, Cd_Produto, Cd_LancamentoCardex) "
        "Values (1, 1, 10, 1, 1, 50)\r"
        "INSERT INTO ItemNotaSaida (Cd_PessoaUsuaria, Cd_TipoNF, No_Nota, No_Item, Cd_Produto) Values (1, 1, 10, 2, "
        "3)");
  };
  for (CdTipoExclusao form : {CdTipoExclusaoFisica, CdTipoExclusaoLogica}) {
    sell();
    const Cancelled done = cancel_invoice(station_, 1, 10, form);
    EXPECT_EQ(fmt::format("{}{} {}", done.refused, done.lines, done.movements), "2 1");
    EXPECT_EQ(stock(), "1,1000,5,0.9\n2,0,0,0\n");
    EXPECT_EQ(asked("SELECT Count(*) FROM ItemNotaSaida") + asked("SELECT Count(*) FROM Cardex"), "0\n0\n");
    EXPECT_EQ(asked("SELECT Ic_Cancelada FROM NotaSaida"), form == CdTipoExclusaoFisica ? "" : "True\n");
  }
  EXPECT_EQ(cancel_invoice(station_, 1, 10).refused, "já está cancelada");
  EXPECT_EQ(cancel_invoice(station_, 1, 10, CdTipoExclusaoFisica).refused, "");
  EXPECT_EQ(cancel_invoice(station_, 1, 10).refused, "não há a nota 10 do tipo 1");
}

TEST_F(PurchaseTest, ACutFileTakenInAgainEndsLikeAnUncutOne) {
  const std::string file = folder_.write("nota.csv", kNoteHeader + Row{}.text());
  const std::string before = state(station_.connection());
  cut_everywhere({.fill = fill,
                  .work = [&](Station& station) { record_purchases(station, file); },
                  .state = state,
                  .check_cut = [&](Connection& connection) { EXPECT_EQ(state(connection), before); }});
}

TEST_F(PurchaseTest, ACutCancellingRunAgainEndsLikeAnUncutOne) {
  const std::string file = folder_.write("nota.csv", kNoteHeader + Row{}.text());
  cut_everywhere({.fill =
                      [&](Station& station) {
                        fill(station);
                        read_company(*station.settings, 0);
                        record_purchases(station, file);
                      },
                  .work = [](Station& station) { cancel_purchase(station, 1); },
                  .state = state});
}

}  // namespace
}  // namespace posto::flows
