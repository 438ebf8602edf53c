// A coupon of five lines (a fuelling and four goods, paid in cash), sold by the flow, against the same statements on
// SQLite's own interface in one transaction. Both sides roll back behind each run, so that every run finds the same
// station, and what a disk takes for a commit hides nothing.
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "flows/sale.h"
#include "measure.h"
#include "posto/ado/recordset.h"
#include "replay.h"

namespace posto::bench {
namespace {

constexpr int kSales = 100;     // in a run
constexpr int kFormer = 2'000;  // coupons of the printer from before
constexpr int kGoods = 4;

// An engine inside a transaction that is held from without.
class HeldTransaction final : public Engine {
 public:
  explicit HeldTransaction(std::shared_ptr<Engine> inner) : inner_(std::move(inner)) {}
  std::string_view name() const override { return inner_->name(); }
  Outcome execute(std::string_view batch) override { return inner_->execute(batch); }
  std::shared_ptr<PreparedStatement> prepare(std::string_view statement) override { return inner_->prepare(statement); }
  std::string explain(std::string_view statement) override { return inner_->explain(statement); }
  Variant last_identity() const override { return inner_->last_identity(); }
  void begin() override { own_ = true; }
  void commit() override { own_ = false; }
  void rollback() override { own_ = false; }
  bool in_transaction() const override { return own_; }
  void set_command_timeout(std::int32_t seconds) override { inner_->set_command_timeout(seconds); }
  void set_observer(StatementObserver observer) override { inner_->set_observer(std::move(observer)); }
  void create_schema() override { inner_->create_schema(); }

 private:
  std::shared_ptr<Engine> inner_;
  bool own_ = false;
};

// A station with a reduced day of coupons, products, and a fuelling for each sale.
void fill(const std::string& file) {
  auto connection = Connection::create();
  connection->Create(file);
  Transaction transaction(connection);
  auto add = [&](std::string_view table, std::string_view columns, const std::string& values) {
    connection->Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
  };
  add("EmpresaUsuaria", "Cd_PessoaUsuaria", "1");
  add("ECF", "Cd_PessoaUsuaria, No_Impressora", "1, 1");
  add("TipoRecebimento", "Cd_TipoRecebimento", fmt::format("{}", flows::kCash));
  add("ReducaoZ", "Cd_PessoaUsuaria, No_Impressora, Dt_Movimento, Qt_ContReducoes", "1, 1, '2026-11-22', 411");
  add("SequenciadorGeral", "Nm_Atributo, No_Sequencial", "'Cd_LancamentoCardex/1', 1");
  add("SequenciadorGeral", "Nm_Atributo, No_Sequencial", "'No_Recebimento/1', 1");
  add("Bomba", "Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto, Cd_SisTubulacao", "1, 4, '04', 1, 1");
  for (int i = 1; i <= 1 + kGoods; ++i) {
    add("Produto",
        "Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Fl_VendBomba, Vl_Preco, Qt_Estoque, Vl_CustoMedio, No_SitTributaria, "
        "No_TribIcms, Tx_Icms, Tx_BaseCalculo, Cd_Unidade",
        fmt::format("1, 'PRODUTO {}', 1, {}, 6.199, 100000, 5, '000', '0', 18, 100, 'UN'", i, i == 1 ? 1 : 0));
  }
  for (int i = 1; i <= kSales; ++i) {
    add("Abastecimento",
        "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Preco, Vl_Total",
        fmt::format("1, {}, '04', '2026-11-23 08:{:02}:{:02}', 20, 6.199, 123.98", i, i / 60, i % 60));
  }
  for (int i = 1; i <= kFormer; ++i) {
    add("CupomFiscal", "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento, Vl_GTotal",
        fmt::format("1, 1, {}, '2026-11-22', '2026-11-22', {}", i, i * 100));
  }
  transaction.commit();
}

flows::Sale sale_of(int number) {
  flows::Sale sale;
  sale.printer = 1;
  sale.number = kFormer + number;
  sale.moment = Date::of_moment(2026, 11, 23, 10, 15, 42);
  sale.lines.emplace_back().fuelling = number;
  for (int i = 1; i <= kGoods; ++i) {
    flows::SaleLine& line = sale.lines.emplace_back();
    line.product = 1 + i;
    line.quantity = i;
  }
  sale.payments.emplace_back().kind = flows::kCash;
  return sale;
}

struct Station {
  explicit Station(const std::string& file) : engine(open_engine(file, 5)) {
    flows.settings->ObConnection = Connection::create();
    flows.connection().Use(std::make_shared<HeldTransaction>(engine));
    flows::read_company(*flows.settings, 1);
  }
  void sell_all() {
    for (int i = 1; i <= kSales; ++i) flows::sell(flows, sale_of(i));
  }

  std::shared_ptr<Engine> engine;
  flows::Station flows{std::make_shared<VOSistema>()};
};

int run(int argc, char** argv) {
  std::string folder = (std::filesystem::temp_directory_path() / "posto-bench-XXXXXX").string();
  folder = mkdtemp(folder.data());
  fill(folder + "/ours.db");
  std::filesystem::copy_file(folder + "/ours.db", folder + "/raw.db");
  {
    const std::vector<RawStatement> statements = recorded([&] {
      Station station(folder + "/ours.db");
      station.engine->begin();
      station.sell_all();
      station.engine->rollback();
    });
    Station station(folder + "/ours.db");
    RawDatabase raw(folder + "/raw.db");
    Replay replay(raw, statements);
    fmt::print("{} statements in a sale\n", statements.size() / kSales);
    const Side ours{[&] { station.sell_all(); }, [&] { station.engine->begin(); }, [&] { station.engine->rollback(); }};
    const Side peer{[&] { replay.run(); }, [&] { raw.run("BEGIN IMMEDIATE"); }, [&] { raw.run("ROLLBACK"); }};
    argc = measure(argc, argv, {{"sale", ours, peer, kSales}});
  }
  std::filesystem::remove_all(folder);
  return argc;
}

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) { return posto::bench::run(argc, argv); }
