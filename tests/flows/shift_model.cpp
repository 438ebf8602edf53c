#include "tests/flows/shift_model.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/flows/week.h"

namespace posto::flows {
namespace shift_model {

// The lines of the first day's readings that are refused.
const std::set<int> kBadReadings{34, 87, 130, 200, 219, 251, 296, 348, 429, 512, 560};

// "12.345" with three decimals is 12345; no file has more decimals than are asked for.
std::int64_t scaled(const std::string& number, std::size_t decimals) {
  const std::size_t point = std::min(number.find('.'), number.size());
  std::string digits = number.substr(0, point) + (point < number.size() ? number.substr(point + 1) : "");
  const std::size_t given = point < number.size() ? number.size() - point - 1 : 0;
  return std::stoll(digits.append(decimals - given, '0'));
}
Currency money(const std::string& number) { return Currency::of_scaled(scaled(number, 4)); }
Currency thousandths(std::int64_t count) { return Currency::of_scaled(count * 10); }

struct Product {
  int code = 0;
  std::string name, group;
  bool service = false;
  Currency price;
};
struct Reading {
  std::string address;
  std::int64_t litres = 0;  // in thousandths
  std::int64_t totaliser = 0;
  Currency price;
};
struct Nozzle {
  int number = 0;
  std::string product;
  std::int64_t totaliser = 0;
};
struct Line {
  std::string product;
  int nozzle = 0;  // 0 of what is not of a pump
  std::int64_t quantity = 0;
  Currency price;
  int fuelling = 0;
  bool cancelled = false;

  // To cents, halves up.
  Currency amount() const { return Currency::of_scaled((quantity * price.scaled() + 50'000) / 100'000 * 100); }
  Currency exact_amount() const { return Currency::of_scaled(quantity * price.scaled() / 1'000); }
};
struct Receipt {
  std::string kind;
  Currency amount;
};
struct Coupon {
  std::int32_t shift = 0;
  bool cancelled = false;
  std::string client;
  Currency discount;
  std::vector<Line> lines;
  std::vector<Receipt> receipts;

  Currency total() const {
    Currency sum;
    for (const Line& line : lines) sum += line.cancelled ? Currency() : line.amount();
    return sum;
  }
};
using CouponName = std::pair<int, int>;  // printer, number

std::map<std::string, std::string> names(const std::string& file) {
  std::map<std::string, std::string> names;
  for (const Row& row : rows_of_file(kSample + "/cadastro/" + file)) names[row[0]] = row[1];
  return names;
}

class WeekModel {
 public:
  WeekModel() {
    for (const std::string& file : {kSample + "/cadastro/produtos.csv", kWeek + "cadastro/produtos.csv"}) {
      for (const Row& row : rows_of_file(file)) {
        const int code = static_cast<int>(products_.size()) + 1;
        products_[row[0]] = {
            .code = code, .name = row[1], .group = row[2], .service = row[3] == "2", .price = money(row[5])};
      }
    }
    for (const Row& row : rows_of_file(kSample + "/cadastro/bicos.csv")) {
      nozzles_[row[1]] = {.number = std::stoi(row[0]), .product = row[2], .totaliser = scaled(row[4], 3)};
    }
  }

  std::map<std::int32_t, ModelShift> shifts() {
    for (int day = 0; day < kDays; ++day) {
      shifts_[2 * day + 1];
      shifts_[2 * day + 2];
      deliver(day);
      sell(day);
    }
    for (const auto& [name, coupon] : coupons_) count(name, coupon);
    for (auto& [number, shift] : shifts_) sum_up(number, shift);
    return std::move(shifts_);
  }

 private:
  using Sums = std::map<std::tuple<int, std::string, Currency>, std::pair<std::int64_t, Currency>>;

  // The day's readings, and what they leave at the totalisers of the forecourt's shift.
  void deliver(int day) {
    std::map<std::string, std::int64_t> opening;
    for (const auto& [address, nozzle] : nozzles_) opening[address] = nozzle.totaliser;
    int line = 1;
    for (const Row& row : rows_of_file(day == 0 ? kSample + "/leituras.csv" : day_folder(day) + "/leituras.csv")) {
      if (++line; day == 0 && kBadReadings.contains(line)) continue;
      readings_.push_back(
          {.address = row[0], .litres = scaled(row[4], 3), .totaliser = scaled(row[7], 3), .price = money(row[5])});
      nozzles_[row[0]].totaliser = readings_.back().totaliser;
    }
    for (const auto& [address, nozzle] : nozzles_) {
      shifts_[2 * day + 1].summary.insert(summary_line(
          "1.1", nozzle.number, std::to_string(nozzle.number) + " - " + products_[nozzle.product].name + " - 00:00:00",
          {thousandths(nozzle.totaliser), thousandths(opening[address]),
           thousandths(nozzle.totaliser - opening[address])}));
    }
  }

  void sell(int day) {
    std::map<CouponName, Coupon> today;
    for (const Row& row : rows_of_file(day_folder(day) + "/vendas.csv")) {
      Coupon& coupon = today[{std::stoi(row[0]), std::stoi(row[1])}];
      if (!row[5].empty()) take_head(coupon, row);
      coupon.lines.push_back(line_of(row));
      coupon.cancelled = coupon.cancelled || row[10] == "cupom";
    }
    for (const Row& row : rows_of_file(day_folder(day) + "/cancelamentos.csv")) {
      Coupon& coupon = today.at({std::stoi(row[0]), std::stoi(row[1])});
      coupon.lines.at(static_cast<std::size_t>(std::stoi(row[3])) - 1).cancelled = true;
      give_back(coupon);
    }
    for (auto& [name, coupon] : today) {
      if (coupon.cancelled || !sold_before(coupon)) coupons_[name] = std::move(coupon);
    }
  }

  static void take_head(Coupon& coupon, const Row& row) {
    static const std::map<std::string, std::string> kinds = names("TipoRecebimento.csv");
    static const std::map<std::string, std::string> clients = names("Cliente.csv");
    coupon.shift = std::stoi(row[5]);
    coupon.discount = row[11].empty() ? Currency() : money(row[11]);
    if (!row[13].empty()) coupon.client = clients.at(row[13]);
    std::string payments = row[12];
    while (!payments.empty()) {
      const std::size_t end = std::min(payments.find(' '), payments.size());
      const std::size_t equals = payments.find('=');
      coupon.receipts.push_back(
          {kinds.at(payments.substr(0, equals)), money(payments.substr(equals + 1, end - equals - 1))});
      payments.erase(0, end + 1);
    }
  }

  Line line_of(const Row& row) const {
    const bool cancelled = row[10] == "item";
    if (row[9].empty()) {
      return {.product = row[6],
              .quantity = scaled(row[7], 3),
              .price = row[8].empty() ? products_.at(row[6]).price : money(row[8]),
              .cancelled = cancelled};
    }
    const int fuelling = std::stoi(row[9]);
    const Reading& reading = readings_.at(static_cast<std::size_t>(fuelling) - 1);
    const Nozzle& nozzle = nozzles_.at(reading.address);
    return {.product = nozzle.product,
            .nozzle = nozzle.number,
            .quantity = reading.litres,
            .price = reading.price,
            .fuelling = fuelling,
            .cancelled = cancelled};
  }

  // What was paid for a line that is cancelled comes off the last receipts.
  static void give_back(Coupon& coupon) {
    Currency excess = -(coupon.total() - coupon.discount);
    for (const Receipt& receipt : coupon.receipts) excess += receipt.amount;
    while (excess > Currency() && !coupon.receipts.empty()) {
      Currency& last = coupon.receipts.back().amount;
      const Currency off = std::min(excess, last);
      excess -= off;
      last -= off;
      if (last == Currency()) coupon.receipts.pop_back();
    }
  }

  // Tells whether a fuelling of the coupon stands on another; such a coupon is refused.
  bool sold_before(const Coupon& coupon) {
    std::vector<int> fuellings;
    for (const Line& line : coupon.lines) {
      if (line.fuelling != 0 && !line.cancelled) fuellings.push_back(line.fuelling);
    }
    if (std::ranges::any_of(fuellings, [&](int code) { return sold_.contains(code); })) return true;
    sold_.insert(fuellings.begin(), fuellings.end());
    return false;
  }

  void count(const CouponName& name, const Coupon& coupon) {
    if (coupon.cancelled) return;
    ModelShift& shift = shifts_.at(coupon.shift);
    for (const Line& line : coupon.lines) {
      if (!line.cancelled) count_line(coupon.shift, shift, line);
    }
    shift.discounts += coupon.discount;
    const Currency due = coupon.total() - coupon.discount;
    if (coupon.receipts.empty()) {
      shift.on_credit += due;
      shift.summary.insert(summary_line("8.1", 1, coupon.client + " - " + std::to_string(name.second),
                                        {coupon.total(), Currency(), due}));
    }
    for (const Receipt& receipt : coupon.receipts) {
      shift.receipts += receipt.amount;
      add(receipts_[coupon.shift][{0, receipt.kind, {}}], 1, receipt.amount);
    }
  }

  void count_line(std::int32_t number, ModelShift& shift, const Line& line) {
    const Product& product = products_.at(line.product);
    if (line.nozzle != 0) {
      shift.fuels += line.amount();
      add(fuels_[number][{line.nozzle, product.name, line.price}], line.quantity, line.amount());
      return;
    }
    (product.service ? shift.services : shift.goods) += line.amount();
    const std::string name = product.group + " - " + product.name + " - " + std::to_string(product.code);
    add((product.service ? services_ : goods_)[number][{0, name, line.price}], line.quantity, line.exact_amount());
  }

  static void add(std::pair<std::int64_t, Currency>& sum, std::int64_t quantity, Currency amount) {
    sum.first += quantity;
    sum.second += amount;
  }

  void sum_up(std::int32_t number, ModelShift& shift) {
    auto row = [&](const char* group, int item, const std::string& name, std::optional<Currency> first,
                   std::optional<Currency> second, std::optional<Currency> third) {
      shift.summary.insert(summary_line(group, item, name, {first, second, third}));
    };
    auto total = [&](const char* group, int item, const std::string& name, std::optional<Currency> value) {
      row(group, item, name, {}, {}, value);
    };
    auto if_any = [](Currency sum) { return sum == Currency() ? std::optional<Currency>() : sum; };
    const Currency none;
    total("0.0", 0, "DÉBITOS", -(shift.fuels + shift.goods + shift.services - shift.discounts));
    total("0.0", 0, "CRÉDITOS", shift.receipts + shift.on_credit);
    total("0.1", 1, "1 - VENDAS DE COMBUSTIVEIS", shift.fuels);
    total("0.1", 2, "2 - VENDAS DE PRODUTOS", shift.goods);
    total("0.1", 3, "3 - VENDAS DE SERVIÇOS", shift.services);
    total("0.1", 4, "4 - CONTAS RECEBIDAS", none);
    total("0.1", 5, "5 - SUPRIMENTOS", none);
    total("0.1", 6, "6 - OUTROS DÉBITOS", none);
    total("0.1", 7, "7 - FALTA NAS SANGRIAS", none);
    total("0.2", 7, "7 - RECEBIMENTOS", if_any(shift.receipts));
    total("0.2", 8, "8 - VENDAS A CRÉDITO", if_any(shift.on_credit));
    total("0.2", 9, "9 - OUTROS CRÉDITOS", none);
    total("0.2", 10, "10 - SOBRA NAS SANGRIAS", none);
    for (const auto& [key, sum] : fuels_[number]) {
      const auto& [nozzle, name, price] = key;
      row("1.3", nozzle, std::to_string(nozzle) + " - " + name, thousandths(sum.first), price, sum.second);
    }
    for (const auto& [group, sums] : {std::pair("2.1", goods_[number]), std::pair("3.1", services_[number])}) {
      for (const auto& [key, sum] : sums) {
        row(group, 1, std::get<1>(key), thousandths(sum.first), std::get<2>(key), sum.second);
      }
    }
    for (const auto& [key, sum] : receipts_[number]) {
      row("7.1", 1, std::get<1>(key) + " - 0", {}, Currency(sum.first), sum.second);
    }
  }

  std::map<std::string, Product> products_;
  std::map<std::string, Nozzle> nozzles_;  // by address
  std::vector<Reading> readings_;          // the first has code 1
  std::map<CouponName, Coupon> coupons_;
  std::set<int> sold_;
  std::map<std::int32_t, ModelShift> shifts_;
  std::map<std::int32_t, Sums> fuels_, goods_, services_, receipts_;
};

}  // namespace shift_model

std::string summary_line(const std::string& group, std::int32_t item, const std::string& name,
                         const std::array<std::optional<Currency>, 3>& values) {
  std::string line = group + " | " + std::to_string(item) + " | " + name;
  for (const std::optional<Currency>& value : values) line += " | " + (value ? value->text() : "-");
  return line;
}

std::map<std::int32_t, ModelShift> model_shifts() { return shift_model::WeekModel().shifts(); }

}  // namespace posto::flows
