#include "flows/readings.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "posto/services/csv.h"
#include "posto/types/erro.h"
#include "posto/types/number_pattern.h"
#include "posto/types/text.h"

namespace posto::flows {
namespace {

std::string decimal(Currency value) { return format_number(value, "0.000#"); }

// Whether the figures of a reading agree with each other.
std::optional<Refusal> check_figures(const Reading& r) {
  const Currency zero, cent = Currency::of_scaled(100);
  if (r.litres <= zero) return "litros não positivos: " + decimal(r.litres);
  if (r.price <= zero) return "preço não positivo: " + decimal(r.price);
  if (r.totaliser <= zero) return "encerrante não positivo: " + decimal(r.totaliser);
  if (r.seconds < 0) return "duração negativa: " + std::to_string(r.seconds);
  // Pumps round or cut the total to the cent: both are within a cent of the product.
  const double product = r.litres.as_double() * r.price.as_double();
  const Currency difference = r.total - Currency(product);
  if (difference >= cent || difference <= -cent) {
    return "total não confere: " + decimal(r.total) + " em lugar de " + format_number(product, "0.00");
  }
  return std::nullopt;
}

// Reads the fields one behind the other; the first that does not read is the refusal.
class FieldReader {
 public:
  explicit FieldReader(const std::vector<std::string>& fields) : fields_(fields) {}

  // One or two letters or digits.
  void address(std::string& out, const char* name) {
    const std::string& field = next();
    auto is_sign = [](unsigned char c) { return std::isalnum(c) != 0; };
    bool plain = std::all_of(field.begin(), field.end(), is_sign);
    if (field.empty() || field.size() > 2 || !plain) return refuse(name, field);
    out = field;
  }
  void number(std::int16_t& out, const char* name) {
    const std::string& field = next();
    auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), out);
    if (error != std::errc{} || end != field.data() + field.size()) refuse(name, field);
  }
  void figure(Currency& out, const char* name) {
    const std::string& field = next();
    if (field.empty() || field.find_first_not_of("-.0123456789") != std::string::npos) return refuse(name, field);
    try {
      out = Currency::parse(field);
    } catch (const Erro&) {
      refuse(name, field);
    }
  }
  void moment(Date& out, const char* name) {
    const std::string& field = next();
    auto date = field.size() == 19 ? Date::parse_iso(field) : std::nullopt;
    if (date) {
      out = *date;
    } else {
      refuse(name, field);
    }
  }
  const std::optional<Refusal>& refusal() const { return refusal_; }

 private:
  const std::string& next() { return fields_[at_++]; }
  void refuse(const char* name, const std::string& field) {
    if (!refusal_) refusal_ = std::string(name) + ": '" + field + "'";
  }
  const std::vector<std::string>& fields_;
  std::size_t at_ = 0;
  std::optional<Refusal> refusal_;
};

}  // namespace

std::variant<Reading, Refusal> parse_reading(std::string_view line) {
  constexpr std::size_t kFields = 8;
  if (!is_valid_utf8(line)) return "codificação inválida: a linha não é UTF-8";
  auto fields = split_csv(line);
  if (!fields) return "aspas sem par";
  if (fields->size() != kFields) {
    return "número de campos: " + std::to_string(fields->size()) + " em lugar de " + std::to_string(kFields);
  }
  Reading r;
  FieldReader reader(*fields);
  reader.address(r.address, "bico inválido");
  reader.number(r.counter, "contador inválido");
  reader.moment(r.end, "data inválida");
  reader.number(r.seconds, "segundos inválidos");
  reader.figure(r.litres, "litros inválidos");
  reader.figure(r.price, "preço inválido");
  reader.figure(r.total, "total inválido");
  reader.figure(r.totaliser, "encerrante inválido");
  if (reader.refusal()) return *reader.refusal();
  if (auto refusal = check_figures(r)) return *refusal;
  return r;
}

std::optional<Refusal> contradiction(const Reading& r, const NozzleState& state) {
  const Currency before = r.totaliser - r.litres;
  if (r.totaliser <= state.totaliser) {
    return "encerrante recua: de " + decimal(state.totaliser) + " para " + decimal(r.totaliser);
  }
  if (before > state.totaliser) {
    return "encerrante com salto: faltam " + decimal(before - state.totaliser) + " litros depois de " +
           decimal(state.totaliser);
  }
  if (before < state.totaliser) {
    return "encerrante sobrepõe " + decimal(state.totaliser - before) + " litros já registrados";
  }
  if (r.end < state.last_end) return "término anterior ao último abastecimento do bico: " + state.last_end.iso();
  return std::nullopt;
}

}  // namespace posto::flows
