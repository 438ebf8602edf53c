#include "flows/printer_day.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALECF.h"
#include "posto/fiscal/DALMapaResumoECF.h"
#include "posto/fiscal/DALReducaoZ.h"
#include "posto/services/clock.h"

namespace posto::flows {
namespace {

struct Totaliser {
  std::uint8_t kind = 0;  // 0 is ICMS
  Currency rate{}, value{};
  bool taken() const { return kind != 0 || rate != Currency(); }
};
constexpr std::size_t kTotalisers = 16;
using PrinterTotalisers = std::array<Totaliser, kTotalisers>;

std::string column(const char* prefix, std::size_t i) { return fmt::format("{}{:02}", prefix, i + 1); }

void write_totalisers(const ValueObject& vo, const PrinterTotalisers& totalisers) {
  for (std::size_t i = 0; i < kTotalisers; ++i) {
    vo.let(column("Tp_T", i), std::int32_t{totalisers[i].kind});
    vo.let(column("Al_T", i), totalisers[i].rate);
    vo.let(column("Vl_T", i), totalisers[i].value);
  }
}

void set_key(auto& vo, const Station& station, const PrinterDayFigures& figures) {
  vo.Cd_PessoaUsuaria = station.tenant();
  vo.No_Impressora = static_cast<std::uint8_t>(figures.printer);
  vo.Dt_Movimento = figures.day;
}

void save(auto& record) {
  if (record.Existe()) {
    record.Alterar();
  } else {
    record.Incluir();
  }
}

// Where a figure of the map is another than the coupons'.
void compare(std::vector<std::string>& findings, const char* what, Currency map, Currency coupons) {
  if (map == coupons) return;
  findings.push_back(fmt::format("{}: no mapa {}, nos cupons {}, diferença {}", what, shown(map), shown(coupons),
                                 shown(map - coupons)));
}

Currency totals_by_rate(const VOMapaResumoECF& map) {
  Currency sum;
  ValueObject vo = by_name(const_cast<VOMapaResumoECF&>(map));
  for (std::size_t i = 0; i < kTotalisers; ++i) {
    if (vo.get(column("Tp_T", i)).as<std::int32_t>() == 0) sum += vo.get(column("Vl_T", i)).as<Currency>();
  }
  return sum;
}

void check(std::vector<std::string>& findings, const VOMapaResumoECF& map, const PrinterDayFigures& f) {
  const Currency gross = map.Vl_GTotalFinal - map.Vl_GTotalInicial;
  compare(findings, "venda bruta", gross, f.gross);
  compare(findings, "cancelamentos", map.Vl_Cancelamentos, f.cancellations);
  compare(findings, "descontos", map.Vl_Descontos, f.reductions_of_gross());
  compare(findings, "venda líquida", gross - map.Vl_Cancelamentos - map.Vl_Descontos, f.net);
  compare(findings, "substituição tributária", map.Vl_SubTrib, f.substitution);
  compare(findings, "isentas", map.Vl_Isentas, f.exempt);
  compare(findings, "não incidência", map.Vl_NaoIncidencia, f.not_liable);
  compare(findings, "serviços", map.Vl_Servicos, f.services);
  Currency taxed;
  for (const auto& [rate, amount] : f.by_rate) taxed += amount;
  compare(findings, "alíquotas", totals_by_rate(map), taxed);
  const Currency charged = f.net + f.withheld + f.altered;  // of the lines
  const Currency missed = f.net_lines() - charged;
  if (missed > f.proration || -missed > f.proration) {
    findings.push_back(fmt::format("totalizadores: somam {}, os cupons {}, e o rateio dos descontos só explica {}",
                                   shown(f.net_lines()), shown(charged), shown(f.proration)));
  }
}

class Reduction {
 public:
  Reduction(Station& station, PrinterDay& day)
      : station_(station), day_(day), map_(station.settings), reduction_(station.settings) {
    set_key(*map_.ObVO, station, day.figures);
    set_key(*reduction_.ObVO, station, day.figures);
  }

  void prorate() {
    const std::int32_t company = station_.tenant();
    for (Recordset coupon = map_.rsCupomFiscaisComDescontoFinalCupom(); !coupon.EOF(); coupon.MoveNext()) {
      map_.RatearDescontoFinalCupom(company, day_.figures.printer, coupon["No_CupomFiscal"].as<std::int32_t>(),
                                    coupon["Dt_Emissao"].as<Date>(), coupon["Vl_FatorDescontoFinalCupom"].as<double>());
    }
    map_.ZerarDescontoFinalCupomNulo(company, day_.figures.day);
  }

  void write() {
    read_totalisers();
    fill_map();
    fill_reduction();
    save(map_);
    save(reduction_);
    day_.map = *map_.ObVO;
  }

 private:
  const PrinterDayFigures& figures() const { return day_.figures; }

  // The printer's totalisers with the day's sales.
  void read_totalisers() {
    DALECF printer(station_.settings);
    printer.ObVO->Cd_PessoaUsuaria = station_.tenant();
    printer.ObVO->No_Impressora = static_cast<std::uint8_t>(figures().printer);
    if (stands([&] { printer.Consultar(); })) order_ = printer.ObVO->No_OrdemUsuario;
    bool has_any = false;
    for (std::size_t i = 0; i < kTotalisers; ++i) {
      const ValueObject vo = by_name(*printer.ObVO);
      totalisers_[i].kind = vo.get(column("Tp_T", i)).as<std::uint8_t>();
      totalisers_[i].rate = vo.get(column("Al_T", i)).as<Currency>();
      has_any = has_any || totalisers_[i].taken();
    }
    for (const auto& [rate, amount] : figures().by_rate) add_rate(rate, has_any);
    add_services();
  }

  void add_rate(Currency rate, bool printer_has_any) {
    auto at = std::find_if(totalisers_.begin(), totalisers_.end(),
                           [&](const Totaliser& t) { return t.kind == 0 && t.rate == rate && rate != Currency(); });
    if (at == totalisers_.end() && rate != Currency()) {
      at = std::find_if(totalisers_.begin(), totalisers_.end(), [](const Totaliser& t) { return !t.taken(); });
      if (printer_has_any) find("a impressora não tem totalizador da alíquota " + shown(rate) + "%");
    }
    if (at == totalisers_.end()) {
      find("vendas tributadas a " + shown(rate) + "% não cabem em nenhum totalizador");
      return;
    }
    const auto aside = figures().aside.find(rate);
    at->rate = rate;
    at->value = map_.ConsultaVendaParaAliquota(rate);
    if (aside != figures().aside.end()) at->value -= aside->second;
  }

  void add_services() {
    if (figures().services == Currency()) return;
    const auto at =
        std::find_if(totalisers_.begin(), totalisers_.end(), [](const Totaliser& t) { return t.kind != 0; });
    if (at == totalisers_.end()) {
      find("a impressora não tem totalizador de serviços");
    } else {
      at->value = figures().services;
    }
  }

  // The printer's day before, for the figures that go on.
  VOMapaResumoECF day_before() const {
    DALMapaResumoECF before(station_.settings);
    set_key(*before.ObVO, station_, figures());
    if (!stands([&] { before.ConsultarAnterior(true); })) before.ObVO->RestaurarDefault();
    return *before.ObVO;
  }

  void fill_map() {
    VOMapaResumoECF& vo = *map_.ObVO;
    const PrinterDayFigures& f = figures();
    const VOMapaResumoECF before = day_before();
    Recordset totals = map_.Rs_SomaVendasCFAgrupadosPorECF();
    vo.No_CupomFiscalInicial = totals["MinimoDeNo_CupomFiscal"].as<std::int32_t>();
    vo.No_CupomFiscalFinal = totals["MaximoDeNo_CupomFiscal"].as<std::int32_t>();
    vo.Qt_ContReducoes = std::max(f.reductions, before.Qt_ContReducoes + 1);
    vo.Vl_GTotalFinal = totals["MaximoDeVl_GTotal"].as<Currency>();
    vo.Vl_GTotalInicial = before.Cd_PessoaUsuaria != 0 ? before.Vl_GTotalFinal : vo.Vl_GTotalFinal - f.gross;
    vo.Vl_SubTrib = f.substitution;
    vo.Vl_Isentas = f.exempt;
    vo.Vl_NaoIncidencia = f.not_liable;
    vo.Vl_Cancelamentos = totals["MaximoDeVl_Cancelamentos"].as<Currency>();
    vo.Vl_Descontos = f.reductions_of_gross();
    vo.Vl_Servicos = f.services;
    read_log();
    write_totalisers(by_name(vo), totalisers_);
  }

  // The printer's count of documents, and its non-fiscal ones of cash.
  void read_log() {
    map_.ObVO->Qt_ContOperacoes = map_.ObVO->No_CupomFiscalFinal;
    Recordset document = station_.connection().Execute(sql(R"(
        SELECT No_COO, Ic_Sangria, Ic_Suprimento, Vl_Documento
        FROM   LogDocumentoEmitidoECF
        WHERE  Cd_PessoaUsuaria = {} And
               No_Impressora = {} And
               Dt_Emissao = {})",
                                                           station_.tenant(), figures().printer,
                                                           DateSemHoraToSql(figures().day, *station_.settings)));
    for (; !document.EOF(); document.MoveNext()) {
      map_.ObVO->Qt_ContOperacoes = std::max(map_.ObVO->Qt_ContOperacoes, document["No_COO"].value_or(0));
      const bool cash = document["Ic_Sangria"].as<bool>() || document["Ic_Suprimento"].as<bool>();
      if (cash) non_fiscal_ += document["Vl_Documento"].value_or(Currency());
    }
  }

  void fill_reduction() {
    VOReducaoZ& vo = *reduction_.ObVO;
    const PrinterDayFigures& f = figures();
    if (stands([&] { reduction_.Consultar(true); })) {
      const Date issued = vo.Dt_EmissaoReducaoZ;
      vo.RestaurarDefault();
      vo.Dt_EmissaoReducaoZ = issued;
    } else {
      vo.Dt_EmissaoReducaoZ = clock_now();
    }
    set_key(vo, station_, f);
    const VOMapaResumoECF& map = *map_.ObVO;
    vo.No_OrdemUsuario = order_;
    vo.Qt_ContReducoes = map.Qt_ContReducoes;
    vo.Qt_ContOperacoes = map.Qt_ContOperacoes;
    vo.Vl_GTotalFinal = map.Vl_GTotalFinal;
    vo.Vl_SubTribICMS = f.substitution;
    vo.Vl_IsentasICMS = f.exempt;
    vo.Vl_NaoIncidenciaICMS = f.not_liable;
    vo.Vl_TotalizadoresNaoFiscais = non_fiscal_;
    vo.Vl_DescontosISS = f.services_discount;
    vo.Vl_DescontosICMS = f.discounts - f.services_discount;
    vo.Vl_AcrescimosICMS = f.surcharges;
    vo.Vl_CancelamentosISS = f.services_cancelled;
    vo.Vl_CancelamentosICMS = map.Vl_Cancelamentos - f.services_cancelled;
    write_totalisers(by_name(vo), totalisers_);
  }

  void find(std::string finding) { day_.findings.push_back(std::move(finding)); }

  Station& station_;
  PrinterDay& day_;
  DALMapaResumoECF map_;
  DALReducaoZ reduction_;
  PrinterTotalisers totalisers_;
  std::int32_t order_ = 0;
  Currency non_fiscal_;
};

void check_all(PrinterDay& day) {
  day.findings.insert(day.findings.end(), day.figures.findings.begin(), day.figures.findings.end());
  if (day.map) check(day.findings, *day.map, day.figures);
}

}  // namespace

PrinterDay reduce_printer_day(Station& station, std::int32_t printer, Date day) {
  PrinterDay result;
  in_transaction(station, [&] {
    result = {.figures = {.printer = printer, .day = day}};
    Reduction reduction(station, result);
    reduction.prorate();
    result.figures = printer_day_figures(station, printer, day);
    if (result.figures.coupons > 0) reduction.write();
  });
  if (result.figures.coupons == 0) result.findings.emplace_back("não há cupons da impressora neste dia");
  check_all(result);
  return result;
}

PrinterDay printer_day(const Station& station, std::int32_t printer, Date day) {
  PrinterDay result{.figures = printer_day_figures(station, printer, day)};
  DALMapaResumoECF map(station.settings);
  set_key(*map.ObVO, station, result.figures);
  if (stands([&] { map.Consultar(); })) {
    result.map = *map.ObVO;
  } else {
    result.findings.emplace_back("não há mapa resumo: a redução não foi feita");
  }
  check_all(result);
  return result;
}

}  // namespace posto::flows
