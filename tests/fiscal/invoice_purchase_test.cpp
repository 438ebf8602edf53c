#include <gtest/gtest.h>

#include "posto/fiscal/DALNotaEntrada.h"
#include "posto/fiscal/catalogue.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

class PurchaseNoteTest : public DatabaseTest {
 protected:
  static constexpr int kKind = 1, kNumber = 77, kSupplier = 9;

  // Gives the note's No_Entrada.
  std::int32_t add(int number = kNumber, int supplier = kSupplier) {
    note_.ObVO->RestaurarDefault();
    key(kKind, number, supplier);
    note_.Incluir();
    return note_.Consultar().No_Entrada;
  }
  void key(int kind, int number, int supplier, int entry = 0) {
    note_.ObVO->Cd_PessoaUsuaria = kTenant;
    note_.ObVO->Cd_TipoNF = kind;
    note_.ObVO->No_Nota = number;
    note_.ObVO->Cd_Fornecedor = supplier;
    note_.ObVO->No_Entrada = entry;
  }
  void add_line(int entry, int item, int product, double quantity, const char* cfop) {
    DALItemNotaEntrada line(settings_);
    line.ObVO->No_Entrada = entry;
    line.ObVO->No_Item = item;
    line.ObVO->Cd_ProdutoItem = product;
    line.ObVO->Qt_UnidadeItem = quantity;
    line.ObVO->Cd_CfopItem = cfop;
    line.Incluir();
  }

  DALNotaEntrada note_{settings_};
};

TEST_F(PurchaseNoteTest, IsFoundByItsDocumentOrItsEntryAndDeletedByTheDocument) {
  add(76);
  const std::int32_t entry = add();
  note_.ObVO->RestaurarDefault();
  key(0, 0, 0, entry);
  EXPECT_EQ(note_.Consultar().No_Nota, kNumber);

  note_.ObVO->RestaurarDefault();
  key(kKind, kNumber, kSupplier, 1234);
  note_.ObVO->Vl_TotalNota = Currency(10);
  note_.Alterar();
  EXPECT_EQ(note_.ObVO->No_Entrada, entry);
  EXPECT_EQ(rows("SELECT No_Nota, Vl_TotalNota FROM NotaEntrada ORDER BY No_Nota"), "76,0\n77,10\n");

  key(kKind, kNumber, 0, entry);
  expect_failure(erro::kMissingKey, " -> DALNotaEntrada.Excluir,  -> DALNotaEntrada.Excluir", [&] { note_.Excluir(); });
  key(kKind, kNumber, kSupplier);
  note_.Excluir();
  EXPECT_EQ(rows("SELECT No_Nota FROM NotaEntrada"), "76\n");
  EXPECT_EQ(failure_of([&] { note_.Consultar(); }).value().description(), "Registro nao encontrado(NotaEntrada)");
}

TEST_F(PurchaseNoteTest, TellsItsLinesFuelsDeliveriesAndPayables) {
  run(R"(INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Fl_VendBomba) Values (1, 'Gasolina', 1)
         INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Fl_VendBomba) Values (1, 'Etanol', 1)
         INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, Fl_VendBomba) Values (1, 'Oleo', 0))");
  const std::int32_t other = add(76);
  const std::int32_t entry = add();
  EXPECT_EQ(note_.CFOPsItens(), "");
  add_line(other, 1, 1, 999, "2652");
  add_line(entry, 3, 3, 24, "1403");
  add_line(entry, 2, 1, 2000.5, "1652");
  add_line(entry, 1, 1, 5000, "1652");
  add_line(entry, 4, 2, 3000, "1652");
  for (const char* delivery : {"2, 1, 4000", "1, 1, 3000.5", "3, 2, 3000"}) {
    run("INSERT INTO Descarga (Cd_PessoaUsuaria, No_Entrada, No_Tanque, Cd_ProdutoDescarga, Qt_UnidadeDescarga) "
        "Values (1, " +
        std::to_string(entry) + ", " + delivery + ")");
  }
  run(R"(INSERT INTO ContaAPagar (Cd_PessoaUsuaria, Id_DocumentoFornecedor, Vl_Debito) Values (1, '77/A', 100)
         INSERT INTO ContaAPagarDeNotaEntrada (Cd_PessoaUsuaria, No_ContasAPagar, Cd_Fornecedor, Cd_TipoNF, No_Nota)
         Values (1, 1, 9, 1, 77))");

  Recordset lines = note_.ItensRs();
  std::string products;
  for (; !lines.EOF(); lines.MoveNext()) products += lines["Nm_Produto"].as<std::string>() + " ";
  EXPECT_EQ(products, "Gasolina Gasolina Oleo Etanol ");
  EXPECT_EQ(text_of(note_.ItensAgrupadoPorCombustivelRs()), "1,7000.5\n2,3000\n");
  EXPECT_EQ(text_of(note_.SomaDescargaDeUmProdutoRs(1)), "1,7000.5\n");
  EXPECT_EQ(text_of(note_.SomaDescargaDeUmProdutoRs(3)), "");
  Recordset deliveries = note_.DescargasRs();
  std::string tanks;
  for (; !deliveries.EOF(); deliveries.MoveNext()) tanks += deliveries["No_Tanque"].as<std::string>() + " ";
  EXPECT_EQ(tanks, "1 2 3 ");
  Recordset payables = note_.ContasAPagarRs();
  EXPECT_EQ(payables["Id_DocumentoFornecedor"].as<std::string>(), "77/A");
  // of all notes, whichever is asked
  const std::string codes = note_.CFOPsItens();
  EXPECT_EQ(codes.size(), 15u);
  for (const char* code : {"1403 ", "1652 ", "2652 "}) EXPECT_NE(codes.find(code), std::string::npos) << code;
}

}  // namespace
}  // namespace posto
