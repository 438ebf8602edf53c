// Every statement of the library compiles and runs, and the server's refusals are ours.
#include "tests/dialect/corpus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>

#include "posto/engines/engine.h"
#include "posto/types/erro.h"
#include "tests/support/test_database.h"

namespace posto {
namespace {

using testing::CorpusEntry;

// Runs a batch and reads all of its rows; what it does is undone.
void run_and_undo(Engine& engine, const std::string& batch) {
  engine.begin();
  try {
    Outcome outcome = engine.execute(batch);
    if (outcome.cursor) {
      std::vector<Cell> row(outcome.cursor->shape().columns().size());
      while (outcome.cursor->next(row)) continue;
    }
  } catch (const Erro&) {
    engine.rollback();
    throw;
  }
  engine.rollback();
}

class Corpus : public ::testing::Test {
 protected:
  testing::TestDatabase database_;
  std::shared_ptr<Engine> engine_ = database_.open();
};

TEST_F(Corpus, RunsOrIsRefusedAsOnTheServer) {
  const auto entries = testing::read_corpus();
  ASSERT_GT(entries.size(), 600u);
  for (const CorpusEntry& entry : entries) {
    SCOPED_TRACE(entry.file + ": " + entry.name);
    try {
      run_and_undo(*engine_, entry.statement);
      EXPECT_FALSE(entry.refused);
    } catch (const Erro& e) {
      EXPECT_TRUE(entry.refused) << e.what();
      EXPECT_EQ(e.number(), erro::kSyntax) << e.what();
      EXPECT_NE(e.description().find("(posição "), std::string::npos) << e.what();
    }
  }
}

// Tables that get rows with every day of the station: no statement may read all of one.
constexpr std::string_view kGrowing[] = {"Abastecimento",
                                         "Caixa",
                                         "Cardex",
                                         "ConciliacaoEstoqueSisTubulacao",
                                         "ConciliacaoEstoqueTanques",
                                         "ContaAPagar",
                                         "ContaAPagarDeDespesa",
                                         "ContaAPagarDeNotaEntrada",
                                         "ContaAReceber",
                                         "CupomFiscal",
                                         "Descarga",
                                         "Despesa",
                                         "ECFRegistro60Analitico",
                                         "ECFRegistro60Mestre",
                                         "EstoqueConsolidado",
                                         "EstoqueSisTubulacao",
                                         "FecDiario",
                                         "ItemCupomFiscal",
                                         "ItemDespesa",
                                         "ItemNotaEntrada",
                                         "ItemNotaSaida",
                                         "LMC",
                                         "LanCaixaGeral",
                                         "LanCcBancaria",
                                         "LanCcPessoa",
                                         "LanContaContabil",
                                         "LogDocumentoEmitidoECF",
                                         "LogLiberacaoBico",
                                         "MapaResumoECF",
                                         "NotaEntrada",
                                         "NotaSaida",
                                         "Pagamento",
                                         "PagamentoDeConta",
                                         "PagamentoDeDespesa",
                                         "PagamentoPorCaixa",
                                         "PagamentoPorLanCcBancaria",
                                         "PagamentoPorLanCcPessoa",
                                         "Recebimento",
                                         "RecebimentoCupom",
                                         "ReducaoZ",
                                         "RespBomba",
                                         "VendaCartaoPorCupomFiscal"};

// Statements that read a whole table by what they ask for.
struct WholeRead {
  std::string_view entries;  // how their names begin
  std::string_view reason;
};
constexpr WholeRead kWholeReads[] = {
    {"DALNotaEntrada.CFOPsItens", "the codes of all lines ever, out of an index alone"},
    {"DALEmpresaUsuaria.rsProdutosComVendaNoCardexAtePeriodo", "every product that ever moved"},
    {"DALEmpresaUsuaria.ObterDataUltimoLmc", "the greatest one, at the end of an index"},
    {"DALFecDiario.Rs_BaixaAbastecimentoDuplicidade", "the lines of all days: it has no lower bound"},
    {"DALBuscaGenerica (complement alone)", "a search without a term lists all of the company's rows"},
    {"DALCaixaGeral.ExisteErroNoCalculoDoSaldo", "the sum of the whole book"},
    {"DALFaturamento.ValorVendidoDoItem", "its condition is never true, and nothing is read"},
};

bool is_growing(std::string_view table) {
  return std::find(std::begin(kGrowing), std::end(kGrowing), table) != std::end(kGrowing);
}

// Whether a plan's line goes through an index that holds only the rows in which a flag is 0: those are few.
bool through_pending_rows(const std::string& line) {
  for (const Table& table : all_tables()) {
    for (std::size_t i = 0; i < table.indexes.size(); ++i) {
      const std::string name = std::string(table.name) + "_" + std::to_string(i + 1) + " ";
      if (!table.indexes[i].only_where_zero.empty() && line.find("INDEX " + name) != std::string::npos) return true;
    }
  }
  return false;
}

// The tables that a plan reads from end to end, or by the company alone, which is nearly the same. A plan names them as
// the statement does: by alias, where there is one.
std::vector<std::string> scanned_tables(const std::string& plan, const std::string& engine_text, bool strict) {
  std::map<std::string, std::string> table_of;
  static const std::regex kAlias("\"([^\"]+)\" AS \"([^\"]+)\"");
  for (std::sregex_iterator m(engine_text.begin(), engine_text.end(), kAlias), end; m != end; ++m)
    table_of[(*m)[2]] = (*m)[1];
  std::vector<std::string> scanned;
  std::istringstream lines(plan);
  for (std::string line; std::getline(lines, line);) {
    const bool by_company =
        strict && line.starts_with("SEARCH ") && line.ends_with("(Cd_PessoaUsuaria=?)") && !through_pending_rows(line);
    if (!line.starts_with("SCAN ") && !by_company) continue;
    const std::size_t first = line.find(' ') + 1;
    const std::string name = line.substr(first, line.find(' ', first) - first);
    auto known = table_of.find(name);
    scanned.push_back(known == table_of.end() ? name : known->second);
  }
  return scanned;
}

// The statements of the subsystems whose classes stand must also not read all of a company's rows.
bool has_its_classes(std::string_view file) {
  return file == "forecourt.sql" || file == "masterdata.sql" || file == "stock.sql";
}

TEST_F(Corpus, ReadsNoGrowingTableFromEndToEnd) {
  const auto tables = all_tables();
  if (std::all_of(tables.begin(), tables.end(), [](const Table& table) { return table.indexes.empty(); })) {
    GTEST_SKIP() << "the schema declares no index yet";
  }
  std::string engine_text;
  engine_->set_observer([&](const StatementReport& report) { engine_text = report.engine_text; });
  for (const CorpusEntry& entry : testing::read_corpus()) {
    const bool whole = std::any_of(std::begin(kWholeReads), std::end(kWholeReads),
                                   [&](const WholeRead& read) { return entry.name.starts_with(read.entries); });
    const bool one_statement = entry.statement.find("CREATE TABLE") == std::string::npos;
    if (entry.refused || whole || !one_statement) continue;
    run_and_undo(*engine_, entry.statement);
    const std::string plan = engine_->explain(entry.statement);
    for (const std::string& table : scanned_tables(plan, engine_text, has_its_classes(entry.file))) {
      EXPECT_FALSE(is_growing(table)) << entry.file << ": " << entry.name << " reads all of " << table << "\n" << plan;
    }
  }
}

}  // namespace
}  // namespace posto
