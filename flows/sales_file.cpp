#include "flows/sales_file.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "flows/csv_table.h"
#include "flows/lookup.h"
#include "flows/sale.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/masterdata/DALCliente.h"

namespace posto::flows {
namespace {

constexpr std::size_t kPlate = 8;
// Of a line, and of a payment's text: no coupon's sums come near the end of money then.
constexpr double kMostUnits = 1e6;
const Currency kMostPrice(1'000'000);
constexpr std::size_t kMostDigits = 15;
constexpr std::array<std::string_view, 6> kRequired = {"impressora", "cupom", "data", "hora", "produto", "quantidade"};
constexpr std::array<std::string_view, 4> kOfLine = {"abastecimento", "ponto", "preco", "cancelado"};
// Told by the first row of a coupon, with "hora".
constexpr std::array<std::string_view, 8> kOfCoupon = {"caixa",   "movimento", "desconto", "pagamentos",
                                                       "cliente", "cartao",    "placa",    "km"};

template <std::size_t N>
bool has(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// A text of the file that stands in quotes in a statement.
void refuse_quote(const CsvTable& rows, const std::string& text) {
  if (text.find('\'') != std::string::npos) rows.fail("há um apóstrofo em '" + text + "'");
}

// A coupon as its rows tell it.
struct PrintedSale {
  std::string coupon;
  Sale sale;
  bool cancelled = false;
  std::string fault;  // the first one, with file and line; empty for a good coupon
};

class SalesReader {
 public:
  SalesReader(Station& station, const std::string& path) : station_(station), rows_(path) {
    check_header();
    advance();
  }

  // Rows that stand together and have the same printer, number and day. A row that cannot be split into its fields
  // counts to the coupon before it. False at the end.
  bool next(PrintedSale& printed) {
    if (at_ == At::end) return false;
    printed = {};
    if (at_ == At::row) printed.coupon = coupon();
    do {
      if (at_ == At::row) {
        take(printed);
      } else if (printed.fault.empty()) {
        printed.fault = why_;
      }
      advance();
    } while (at_ == At::unreadable || (at_ == At::row && coupon() == printed.coupon));
    if (printed.cancelled && printed.sale.payments.empty() && printed.sale.card.number == 0)
      printed.sale.payments.emplace_back().kind = kCash;
    return true;
  }

 private:
  enum class At { row, unreadable, end };

  void check_header() const {
    for (std::string_view column : kRequired) {
      if (!has_column(column)) rows_.fail("não há a coluna " + std::string(column));
    }
    for (const std::string& column : rows_.columns()) {
      if (has(kRequired, column) || has(kOfLine, column) || has(kOfCoupon, column)) continue;
      rows_.fail("coluna desconhecida: " + column);
    }
  }

  void advance() {
    try {
      at_ = rows_.next() ? At::row : At::end;
    } catch (const Erro& failure) {
      if (failure.number() != erro::kRuleViolation) throw;
      at_ = At::unreadable;
      why_ = failure.description();
    }
  }

  std::string coupon() const {
    return "impressora " + rows_.text("impressora") + ", cupom " + rows_.text("cupom") + ", " + rows_.text("data");
  }
  bool has_column(std::string_view column) const {
    const auto& columns = rows_.columns();
    return std::find(columns.begin(), columns.end(), column) != columns.end();
  }
  bool given(std::string_view column) const { return has_column(column) && !rows_.text(column).empty(); }

  // The first fault stays with the coupon, and says all.
  void take(PrintedSale& printed) {
    if (!printed.fault.empty()) return;
    try {
      if (printed.sale.lines.empty()) {
        take_coupon(printed.sale);
      } else {
        check_repeated();
      }
      take_line(printed);
    } catch (const Erro& failure) {
      if (failure.number() != erro::kRuleViolation) throw;
      printed.fault = failure.description();
    }
  }

  void take_coupon(Sale& sale) {
    sale.printer = static_cast<std::uint8_t>(rows_.integer("impressora", 1, 255));
    sale.number = rows_.integer("cupom", 1);
    sale.moment = moment();
    if (given("movimento")) sale.business_day = rows_.day("movimento");
    if (given("caixa")) sale.shift = rows_.integer("caixa", 1);
    if (given("desconto")) sale.discount = cents("desconto");
    if (given("cartao")) sale.card = card(rows_.text("cartao"));
    if (given("cliente")) sale.client = client();
    if (given("placa")) refuse_quote(rows_, sale.vehicle = rows_.required("placa", kPlate));
    if (given("km")) sale.odometer = rows_.integer("km", 0);
    if (given("pagamentos")) sale.payments = payments(rows_.text("pagamentos"));
    for (std::string_view column : kOfCoupon) first_row_[index_of(column)] = given(column) ? rows_.text(column) : "";
    first_time_ = rows_.text("hora");
  }

  void check_repeated() const {
    if (given("hora") && rows_.text("hora") != first_time_) rows_.fail("hora diferente da primeira linha do cupom");
    for (std::string_view column : kOfCoupon) {
      if (!given(column) || rows_.text(column) == first_row_[index_of(column)]) continue;
      rows_.fail(std::string(column) + " diferente da primeira linha do cupom");
    }
  }
  static std::size_t index_of(std::string_view column) {
    return static_cast<std::size_t>(std::find(kOfCoupon.begin(), kOfCoupon.end(), column) - kOfCoupon.begin());
  }

  void take_line(PrintedSale& printed) {
    SaleLine line;
    if (given("abastecimento")) line.fuelling = rows_.integer("abastecimento", 1);
    if (given("produto") || line.fuelling == 0) line.product = product();
    if (given("quantidade") || line.fuelling == 0) line.quantity = rows_.figure("quantidade");
    if (line.quantity > kMostUnits) rows_.fail("quantidade acima de 1000000: " + rows_.text("quantidade"));
    if (given("ponto")) line.place = rows_.integer("ponto", 1);
    if (given("preco")) line.price = rows_.decimal("preco");
    if (line.price > kMostPrice) rows_.fail("preco acima de 1000000: " + rows_.text("preco"));
    if (given("cancelado")) {
      const std::string& what = rows_.text("cancelado");
      if (what != "item" && what != "cupom") rows_.fail("cancelado tem de ser item ou cupom: '" + what + "'");
      line.cancelled = what == "item";
      printed.cancelled |= what == "cupom";
    }
    printed.sale.lines.push_back(line);
  }

  Date moment() const {
    const auto read = Date::parse_iso(rows_.text("data") + " " + rows_.text("hora"));
    if (!read || rows_.text("hora").size() != 8) {
      rows_.fail("data e hora não são aaaa-mm-dd e hh:mm:ss: '" + rows_.text("data") + " " + rows_.text("hora") + "'");
    }
    return *read;
  }

  Currency cents(std::string_view column) const {
    const Currency value = rows_.decimal(column);
    if (value.scaled() % 100 != 0) rows_.fail(std::string(column) + " com mais de duas casas: " + rows_.text(column));
    return value;
  }

  std::int32_t product() const {
    refuse_quote(rows_, rows_.required("produto", 20));
    const std::int32_t code = product_of(station_, rows_.text("produto"));
    if (code == 0) rows_.fail("produto desconhecido: " + rows_.text("produto"));
    return code;
  }

  std::int32_t client() const {
    refuse_quote(rows_, rows_.text("cliente"));
    DALCliente client(station_.settings);
    client.ObVO->Cd_PessoaUsuaria = station_.tenant();
    client.ObVO->Cd_CgcCpf = rows_.text("cliente");
    if (!client.CnpjOuCpfCadastradoComoCliente()) rows_.fail("cliente desconhecido: " + rows_.text("cliente"));
    return client.ObVO->Cd_Cliente;
  }

  // "1/77".
  ClientCard card(const std::string& text) const {
    ClientCard read;
    const char* const end = text.data() + text.size();
    const auto kind = std::from_chars(text.data(), end, read.kind);
    const bool split = kind.ec == std::errc{} && kind.ptr != end && *kind.ptr == '/';
    const auto number = std::from_chars(split ? kind.ptr + 1 : end, end, read.number);
    if (number.ec != std::errc{} || number.ptr != end || read.kind <= 0 || read.number <= 0) {
      rows_.fail("cartao não é tipo/código: '" + text + "'");
    }
    return read;
  }

  // "5=100.00 3=26.40", or "5".
  std::vector<Payment> payments(const std::string& text) const {
    std::vector<Payment> read;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find(' ', at), text.size());
      if (end > at) {
        if (!read.empty() && !read.back().value) rows_.fail("só o último pagamento pode não ter valor: '" + text + "'");
        read.push_back(payment(text.substr(at, end - at)));
      }
      at = end + 1;
    }
    return read;
  }

  Payment payment(const std::string& text) const {
    Payment read;
    const std::size_t equals = std::min(text.find('='), text.size());
    const auto kind = std::from_chars(text.data(), text.data() + equals, read.kind);
    bool good = kind.ec == std::errc{} && kind.ptr == text.data() + equals && read.kind > 0;
    if (good && equals < text.size()) {
      const std::string value = text.substr(equals + 1);
      good = !value.empty() && value.size() <= kMostDigits &&
             value.find_first_not_of(".0123456789") == std::string::npos && value != ".";
      if (good) read.value = Currency::parse(value);
      good = good && read.value->scaled() % 100 == 0;
    }
    if (!good) rows_.fail("pagamento inválido: '" + text + "'");
    return read;
  }

  Station& station_;
  CsvTable rows_;
  At at_ = At::end;
  std::string why_;  // the row is unreadable
  std::array<std::string, kOfCoupon.size()> first_row_;
  std::string first_time_;
};

bool stands_already(const Station& station, const Sale& sale) {
  return !station.connection()
              .Execute(sql(R"(
      SELECT No_CupomFiscal
      FROM   CupomFiscal
      WHERE  Cd_PessoaUsuaria = {} And
             No_Impressora = {} And
             No_CupomFiscal = {} And
             Dt_Emissao = {})",
                           station.tenant(), sale.printer, sale.number,
                           DateSemHoraToSql(sale.moment, *station.settings)))
              .EOF();
}

}  // namespace

SalesResult sell_from(Station& station, const std::string& path) {
  SalesReader reader(station, path);
  SalesResult result;
  PrintedSale printed;
  while (reader.next(printed)) {
    if (!printed.fault.empty()) {
      result.refused.push_back({printed.coupon, printed.fault});
      continue;
    }
    if (stands_already(station, printed.sale)) {
      ++result.repeated;
      continue;
    }
    try {
      if (printed.cancelled) {
        sell_and_cancel(station, printed.sale);
      } else {
        sell(station, printed.sale);
      }
      ++result.sold;
      result.cancelled += printed.cancelled ? 1 : 0;
    } catch (const Erro& failure) {
      if (!refuses_sale(failure)) throw;
      result.refused.push_back({printed.coupon, failure.description()});
    }
  }
  return result;
}

}  // namespace posto::flows
