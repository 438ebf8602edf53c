// The stock recalculation of the closing against SQLite's own interface with kept prepared statements, on a file in the
// same mode: a product's 1,000,000 movements, every one of which is right (recalculation_clean) or off
// (recalculation_rewrite). recalculation_growth is the clean walk of 1,000,000 movements by that of 500,000, both ours.
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "measure.h"
#include "posto/closing/DALFecDiario.h"
#include "posto/closing/stock_walk.h"
#include "posto/core/sistema.h"
#include "posto/schema/stock.h"
#include "posto/types/rounding.h"
#include "raw.h"

namespace posto::bench {
namespace {

constexpr int kMovements = 1'000'000;
constexpr std::int32_t kProduct = 1, kSmallProduct = 2;
constexpr int kRepetitions = 3;
const Date kSince = Date::of_day(2020, 1, 1);

// A purchase of 30 each tenth movement, and sales of about 3 between.
StockMovement movement(int number) {
  const double part = (number * 7 % 100) / 100.0;
  if (number % 10 == 0) return {.type = 10, .quantity = 30, .unit_cost = 5 + part, .icms_rate = 18};
  return {.type = 20, .quantity = 2.8 + part / 2, .unit_cost = 6, .icms_rate = 18};
}

class Workshop {
 public:
  Workshop() {
    std::string name = (std::filesystem::temp_directory_path() / "posto-bench-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Create(folder_ + "/ours.db");
    settings_->ObConnection->Execute("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto) VALUES (1, 'GASOLINA')");
    settings_->ObConnection->Execute("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto) VALUES (1, 'ETANOL')");
    settings_->ObConnection->Close();
    fill();
    std::filesystem::copy_file(folder_ + "/ours.db", folder_ + "/raw.db");
    settings_->ObConnection->Open(folder_ + "/ours.db");
    raw_ = std::make_unique<RawDatabase>(folder_ + "/raw.db");
    prepare_walk();
    closing_ = std::make_unique<DALFecDiario>(settings_);
    closing_->ObVO->Cd_PessoaUsuaria = 1;
  }
  ~Workshop() { std::filesystem::remove_all(folder_); }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;

  std::vector<Pair> pairs() {
    return {{"recalculation_clean", {[this] { walk(kProduct); }}, {[this] { raw_walk(); }}, kMovements, kRepetitions},
            {"recalculation_rewrite", ours_dirty(), peer_dirty(), kMovements, kRepetitions},
            {"recalculation_growth",
             {[this] { walk(kProduct); }},
             {[this] { walk(kSmallProduct); }},
             kMovements,
             kRepetitions}};
  }

 private:
  Connection& connection() { return *settings_->ObConnection; }

  void fill() {
    RawDatabase database(folder_ + "/ours.db");
    sqlite3_stmt* insert = database.prepare(insert_of(*find_table("Cardex")));
    database.run("BEGIN");
    std::int32_t code = 0;
    for (const auto& [product, count] : {std::pair(kProduct, kMovements), std::pair(kSmallProduct, kMovements / 2)}) {
      StockWalk walk({});
      for (int i = 0; i < count; ++i) {
        VOCardex row = stored(movement(i), walk.take(movement(i)));
        row.Cd_LancamentoCardex = ++code;
        row.Dt_Emissao = Date::of_millis(kSince.millis() + i / 500 * Date::kMillisPerDay);
        row.Cd_Produto = product;
        bind_row(insert, by_name(row));
        step(insert);
      }
    }
    database.run("COMMIT");
  }

  static VOCardex stored(const StockMovement& m, const StockFigures& figures) {
    VOCardex row;
    row.Cd_PessoaUsuaria = 1;
    row.Nm_Doc = "AB 123456";
    row.No_Tipo = static_cast<std::uint8_t>(m.type);
    row.Qt_Unidade = m.quantity;
    row.Vl_Unitario = m.unit_cost;
    row.Tx_Icms = Currency(m.icms_rate);
    row.Qt_Estoque = figures.quantity;
    row.Vl_CustoMedio = figures.cost;
    row.Vl_CredIcmsMedio = figures.icms_credit;
    return row;
  }

  void walk(std::int32_t product) {
    float quantity = 0, cost = 0, icms_credit = 0;
    closing_->AtualizaEstoqueCardex(kSince, product, quantity, cost, icms_credit);
  }

  void prepare_walk() {
    select_ = raw_->prepare(
        "SELECT * FROM Cardex WHERE Cd_PessoaUsuaria = 1 AND Cd_Produto = 1 AND Dt_Emissao >= '2020-01-01 00:00:00' "
        "ORDER BY Cd_PessoaUsuaria, Cd_Produto, Dt_Emissao, Cd_LancamentoCardex");
    update_ = raw_->prepare(
        "UPDATE Cardex SET Qt_Estoque = ?, Vl_CustoMedio = ?, Vl_CredIcmsMedio = ? WHERE Cd_PessoaUsuaria = 1 AND "
        "Cd_LancamentoCardex = ?");
    update_product_ = raw_->prepare(
        "UPDATE Produto SET Qt_Estoque = ?, Vl_CustoMedio = ?, Vl_CredIcmsMedio = ? WHERE Cd_PessoaUsuaria = 1 AND "
        "Cd_Produto = 1");
  }

  // The same statements, arithmetic and decimals in the row, reading the columns that it needs.
  void raw_walk() {
    StockWalk walk({});
    while (sqlite3_step(select_) == SQLITE_ROW) {
      const StockFigures& figures =
          walk.take({.type = sqlite3_column_int(select_, 4),
                     .quantity = sqlite3_column_double(select_, 5),
                     .unit_cost = sqlite3_column_double(select_, 6),
                     .icms_rate = Currency::of_scaled(sqlite3_column_int64(select_, 7)).as_double()});
      if (!differs(figures, sqlite3_column_double(select_, 8), sqlite3_column_double(select_, 9))) continue;
      sqlite3_bind_double(update_, 1, round_half_away(figures.quantity, 4));
      sqlite3_bind_double(update_, 2, round_half_away(figures.cost, 4));
      sqlite3_bind_double(update_, 3, round_half_away(figures.icms_credit, 4));
      sqlite3_bind_int(update_, 4, sqlite3_column_int(select_, 1));
      step(update_);
    }
    sqlite3_reset(select_);
    sqlite3_bind_double(update_product_, 1, static_cast<double>(walk.carried().quantity));
    sqlite3_bind_double(update_product_, 2, static_cast<double>(walk.carried().cost));
    sqlite3_bind_double(update_product_, 3, static_cast<double>(walk.carried().icms_credit));
    step(update_product_);
  }

  // Every row is put off before the walk, and all of it is taken back behind it.
  Side ours_dirty() {
    return {[this] { walk(kProduct); },
            [this] {
              connection().BeginTrans();
              connection().Execute("UPDATE Cardex SET Qt_Estoque = 0.5 WHERE Cd_PessoaUsuaria = 1 And Cd_Produto = 1");
            },
            [this] { connection().RollbackTrans(); }};
  }
  Side peer_dirty() {
    return {[this] { raw_walk(); },
            [this] {
              raw_->run("BEGIN IMMEDIATE");
              raw_->run("UPDATE Cardex SET Qt_Estoque = 0.5 WHERE Cd_PessoaUsuaria = 1 AND Cd_Produto = 1");
            },
            [this] { raw_->run("ROLLBACK"); }};
  }

  std::string folder_;
  std::shared_ptr<VOSistema> settings_ = std::make_shared<VOSistema>();
  std::unique_ptr<RawDatabase> raw_;
  std::unique_ptr<DALFecDiario> closing_;
  sqlite3_stmt *select_ = nullptr, *update_ = nullptr, *update_product_ = nullptr;
};

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) {
  posto::bench::Workshop workshop;
  return posto::bench::measure(argc, argv, workshop.pairs());
}
