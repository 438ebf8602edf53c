// The classes that are lines of facts: a record's life on the engine, and what some of them do besides.
#include "posto/fiscal/catalogue.h"

#include "posto/masterdata/catalogue.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

template <class Dal>
class PlainClass : public DatabaseTest {
 protected:
  struct Opened : Dal {
    using Dal::Dal;
    Names key() const { return Dal::description().keys[0].names(); }
  };

  // All columns with the seed, the last of the key with a number of its own.
  void set(int seed, int number) {
    for (const Property& p : vo_.layout().properties()) {
      const int value = p.name == "Cd_PessoaUsuaria" ? 1 : p.name == entity_.key().back() ? number : seed;
      const bool is_date = p.type == SqlType::date;
      vo_.let(p, is_date ? Variant(Date::of_day(2026, 11, 1).plus_days(value)) : Variant(std::to_string(value)));
    }
  }
  std::string values() {
    std::string text;
    for (const Property& p : vo_.layout().properties()) text += vo_.get(p).template as<std::string>() + "|";
    return text;
  }
  // What Consultar gives for the key of set(1, number).
  std::string read(int number) {
    set(1, number);
    const auto key = entity_.key();
    for (const Property& p : vo_.layout().properties()) {
      if (std::ranges::find(key, p.name) == key.end()) vo_.let(p, p.type == SqlType::date ? Variant(Date()) : "0");
    }
    entity_.Consultar();
    return values();
  }

  Opened entity_{settings_};
  ValueObject vo_ = by_name(*entity_.ObVO);
};

using PlainClasses = ::testing::Types<DALRecebimentoCupom, DALVendaCartaoPorCupomFiscal, DALECFRegistro60Mestre,
                                      DALECFRegistro60Analitico, DALPDV, DALPonVen>;
TYPED_TEST_SUITE(PlainClass, PlainClasses);

TYPED_TEST(PlainClass, ARecordsLifeLeavesItsNeighbourAlone) {
  this->set(1, 1);
  const std::string first = this->values();
  this->entity_.Incluir();
  this->set(1, 2);
  const std::string second = this->values();
  this->entity_.Incluir();
  EXPECT_EQ(this->read(1), first);
  EXPECT_EQ(this->read(2), second);

  for (const Property& p : this->vo_.layout().properties()) {
    const auto key = this->entity_.key();
    if (std::ranges::find(key, p.name) == key.end() && p.type != SqlType::date) this->vo_.let(p, "0");
  }
  const std::string changed = this->values();
  this->entity_.Alterar();
  EXPECT_EQ(this->read(2), changed);
  EXPECT_EQ(this->read(1), first);

  this->entity_.Excluir();
  EXPECT_EQ(failure_of([&] { this->read(1); })->number(), erro::kRecordNotFound);
  EXPECT_EQ(this->read(2), changed);
  for (std::string_view column : this->entity_.key()) {
    this->set(1, 1);
    this->vo_.let(column, this->vo_.layout().find(column)->type == SqlType::date   ? Variant(Date())
                          : this->vo_.layout().find(column)->type == SqlType::text ? Variant("")
                                                                                   : Variant("0"));
    EXPECT_EQ(failure_of([&] { this->entity_.Excluir(); })->number(), erro::kMissingKey) << column;
  }
}

class FiscalCatalogue : public DatabaseTest {};

TEST_F(FiscalCatalogue, ListsOfPlacesAndOfKindsOfReceipt) {
  run("INSERT INTO PDV (Cd_PessoaUsuaria, Nm_PDV) Values (1, 'PISTA')"
      "INSERT INTO PDV (Cd_PessoaUsuaria, Nm_PDV) Values (1, 'LOJA')"
      "INSERT INTO PDV (Cd_PessoaUsuaria, Nm_PDV) Values (2, 'BALCAO')"
      "INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (1, 7, 'PRATELEIRA')"
      "INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (1, 3, 'TROCA DE OLEO')"
      "INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (2, 5, 'OUTRA')");
  DALPDV desks(settings_);
  MemoryList list;
  desks.CarregarComboBox(list, "WHERE Cd_PessoaUsuaria = 1");
  EXPECT_EQ(list.items(), (std::vector<MemoryList::Item>{{"SELECIONE ->", 0}, {"LOJA", 2}, {"PISTA", 1}}));
  EXPECT_EQ(desks.nomeCamposSequencial(), std::vector<std::string>{"Cd_PDV"});

  DALPonVens places(settings_);
  Recordset all = places.ConsultarTodasRs();
  EXPECT_EQ(all["Nm_PonVen"].as<std::string>(), "TROCA DE OLEO");
  all.MoveNext();
  EXPECT_EQ(all["Nm_PonVen"].as<std::string>(), "PRATELEIRA");
  all.MoveNext();
  EXPECT_TRUE(all.EOF());
}

// A transfer is found by its identification, by its transaction, and by both together, as the callers hold them.
template <class Dal>
class Transfer : public DatabaseTest {};
using Transfers = ::testing::Types<DALTEF, DALTecBan>;
TYPED_TEST_SUITE(Transfer, Transfers);

TYPED_TEST(Transfer, IsFoundByIdentificationByTransactionAndByBoth) {
  TypeParam transfers(this->settings_);
  const auto add = [&](std::int32_t company, std::int32_t identification, std::string_view transaction) {
    transfers.ObVO->RestaurarDefault();
    transfers.ObVO->Cd_PessoaUsuaria = company;
    transfers.ObVO->No_Identificacao = identification;
    transfers.ObVO->No_Transacao = transaction;
    transfers.ObVO->Ds_TipoOperacao = "CRT";
    transfers.Incluir();
  };
  add(1, 10, "A1");
  add(1, 11, "");
  add(2, 10, "A1");
  const auto found = [&](std::int32_t identification, std::string_view transaction) {
    transfers.ObVO->RestaurarDefault();
    transfers.ObVO->Cd_PessoaUsuaria = 1;
    transfers.ObVO->No_Identificacao = identification;
    transfers.ObVO->No_Transacao = transaction;
    transfers.Consultar();
    return std::to_string(transfers.ObVO->No_Identificacao) + transfers.ObVO->No_Transacao;
  };
  EXPECT_EQ(found(10, ""), "10A1");
  EXPECT_EQ(found(0, "A1"), "10A1");
  EXPECT_EQ(found(10, "A1"), "10A1");
  EXPECT_EQ(failure_of([&] { found(0, "B2"); })->number(), erro::kRecordNotFound);

  // The network's number comes later than the request.
  found(11, "");
  transfers.ObVO->No_Transacao = "B2";
  transfers.Alterar();
  EXPECT_EQ(found(0, "B2"), "11B2");
  transfers.Excluir();
  EXPECT_EQ(failure_of([&] { found(11, "B2"); })->number(), erro::kRecordNotFound);
  EXPECT_EQ(found(10, "A1"), "10A1");
}

}  // namespace
}  // namespace posto
