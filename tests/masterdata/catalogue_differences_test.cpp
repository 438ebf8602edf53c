// What is particular to some classes of the catalogue.
#include <fmt/format.h>

#include <functional>

#include "posto/masterdata/DALCFOP.h"
#include "posto/masterdata/DALCartao.h"
#include "posto/masterdata/DALGradeComissao.h"
#include "posto/masterdata/DALHorarioTrabalho.h"
#include "posto/masterdata/catalogue.h"
#include "tests/core/failures.h"
#include "tests/support/database.h"

namespace posto {
namespace {

using Items = std::vector<MemoryList::Item>;

class Particular : public DatabaseTest {
 protected:
  template <class Dal>
  Items list_of(std::string_view condition = {}) {
    MemoryList list;
    Dal entity(settings_);
    if constexpr (requires { entity.CarregarComboBox(list, condition); }) {
      entity.CarregarComboBox(list, condition);
    } else {
      entity.CarregarComboBox(list);
    }
    return list.items();
  }
};

// A record that is found by its name or abbreviation too, but only to be read.
template <class Dal>
void expect_second_road(const std::shared_ptr<VOSistema>& settings, std::string_view column, const char* first,
                        const char* second) {
  Dal entity(settings);
  const ValueObject vo = by_name(*entity.ObVO);
  const std::string_view key = vo.layout().properties()[0].name;
  const char* const names[] = {first, second};
  for (std::int32_t code : {1, 2}) {
    vo.let(key, code);
    vo.let(column, names[code - 1]);
    entity.Incluir();
  }
  const auto found = [&](std::int32_t code, const char* name) {
    vo.RestaurarDefault();
    vo.let(key, code);
    vo.let(column, name);
    entity.Consultar();
    return vo.get(key).template as<std::int32_t>();
  };
  EXPECT_EQ(found(0, second), 2);
  EXPECT_EQ(found(1, second), 1);  // the key comes first
  vo.let(key, std::int32_t{0});
  EXPECT_EQ(failure_of([&] { entity.Alterar(true); }).value().number(), erro::kMissingKey);
  EXPECT_EQ(failure_of([&] { entity.Excluir(); }).value().number(), erro::kMissingKey);
  EXPECT_EQ(failure_of([&] { found(0, "??"); }).value().number(), erro::kRecordNotFound);
}

TEST_F(Particular, SecondRoads) {
  expect_second_road<DALUF>(settings_, "Ds_SiglaUF", "MG", "SP");
  expect_second_road<DALTipoLogradouro>(settings_, "Nm_TipoLogradouro", "RUA", "AVENIDA");
  expect_second_road<DALTituloEPatente>(settings_, "Nm_TituloEPatente", "DOUTOR", "GENERAL");
}

template <class Dal>
void expect_two_key_sets(const std::shared_ptr<VOSistema>& settings) {
  Dal entity(settings);
  auto& vo = *entity.ObVO;
  const auto set = [&](std::int32_t company, std::int32_t number, const char* transaction) {
    vo.RestaurarDefault();
    vo.Cd_PessoaUsuaria = company;
    vo.No_Identificacao = number;
    vo.No_Transacao = transaction;
  };
  const std::pair<int, const char*> kept[] = {{1, "0001"}, {2, "0002"}};
  for (const auto& [number, transaction] : kept) {
    set(1, number, transaction);
    entity.Incluir();
  }
  set(1, 0, "0002");
  EXPECT_EQ(entity.Consultar().No_Identificacao, 2);
  set(1, 1, "0002");
  EXPECT_EQ(entity.Consultar().No_Transacao, "0001");  // the identification comes first
  set(1, 0, "0002");
  vo.Vl_Transacao = Currency(70);
  entity.Alterar();
  set(1, 0, "0002");
  EXPECT_EQ(entity.Consultar().Vl_Transacao, Currency(70));
  const std::function<void()> operations[] = {[&] { entity.Consultar(); }, [&] { entity.Alterar(true); },
                                              [&] { entity.Excluir(); }};
  for (const auto& operation : operations) {
    set(0, 1, "0001");
    EXPECT_EQ(failure_of(operation).value().number(), erro::kMissingKey);
  }
  set(1, 0, "0002");
  entity.Excluir();
  set(1, 1, "");
  EXPECT_EQ(entity.Consultar().No_Transacao, "0001");
  set(1, 0, "0002");
  EXPECT_EQ(failure_of([&] { entity.Consultar(); }).value().number(), erro::kRecordNotFound);
}

TEST_F(Particular, TransfersAreFoundByIdentificationOrTransaction) {
  expect_two_key_sets<DALTecBan>(settings_);
  EXPECT_EQ(std::ranges::count(routines_, "+Consultar"), 0);
  expect_two_key_sets<DALTEF>(settings_);
  routines_.clear();
  DALTEF transfer(settings_);
  EXPECT_TRUE(failure_of([&] { transfer.Consultar(); }));
  transfer.ObVO->Cd_PessoaUsuaria = transfer.ObVO->No_Identificacao = 1;
  transfer.Consultar();
  EXPECT_EQ(routines_, (std::vector<std::string>{"+Consultar", "-DALTEF.Consultar", "+Consultar", "-Consultar"}));
  EXPECT_TRUE(settings_->routines().empty());
}

template <class Dal>
concept HasList = requires(Dal entity, LateBound& list) {
  entity.CarregarComboBox(list);
};
template <class Dal>
concept ListTakesCondition = requires(Dal entity, LateBound& list) {
  entity.CarregarComboBox(list, "");
};
static_assert(!HasList<DALFeriado> && HasList<DALTipoCaixa> && !ListTakesCondition<DALTipoCaixa>);
static_assert(ListTakesCondition<DALUF> && ListTakesCondition<DALCFOP>);

TEST_F(Particular, ListsThatNeedRecords) {
  for (const auto& [name, load] : {std::pair("TipoCaixa", std::function([&] { return list_of<DALTipoCaixa>(); })),
                                   std::pair("UF", std::function([&] { return list_of<DALUF>(); }))}) {
    routines_.clear();
    const std::string step = std::string(" -> DAL") + name + ".CarregarComboBox";
    const auto failure = failure_of(load);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), erro::kRecordNotFound);
    EXPECT_EQ(failure->description(), fmt::format("Registro nao encontrado({})", name));
    EXPECT_EQ(failure->source(), fmt::format("{0}, {0}", step));
    EXPECT_EQ(routines_.back(), "-" + step.substr(4));
    EXPECT_TRUE(settings_->routines().empty());
  }
  run("INSERT INTO TipoCaixa (Cd_TipoCaixa, Nm_TipoCaixa) Values (2, 'Loja')");
  EXPECT_EQ(list_of<DALTipoCaixa>(), (Items{{"SELECIONE ->", 0}, {"Loja", 2}}));
  run("INSERT INTO UF (Cd_UF, Nm_UF) Values (31, 'Minas Gerais'); INSERT INTO UF (Cd_UF, Nm_UF) Values (12, 'Acre')");
  EXPECT_EQ(list_of<DALUF>(), (Items{{"SELECIONE ->", 0}, {"Acre", 12}, {"Minas Gerais", 31}}));
  EXPECT_EQ(list_of<DALUF>("WHERE Cd_UF > 20"), (Items{{"SELECIONE ->", 0}, {"Minas Gerais", 31}}));
}

TEST_F(Particular, ListTexts) {
  EXPECT_EQ(list_of<DALCFOP>(), Items{});
  run("INSERT INTO CFOP (Cd_CFOP, Ds_Cfop) Values (5929, 'CUPOM'); INSERT INTO CFOP (Cd_CFOP) Values (510)");
  EXPECT_EQ(list_of<DALCFOP>(), (Items{{"SELECIONE ->", 0}, {"510 - ", 510}, {"5.929 - CUPOM", 5929}}));

  DALHorarioTrabalho hours(settings_);
  *hours.ObVO = {1, 2, "Noite", "22:00:00", "02:00:00", "03:00:00", "06:00:00"};
  hours.Incluir();
  *hours.ObVO = {1, 1, "Tarde", "14:00:00", "", "", "18:30:00"};
  hours.Incluir();
  EXPECT_EQ(list_of<DALHorarioTrabalho>(), (Items{{"SELECIONE ->", 0},
                                                  {"Tarde", 0},
                                                  {"(de:14:00:00 a ) - (de: a 18:30:00", 1},
                                                  {"Noite", 0},
                                                  {"(de:22:00:00 a 02:00:00) - (de:03:00:00 a 06:00:00", 2}}));
}

TEST_F(Particular, WhatIsAddedToAKindOfCardIsACard) {
  DALTipoCartao kind(settings_);
  *kind.ObVO = {.Cd_TipoCartao = 3, .Nm_TipoCartao = "Frota", .Cd_Cartao = 51};
  kind.Incluir();
  DALTipoCartaoCliente own(settings_);
  *own.ObVO = {.Cd_TipoCartao = 4, .Nm_TipoCartao = "Clube", .Cd_PessoaUsuaria = 2, .Cd_Cartao = 52};
  own.Incluir();
  EXPECT_EQ(own.statement(), "Cartao");
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Cd_TipoCartao, Cd_Cartao FROM Cartao"), "1,3,51\n2,4,52\n");
  EXPECT_EQ(rows("SELECT * FROM TipoCartao") + rows("SELECT * FROM TipoCartaoCliente"), "");
  own.ObVO->Cd_Cartao = 0;
  expect_failure(erro::kIntegrity, testing::provider() + " -> DALTipoCartaoCliente.Incluir", [&] { own.Incluir(); });
}

TEST_F(Particular, AKindOfCardIsReadWithoutItsCompanyButNotDeleted) {
  run("INSERT INTO TipoCartao (Cd_PessoaUsuaria, Cd_TipoCartao, Nm_TipoCartao) Values (2, 3, 'da outra'); "
      "INSERT INTO TipoCartao (Cd_PessoaUsuaria, Cd_TipoCartao, Nm_TipoCartao) Values (3, 3, 'desta')");
  DALTipoCartao kind(settings_);
  kind.ObVO->Cd_TipoCartao = 3;
  EXPECT_EQ(kind.Consultar().Cd_PessoaUsuaria, 2);
  kind.ObVO->Cd_PessoaUsuaria = 0;
  expect_failure(erro::kMissingKey, " -> DALTipoCartao.Excluir,  -> DALTipoCartao.Excluir", [&] { kind.Excluir(); });
  *kind.ObVO = {.Cd_PessoaUsuaria = 3, .Cd_TipoCartao = 3, .Nm_TipoCartao = "nova"};
  kind.Alterar();
  EXPECT_EQ(rows("SELECT Cd_PessoaUsuaria, Nm_TipoCartao FROM TipoCartao"), "2,da outra\n3,nova\n");
}

template <class Dal>
concept HasExiste = requires(Dal entity) {
  entity.Existe();
};
static_assert(!HasExiste<DALBanco>);

TEST_F(Particular, Existe) {
  DALConPag condition(settings_);
  condition.ObVO->Cd_PessoaUsuaria = 1;
  condition.Incluir();
  const auto exists = [&](std::int32_t company, std::int32_t code) {
    *condition.ObVO = {.Cd_PessoaUsuaria = company, .Cd_ConPag = code, .Nm_ConPag = "fica"};
    return condition.Existe();
  };
  EXPECT_TRUE(exists(1, 1));
  EXPECT_FALSE(exists(1, 2));
  EXPECT_FALSE(exists(2, 1));
  expect_failure(erro::kMissingKey, " -> DALConPag.Existe,  -> DALConPag.Existe", [&] { exists(0, 1); });
  EXPECT_EQ(condition.ObVO->Nm_ConPag, "fica");

  DALLayoutCheque layout(settings_);
  layout.ObVO->Cd_Banco = 237;
  EXPECT_FALSE(layout.Existe());
  layout.Incluir();
  EXPECT_TRUE(layout.Existe());
}

TEST_F(Particular, OpenSalesOfACard) {
  struct {
    int company, kind, card, approved, sale_kind;
    const char* billed;
  } const sales[] = {{1, 3, 51, 0, 11, "N"}, {1, 3, 51, 0, 11, "N"}, {2, 3, 51, 0, 11, "N"}, {1, 4, 51, 0, 11, "N"},
                     {1, 3, 52, 0, 11, "N"}, {1, 3, 51, 1, 11, "N"}, {1, 3, 51, 0, 12, "N"}, {1, 3, 51, 0, 11, "S"}};
  int coupon = 100;
  for (const auto& s : sales) {
    const std::string key = std::to_string(s.company) + ", 2, " + std::to_string(++coupon) + ", '2009-04-03', ";
    run("INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Tp_Venda, FL_Fechada) "
        "Values (" +
        key + std::to_string(s.sale_kind) + ", '" + s.billed + "')");
    run("INSERT INTO VendaCartaoPorCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, "
        "Cd_TipoCartao, Cd_Cartao, Ic_Aprovado) Values (" +
        key + std::to_string(s.kind) + ", " + std::to_string(s.card) + ", " + std::to_string(s.approved) + ")");
  }
  DALCartao card(settings_);
  VOCartao& vo = *card.ObVO;
  vo.Cd_PessoaUsuaria = 1;
  vo.Cd_TipoCartao = 3;
  vo.Cd_Cartao = 51;
  EXPECT_EQ(card.QuantidadeDePendencias(), 2);
  EXPECT_EQ(text_of(card.rsPendencias()),
            "1,2,101,2009-04-03 00:00:00,3,51,False,-,-\n1,2,102,2009-04-03 00:00:00,3,51,False,-,-\n");
  vo.Cd_Cartao = 53;
  EXPECT_EQ(card.QuantidadeDePendencias(), 0);
}

TEST_F(Particular, TheCommissionGridOfAllCompanies) {
  run("INSERT INTO GrupoCliente (Cd_GrupoCliente, Nm_GrupoCliente) Values (1, 'Frotas'); "
      "INSERT INTO GrupoCliente (Cd_GrupoCliente, Nm_GrupoCliente) Values (2, 'Avulsos'); "
      "INSERT INTO GrupoProduto (Nm_GrupoProduto) Values ('Óleos'); "
      "INSERT INTO Funcao (Cd_Funcao, Nm_Funcao) Values (1, 'Frentista'); "
      "INSERT INTO Funcao (Cd_Funcao, Nm_Funcao) Values (2, 'Caixa')");
  DALGradeComissao grid(settings_);
  for (const VOGradeComissao& record : {VOGradeComissao{1, 1, 1, 1, 2.5},
                                        {1, 2, 1, 1, 1},
                                        {2, 2, 1, 1, 0.5},
                                        {1, 2, 1, 2, 9},
                                        {1, 3, 1, 1, 7}}) {  // the last in a group that is not there
    *grid.ObVO = record;
    grid.Incluir();
  }
  EXPECT_EQ(
      text_of(grid.rsTodosRegistros()),
      "Avulsos,Óleos,Caixa,9\nAvulsos,Óleos,Frentista,0.5\nAvulsos,Óleos,Frentista,1\nFrotas,Óleos,Frentista,2.5\n");
}

}  // namespace
}  // namespace posto
