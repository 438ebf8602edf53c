#include "flows/purchase_note.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "flows/lookup.h"
#include "posto/core/error_vocabulary.h"
#include "posto/forecourt/catalogue.h"
#include "posto/masterdata/DALFornecedor.h"
#include "posto/masterdata/catalogue.h"
#include "posto/stock/DALProduto.h"
#include "posto/stock/product_kind.h"
#include "posto/types/rounding.h"
#include "posto/types/text.h"

namespace posto::flows {
namespace {

constexpr double kMostUnits = 1e8;  // of a line; with the money below no sum comes near its end
const Currency kHundred(100);
constexpr std::size_t kTaxNumber = 18;
constexpr std::size_t kBarCode = 20;
// The columns of the note, which each of its rows repeats.
constexpr const char* kRepeated[] = {"emissao", "entrega", "desconto", "frete", "despesas", "total"};
// ICMS charged before, to be charged again, or suspended.
constexpr std::array<std::string_view, 5> kWithoutCredit = {"10", "30", "50", "60", "70"};

Currency in_cents(double value) { return Currency(Round(value, 2)); }

// What a value of the file becomes in a statement stands in quotes there.
bool has_quote(const std::string& text) { return text.find('\'') != std::string::npos; }

bool has_digits(const std::string& text, std::size_t count) {
  return text.size() == count && std::all_of(text.begin(), text.end(), is_digit);
}

template <class Number, class... Form>
bool read_number(std::string_view text, Number& value, Form... form) {
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, form...);
  return error == std::errc{} && end == text.data() + text.size();
}

// Divides a figure of the note among its lines by their weights. Each takes what the running total of weights is due
// and has not been given: the shares add up to the figure.
class Shares {
 public:
  Shares(Currency figure, Currency all) : figure_(figure), all_(all) {}
  Currency next(Currency weight) {
    reached_ += weight;
    if (all_ == Currency()) return {};
    const Currency due = reached_ == all_ ? figure_ : in_cents(figure_ * (reached_.as_double() / all_.as_double()));
    const Currency share = due - given_;
    given_ = due;
    return share;
  }

 private:
  Currency figure_, all_, reached_, given_;
};

Currency value_of(const PurchaseLine& line) { return in_cents(line.unit * line.quantity); }

}  // namespace

bool gives_no_credit(const std::string& situation) {
  if (situation.size() < 2) return false;
  const std::string_view kind = std::string_view(situation).substr(situation.size() - 2);
  return std::find(kWithoutCredit.begin(), kWithoutCredit.end(), kind) != kWithoutCredit.end();
}

std::vector<LineAmounts> amounts_of(const PurchaseNote& note) {
  Currency all;
  for (const PurchaseLine& line : note.lines) all += value_of(line) - line.discount;
  Shares discounts(note.header.discount, all), freights(note.header.freight, all), expenses(note.header.expenses, all);
  std::vector<LineAmounts> amounts;
  for (const PurchaseLine& line : note.lines) {
    LineAmounts a;
    a.products = value_of(line);
    const Currency net = a.products - line.discount;
    a.discount = discounts.next(net);
    a.freight = freights.next(net);
    a.expenses = expenses.next(net);
    a.ipi = in_cents(net * (line.ipi_rate.as_double() / 100));
    a.icms_base = net - a.discount + a.freight + a.expenses;
    if (!gives_no_credit(line.situation)) a.icms_credit = in_cents(a.icms_base * (line.icms_rate.as_double() / 100));
    a.cost = a.icms_base + a.ipi + line.substituted_icms;
    amounts.push_back(a);
  }
  return amounts;
}

PurchaseReader::PurchaseReader(Station& station, const std::string& path)
    : station_(station),
      rows_(path, {"tipo_nf", "numero", "fornecedor", "emissao", "entrega", "desconto", "frete", "despesas", "total",
                   "produto", "cfop", "situacao", "quantidade", "unitario", "desconto_item", "icms", "ipi", "icms_st",
                   "descargas"}) {
  advance();
}

void PurchaseReader::advance() {
  try {
    at_ = rows_.next() ? At::row : At::end;
  } catch (const Erro& failure) {
    if (failure.number() != erro::kRuleViolation) throw;
    at_ = At::unreadable;
    why_ = failure.description();
  }
}

std::string PurchaseReader::document() const {
  return "tipo " + rows_.text("tipo_nf") + ", nota " + rows_.text("numero") + ", fornecedor " +
         rows_.text("fornecedor");
}

bool PurchaseReader::next(PurchaseNote& note) {
  if (at_ == At::end) return false;
  note = {};
  if (at_ == At::row) note.document = document();
  do {
    if (at_ == At::unreadable) {
      if (note.fault.empty()) note.fault = why_;
    } else {
      take(note);
    }
    advance();
  } while (at_ == At::unreadable || (at_ == At::row && document() == note.document));
  return true;
}

// A row into its note; the first fault stays with the note, and says all.
void PurchaseReader::take(PurchaseNote& note) {
  if (!note.fault.empty()) return;
  try {
    std::string repeated;
    for (const char* column : kRepeated) repeated += rows_.text(column) + ",";
    if (note.lines.empty()) {
      note.header = header();
      repeated_ = repeated;
    }
    if (repeated != repeated_) rows_.fail("os dados da nota não são os da linha anterior");
    note.lines.push_back(line());
  } catch (const Erro& failure) {
    if (failure.number() != erro::kRuleViolation) throw;
    note.fault = failure.description();
  }
}

Currency PurchaseReader::money(const char* column, Currency most) const {
  const Currency value = rows_.decimal(column);
  if (value > most) rows_.fail(std::string(column) + " acima de " + most.text() + ": '" + rows_.text(column) + "'");
  return value;
}

PurchaseHeader PurchaseReader::header() const {
  PurchaseHeader h;
  DALTipoNF kind(station_.settings);
  h.kind = kind.ObVO->Cd_TipoNF = rows_.integer("tipo_nf", 1);
  if (!stands([&] { kind.Consultar(); })) rows_.fail("tipo de nota desconhecido: " + rows_.text("tipo_nf"));
  h.number = rows_.integer("numero", 1);
  DALFornecedor supplier(station_.settings);
  supplier.ObVO->Cd_PessoaUsuaria = station_.tenant();
  supplier.ObVO->Cd_CgcCpf = rows_.required("fornecedor", kTaxNumber);
  if (has_quote(supplier.ObVO->Cd_CgcCpf) || !supplier.CnpjOuCpfCadastradoComoFornecedor()) {
    rows_.fail("fornecedor desconhecido: " + rows_.text("fornecedor"));
  }
  h.supplier = supplier.ObVO->Cd_Fornecedor;
  h.issued = rows_.day("emissao");
  h.delivered = rows_.day("entrega");
  if (h.delivered < h.issued) rows_.fail("entrega anterior à emissão");
  if (h.delivered <= station_.settings->ObVOEmpresaUsuaria->Dt_CorteMovimento) {
    rows_.fail("entrega até o corte do movimento: " + rows_.text("entrega"));
  }
  h.discount = money("desconto");
  h.freight = money("frete");
  h.expenses = money("despesas");
  h.total = money("total");
  return h;
}

PurchaseLine PurchaseReader::line() const {
  PurchaseLine l;
  const std::string& bar_code = rows_.required("produto", kBarCode);
  DALProduto product(station_.settings);
  product.ObVO->Cd_CodBarras = bar_code;
  if (has_quote(bar_code) || !stands([&] { product.Consultar(false, false); }) ||
      product.ObVO->Cd_PessoaUsuaria != station_.tenant()) {
    rows_.fail("produto desconhecido: " + bar_code);
  }
  if (product.ObVO->No_Tipo == kService) rows_.fail("um serviço não entra no estoque: " + bar_code);
  l.product = product.ObVO->Cd_Produto;
  l.cfop = rows_.text("cfop");
  if (!has_digits(l.cfop, 4)) rows_.fail("cfop não tem quatro algarismos: '" + l.cfop + "'");
  l.situation = rows_.text("situacao");
  if (!has_digits(l.situation, 3)) rows_.fail("situacao não tem três algarismos: '" + l.situation + "'");
  l.quantity = rows_.figure("quantidade");
  if (l.quantity <= 0 || l.quantity > kMostUnits) rows_.fail("quantidade inválida: '" + rows_.text("quantidade") + "'");
  l.unit = money("unitario");
  l.discount = money("desconto_item");
  if (l.discount > value_of(l)) rows_.fail("desconto_item acima do valor da linha");
  l.icms_rate = money("icms", kHundred);
  l.ipi_rate = money("ipi", kHundred);
  l.substituted_icms = money("icms_st");
  l.deliveries = deliveries(l, product.ObVO->Fl_VendBomba);
  return l;
}

// "1=5000 2=2500.5": litres by tank.
std::vector<TankShare> PurchaseReader::deliveries(const PurchaseLine& line, bool fuel) const {
  std::vector<TankShare> shares;
  const std::string& text = rows_.text("descargas");
  if (!fuel && !text.empty()) rows_.fail("só combustível tem descarga");
  for (std::size_t from = text.find_first_not_of(' '); from < text.size(); from = text.find_first_not_of(' ', from)) {
    const std::size_t end = std::min(text.find(' ', from), text.size());
    shares.push_back(delivery(text.substr(from, end - from), line.product));
    from = end;
  }
  return shares;
}

TankShare PurchaseReader::delivery(const std::string& text, std::int32_t product) const {
  TankShare share;
  const std::size_t equals = text.find('=');
  const std::string_view all = text;
  if (equals == std::string::npos || !read_number(all.substr(0, equals), share.tank) ||
      !read_number(all.substr(equals + 1), share.litres, std::chars_format::fixed) || !(share.litres > 0)) {
    rows_.fail("descarga inválida: '" + text + "' (tanque=litros)");
  }
  DALTanque tank(station_.settings);
  tank.ObVO->Cd_PessoaUsuaria = station_.tenant();
  tank.ObVO->No_Tanque = share.tank;
  if (share.tank == 0 || !stands([&] { tank.Consultar(); })) rows_.fail("tanque desconhecido: '" + text + "'");
  if (tank.ObVO->Cd_Produto != product) rows_.fail("o tanque é de outro combustível: '" + text + "'");
  share.piping = tank.ObVO->Cd_SisTubulacao;
  return share;
}

}  // namespace posto::flows
