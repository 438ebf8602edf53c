// The embedded engine: the library against SQLite's own interface with kept prepared statements, on a file in the same
// mode.
//
// read, insert, update and read_modify_write work on a record of some forty columns, a thousand records in a
// transaction; scan reads 100,000 of them; ledger_walk goes through a product's 50,000 movements and writes the
// position of each; import takes in a file of 100,000 readings.
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "flows/import_readings.h"
#include "flows/readings.h"
#include "measure.h"
#include "posto/core/column_list.h"
#include "posto/core/entity.h"
#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/schema/forecourt.h"
#include "posto/schema/stock.h"
#include "posto/schema/treasury.h"
#include "posto/services/csv.h"
#include "posto/types/rounding.h"
#include "raw.h"

namespace posto::bench {
namespace {

constexpr int kRecords = 1000;
constexpr int kScanned = 100'000;
constexpr int kMovements = 50'000;
constexpr int kReadings = 100'000;

constexpr Description kBill{
    .class_name = "DALContaAReceber", .table = "ContaAReceber", .keys = {{"Cd_PessoaUsuaria", "Cd_ContaAReceber"}}};
using Bills = Entity<VOContaAReceber, kBill>;

VOContaAReceber bill(std::int32_t code) {
  VOContaAReceber vo;
  vo.Cd_PessoaUsuaria = 1;
  vo.Cd_ContaAReceber = code;
  for (const Property& p : layout_of<VOContaAReceber>().properties()) {
    if (p.name == "Cd_PessoaUsuaria" || p.name == "Cd_ContaAReceber") continue;
    ValueObject by = by_name(vo);
    switch (p.type) {
      case SqlType::text:
        by.member<std::string>(p) = std::string("TEXTO 0123456789").substr(0, p.width);
        break;
      case SqlType::money:
        by.member<Currency>(p) = Currency::of_scaled(1'234'500 + code);
        break;
      case SqlType::date:
        by.member<Date>(p) = Date::of_day(2026, 11, 1 + code % 28);
        break;
      case SqlType::bit:
        by.member<bool>(p) = code % 2 == 0;
        break;
      default:
        by.let(p, Variant(std::int32_t{code % 100}));
        break;
    }
  }
  return vo;
}

// The bill's columns as a hand-written INSERT has them.
std::vector<ListColumn> bill_columns() {
  std::vector<ListColumn> columns;
  for (const Property& p : layout_of<VOContaAReceber>().properties()) {
    LiteralForm form = integer(kNullWhenEmpty);
    if (p.type == SqlType::text) form = var_char(static_cast<std::int16_t>(p.width), kNullWhenEmpty);
    if (p.type == SqlType::money) form = money(4);
    if (p.type == SqlType::date) form = day();
    if (p.type == SqlType::bit) form = bit();
    if (p.type == SqlType::float32 || p.type == SqlType::float64) form = float64(8);
    columns.push_back({p.name, form});
  }
  return columns;
}

class Workshop {
 public:
  Workshop() {
    std::string name = (std::filesystem::temp_directory_path() / "posto-bench-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    settings_ = std::make_shared<VOSistema>();
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Create(folder_ + "/ours.db");
    settings_->ObVOEmpresaUsuaria->Cd_PessoaUsuaria = 1;
    fill();
    settings_->ObConnection->Close();
    std::filesystem::copy_file(folder_ + "/ours.db", folder_ + "/raw.db");
    settings_->ObConnection->Open(folder_ + "/ours.db");
    raw_ = std::make_unique<RawDatabase>(folder_ + "/raw.db");
    columns_ = bill_columns();
  }
  ~Workshop() { std::filesystem::remove_all(folder_); }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;

  std::vector<Pair> pairs() {
    std::vector<Pair> all{read(), insert(),      insert_by_text(), update(), read_modify_write(),
                          scan(), ledger_walk(), import()};
    for (Pair& pair : all) {
      if (pair.units != kRecords) continue;
      pair.warm = true;
      pair.repetitions = 50;  // of some milliseconds
    }
    return all;
  }

 private:
  Connection& connection() { return *settings_->ObConnection; }

  void fill() {
    Bills bills(settings_);
    Transaction transaction(settings_->ObConnection);
    for (int i = 1; i <= kScanned; ++i) {
      *bills.ObVO = bill(i);
      bills.Incluir();
    }
    connection().Execute("INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo) VALUES (1, 'GASOLINA', 1)");
    for (int i = 1; i <= kMovements; ++i) {
      connection().Execute(
          sql("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, Qt_Unidade, "
              "Vl_Unitario, "
              "Tx_Icms, Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio, Cd_Produto) VALUES (1, {}, '2026-11-{}', 'NF {}', "
              "{}, 12.345, 5.432, "
              "18., 0., 0., 0., 1)",
              i, 1 + i * 28 / (kMovements + 1), i, i % 3 == 0 ? 10 : 20));
    }
    transaction.commit();
  }

  // Calls in a transaction of each side.
  template <class Work>
  Side ours_in_transaction(Work work) {
    return {work, [this] { connection().BeginTrans(); }, [this] { connection().CommitTrans(); }};
  }
  template <class Work>
  Side peer_in_transaction(Work work) {
    return {work, [this] { raw_->run("BEGIN IMMEDIATE"); }, [this] { raw_->run("COMMIT"); }};
  }
  template <class Each>
  Side ours(Each each) {
    return ours_in_transaction([each] {
      for (int i = 0; i < kRecords; ++i) each(i);
    });
  }
  template <class Each>
  Side peer(Each each) {
    return peer_in_transaction([each] {
      for (int i = 0; i < kRecords; ++i) each(i);
    });
  }

  static std::int32_t some_code(int i) { return 1 + i * 97 % kScanned; }

  Pair read() {
    auto bills = std::make_shared<Bills>(settings_);
    sqlite3_stmt* select = raw_->prepare("SELECT " + columns_of(*find_table("ContaAReceber")) +
                                         " FROM ContaAReceber WHERE Cd_PessoaUsuaria = ? AND Cd_ContaAReceber = ?");
    return {"read", ours([bills](int i) {
              bills->ObVO->Cd_PessoaUsuaria = 1;
              bills->ObVO->Cd_ContaAReceber = some_code(i);
              bills->Consultar();
            }),
            peer([this, select](int i) { raw_read(select, some_code(i)); }), kRecords};
  }

  void raw_read(sqlite3_stmt* select, std::int32_t code) {
    sqlite3_bind_int(select, 1, 1);
    sqlite3_bind_int(select, 2, code);
    sqlite3_step(select);
    read_row(select, by_name(record_));
    sqlite3_reset(select);
  }

  Pair insert() {
    auto bills = std::make_shared<Bills>(settings_);
    sqlite3_stmt* insert = raw_->prepare(insert_of(*find_table("ContaAReceber")));
    *bills->ObVO = record_ = bill(1);
    return {"insert", ours([this, bills](int) {
              bills->ObVO->Cd_ContaAReceber = ++ours_code_;
              bills->Incluir();
            }),
            peer([this, insert](int) {
              record_.Cd_ContaAReceber = ++raw_code_;
              bind_row(insert, by_name(record_));
              step(insert);
            }),
            kRecords};
  }

  Pair insert_by_text() {
    auto list = std::make_shared<ColumnList>("ContaAReceber", columns_, layout_of<VOContaAReceber>());
    auto vo = std::make_shared<VOContaAReceber>(bill(1));
    sqlite3_stmt* insert = raw_->prepare(insert_of(*find_table("ContaAReceber")));
    return {"insert_by_text", ours([this, list, vo](int) {
              vo->Cd_ContaAReceber = ++ours_code_;
              connection().Execute(list->insert_statement(by_name(*vo), *settings_));
            }),
            peer([this, insert](int) {
              record_.Cd_ContaAReceber = ++raw_code_;
              bind_row(insert, by_name(record_));
              step(insert);
            }),
            kRecords};
  }

  Pair update() {
    const char* text =
        "UPDATE ContaAReceber SET Vl_Pagamentos = ?, Vl_Saldo = ?, No_SituacaoPagamento = ? "
        "WHERE Cd_PessoaUsuaria = ? AND Cd_ContaAReceber = ?";
    sqlite3_stmt* update = raw_->prepare(text);
    return {"update", ours([this](int i) {
              ++turn_;
              connection().Execute(sql(R"(
                  UPDATE ContaAReceber
                  SET    Vl_Pagamentos = {},
                         Vl_Saldo = {},
                         No_SituacaoPagamento = {}
                  WHERE  Cd_PessoaUsuaria = {} And
                         Cd_ContaAReceber = {})",
                                       MoneyToSql(Currency::of_scaled(turn_), 4),
                                       MoneyToSql(Currency::of_scaled(turn_ * 7), 4), turn_ % 3, 1, some_code(i)));
            }),
            peer([this, update](int i) {
              sqlite3_bind_int64(update, 1, ++turn_);
              sqlite3_bind_int64(update, 2, turn_ * 7);
              sqlite3_bind_int64(update, 3, turn_ % 3);
              sqlite3_bind_int(update, 4, 1);
              sqlite3_bind_int(update, 5, some_code(i));
              step(update);
            }),
            kRecords};
  }

  // Reads a record, changes three of its figures and writes it back, guarded by the figures that were read.
  Pair read_modify_write() {
    auto bills = std::make_shared<Bills>(settings_);
    sqlite3_stmt* select = raw_->prepare("SELECT " + columns_of(*find_table("ContaAReceber")) +
                                         " FROM ContaAReceber WHERE Cd_PessoaUsuaria = ? AND Cd_ContaAReceber = ?");
    sqlite3_stmt* update = raw_->prepare(
        "UPDATE ContaAReceber SET Vl_Pagamentos = ?, Vl_Saldo = ?, Qt_DiasPro = ? WHERE Cd_PessoaUsuaria = ? AND "
        "Cd_ContaAReceber = ? AND Vl_Pagamentos = ? AND Vl_Saldo = ? AND Qt_DiasPro = ?");
    auto change = [](VOContaAReceber& vo, std::int64_t turn) {
      vo.Vl_Pagamentos = Currency::of_scaled(turn);
      vo.Vl_Saldo = Currency::of_scaled(turn * 7);
      vo.Qt_DiasPro = static_cast<std::int16_t>(turn % 10'000);
    };
    return {"read_modify_write", ours([this, bills, change](int i) {
              bills->ObVO->Cd_PessoaUsuaria = 1;
              bills->ObVO->Cd_ContaAReceber = some_code(i);
              bills->Consultar();
              change(*bills->ObVO, ++turn_);
              bills->Alterar();
            }),
            peer([this, select, update, change](int i) {
              raw_read(select, some_code(i));  // the class reads twice: to know the record and to change it
              raw_read(select, some_code(i));
              const VOContaAReceber former = record_;
              change(record_, ++turn_);
              sqlite3_bind_int64(update, 1, record_.Vl_Pagamentos.scaled());
              sqlite3_bind_int64(update, 2, record_.Vl_Saldo.scaled());
              sqlite3_bind_int(update, 3, record_.Qt_DiasPro);
              sqlite3_bind_int(update, 4, 1);
              sqlite3_bind_int(update, 5, record_.Cd_ContaAReceber);
              sqlite3_bind_int64(update, 6, former.Vl_Pagamentos.scaled());
              sqlite3_bind_int64(update, 7, former.Vl_Saldo.scaled());
              sqlite3_bind_int(update, 8, former.Qt_DiasPro);
              step(update);
            }),
            kRecords};
  }

  Pair scan() {
    sqlite3_stmt* select =
        raw_->prepare("SELECT " + columns_of(*find_table("ContaAReceber")) +
                      " FROM ContaAReceber WHERE Cd_PessoaUsuaria = 1 AND Cd_ContaAReceber <= 100000");
    return {"scan",
            {[this] {
              Recordset rows = connection().Execute(
                  "SELECT * FROM ContaAReceber WHERE Cd_PessoaUsuaria = 1 AND "
                  "Cd_ContaAReceber <= 100000");
              VOContaAReceber vo;
              for (; !rows.EOF(); rows.MoveNext()) read_record(rows, by_name(vo));
            }},
            {[this, select] {
              while (sqlite3_step(select) == SQLITE_ROW) read_row(select, by_name(record_));
              sqlite3_reset(select);
            }},
            kScanned};
  }

  // A product's movements in their order, each position written back.
  Pair ledger_walk() {
    sqlite3_stmt* select = raw_->prepare(
        "SELECT Cd_LancamentoCardex, No_Tipo, Qt_Unidade, Vl_Unitario FROM Cardex WHERE Cd_PessoaUsuaria = 1 AND "
        "Cd_Produto = 1 "
        "ORDER BY Cd_PessoaUsuaria, Cd_Produto, Dt_Emissao, Cd_LancamentoCardex");
    sqlite3_stmt* update = raw_->prepare(
        "UPDATE Cardex SET Qt_Estoque = ?, Vl_CustoMedio = ? WHERE Cd_PessoaUsuaria = ? AND Cd_LancamentoCardex = ?");
    return {"ledger_walk", ours_in_transaction([this] {
              Recordset rows;
              rows.ActiveConnection(settings_->ObConnection);
              rows.CursorType = adOpenStatic;
              rows.CursorLocation = adUseClient;
              rows.Source = sql(R"(
                  SELECT   Cd_LancamentoCardex, No_Tipo, Qt_Unidade, Vl_Unitario
                  FROM     Cardex
                  WHERE    Cd_PessoaUsuaria = 1 And
                           Cd_Produto = 1
                  ORDER BY Cd_PessoaUsuaria, Cd_Produto, Dt_Emissao, Cd_LancamentoCardex)");
              rows.Open();
              const Field code = rows["Cd_LancamentoCardex"], type = rows["No_Tipo"], moved = rows["Qt_Unidade"],
                          cost = rows["Vl_Unitario"];
              double stock = 0;
              for (; !rows.EOF(); rows.MoveNext()) {
                const double quantity = moved.as<double>();
                stock += type.as<std::int32_t>() < 20 ? quantity : -quantity;
                connection().Execute(sql(R"(
                    UPDATE Cardex
                    SET    Qt_Estoque = {},
                           Vl_CustoMedio = {}
                    WHERE  Cd_PessoaUsuaria = {} And
                           Cd_LancamentoCardex = {})",
                                         DoubleToSql(stock, 4), DoubleToSql(cost.as<double>(), 4), 1,
                                         code.as<std::int32_t>()));
              }
            }),
            peer_in_transaction([this, select, update] {
              struct Movement {
                int code, type;
                double quantity, unit;
              };
              std::vector<Movement> movements;
              while (sqlite3_step(select) == SQLITE_ROW) {
                movements.push_back({sqlite3_column_int(select, 0), sqlite3_column_int(select, 1),
                                     sqlite3_column_double(select, 2), sqlite3_column_double(select, 3)});
              }
              sqlite3_reset(select);
              double stock = 0;
              for (const Movement& m : movements) {
                stock += m.type < 20 ? m.quantity : -m.quantity;
                sqlite3_bind_double(update, 1, round_half_away(stock, 4));
                sqlite3_bind_double(update, 2, round_half_away(m.unit, 4));
                sqlite3_bind_int(update, 3, 1);
                sqlite3_bind_int(update, 4, m.code);
                step(update);
              }
            }),
            kMovements};
  }

  // A file of readings of one nozzle.
  std::string readings_file() {
    std::string path = folder_ + "/leituras.csv";
    std::ofstream file(path);
    file << flows::kReadingHeader << '\n';
    std::int64_t totaliser = 0;
    Date end = Date::of_moment(2026, 1, 1, 6, 0, 0);
    for (int i = 0; i < kReadings; ++i) {
      totaliser += 20'000;
      end = end.plus_millis(90'000);
      file << fmt::format("01,{},{},60,20.000,6.000,120.00,{}.{:03}\n", i % 30'000, end.iso(), totaliser / 1000,
                          totaliser % 1000);
    }
    return path;
  }

  // An empty station with one nozzle.
  std::string station_file(const std::string& name) {
    const std::string path = folder_ + "/" + name;
    for (const char* behind : {"", "-wal", "-shm"}) std::filesystem::remove(path + behind);
    auto connection = Connection::create();
    connection->Create(path);
    connection->Execute(
        "INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria) VALUES (1) "
        "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo) VALUES (1, 'GASOLINA', 1) "
        "INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto, Cd_SisTubulacao, "
        "No_EncerranteInicial) VALUES (1, 1, '01', 1, 1, 0)");
    return path;
  }

  Pair import() {
    const std::string readings = readings_file();
    return {"import",
            {[this, readings] {
              flows::Station station = flows::open_station(station_file("import-ours.db"));
              flows::import_readings(station, readings);
            }},
            {[this, readings] { raw_import(station_file("import-raw.db"), readings); }},
            kReadings,
            3};
  }

  // The same statements and figures: the fuelling, the product read whole, its new stock, the ledger row; the sequences
  // and the nozzle once every five hundred readings.
  void raw_import(const std::string& path, const std::string& readings) {
    RawDatabase db(path);
    sqlite3_stmt* fuelling = db.prepare(insert_of(*find_table("Abastecimento")));
    sqlite3_stmt* movement = db.prepare(insert_of(*find_table("Cardex")));
    sqlite3_stmt* product = db.prepare("SELECT " + columns_of(*find_table("Produto")) +
                                       " FROM Produto WHERE Cd_PessoaUsuaria = ? AND Cd_Produto = ?");
    sqlite3_stmt* stock =
        db.prepare("UPDATE Produto SET Qt_Estoque = ?, Vl_CustoMedio = ?, Vl_CredIcmsMedio = ? WHERE Cd_Produto = ?");
    sqlite3_stmt* nozzle =
        db.prepare("UPDATE Bomba SET No_UltEncerrante = ? WHERE Cd_PessoaUsuaria = 1 AND Cd_Bomba = 1");
    VOAbastecimento f;
    VOCardex m;
    VOProduto p;
    LineFile file(readings);
    std::string line;
    file.next(line);
    std::int32_t code = 0;
    db.run("BEGIN IMMEDIATE");
    while (file.next(line)) {
      const auto r = std::get<flows::Reading>(flows::parse_reading(line));
      ++code;
      f.Cd_PessoaUsuaria = 1;
      f.Cd_Abastecimento = code;
      f.Tp_OrigemRegistro = 1;
      f.No_Contador = r.counter;
      f.Dt_Termino = r.end;
      f.Qt_TempoSegundos = r.seconds;
      f.Qt_Litros = f.Qt_LitrosAutomacao = static_cast<float>(r.litres.as_double());
      f.Vl_Preco = r.price;
      f.Vl_Total = r.total;
      f.De_EnderecoLogicoBico = r.address;
      f.No_EncerranteFechamento = r.totaliser.as_double();
      bind_row(fuelling, by_name(f));
      step(fuelling);
      sqlite3_bind_int(product, 1, 1);
      sqlite3_bind_int(product, 2, 1);
      sqlite3_step(product);
      read_row(product, by_name(p));
      sqlite3_reset(product);
      m.Cd_PessoaUsuaria = 1;
      m.Cd_LancamentoCardex = code;
      m.Dt_Emissao = r.end.day();
      m.Nm_Doc = "AB " + std::to_string(code);
      m.No_Tipo = 20;
      m.Qt_Unidade = r.litres.as_double();
      m.Vl_Unitario = r.price.as_double();
      m.Qt_Estoque = static_cast<double>(static_cast<float>(p.Qt_Estoque)) - m.Qt_Unidade;
      m.Cd_SisTubulacao = 1;
      m.Cd_Produto = 1;
      sqlite3_bind_double(stock, 1, m.Qt_Estoque);
      sqlite3_bind_double(stock, 2, p.Vl_CustoMedio);
      sqlite3_bind_double(stock, 3, p.Vl_CredIcmsMedio);
      sqlite3_bind_int(stock, 4, 1);
      step(stock);
      bind_row(movement, by_name(m));
      step(movement);
      if (code % 500 == 0) {
        sqlite3_bind_double(nozzle, 1, f.No_EncerranteFechamento);
        step(nozzle);
        db.run("COMMIT; BEGIN IMMEDIATE");
      }
    }
    db.run("COMMIT");
  }

  std::string folder_;
  std::shared_ptr<VOSistema> settings_;
  std::unique_ptr<RawDatabase> raw_;
  std::vector<ListColumn> columns_;
  VOContaAReceber record_;
  std::int32_t ours_code_ = 1'000'000, raw_code_ = 1'000'000;
  std::int64_t turn_ = 1;
};

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) {
  posto::bench::Workshop workshop;
  return posto::bench::measure(argc, argv, workshop.pairs());
}
