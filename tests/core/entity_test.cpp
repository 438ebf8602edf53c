#include "posto/core/entity.h"

#include "posto/core/mapper.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/masterdata/catalogue.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

class EntityTest : public DatabaseTest {
 protected:
  using Districts = std::vector<MemoryList::Item>;

  void add_district(const char* name) {
    DALBairro district(settings_);
    district.ObVO->Nm_Bairro = name;
    district.Incluir();
  }

  VOBomba nozzle_of(std::uint8_t number, const char* address, std::int32_t product) {
    VOBomba nozzle;
    nozzle.Cd_PessoaUsuaria = kTenant;
    nozzle.Cd_Bomba = number;
    nozzle.De_EnderecoLogicoBico = address;
    nozzle.Cd_Produto = product;
    return nozzle;
  }

  DALBairro bairro_{settings_};
  VOBairro& vo_ = *bairro_.ObVO;
};

// What an operation does with a record that it does not find.
struct Missing {
  const char* operation;
  std::function<void(DALBairro&)> call;
  bool resets;
};
const Missing kMissing[] = {
    {"Consultar", [](DALBairro& e) { e.Consultar(); }, false},
    {"Consultar", [](DALBairro& e) { e.Consultar(true); }, true},
    {"Alterar", [](DALBairro& e) { e.Alterar(true); }, false},
    {"Alterar", [](DALBairro& e) { e.Alterar(); }, true},
    {"Excluir", [](DALBairro& e) { e.Excluir(); }, true},
};

TEST_F(EntityTest, AMissingKeyIsRefusedBeforeAnyStatement) {
  for (const Missing& c : kMissing) {
    SCOPED_TRACE(c.operation);
    vo_ = {.Cd_Bairro = 0, .Nm_Bairro = "Centro"};
    routines_.clear();
    const std::string step = std::string(" -> DALBairro.") + c.operation;
    const auto statements =
        statements_of([&] { expect_failure(erro::kMissingKey, step + ", " + step, [&] { c.call(bairro_); }); });
    EXPECT_TRUE(statements.empty());
    EXPECT_EQ(vo_.Nm_Bairro, c.resets ? "" : "Centro");
    EXPECT_EQ(routines_, std::vector{std::string("-DALBairro.") + c.operation});
  }
}

TEST_F(EntityTest, ARecordThatIsNotThere) {
  for (const Missing& c : kMissing) {
    SCOPED_TRACE(c.operation);
    vo_ = {.Cd_Bairro = 77, .Nm_Bairro = "Centro"};
    const auto failure = failure_of([&] { c.call(bairro_); });
    if (std::string_view(c.operation) == "Excluir") {
      EXPECT_FALSE(failure);
      continue;
    }
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), erro::kRecordNotFound);
    EXPECT_EQ(failure->description(), "Registro nao encontrado(Bairro)");
    EXPECT_EQ(vo_, (c.resets ? VOBairro{} : VOBairro{.Cd_Bairro = 77, .Nm_Bairro = "Centro"}));
  }
  EXPECT_EQ(rows("SELECT * FROM Bairro"), "");
}

TEST_F(EntityTest, ARecordsLife) {
  vo_ = {.Cd_Bairro = 55, .Nm_Bairro = "Centro"};
  bairro_.Incluir();
  EXPECT_EQ(vo_.Cd_Bairro, 55);  // the key that the database gives is not read back
  EXPECT_EQ(rows("SELECT * FROM Bairro"), "1,Centro\n");

  vo_ = {.Cd_Bairro = 1, .Nm_Bairro = ""};
  EXPECT_EQ(bairro_.Consultar().Nm_Bairro, "Centro");
  EXPECT_EQ(bairro_.statement(), "SELECT    * \rFROM     Bairro \rWHERE    Cd_Bairro = 1  \r");
  vo_.Nm_Bairro = "Centro Novo";
  bairro_.Alterar();
  EXPECT_EQ(rows("SELECT * FROM Bairro"), "1,Centro Novo\n");
  bairro_.Excluir();
  EXPECT_EQ(rows("SELECT * FROM Bairro"), "");
  EXPECT_TRUE(routines_.empty());

  EXPECT_TRUE(bairro_.temCampoSequencial());
  EXPECT_EQ(bairro_.nomeCamposSequencial(), std::vector<std::string>{"Cd_Bairro"});
}

TEST_F(EntityTest, ATextKeyAndATableOpenedByItsName) {
  DALSequenciadorGeral sequence(settings_);
  *sequence.ObVO = {.Nm_Atributo = "No_NF", .No_Sequencial = 41};
  sequence.Incluir();
  EXPECT_EQ(sequence.statement(), "SequenciadorGeral");
  EXPECT_FALSE(sequence.temCampoSequencial());
  EXPECT_TRUE(sequence.nomeCamposSequencial().empty());
  sequence.ObVO->No_Sequencial = 0;
  EXPECT_EQ(sequence.Consultar().No_Sequencial, 41);

  const auto twice = failure_of([&] { sequence.Incluir(); });
  ASSERT_TRUE(twice);
  EXPECT_EQ(twice->number(), erro::kIntegrity);
  EXPECT_EQ(twice->source(), testing::provider() + " -> DALSequenciadorGeral.Incluir");
  EXPECT_TRUE(twice->provider());
  EXPECT_EQ(rows("SELECT * FROM SequenciadorGeral"), "No_NF,41\n");
}

TEST_F(EntityTest, ANullLeavesThePropertyAsItWas) {
  run("INSERT INTO GrupoProduto (Nm_GrupoProduto) Values (Null)");
  DALGrupoProduto group(settings_);
  *group.ObVO = {.Cd_GrupoProduto = 1, .Nm_GrupoProduto = "antes"};
  EXPECT_EQ(group.Consultar().Nm_GrupoProduto, "antes");
}

TEST_F(EntityTest, AnotherDatabaseGetsAnEmptyStatement) {
  settings_->Cd_BD = BancoDadosAcess2000;
  vo_.Cd_Bairro = 1;
  expect_failure(erro::kSyntax, testing::provider() + " -> DALBairro.Consultar", [&] { bairro_.Consultar(); });
  EXPECT_EQ(bairro_.statement(), "");
}

TEST_F(EntityTest, WithoutSettingsOrConnectionAnOperationFails) {
  const auto no_settings = [](const Missing& c) {
    DALBairro district;
    district.ObVO->Cd_Bairro = 1;
    return failure_of([&] { c.call(district); });
  };
  for (const Missing& c : kMissing) EXPECT_EQ(no_settings(c).value().number(), erro::kObjectNotSet) << c.operation;
  settings_->ObConnection = nullptr;
  for (const Missing& c : kMissing) {
    vo_.Cd_Bairro = 1;
    EXPECT_EQ(failure_of([&] { c.call(bairro_); }).value().number(), erro::kConnectionInvalid) << c.operation;
  }
}

TEST_F(EntityTest, ALockTypeOfZeroLeavesTheRecordReadOnly) {
  add_district("Centro");
  settings_->LockType = 0;
  vo_ = {.Cd_Bairro = 1, .Nm_Bairro = "Outro"};
  expect_failure(erro::kNotSupported, "ADODB.Recordset -> DALModulo.TransferirDadosDeVOParaBd,  -> DALBairro.Alterar",
                 [&] { bairro_.Alterar(); });
}

// --- the road of a failure
// ----------------------------------------------------------------------------------------------

TEST_F(EntityTest, APathGrowsThroughNestedOperations) {
  DALBomba nozzle(settings_);
  *nozzle.ObVO = nozzle_of(9, "", 0);
  expect_failure(erro::kRecordNotFound,
                 " -> DALBomba.Consultar,  -> DALBomba.Consultar -> DALBomba.Rs_AbastecimentosPendentes",
                 [&] { nozzle.Rs_AbastecimentosPendentes(); });
  EXPECT_EQ(routines_, (std::vector<std::string>{"-DALBomba.Consultar", "-DALBomba.Rs_AbastecimentosPendentes"}));
  // the failure is kept until the next one
  expect_failure(erro::kRecordNotFound,
                 " -> DALBomba.Consultar,  -> DALBomba.Consultar -> DALBomba.Rs_AbastecimentosPendentes!",
                 [] { LevantarErroSalvo(" -> DALBomba.Rs_AbastecimentosPendentes!"); });
}

TEST_F(EntityTest, SalvarChangesOrAdds) {
  DALBomba nozzle(settings_);
  *nozzle.ObVO = nozzle_of(3, "04", 5);
  nozzle.Salvar();  // no such record: added, with all that the value object held
  EXPECT_EQ(rows("SELECT Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto FROM Bomba"), "3,04,5\n");
  nozzle.ObVO->Cd_Produto = 6;
  nozzle.Salvar();
  EXPECT_EQ(rows("SELECT Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto FROM Bomba"), "3,04,6\n");

  nozzle.ObVO->RestaurarDefault();  // no key: tried as an addition, which the database refuses
  expect_failure(erro::kIntegrity, testing::provider() + " -> DALBomba.Incluir -> DALBomba.Salvar",
                 [&] { nozzle.Salvar(); });
  settings_->LockType = adLockReadOnly;  // any other failure of the change is no reason to add
  *nozzle.ObVO = nozzle_of(3, "05", 5);
  expect_failure(erro::kNotSupported, "ADODB.Recordset -> DALBomba.Alterar -> DALBomba.Salvar",
                 [&] { nozzle.Salvar(); });
}

// A class whose writing of the record the test decides.
class Writing : public DALBairro {
 public:
  using DALBairro::DALBairro;
  void Alterar(const std::function<void(Recordset&)>& write) { alter(false, write); }
  using DALBairro::fill;
};

TEST_F(EntityTest, TypeMismatchUnknownMemberAndAutomationGoOnAtTheNextStatement) {
  add_district("Centro");
  Writing district(settings_);
  district.ObVO->Cd_Bairro = 1;
  for (const std::int32_t number : {erro::kTypeMismatch, erro::kUnknownMember, erro::kAutomation}) {
    const std::string name = "Bairro " + std::to_string(number);
    district.Alterar([&](Recordset& record) {
      record["Nm_Bairro"] = name;
      throw platform_erro(number);
    });
    EXPECT_EQ(rows("SELECT Nm_Bairro FROM Bairro"), name + "\n");  // Update came next
  }
  for (const std::int32_t number : {erro::kOverflow, erro::kNotACollection, erro::kProviderFailure}) {
    const auto fail = [&](Recordset& record) {
      record["Nm_Bairro"] = "nunca";
      throw Erro(number, "origem", "");
    };
    expect_failure(number, "origem -> DALBairro.Alterar", [&] { district.Alterar(fail); });
    EXPECT_EQ(rows("SELECT Nm_Bairro FROM Bairro"), "Bairro 440\n");
  }
}

TEST_F(EntityTest, AChangeBetweenReadingAndWritingIsAConflict) {
  add_district("Centro");
  Writing district(settings_);
  *district.ObVO = {.Cd_Bairro = 1, .Nm_Bairro = "meu"};
  for (const char* meanwhile : {"UPDATE Bairro SET Nm_Bairro = 'de outro'", "DELETE FROM Bairro"}) {
    expect_failure(erro::kRowNotFound, "ADODB.Recordset -> DALBairro.Alterar", [&] {
      district.Alterar([&](Recordset& record) {
        EXPECT_FALSE(record.EOF());
        run(meanwhile);
        district.fill(record);
      });
    });
    EXPECT_EQ(rows("SELECT Nm_Bairro FROM Bairro WHERE Nm_Bairro = 'meu'"), "");
  }
}

// --- list controls
// ------------------------------------------------------------------------------------------------------

TEST_F(EntityTest, AListIsFilledInOrder) {
  MemoryList list;
  list.call("AddItem", {{Variant("antigo")}});
  bairro_.CarregarComboBox(list);
  EXPECT_EQ(list.items(), Districts{});  // an empty table: not even the first line

  for (const char* name : {"Vila Nova", "Centro", "Alto"}) add_district(name);
  bairro_.CarregarComboBox(list);
  EXPECT_EQ(list.items(), (Districts{{"SELECIONE ->", 0}, {"Alto", 3}, {"Centro", 2}, {"Vila Nova", 1}}));
  EXPECT_EQ(bairro_.statement(), " SELECT   Cd_Bairro, Nm_Bairro\r FROM     Bairro \r\r ORDER BY Nm_Bairro \r");
  bairro_.CarregarComboBox(list, " WHERE Cd_Bairro > 1");
  EXPECT_EQ(list.items(), (Districts{{"SELECIONE ->", 0}, {"Alto", 3}, {"Centro", 2}}));
  EXPECT_EQ(routines_, (std::vector<std::string>{"+CarregarComboBox", "-CarregarComboBox", "+CarregarComboBox",
                                                 "-CarregarComboBox", "+CarregarComboBox", "-CarregarComboBox"}));
}

// A list control whose member of one name fails.
class FaultyList final : public LateBound {
 public:
  FaultyList(std::string_view member, std::int32_t number) : member_(member), number_(number) {}
  Variant call(std::string_view method, std::span<const Variant> arguments) override {
    check(method);
    return list.call(method, arguments);
  }
  Variant get(std::string_view property, std::span<const Variant> arguments) override {
    check(property);
    return list.get(property, arguments);
  }
  void let(std::string_view property, std::span<const Variant> arguments) override {
    check(property);
    list.let(property, arguments);
  }
  MemoryList list;

 private:
  void check(std::string_view member) const {
    if (member == member_) throw Erro(number_, "controle", "");
  }
  std::string member_;
  std::int32_t number_;
};

TEST_F(EntityTest, AListControlThatLacksAMember) {
  add_district("Centro");
  const Districts without_data = {{"SELECIONE ->", 0}, {"Centro", 0}};
  const Districts whole = {{"SELECIONE ->", 0}, {"Centro", 1}};
  struct {
    const char* member;
    std::int32_t number;
    Districts items;
  } const cases[] = {{"ItemData", erro::kUnknownMember, without_data},
                     {"ItemData", erro::kNotACollection, without_data},
                     {"NewIndex", erro::kTypeMismatch, without_data},
                     {"Clear", erro::kAutomation, whole},
                     {"AddItem", erro::kTypeMismatch, {}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.member);
    FaultyList control(c.member, c.number);
    // an item that could not be added has no place for its key either: 5, which is not passed over
    if (c.items.empty()) {
      expect_failure(erro::kInvalidCall, "MemoryList -> DALBairro.CarregarComboBox",
                     [&] { bairro_.CarregarComboBox(control); });
    } else {
      bairro_.CarregarComboBox(control);
    }
    EXPECT_EQ(control.list.items(), c.items);
  }
  routines_.clear();
  FaultyList control("AddItem", erro::kInvalidUseOfNull);
  expect_failure(erro::kInvalidUseOfNull, "controle -> DALBairro.CarregarComboBox",
                 [&] { bairro_.CarregarComboBox(control); });
  EXPECT_EQ(routines_, (std::vector<std::string>{"+CarregarComboBox", "-DALBairro.CarregarComboBox"}));
}

}  // namespace
}  // namespace posto
