// What a station asks every day, of a database with a hundred times the rows: nothing may take longer for them. The
// consolidation of stock may take longer by the products, of which there are ten times as many.
#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <memory>

#include "flows/printer_day.h"
#include "measure.h"
#include "posto/core/sql.h"
#include "posto/fiscal/DALCupomFiscal.h"
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
constexpr int kLines = 5;              // of a coupon
constexpr int kCouponsOfVehicle = 20;  // over the year
constexpr int kCouponsOfDay = 50;      // of the second printer, on the day behind the last
const Date kAskedDay = kLastDay.plus_days(1);

enum class Coupons { none, as_many_lines };

// A station with as many persons as fuellings, movements of the ledger and lines of coupons, spread over a year.
class LargeStation {
 public:
  LargeStation(const std::string& file, int rows, int products, Coupons coupons) : rows_(rows), products_(products) {
    settings_->ObConnection = Connection::create();
    settings_->ObConnection->Create(file);
    settings_->ObVOEmpresaUsuaria->Cd_PessoaUsuaria = 1;
    Transaction transaction(settings_->ObConnection);
    add_products();
    add_persons();
    add_fuellings();
    add_movements();
    if (coupons == Coupons::as_many_lines) add_coupons();
    transaction.commit();
  }

  std::shared_ptr<VOSistema> settings() const { return settings_; }
  int rows() const { return rows_; }
  int coupons() const { return rows_ / kLines; }
  int vehicles() const { return coupons() / kCouponsOfVehicle; }
  Date day_of_coupon(int i) const { return day_of(i * kLines); }

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

  // Each has a line of fuel and is paid by a receipt.
  void add_coupons() {
    settings_->ObConnection->Execute(
        "UPDATE Produto SET Fl_VendBomba = 1 WHERE Cd_PessoaUsuaria = 1 And Cd_Produto = 1");
    const int all = coupons() + kCouponsOfDay;
    const auto key = [this](int i, auto& v) {
      const bool asked = i > coupons();
      v[0] = std::int32_t{asked ? 2 : 1};
      v[1] = std::int32_t{i};
      v[2] = asked ? kAskedDay : day_of_coupon(i);
    };
    add<5>(
        "INSERT INTO CupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento, "
        "Cd_Veiculo, Hr_Emissao, No_Km, Vl_TotalLiquido) VALUES (1, ?, ?, ?, ?, ?, '10:00:00', 1000, 50)",
        all, [&](int i, auto& v) {
          key(i, v);
          v[3] = v[2];
          v[4] = fmt::format("V{:06}", i % vehicles());
        });
    add<5>(
        "INSERT INTO ItemCupomFiscal (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, "
        "Cd_Produto, Qt_Unidade, Vl_UnitVenda, Tx_Icms, No_SitTributaria, No_TribIcms) VALUES (1, ?, ?, ?, ?, ?, 2, 5, "
        "18, '000', '0')",
        all * kLines, [&](int i, auto& v) {
          const int item = (i - 1) % kLines;
          key(1 + (i - 1) / kLines, v);
          v[3] = std::int32_t{1 + item};
          v[4] = std::int32_t{item == 0 ? 1 : 1 + i % products_};
        });
    add<1>(
        "INSERT INTO Recebimento (Cd_PessoaUsuaria, No_Recebimento, Cd_TipoRecebimento, Vl_Recebimento) VALUES (1, ?, "
        "5, 50)",
        all, [](int i, auto& v) { v[0] = std::int32_t{i}; });
    add<4>(
        "INSERT INTO RecebimentoCupom (Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento) "
        "VALUES (1, ?, ?, ?, ?)",
        all, [&](int i, auto& v) {
          key(i, v);
          v[3] = std::int32_t{i};
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

void set_coupon(DALCupomFiscal& coupon, const LargeStation& station, int call) {
  const int number = 1 + call * 37 % station.coupons();
  coupon.ObVO->Cd_PessoaUsuaria = 1;
  coupon.ObVO->No_Impressora = 1;
  coupon.ObVO->No_CupomFiscal = number;
  coupon.ObVO->Dt_Emissao = station.day_of_coupon(number);
  coupon.ObVO->Cd_Veiculo = fmt::format("V{:06}", number % station.vehicles());
}
void coupon_lines(const LargeStation& station, int call) {
  DALCupomFiscal coupon(station.settings());
  set_coupon(coupon, station, call);
  for (Recordset& rows = coupon.adorsItens(); !rows.EOF(); rows.MoveNext()) {
  }
}
void coupon_receipts(const LargeStation& station, int call) {
  DALCupomFiscal coupon(station.settings());
  set_coupon(coupon, station, call);
  coupon.ConsultarTotalRecebimentos();
}
void last_odometer(const LargeStation& station, int call) {
  DALCupomFiscal coupon(station.settings());
  set_coupon(coupon, station, call);
  coupon.No_UltimoKm();
}
void printer_day(const LargeStation& station, int) {
  flows::printer_day({.settings = station.settings()}, 2, kAskedDay);
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
    const LargeStation small(folder + "/small.db", 10'000, 1'000, Coupons::as_many_lines),
        large(folder + "/large.db", 1'000'000, 20'000, Coupons::as_many_lines),
        fewer_products(folder + "/fewer.db", 1'000'000, 2'000, Coupons::none);
    const auto grown = [&](const char* name, Question question) {
      pairs.push_back({name, asked(large, question), asked(small, question), kCalls});
    };
    grown("growth_client_by_number", client_by_number);
    grown("growth_client_by_name", client_by_name);
    grown("growth_last_totaliser", last_totaliser);
    grown("growth_pending", pending);
    grown("growth_ledger_of_a_day", ledger_of_a_day);
    grown("growth_coupon_lines", coupon_lines);
    grown("growth_coupon_receipts", coupon_receipts);
    grown("growth_last_odometer", last_odometer);
    grown("growth_printer_day", printer_day);
    pairs.push_back({"growth_consolidation", consolidated(large), consolidated(fewer_products), 1, 5});
    argc = measure(argc, argv, pairs);
  }
  std::filesystem::remove_all(folder);
  return argc;
}

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) { return posto::bench::run(argc, argv); }
