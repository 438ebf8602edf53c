// What a station asks every day, of a database with a hundred times the rows: nothing may take longer for them. The
// consolidation of stock may take longer by the products, of which there are ten times as many.
#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <memory>

#include "measure.h"
#include "posto/core/sql.h"
#include "posto/forecourt/DALAbastecimento.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/masterdata/DALEmpresaUsuaria.h"
#include "posto/services/memory_progress.h"
#include "posto/stock/DALProduto.h"

namespace posto::bench {
namespace {

constexpr int kPending = 50;
constexpr int kCalls = 200;
const Date kFirstDay = Date::of_day(2024, 1, 1);
const Date kLastDay = kFirstDay.plus_days(364);

// A station with as many persons as fuellings and movements of the ledger, spread over a year.
class LargeStation {
 public:
  LargeStation(const std::string& file, int rows, int products) : rows_(rows), products_(products) {
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Create(file);
    settings_->ObVOEmpresaUsuaria->Cd_PessoaUsuaria = 1;
    Transaction transaction(settings_->ObConnection);
    add_products();
    add_persons();
    add_fuellings();
    add_movements();
    transaction.commit();
  }

  std::shared_ptr<VOSistema> settings() const { return settings_; }
  int rows() const { return rows_; }

 private:
  // `each(i, values)` fills the values of the i-th record, from 1.
  template <std::size_t kValues, class Each>
  void add(const char* insert, int count, Each each) {
    auto statement = settings_->ObConnection->engine().prepare(insert);
    std::array<Variant, kValues> values;
    std::array<const Variant*, kValues> given;
    for (std::size_t v = 0; v < kValues; ++v) given[v] = &values[v];
    for (int i = 1; i <= count; ++i) {
      each(i, values);
      statement->run(given);
    }
  }
  Date day_of(int i) const { return kFirstDay.plus_days(static_cast<std::int64_t>(i) * 365 / (rows_ + 1)); }

  void add_products() {
    add<1>("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo) VALUES (1, ?, 1)", products_,
           [](int i, auto& v) { v[0] = fmt::format("PRODUTO {:05}", i); });
    add<2>("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico) VALUES (1, ?, ?)", 8,
           [](int i, auto& v) {
             v[0] = std::int32_t{i};
             v[1] = fmt::format("{:02}", i);
           });
  }
  void add_persons() {
    add<2>("INSERT INTO Pessoa (Nm_Pessoa, Cd_CgcCpf) VALUES (?, ?)", rows_, [](int i, auto& v) {
      v[0] = fmt::format("CLIENTE {:07}", i);
      v[1] = fmt::format("{:011}", i);
    });
    add<1>("INSERT INTO Cliente (Cd_PessoaUsuaria, Cd_Cliente, No_SituacaoCredito) VALUES (1, ?, 2)", rows_,
           [](int i, auto& v) { v[0] = std::int32_t{i}; });
  }
  void add_fuellings() {
    add<5>(
        "INSERT INTO Abastecimento (Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, "
        "No_EncerranteFechamento, Ic_Baixado, Qt_Litros, Vl_Total) VALUES (1, ?, ?, ?, ?, ?, 20, 120)",
        rows_, [this](int i, auto& v) {
          v[0] = std::int32_t{i};
          v[1] = fmt::format("{:02}", 1 + i % 8);
          v[2] = day_of(i).plus_millis(i % 86'400 * 1000);
          v[3] = i * 20.0;
          v[4] = i <= rows_ - kPending;
        });
  }
  void add_movements() {
    add<4>(
        "INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, No_Tipo, Qt_Unidade, Qt_Estoque, "
        "Vl_CustoMedio, Cd_Produto) VALUES (1, ?, ?, 20, 1, ?, 5, ?)",
        rows_, [this](int i, auto& v) {
          v[0] = std::int32_t{i};
          v[1] = day_of(i);
          v[2] = static_cast<double>(i);
          v[3] = std::int32_t{1 + i % products_};
        });
  }

  std::shared_ptr<VOSistema> settings_ = std::make_shared<VOSistema>();
  int rows_, products_;
};

using Question = void (*)(const LargeStation& station, int call);

void read_all(Recordset rows) {
  while (!rows.EOF()) rows.MoveNext();
}

void client_by(const LargeStation& station, const std::string& condition) {
  read_all(station.settings()->ObConnection->Execute(sql(R"(
      SELECT   Cliente.Cd_Cliente, Pessoa.Nm_Pessoa
      FROM     Cliente
               INNER JOIN Pessoa On Cliente.Cd_Cliente = Pessoa.Cd_Pessoa
      WHERE    Cliente.Cd_PessoaUsuaria = 1 And
               {})",
                                                         condition)));
}

void client_by_number(const LargeStation& station, int call) {
  client_by(station, fmt::format("Pessoa.Cd_CgcCpf = '{:011}'", 1 + call * 37 % station.rows()));
}
void client_by_name(const LargeStation& station, int call) {
  client_by(station, fmt::format("Pessoa.Nm_Pessoa Like 'CLIENTE {:06}%'", call * 37 % (station.rows() / 10)));
}
void last_totaliser(const LargeStation& station, int call) {
  DALBomba nozzle(station.settings());
  nozzle.ObVO->De_EnderecoLogicoBico = fmt::format("{:02}", 1 + call % 8);
  nozzle.UltimoEncerranteEletronico();
}
void pending(const LargeStation& station, int) {
  DALAbastecimentos fuellings(station.settings());
  read_all(fuellings.ConsultarAbastecimentoPendentesRs());
}
void ledger_of_a_day(const LargeStation& station, int call) {
  DALProduto product(station.settings());
  product.ObVO->Cd_PessoaUsuaria = 1;
  product.ObVO->Cd_Produto = 1 + call;
  read_all(product.rsKardex(kLastDay, kLastDay));
}

Side asked(const LargeStation& station, Question question) {
  return {[&station, question] {
    for (int i = 0; i < kCalls; ++i) question(station, i);
  }};
}

Side consolidated(const LargeStation& station) {
  Connection* connection = station.settings()->ObConnection.get();
  return {[&station] {
            DALEmpresaUsuaria company(station.settings());
            MemoryProgress form;
            company.PreparaEstoqueConsolidadoFechado(kLastDay, form);
          },
          [connection] { connection->BeginTrans(); }, [connection] { connection->RollbackTrans(); }};
}

int run(int argc, char** argv) {
  std::string folder = (std::filesystem::temp_directory_path() / "posto-bench-XXXXXX").string();
  folder = mkdtemp(folder.data());
  std::vector<Pair> pairs;
  {
    const LargeStation small(folder + "/small.db", 10'000, 1'000), large(folder + "/large.db", 1'000'000, 20'000),
        fewer_products(folder + "/fewer.db", 1'000'000, 2'000);
    const auto grown = [&](const char* name, Question question) {
      pairs.push_back({name, asked(large, question), asked(small, question), kCalls});
    };
    grown("growth_client_by_number", client_by_number);
    grown("growth_client_by_name", client_by_name);
    grown("growth_last_totaliser", last_totaliser);
    grown("growth_pending", pending);
    grown("growth_ledger_of_a_day", ledger_of_a_day);
    pairs.push_back({"growth_consolidation", consolidated(large), consolidated(fewer_products), 1, 5});
    argc = measure(argc, argv, pairs);
  }
  std::filesystem::remove_all(folder);
  return argc;
}

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) { return posto::bench::run(argc, argv); }
