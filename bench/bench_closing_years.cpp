// The closing of a day of 2,000 coupons and 4,000 fuellings behind five years of days, by the same behind one year. Two
// questions look back to the first day by rule: the proof of the stock over the whole ledger, and the search for
// fuellings on two lines. They stand beside; `ratio closing_5_years_to_1` is of all the others. (Movements without a
// sale are asked from the settled date, here the day before.) A former day has a tenth of the coupons, so that the
// millions of rows of five years are written in half a minute.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <stdexcept>

#include "flows/closing.h"
#include "flows/station.h"
#include "posto/ado/connection.h"
#include "posto/ado/recordset.h"

namespace posto::bench {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr int kCoupons = 2'000, kFormerCoupons = 200;  // of the day, of each day before
constexpr int kLines = 2;                              // of a coupon: a fuelling each
constexpr int kNozzles = 8, kProducts = 4, kLitres = 20;
constexpr int kValue = kLines * kLitres * 6;  // of a coupon
constexpr int kRuns = 5;
const Date kDay = Date::of_day(2026, 11, 23);

struct Spent {
  Seconds looking_back{}, others{};
};

class ClosingStation {
 public:
  ClosingStation(const std::string& file, int years) {
    connection_->Create(file);
    Transaction transaction(connection_);
    add_masters(years);
    for (int day = -365 * years; day <= 0; ++day) add_day(kDay.plus_days(day), day == 0 ? kCoupons : kFormerCoupons);
    transaction.commit();
    station_ = flows::open_station(file, 1, [this](const StatementReport& report) {
      const bool back = report.statement.find("Qt_TotUnidade") != std::string_view::npos ||
                        report.statement.find("Qt_BaixasDoAbastecimento") != std::string_view::npos;
      (back ? spent_.looking_back : spent_.others) += report.duration;
    });
  }

  // The shortest of some runs.
  Spent close() {
    Spent shortest{Seconds(1e9), Seconds(1e9)};
    for (int run = 0; run < kRuns; ++run) {
      spent_ = {};
      const flows::Closing closing = flows::close_day(station_, kDay, {.user = "BENCH"});
      if (!closing.closed) throw std::runtime_error("refused: " + std::string(closing.refused.front().name));
      shortest = {std::min(shortest.looking_back, spent_.looking_back), std::min(shortest.others, spent_.others)};
      flows::reopen_day(station_, kDay);
    }
    return shortest;
  }

 private:
  void add_masters(int years) {
    connection_->Execute(
        "INSERT INTO EmpresaUsuaria (Cd_PessoaUsuaria, Dt_CorteMovimento) Values (1, '2026-11-22') "
        "INSERT INTO ECF (Cd_PessoaUsuaria, No_Impressora) Values (1, 1)");
    const int fuellings = (365 * years * kFormerCoupons + kCoupons) * kLines;
    for (int p = 1; p <= kProducts; ++p) {
      connection_->Execute(fmt::format(
          "INSERT INTO Produto (Cd_PessoaUsuaria, Nm_Produto, No_Tipo, Fl_VendBomba, Qt_EstoqueInicial, Qt_Estoque, "
          "Vl_CustoMedioInicial, Vl_CustoMedio) Values (1, 'COMBUSTIVEL {}', 1, 1, {}, 0, 5, 5)",
          p, fuellings / kProducts * kLitres));
      stock_[static_cast<std::size_t>(p - 1)] = fuellings / kProducts * kLitres;
    }
    for (int n = 1; n <= kNozzles; ++n) {
      connection_->Execute(
          fmt::format("INSERT INTO Bomba (Cd_PessoaUsuaria, Cd_Bomba, De_EnderecoLogicoBico, Cd_Produto) Values (1, "
                      "{}, '{:02}', {})",
                      n, n, 1 + (n - 1) % kProducts));
    }
  }

  void add(const char* table, const char* columns, const std::string& values) {
    connection_->Execute(fmt::format("INSERT INTO {} ({}) Values ({})", table, columns, values));
  }

  void add_day(Date date, int coupons) {
    const std::string day = date.iso();
    add("Caixa", "Cd_PessoaUsuaria, Cd_Funcionario, No_Sequencial, Dt_Abertura, Cd_Situacao",
        fmt::format("1, 1, 1, '{}', 3", day));
    add("MapaResumoECF",
        "Cd_PessoaUsuaria, Dt_Movimento, No_Impressora, Qt_ContReducoes, Vl_GTotalInicial, Vl_GTotalFinal, "
        "No_CupomFiscalInicial",
        fmt::format("1, '{}', 1, {}, {}, {}, {}", day, ++day_, total_, total_ + coupons * kValue, coupon_ + 1));
    for (int c = 0; c < coupons; ++c) add_coupon(day, date.plus_millis(std::int64_t{c} * 40'000));
  }

  void add_coupon(const std::string& day, Date moment) {
    total_ += kValue;
    ++coupon_;
    add("CupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Dt_Movimento, Qt_ContReducoes, "
        "Vl_TotalLiquido, Vl_GTotal, Tp_Venda, Cd_Caixa",
        fmt::format("1, 1, {}, '{}', '{}', {}, {}, {}, 21, {}", coupon_, day, day, day_, kValue, total_, day_));
    add("Recebimento", "Cd_PessoaUsuaria, No_Recebimento, Tp_DocDebito, Dt_Lancamento, Vl_Recebimento, Cd_Caixa",
        fmt::format("1, {}, 20, '{}', {}, {}", coupon_, day, kValue, day_));
    add("RecebimentoCupom", "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Recebimento",
        fmt::format("1, 1, {}, '{}', {}", coupon_, day, coupon_));
    for (int line = 1; line <= kLines; ++line) add_line(day, moment.plus_millis(line * 1000), line);
  }

  void add_line(const std::string& day, Date moment, int line) {
    const int nozzle = fuelling_++ % kNozzles, product = nozzle % kProducts;
    const auto at = static_cast<std::size_t>(nozzle), of = static_cast<std::size_t>(product);
    totaliser_[at] += kLitres;
    stock_[of] -= kLitres;
    add("Abastecimento",
        "Cd_PessoaUsuaria, Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Total, "
        "No_EncerranteFechamento, Ic_Baixado, Tp_OrigemRegistro, Cd_Caixa, No_Contador",
        fmt::format("1, {}, '{:02}', '{}', {}, {}, {}, 1, 1, {}, {}", fuelling_, nozzle + 1, moment.iso(), kLitres,
                    kValue / kLines, totaliser_[at], day_, fuelling_ % 10'000));
    add("Cardex",
        "Cd_PessoaUsuaria, Cd_LancamentoCardex, Cd_Produto, Dt_Emissao, No_Tipo, Qt_Unidade, Qt_Estoque, "
        "Vl_CustoMedio, Vl_CredIcmsMedio",
        fmt::format("1, {}, {}, '{}', 20, {}, {}, 5, 0", fuelling_, product + 1, day, kLitres, stock_[of]));
    add("ItemCupomFiscal",
        "Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, No_Item, Cd_Produto, Qt_Unidade, Vl_UnitVenda, "
        "Cd_Abastecimento, Cd_LancamentoCardex",
        fmt::format("1, 1, {}, '{}', {}, {}, {}, {}, {}, {}", coupon_, day, line, product + 1, kLitres,
                    kValue / kLines / kLitres, fuelling_, fuelling_));
  }

  std::shared_ptr<Connection> connection_ = Connection::create();
  flows::Station station_;
  Spent spent_;
  int day_ = 0, coupon_ = 0, fuelling_ = 0;  // the last of each
  std::int64_t total_ = 0;
  std::array<int, kProducts> stock_{};
  std::array<std::int64_t, kNozzles> totaliser_{};
};

int run() {
  std::string folder = (std::filesystem::temp_directory_path() / "posto-bench-XXXXXX").string();
  folder = mkdtemp(folder.data());
  Spent spent[2];
  for (const auto& [at, years] : {std::pair(0, 1), std::pair(1, 5)}) {
    spent[at] = ClosingStation(fmt::format("{}/{}.db", folder, years), years).close();
    fmt::print("behind {} years: {:.1f} ms, and {:.1f} ms of the two questions that look back by rule\n", years,
               spent[at].others.count() * 1000, spent[at].looking_back.count() * 1000);
  }
  std::filesystem::remove_all(folder);
  fmt::print("ratio closing_5_years_to_1 {:.2f}\n", spent[1].others / spent[0].others);
  return 0;
}

}  // namespace
}  // namespace posto::bench

int main() { return posto::bench::run(); }
