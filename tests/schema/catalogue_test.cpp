// Rules that the .def files must keep, whoever edits them next.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "posto/schema/table.h"
#include "posto/types/text.h"

namespace posto {
namespace {

std::vector<std::string> columns_of(const Index& index) {
  std::vector<std::string> names;
  std::string_view rest = index.columns;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    names.emplace_back(trim(rest.substr(0, comma)));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return names;
}

std::vector<std::string> key_of(const Table& table) {
  std::vector<std::string> names;
  for (const Column& column : table.columns) {
    if (column.key) names.emplace_back(column.name);
  }
  return names;
}

bool begins_with(const std::vector<std::string>& list, const std::vector<std::string>& start) {
  return list.size() >= start.size() && std::equal(start.begin(), start.end(), list.begin());
}

TEST(Catalogue, NamesAreUniqueBlindToCase) {
  std::set<std::string> tables;
  for (const Table& table : all_tables()) {
    EXPECT_TRUE(tables.insert(ascii_lower(table.name)).second) << table.name;
    std::set<std::string> columns;
    for (const Column& column : table.columns) {
      EXPECT_TRUE(columns.insert(ascii_lower(column.name)).second) << table.name << "." << column.name;
    }
  }
}

TEST(Catalogue, TablesHaveAKeyAndAtMostOneGeneratedColumn) {
  const std::set<std::string_view> keyless = {"IdentificacaoECF", "LogDocumentoEmitidoECF", "TempRelCaixa14"};
  for (const Table& table : all_tables()) {
    SCOPED_TRACE(std::string(table.name));
    EXPECT_EQ(table.has_key(), !keyless.contains(table.name));
    const auto generated =
        std::count_if(table.columns.begin(), table.columns.end(), [](const Column& column) { return column.identity; });
    EXPECT_LE(generated, 1);
    for (const Column& column : table.columns) {
      EXPECT_FALSE(column.key && column.nullable) << column.name;
      EXPECT_EQ(column.type == SqlType::text, column.width > 0) << column.name;
      EXPECT_TRUE(!column.identity || column.type == SqlType::int16 || column.type == SqlType::int32) << column.name;
      // A bit that may be null would make "= 0" miss the rows that never set it.
      EXPECT_TRUE(column.type != SqlType::bit || column.default_value == "0") << column.name;
    }
  }
}

TEST(Catalogue, IndexesNameColumnsAndNoneIsTheBeginningOfAnother) {
  for (const Table& table : all_tables()) {
    for (const Index& index : table.indexes) {
      SCOPED_TRACE(std::string(table.name) + ": " + std::string(index.columns));
      const auto names = columns_of(index);
      EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
      for (const std::string& name : names) {
        const Column* column = table.find(name);
        ASSERT_NE(column, nullptr) << name;
        EXPECT_EQ(column->name, name);
      }
      if (!index.only_where_zero.empty()) {
        const Column* condition = table.find(index.only_where_zero);
        ASSERT_NE(condition, nullptr);
        EXPECT_TRUE(condition->type != SqlType::text && condition->type != SqlType::date);
        continue;
      }
      if (index.unique) continue;
      EXPECT_FALSE(begins_with(key_of(table), names)) << "the key serves already";
      for (const Index& other : table.indexes) {
        if (&other == &index || !other.only_where_zero.empty()) continue;
        EXPECT_FALSE(begins_with(columns_of(other), names)) << other.columns << " serves already";
      }
    }
  }
}

// Statements over several tables name these columns without saying whose they are. A second table that had one would
// make the statement ambiguous, or quietly change what it means.
struct Absent {
  std::string_view tables;
  std::string_view columns;
};
constexpr Absent kAbsent[] = {
    {"Pessoa",
     "Cd_PessoaUsuaria Cd_Caixa Cd_Cliente Cd_Fornecedor Cd_Funcionario Cd_TipoNF No_Nota No_Item Dt_Emissao "
     "Dt_Entrega "
     "Tp_Venda Tp_DocDebito No_DocDebito"},
    {"Cidade UF", "Cd_PessoaUsuaria Dt_Emissao Dt_Entrega No_Nota Cd_TipoNF No_Item"},
    {"TipoNF", "Cd_PessoaUsuaria Dt_Emissao Dt_Entrega No_Nota"},
    {"Produto", "Ic_Excluido Cd_TipoNF No_Nota No_Entrada No_Item No_Tanque Cd_ProdutoItem Qt_UnidadeItem"},
    {"Cliente",
     "Cd_Pessoa Cd_PessoaAvalista Dt_BloqueioCredito Dt_VencPro No_SituacaoPagamento Vl_Saldo Tp_Venda Nm_Pessoa "
     "Dt_Inclusao"},
    {"ContaAReceber", "Fl_BloqAutCredito Fl_CanCredito No_SituacaoCredito"},
    {"CupomFiscal", "No_Tipo Cd_Cartao Qt_KmPorLitro"},
    {"ItemCupomFiscal", "No_Tipo Vl_Total"},
    {"VendaCartaoPorCupomFiscal", "Tp_Venda"},
    {"RecebimentoCupom TipoRecebimento", "Tp_DocDebito Vl_Recebimento"},
    {"PagamentoDeConta", "Vl_Pagamento"},
    {"Caixa", "Tp_DocDebito No_DocDebito"},
    {"Bomba", "Dt_Termino Qt_Litros Ic_Afericao"},
    {"ItemNotaEntrada", "Cd_TipoNF No_Nota"},
    {"NotaEntrada", "No_Item"},
    {"ItemNotaSaida", "Fl_NfServicosDeCupom Fl_FatVariosCupons Fl_FatUnicoCupom"},
    {"MedidaTanque", "No_Tanque"},
    {"Tanque", "Qt_Litros"},
    {"DivergenciaCaixa", "Ds_DivergenciaCaixa No_NaturezaDivergencia"},
    {"TipoDivergenciaCaixa", "Cd_Caixa Ds_Divergencia Vl_Divergencia"},
    {"TipoLanCCBancaria", "Dt_LanPrevisto Vl_Lancamento No_LanCcBancaria"},
    {"Abastecimento ItemCupomFiscal", "No_Abastecimento"},  // a statement that names it must fail
};

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> list;
  while (!text.empty()) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    list.push_back(text.substr(0, blank));
    text.remove_prefix(std::min(blank + 1, text.size()));
  }
  return list;
}

TEST(Catalogue, ColumnsThatStatementsNameBareStandInOneTable) {
  for (const Absent& absent : kAbsent) {
    for (std::string_view name : words(absent.tables)) {
      const Table* table = find_table(name);
      ASSERT_NE(table, nullptr) << name;
      for (std::string_view column : words(absent.columns))
        EXPECT_EQ(table->find(column), nullptr) << name << "." << column;
    }
  }
  EXPECT_EQ(find_table("Encerrante"), nullptr);
}

TEST(Catalogue, TablesAndColumnsAreFoundBlindToCase) {
  const Table* table = find_table("LANCCBANCARIA");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->name, "LanCcBancaria");
  const Column* column = table->find("no_lanccbancaria");
  ASSERT_NE(column, nullptr);
  EXPECT_EQ(column, table->identity());
  EXPECT_EQ(&table->columns[table->position(*column)], column);
  EXPECT_EQ(table->find("No_LanCcBancaria "), nullptr);
}

}  // namespace
}  // namespace posto
