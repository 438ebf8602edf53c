#include "posto/masterdata/role.h"

#include "posto/masterdata/DALFornecedor.h"
#include "posto/masterdata/DALFuncionario.h"
#include "posto/masterdata/DALPessoa.h"
#include "tests/masterdata/masterdata_test.h"

namespace posto {
namespace {

struct Customer {
  using Class = DALCliente;
  static constexpr const char* kTable = "Cliente";
  static bool stands(Class& role) { return role.CnpjOuCpfCadastradoComoCliente(); }
};
struct Supplier {
  using Class = DALFornecedor;
  static constexpr const char* kTable = "Fornecedor";
  static bool stands(Class& role) { return role.CnpjOuCpfCadastradoComoFornecedor(); }
};
struct Employee {
  using Class = DALFuncionario;
  static constexpr const char* kTable = "Funcionario";
  static bool stands(Class& role) { return role.CnpjOuCpfCadastradoComoFuncionario(); }
};

// Every test runs in each of the three roles.
template <class Kind>
class RoleTest : public MasterdataTest {
 protected:
  static constexpr const char* kTable = Kind::kTable;
  const std::string class_ = std::string("DAL") + kTable;
  const std::string key_ = std::string("Cd_") + kTable;

  ValueObject vo() { return by_name(*role_.ObVO); }
  std::string text(std::string_view property) { return vo().get(property).template as<std::string>(); }
  // A clean value object of company 1.
  void ask(int role_key, std::string_view tax_number, std::string_view name = "") {
    vo().RestaurarDefault();
    vo().let("Cd_PessoaUsuaria", std::int32_t{1});
    vo().let(key_, std::int32_t{role_key});
    vo().let("Cd_CgcCpf", std::string(tax_number));
    vo().let("Nm_Pessoa", std::string(name));
  }
  std::string persons() { return rows("SELECT Cd_Pessoa, Cd_CgcCpf, Nm_Pessoa FROM Pessoa ORDER BY Cd_Pessoa"); }
  std::string roles() {
    return rows(fmt::format("SELECT Cd_PessoaUsuaria, {} FROM {} ORDER BY {}", key_, kTable, key_));
  }
  void add_role(int company, int key) {
    run(fmt::format("INSERT INTO {} (Cd_PessoaUsuaria, {}) Values ({}, {})", kTable, key_, company, key));
  }
  // " -> <class>.<step>" for each step.
  std::string path(std::initializer_list<std::string_view> steps) {
    std::string source;
    for (std::string_view step : steps) source += " -> " + class_ + "." + std::string(step);
    return source;
  }
  std::string on_role(std::string_view verb) { return std::string(verb) + kTable; }

  typename Kind::Class role_{settings_};
};

using Kinds = ::testing::Types<Customer, Supplier, Employee>;
TYPED_TEST_SUITE(RoleTest, Kinds);

TYPED_TEST(RoleTest, ANewPersonGetsItsKeyAndTheRoleThatKey) {
  this->add_person(11, "11", "outra pessoa");
  this->ask(0, "22", "nova pessoa");
  this->role_.Incluir();
  EXPECT_EQ(this->persons(), "11,11,outra pessoa\n12,22,nova pessoa\n");
  EXPECT_EQ(this->roles(), "1,12\n");
  EXPECT_EQ(this->text("Cd_Pessoa") + " " + this->text(this->key_), "12 12");
  EXPECT_EQ(this->rows("SELECT Cd_Pessoa FROM Pessoa WHERE Dt_Inclusao = '2026-11-24'"), "12\n");
}

TYPED_TEST(RoleTest, AKnownPersonIsChangedAndTakesTheRole) {
  this->add_person(7, "77", "nome antigo");
  for (const bool asked_before : {true, false}) {  // without asking, the save finds the person by its number
    SCOPED_TRACE(asked_before);
    this->run(fmt::format("DELETE FROM {}", this->kTable));
    this->ask(0, "77", "nome novo");
    if (asked_before) {
      EXPECT_TRUE(this->role_.CnpjOuCpfCadastradoComoPessoa());
      EXPECT_EQ(this->text("Cd_Pessoa") + " " + this->text(this->key_), "7 7");
    }
    this->role_.Incluir();
    EXPECT_EQ(this->persons(), "7,77,nome novo\n");
    EXPECT_EQ(this->roles(), "1,7\n");
  }
}

TYPED_TEST(RoleTest, PersonAndRoleAreAskedApart) {
  this->add_person(7, "77", "pessoa");
  this->add_role(2, 7);
  for (const int company : {1, 2}) {
    SCOPED_TRACE(company);
    this->ask(0, "77");
    this->vo().let("Cd_PessoaUsuaria", std::int32_t{company});
    EXPECT_EQ(TypeParam::stands(this->role_), company == 2);
    EXPECT_EQ(this->text(this->key_), company == 2 ? "7" : "0");
    EXPECT_TRUE(this->role_.CnpjOuCpfCadastradoComoPessoa());
  }
  this->ask(5, "88");
  EXPECT_FALSE(this->role_.CnpjOuCpfCadastradoComoPessoa());
  EXPECT_EQ(this->text(this->key_), "5");  // nobody found: the key stays
}

TYPED_TEST(RoleTest, ReadingAndChangingKeepsThePerson) {
  this->add_person(7, "77", "pessoa");
  this->add_person(8, "88", "outra");
  this->add_role(1, 7);
  this->ask(8, "88");
  this->role_.ConsultarPessoa();
  this->ask(7, "");
  this->role_.Consultar();
  EXPECT_EQ(this->text("Nm_Pessoa"), "pessoa");
  this->vo().let("No_Telefone", std::string("3333-4444"));
  this->role_.Alterar();
  EXPECT_EQ(this->rows("SELECT Cd_CgcCpf, Nm_Pessoa, No_Telefone FROM Pessoa WHERE Cd_Pessoa = 7"),
            "77,pessoa,3333-4444\n");
  this->role_.Excluir();
  EXPECT_EQ(this->roles(), "");
  EXPECT_EQ(this->persons(), "7,77,pessoa\n8,88,outra\n");
}

TYPED_TEST(RoleTest, ARoleThatCannotBeWrittenLeavesItsPersonWritten) {
  this->add_person(7, "77", "antes");
  this->add_role(1, 7);
  this->ask(7, "77", "depois");
  expect_failure(erro::kIntegrity, testing::provider() + this->path({this->on_role("Incluir"), "Incluir"}),
                 [&] { this->role_.Incluir(); });
  EXPECT_EQ(this->persons(), "7,77,depois\n");

  this->run(fmt::format("DELETE FROM {}", this->kTable));
  for (const bool saving : {false, true}) {
    SCOPED_TRACE(saving);
    const std::string name = saving ? "salvando" : "alterando";
    this->ask(7, "77", name);
    const auto failure = failure_of([&] { this->role_.Alterar(saving); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), erro::kRecordNotFound);
    EXPECT_EQ(failure->description(), std::string("Registro nao encontrado(") + this->kTable + ")");
    EXPECT_EQ(failure->source(),
              this->path({this->on_role("Alterar")}) + ", " + this->path({this->on_role("Alterar"), "Alterar"}));
    EXPECT_EQ(this->text("Nm_Pessoa"), saving ? name : "");
    EXPECT_EQ(this->persons(), "7,77," + name + "\n");
  }
}

TYPED_TEST(RoleTest, APersonThatCannotBeWrittenStopsTheRole) {
  this->ask(7, "77", "pessoa");
  this->connection().Close();
  const auto failure = failure_of([&] { this->role_.Incluir(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kConnectionInvalid);
  EXPECT_TRUE(failure->source().ends_with(this->path({"AlterarPessoa", "SalvarPessoa", "Incluir"})))
      << failure->source();
  EXPECT_EQ(this->routines_,
            (std::vector<std::string>{"-" + this->class_ + ".AlterarPessoa", "-" + this->class_ + ".SalvarPessoa",
                                      "-" + this->class_ + ".Incluir"}));
}

TYPED_TEST(RoleTest, APersonIsReadByKeyOrTaxNumber) {
  this->add_person(7, "77", "sete");
  this->add_person(8, "88", "oito");
  struct {
    int person;
    const char* tax_number;
    const char* found;  // the name, or the failure's description
    std::int32_t number;
  } cases[] = {{7, "88", "sete", 0},
               {0, "88", "oito", 0},
               {0, "", "Nao informado identificador do registro (chave, codigo ou PK ...)", erro::kMissingKey},
               {9, "77", "Registro nao encontrado", erro::kRecordNotFound},
               {0, "99", "Registro nao encontrado", erro::kRecordNotFound}};
  for (const auto& c : cases) {
    SCOPED_TRACE(fmt::format("{} {}", c.person, c.tax_number));
    this->ask(0, c.tax_number, "antes");
    this->vo().let("Cd_Pessoa", std::int32_t{c.person});
    const auto failure = failure_of([&] { this->role_.ConsultarPessoa(); });
    if (c.number == 0) {
      EXPECT_FALSE(failure);
      EXPECT_EQ(this->text("Nm_Pessoa"), c.found);
      EXPECT_EQ(this->text(this->key_), this->text("Cd_Pessoa"));
      continue;
    }
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), c.number);
    const std::string behind = c.number == erro::kMissingKey ? "" : std::string("(") + this->kTable + ")";
    EXPECT_EQ(failure->description(), c.found + behind);
    EXPECT_EQ(failure->source(), this->path({"ConsultarPessoa"}) + ", " + this->path({"ConsultarPessoa"}));
    EXPECT_EQ(this->text("Nm_Pessoa"), "");
  }
}

TYPED_TEST(RoleTest, TheListShowsThePersonsNames) {
  this->add_person(7, "77", "Zeca");
  this->add_person(8, "88", "Ana");
  this->add_person(9, "99", "Beto");
  this->add_role(1, 7);
  this->add_role(1, 8);
  MemoryList list;
  this->role_.CarregarComboBox(list, "WHERE Cd_PessoaUsuaria = 1");
  EXPECT_EQ(list.items(), (std::vector<MemoryList::Item>{{"SELECIONE ->", 0}, {"Ana", 8}, {"Zeca", 7}}));
}

class ClienteTest : public MasterdataTest {
 protected:
  DALCliente customer_{settings_};
};

TEST_F(ClienteTest, SalvarChangesOrAdds) {
  struct {
    const char* what;
    bool person, role;
  } cases[] = {{"neither", false, false}, {"person", true, false}, {"both", true, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    run("DELETE FROM Pessoa\rDELETE FROM Cliente");
    if (c.person) add_person(7, "77", "antes");
    if (c.role) run("INSERT INTO Cliente (Cd_PessoaUsuaria, Cd_Cliente) Values (1, 7)");
    VOCliente& vo = *customer_.ObVO;
    vo = {};
    vo.Cd_PessoaUsuaria = 1;
    vo.Cd_Cliente = c.role ? 7 : 0;
    vo.Cd_CgcCpf = "77";
    vo.Nm_Pessoa = "depois";
    vo.Vl_LimiteCredito = money("500");
    for (int round = 0; round < 2; ++round) customer_.Salvar();  // the second changes what the first added
    EXPECT_EQ(rows("SELECT Nm_Pessoa, Vl_LimiteCredito FROM Pessoa INNER JOIN Cliente On Cd_Pessoa = Cd_Cliente"),
              "depois,500\n");
    EXPECT_EQ(rows("SELECT Count(*) FROM Pessoa") + rows("SELECT Count(*) FROM Cliente"), "1\n1\n");
  }
}

TEST_F(ClienteTest, IsSearchedByTaxNumberAndByTheBeginningOfTheNameThroughAnIndex) {
  if (!database_.embedded()) GTEST_SKIP() << "an empty server would rather read its tables";
  const std::string clients =
      "SELECT Cliente.*, Pessoa.Nm_Pessoa FROM Cliente INNER JOIN Pessoa On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa "
      "WHERE Cliente.Cd_PessoaUsuaria = 1 And ";
  const std::string number = connection().engine().explain(clients + "Pessoa.Cd_CgcCpf = '77'");
  EXPECT_EQ(number.find("SCAN"), std::string::npos) << number;
  EXPECT_NE(number.find("SEARCH Pessoa USING INDEX Pessoa_1 (Cd_CgcCpf=?)"), std::string::npos) << number;
  const std::string name = connection().engine().explain(clients + "Pessoa.Nm_Pessoa Like 'SILVA%'");
  EXPECT_NE(name.find("INDEX Pessoa_2 (Nm_Pessoa>? AND Nm_Pessoa<?)"), std::string::npos) << name;
}

TEST_F(ClienteTest, PersonsAreReadByTaxNumberTooAndChangedByKeyAlone) {
  DALPessoa persons(settings_);
  persons.ObVO->Cd_CgcCpf = "77";
  persons.ObVO->Nm_Pessoa = "pessoa";
  persons.Incluir();
  EXPECT_EQ(persons.ObVO->Cd_Pessoa, 0);
  expect_failure(erro::kMissingKey, " -> DALPessoa.Alterar,  -> DALPessoa.Alterar", [&] { persons.Alterar(true); });
  EXPECT_EQ(persons.Consultar().Cd_Pessoa, 1);
  EXPECT_EQ(persons.ObVO->Dt_Inclusao, today());
  persons.Alterar();
  EXPECT_EQ(persons.RsTodasPessoas()["Nm_Pessoa"].as<std::string>(), "pessoa");
}

}  // namespace
}  // namespace posto
