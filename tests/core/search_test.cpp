// The search screen's clauses, grid and failures, and the list classes.
#include <fmt/format.h>

#include "posto/core/DALBuscaGenerica.h"
#include "posto/fiscal/catalogue.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/services/search_form.h"
#include "posto/types/text.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

constexpr const char* kWhere = " -> DALBuscaGenerica.Ds_ClausulaWHERE";
constexpr const char* kFill = " -> DALBuscaGenerica.CarregarMSFlexGridDeBusca";

// A form on which one control fails with an error, 438 being that it is not there.
class FormWithout final : public LateBound {
 public:
  FormWithout(SearchForm& form, std::string path, std::int32_t number = erro::kUnknownMember)
      : form_(form), path_(std::move(path)), number_(number) {}
  Variant call(std::string_view method, std::span<const Variant> arguments) override {
    return asked(method).call(method, arguments);
  }
  Variant get(std::string_view property, std::span<const Variant> arguments) override {
    return asked(property).get(property, arguments);
  }
  void let(std::string_view property, std::span<const Variant> arguments) override {
    asked(property).let(property, arguments);
  }

 private:
  SearchForm& asked(std::string_view path) {
    if (equal_names(path, path_)) throw Erro(number_, "Tela", path_);
    return form_;
  }
  SearchForm& form_;
  std::string path_;
  std::int32_t number_;
};

class SearchTest : public DatabaseTest {
 protected:
  static constexpr std::int32_t kName = 0, kCode = 1, kDay = 2;  // positions in ColecaoAtributos

  SearchTest() {
    search_.Nm_Tabela = "Pessoa";
    search_.FormBuscaGenerica = &form_;
    search_.ColecaoAtributos = {
        {.name = "Nm_Pessoa"},
        {.name = "Cd_Pessoa", .qualifier = "Pessoa.Cd_Pessoa", .type = SearchAttribute::kNumber},
        {.name = "Dt_Inclusao", .type = SearchAttribute::kDate}};
    form_.attributes = {kName, kCode, kDay};
  }

  void add_person(int code, const char* name) {
    run(fmt::format("INSERT INTO Pessoa (Cd_Pessoa, Nm_Pessoa) Values ({}, '{}')", code, name));
  }
  void ask(std::int32_t attribute, const char* operation, const char* text) {
    form_.first = {.list_index = attribute, .operation = operation, .text = text};
  }
  // The lines behind the grid's heading, cells separated by "|".
  std::vector<std::string> lines() const {
    std::vector<std::string> texts;
    for (std::size_t i = 1; i < form_.grid.lines().size(); ++i) {
      texts.push_back(fmt::format("{}", fmt::join(form_.grid.lines()[i], "|")));
    }
    return texts;
  }

  SearchForm form_;
  DALBuscaGenerica search_{settings_};
};

TEST_F(SearchTest, EachOperatorComparesByTheTypeOfTheAttribute) {
  const struct {
    const char *operation, *number, *date, *text;
  } cases[] = {
      {"IGUAL A", " = 7", " = '7'", " = '7'"},
      {"DIFERENTE DE", " <> 7", " <> '7'", " <> '7'"},
      {"CONTENDO", " = 7", " = '7'", " Like '%7%'"},
      {"INICIANDO COM", " = 7", " >= '7'", " Like '%7'"},
      {"TERMINANDO COM", " = 7", " <= '7'", " Like '7%'"},
  };
  ASSERT_EQ(DALBuscaGenerica::operators().size(), std::size(cases));
  for (const auto& c : cases) {
    ask(kCode, c.operation, "7");
    EXPECT_EQ(search_.Ds_ClausulaWHERE(), std::string(" WHERE Pessoa.Cd_Pessoa") + c.number);
    ask(kDay, c.operation, "7");
    EXPECT_EQ(search_.Ds_ClausulaWHERE(), std::string(" WHERE Dt_Inclusao") + c.date);
    ask(kName, c.operation, "7");
    EXPECT_EQ(search_.Ds_ClausulaWHERE(), std::string(" WHERE Nm_Pessoa") + c.text);
  }
}

TEST_F(SearchTest, TheConditionOfBothRowsAndOfTheCaller) {
  const SearchRow none, unchosen{-1, "IGUAL A", "ANA"}, nothing{kName, "IGUAL A", ""}, name{kName, "CONTENDO", "ANA"},
      code{kCode, "IGUAL A", "12"};
  const struct {
    SearchRow first;
    std::optional<SearchRow> second;
    const char *complement, *where;
  } cases[] = {
      {none, {}, "", ""},
      {unchosen, {}, "", ""},
      {nothing, {}, "", ""},
      {nothing, {}, "Ic_Ativo = -1", "Where Ic_Ativo = -1"},
      {name, {}, "Ic_Ativo = -1", " WHERE Nm_Pessoa Like '%ANA%' And Ic_Ativo = -1"},
      {name, nothing, "", " WHERE Nm_Pessoa Like '%ANA%'"},
      {none, code, "", " WHERE Pessoa.Cd_Pessoa = 12"},
      {name, code, "a = 1", " WHERE Nm_Pessoa Like '%ANA%' AND Pessoa.Cd_Pessoa = 12 And a = 1"},
  };
  for (const auto& c : cases) {
    form_.first = c.first;
    form_.second = c.second;
    search_.Ds_ComplementoClausulaWHERE = c.complement;
    EXPECT_EQ(search_.Ds_ClausulaWHERE(), c.where);
  }
}

TEST_F(SearchTest, TheOtherClausesAndTheWholeQuery) {
  EXPECT_EQ(search_.query(), "SELECT Nm_Pessoa, Pessoa.Cd_Pessoa, Dt_Inclusao\rFROM Pessoa");
  search_.ColecaoAtributos[kCode].in_order = search_.ColecaoAtributos[kDay].in_order = true;
  form_.attributes = {kDay, kName};  // the list has an order of its own
  ask(1, "IGUAL A", "O''Brien");
  for (const char* join : {"INNER JOIN Cliente ON 1 = 1", " INNER JOIN Cliente ON 1 = 1"}) {
    search_.Ds_ClausulaJoin = join;
    EXPECT_EQ(search_.query(),
              "SELECT Nm_Pessoa, Pessoa.Cd_Pessoa, Dt_Inclusao\rFROM Pessoa INNER JOIN Cliente ON 1 = 1\r"
              " WHERE Nm_Pessoa = 'O''Brien'\rORDER BY Pessoa.Cd_Pessoa, Dt_Inclusao");
  }
}

TEST_F(SearchTest, WhatIsFoundFillsTheGridBehindItsHeading) {
  for (int code = 1; code <= 1203; ++code) add_person(code, code % 2 == 0 ? "Ana" : "Rui");
  search_.ColecaoAtributos[kCode].in_order = true;
  search_.CarregarMSFlexGridDeBusca();
  EXPECT_EQ(form_.found, "1.203");
  ask(kName, "IGUAL A", "ana");
  form_.second = {kCode, "DIFERENTE DE", "4"};
  search_.Ds_ComplementoClausulaWHERE = "Cd_Pessoa < 9";
  search_.CarregarMSFlexGridDeBusca();
  EXPECT_EQ(lines(), (std::vector<std::string>{"Ana|2|", "Ana|6|", "Ana|8|"}));
  EXPECT_EQ(form_.found, "3");
}

TEST_F(SearchTest, CellsByTheKindOfTheValue) {
  run("INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, Cd_Veiculo, Dt_Termino, Qt_Litros, "
      "Vl_Total, No_EncerranteFechamento, Ic_Baixado) "
      "Values (1, 1234567, 'a\tç', '2026-11-24 23:59:59', 1234.1, 0.0005, 1000000.1234565, -1)");
  const struct {
    const char *term, *cell;
  } cases[] = {
      {"Cd_Abastecimento", "1234567"},
      {"Cd_Veiculo", "a ç"},  // a tab would be another cell
      {"Dt_Termino", "24/11/2026"},
      {"Qt_Litros", "1.234,10"},  // of 32 bits: not 1.234,099976
      {"Vl_Total", "0,0005"},
      {"No_EncerranteFechamento", "1.000.000,123457"},
      {"-0.5e-6 As Menor", "-0,000001"},
      {"Ic_Baixado", "SIM"},
      {"Vl_Preco", ""},
      {"1 As Fl_CupomAssinado", "SIM"},
      {"0 As fl_cupomassinado", "NÃO"},
      {"Null As Fl_CupomAssinado", ""},
      {"0 As No_SituacaoCredito", ""},
      {"1 As No_SituacaoCredito", "A DEFINIR"},
      {"2 As No_SituacaoCredito", "LIBERADO"},
      {"3 As No_SituacaoCredito", "BLOQUEADO"},
      {"4 As No_SituacaoCredito", "CANCELADO"},
      {"5 As No_SituacaoCredito", "INSOLVENTE"},
      {"6 As No_SituacaoCredito", ""},
  };
  search_.Nm_Tabela = "Abastecimento";
  search_.ColecaoAtributos.clear();
  for (const auto& c : cases) search_.ColecaoAtributos.push_back({.name = "?", .qualifier = c.term});
  search_.CarregarMSFlexGridDeBusca();
  ASSERT_EQ(form_.grid.lines().size(), 2u);
  const MemoryGrid::Line& cells = form_.grid.lines()[1];
  ASSERT_EQ(cells.size(), std::size(cases));
  for (std::size_t i = 0; i < cells.size(); ++i) EXPECT_EQ(cells[i], cases[i].cell) << cases[i].term;
}

TEST_F(SearchTest, NothingFoundLeavesTheHeadingAlone) {
  add_person(1, "Ana");
  search_.CarregarMSFlexGridDeBusca();
  ask(kName, "IGUAL A", "Rui");
  const auto failure = failure_of([&] { search_.CarregarMSFlexGridDeBusca(); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), erro::kRecordNotFound);
  EXPECT_EQ(failure->description(), "Registro nao encontrado(Pessoa)");
  EXPECT_EQ(failure->source(), std::string(kFill) + ", " + kFill);
  EXPECT_EQ(form_.grid.lines().size(), 1u);
  EXPECT_EQ(form_.found, "1");
  EXPECT_EQ(routines_, std::vector<std::string>{"-DALBuscaGenerica.CarregarMSFlexGridDeBusca"});
}

TEST_F(SearchTest, AMissingControlIsAFailureButASecondRowMayBeMissing) {
  add_person(1, "Ana");
  ask(kName, "IGUAL A", "Ana");
  form_.second = {kCode, "IGUAL A", "1"};
  const std::string in_where = std::string("Tela") + kWhere + kFill, in_fill = std::string("Tela") + kFill;
  const struct {
    const char* control;
    std::string source;
  } cases[] = {{"Nm_AtributoPesquisa.ListIndex", in_where},
               {"Nm_AtributoPesquisa.ItemData", in_where},
               {"Nm_Operador.Text", in_where},
               {"Ds_Procura.Text", in_where},
               {"Nm_Operador2.Text", in_where},
               {"Ds_Procura2.Text", in_where},
               {"Grid.Rows", in_fill},
               {"Grid.AddItem", in_fill},
               {"Qt_Encontrados.Text", in_fill}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.control);
    FormWithout form(form_, c.control);
    search_.FormBuscaGenerica = &form;
    expect_failure(erro::kUnknownMember, c.source, [&] { search_.CarregarMSFlexGridDeBusca(); });
  }
  FormWithout one_row(form_, "Nm_AtributoPesquisa2.ListIndex");
  search_.FormBuscaGenerica = &one_row;
  EXPECT_EQ(search_.Ds_ClausulaWHERE(), " WHERE Nm_Pessoa = 'Ana'");
  FormWithout broken(form_, "Nm_AtributoPesquisa2.ListIndex", erro::kTypeMismatch);
  search_.FormBuscaGenerica = &broken;
  expect_failure(erro::kTypeMismatch, in_where, [&] { search_.CarregarMSFlexGridDeBusca(); });
}

TEST_F(SearchTest, WhatCannotBeAskedRunsNoStatement) {
  const std::string own = std::string(kWhere) + ", " + kWhere + kFill;
  const auto refused = [&](std::int32_t number, const std::string& source) {
    EXPECT_TRUE(
        statements_of([&] { expect_failure(number, source, [&] { search_.CarregarMSFlexGridDeBusca(); }); }).empty());
  };
  ask(kName, "PARECIDO COM", "Ana");
  refused(erro::kInvalidCall, own);
  form_.attributes = {3};  // there are 0 to 2
  ask(0, "IGUAL A", "Ana");
  refused(erro::kInvalidCall, own);
  form_.attributes = {};
  refused(erro::kInvalidCall, std::string("SearchForm") + kWhere + kFill);
  search_.FormBuscaGenerica = nullptr;
  refused(erro::kObjectNotSet, std::string("DALBuscaGenerica") + kWhere + kFill);
}

TEST_F(SearchTest, AQuoteInTheTextSearchedEndsIt) {
  ask(kName, "IGUAL A", "O'Brien");
  expect_failure(erro::kSyntax, testing::provider() + kFill, [&] { search_.CarregarMSFlexGridDeBusca(); });
}

TEST_F(SearchTest, EveryTableCanBeSearchedByEachOfItsColumns) {
  for (const Table& table : all_tables()) {
    SCOPED_TRACE(table.name);
    search_.Nm_Tabela = table.name;
    search_.ColecaoAtributos.clear();
    form_.attributes.clear();
    for (const Column& column : table.columns) {
      form_.attributes.push_back(static_cast<std::int32_t>(search_.ColecaoAtributos.size()));
      search_.ColecaoAtributos.push_back(search_attribute(column));
    }
    for (std::int32_t attribute : form_.attributes) {
      SearchAttribute& searched = search_.ColecaoAtributos[static_cast<std::size_t>(attribute)];
      searched.in_order = true;
      ask(attribute, "INICIANDO COM", searched.type == SearchAttribute::kDate ? "2026-11-24" : "1");
      const auto failure = failure_of([&] { search_.CarregarMSFlexGridDeBusca(); });
      ASSERT_TRUE(failure);
      EXPECT_EQ(failure->description(), fmt::format("Registro nao encontrado({})", table.name)) << searched.name;
      searched.in_order = false;
    }
  }
}

TEST_F(SearchTest, ListsGiveAllRowsInTheirOrder) {
  run("INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (1, 2, 'Loja')\r"
      "INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (1, 1, 'Pista')\r"
      "INSERT INTO PonVen (Cd_PessoaUsuaria, Cd_PonVen, Nm_PonVen) Values (2, 3, 'Outra')\r"
      "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (5, 'Dinheiro')\r"
      "INSERT INTO TipoRecebimento (Cd_TipoRecebimento, Nm_TipoRecebimento) Values (6, 'Cheque')");
  DALPonVens places(settings_);
  Recordset rows = places.ConsultarTodasRs();
  EXPECT_EQ(rows.ActiveConnection(), nullptr);
  EXPECT_EQ(text_of(std::move(rows)), "1,1,Pista\n1,2,Loja\n");
  EXPECT_EQ(places.statement(),
            "SELECT    * \rFROM     PonVen \rWHERE    Cd_PessoaUsuaria = 1  \rORDER BY Cd_PonVen \r");
  DALTiposRecebimento kinds(settings_);
  std::string names;
  for (rows = kinds.ConsultarTodasRs(); !rows.EOF(); rows.MoveNext()) {
    names += rows["Nm_TipoRecebimento"].as<std::string>() + " ";
  }
  EXPECT_EQ(names, "Cheque Dinheiro ");
  EXPECT_EQ(kinds.statement(), "SELECT    * \rFROM     TipoRecebimento \rORDER BY Nm_TipoRecebimento \r");

  DALBombas nozzles(settings_);
  settings_->ObConnection->Close();
  expect_failure(erro::kConnectionInvalid, "ADODB.Connection -> DALBombas.ConsultarTodasRs",
                 [&] { nozzles.ConsultarTodasRs(); });
}

}  // namespace
}  // namespace posto
