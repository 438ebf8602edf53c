#include "flows/shift.h"

#include <fmt/format.h>

#include <algorithm>

#include "flows/conflict.h"
#include "flows/lookup.h"
#include "posto/core/enumerations.h"
#include "posto/core/sql.h"
#include "posto/forecourt/DALBomba.h"
#include "posto/forecourt/DALRespBomba.h"
#include "posto/masterdata/DALFuncionario.h"
#include "posto/masterdata/catalogue.h"
#include "posto/services/clock.h"
#include "posto/treasury/DALCaixa.h"
#include "posto/types/number_pattern.h"

namespace posto::flows {
namespace {

[[noreturn]] void refuse(const std::string& reason) { throw Erro(erro::kRuleViolation, "flows.shift", reason); }

std::string litres_text(double litres) { return format_number(litres, "###,###,##0.000"); }

// The moment as records keep it: to the second.
Date now() {
  const Date moment = clock_now();
  return Date::of_millis(moment.millis() - moment.millis() % 1000);
}

// --- what must be there

void require_state(const VOCaixa& shift, std::int32_t state) {
  if (shift.Cd_Situacao == state) return;
  constexpr std::string_view kStates[] = {"não tem situação", "está aberto", "está fechado", "já foi conferido"};
  const std::size_t known = shift.Cd_Situacao < std::size(kStates) ? shift.Cd_Situacao : 0;
  refuse(fmt::format("O caixa {} {}", shift.Cd_Caixa, kStates[known]));
}

void read_shift(Station& station, DALCaixa& shift, std::int32_t code) {
  shift.ObVO->Cd_PessoaUsuaria = station.tenant();
  shift.ObVO->Cd_Caixa = code;
  shift.Consultar();
}

void require_employee(Station& station, std::int32_t code) {
  DALFuncionario employee(station.settings);
  employee.ObVO->Cd_PessoaUsuaria = station.tenant();
  employee.ObVO->Cd_Funcionario = code;
  employee.Consultar();
}

void require_no_open_shift(Station& station, std::int32_t employee) {
  DALCaixa shift(station.settings);
  shift.ObVO->Cd_PessoaUsuaria = station.tenant();
  shift.ObVO->Cd_Funcionario = employee;
  if (!stands([&] { shift.ConsultarUltimoCaixa(); })) return;
  refuse(fmt::format("O funcionário {} tem o caixa {} aberto desde {}", employee, shift.ObVO->Cd_Caixa,
                     format_date(shift.ObVO->Dt_Abertura, "dd/mm/yyyy")));
}

bool is_open(Station& station, std::int32_t code) {
  DALCaixa shift(station.settings);
  return stands([&] { read_shift(station, shift, code); }) && shift.ObVO->Cd_Situacao == Cd_SituacaoAberto;
}

// --- nozzles

void read_nozzle(Station& station, DALBomba& nozzle, std::int32_t code) {
  if (code < 1 || code > 255) refuse(fmt::format("Não há bico {}", code));
  nozzle.ObVO->Cd_PessoaUsuaria = station.tenant();
  nozzle.ObVO->Cd_Bomba = static_cast<std::uint8_t>(code);
  nozzle.Consultar();
}

struct NozzleTotalisers {
  double electronic, mechanical;
};

// Where nothing was read the totaliser is that of the last delivery, and never before `at_least`.
NozzleTotalisers totalisers_of(DALBomba& nozzle, const NozzleReading& reading, double at_least) {
  const double electronic =
      reading.electronic ? *reading.electronic : std::max(nozzle.UltimoEncerranteEletronico(), at_least);
  const double mechanical = reading.mechanical.value_or(electronic - nozzle.ObVO->Qt_DiferencaEncerranteMecanico);
  if (electronic < 0 || (reading.mechanical && mechanical < 0)) {
    refuse(fmt::format("O encerrante do bico {} é negativo", reading.nozzle));
  }
  return {electronic, mechanical};
}

// Deliveries that are taken in get the shift of their nozzle.
void assign(DALBomba& nozzle, std::int32_t shift) {
  nozzle.ObVO->Cd_Caixa = shift;
  nozzle.Alterar(false, true);
}

void take_nozzle(Station& station, std::int32_t shift, const NozzleReading& reading) {
  DALBomba nozzle(station.settings);
  read_nozzle(station, nozzle, reading.nozzle);
  const std::int32_t holder = nozzle.ObVO->Cd_Caixa;
  if (holder == shift || (holder != 0 && is_open(station, holder))) {
    refuse(fmt::format("O bico {} está com o caixa {}", reading.nozzle, holder));
  }
  const NozzleTotalisers opening = totalisers_of(nozzle, reading, nozzle.ObVO->No_EncerranteInicial);
  DALRespBomba period(station.settings);
  period.ObVO->Cd_PessoaUsuaria = station.tenant();
  period.ObVO->Cd_Caixa = shift;
  period.ObVO->Cd_Bomba = nozzle.ObVO->Cd_Bomba;
  period.ObVO->Dt_RespBomba = now();
  period.ObVO->No_EncerranteEletronicoAbertura = opening.electronic;
  period.ObVO->No_EncerranteMecanicoAbertura = opening.mechanical;
  period.Incluir();
  assign(nozzle, shift);
}

// The opening totaliser of the last period of shift and nozzle; none where there was no period.
std::optional<double> opening_of(Station& station, std::int32_t shift, std::int32_t nozzle) {
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   TOP 1 No_EncerranteEletronicoAbertura
      FROM     RespBomba
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_Caixa = {} And
               Cd_Bomba = {}
      ORDER BY Dt_RespBomba Desc)",
                                                    station.tenant(), shift, nozzle));
  if (rows.EOF()) return std::nullopt;
  return rows["No_EncerranteEletronicoAbertura"].value_or(0.0);
}

void leave_nozzle(Station& station, std::int32_t shift, const NozzleReading& reading) {
  DALBomba nozzle(station.settings);
  read_nozzle(station, nozzle, reading.nozzle);
  if (nozzle.ObVO->Cd_Caixa != shift) refuse(fmt::format("O bico {} não está com o caixa {}", reading.nozzle, shift));
  if (const auto opening = opening_of(station, shift, reading.nozzle)) {
    const NozzleTotalisers closing = totalisers_of(nozzle, reading, *opening);
    if (closing.electronic < *opening) {
      refuse(fmt::format("O encerrante {} do bico {} é menor que o de abertura, {}", litres_text(closing.electronic),
                         reading.nozzle, litres_text(*opening)));
    }
    DALRespBomba period(station.settings);
    period.ObVO->Cd_PessoaUsuaria = station.tenant();
    period.ObVO->Cd_Caixa = shift;
    period.ObVO->Cd_Bomba = nozzle.ObVO->Cd_Bomba;
    period.ObVO->No_EncerranteEletronicoFechamento = closing.electronic;
    period.ObVO->No_EncerranteMecanicoFechamento = closing.mechanical;
    period.FecharResponsabilidade();
  }
  assign(nozzle, 0);
}

// All nozzles that the shift has, by the readings that are given.
void leave_all_nozzles(Station& station, std::int32_t shift, const std::vector<NozzleReading>& readings) {
  for (const NozzleReading& reading : readings) leave_nozzle(station, shift, reading);
  std::vector<std::int32_t> rest;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   Cd_Bomba
      FROM     Bomba
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_Caixa = {}
      ORDER BY Cd_Bomba)",
                                                    station.tenant(), shift));
  for (; !rows.EOF(); rows.MoveNext()) rest.push_back(rows["Cd_Bomba"].as<std::int32_t>());
  for (std::int32_t nozzle : rest) leave_nozzle(station, shift, {.nozzle = nozzle, .electronic = {}, .mechanical = {}});
}

// --- settlement

void enter(VOCaixa& shift, const CashDrops& drops) {
  for (const auto& amount : {drops.missing, drops.surplus}) {
    if (amount && *amount < Currency()) refuse("A falta e a sobra nas sangrias não são negativas");
  }
  shift.Vl_FaltaSangrias = drops.missing.value_or(shift.Vl_FaltaSangrias);
  shift.Vl_SobraSangrias = drops.surplus.value_or(shift.Vl_SobraSangrias);
}

std::vector<CouponMismatch> mismatches(DALCaixa& shift) {
  std::vector<CouponMismatch> found;
  std::string not_used;
  for (Recordset rows = shift.Rs_RecebimentosETroco(not_used); !rows.EOF(); rows.MoveNext()) {
    CouponMismatch& coupon = found.emplace_back();
    coupon.printer = rows["No_Impressora"].as<std::int32_t>();
    coupon.number = rows["No_CupomFiscal"].as<std::int32_t>();
    coupon.day = rows["Dt_Emissao"].as<Date>();
    coupon.total = rows["Vl_TotalLiquido"].as<Currency>();
    const Field receipts = rows["SomaVl_Recebimento"];
    if (!receipts.is_null()) coupon.receipts = receipts.as<Currency>();
  }
  std::ranges::sort(found, {}, [](const auto& c) { return std::tuple(c.day, c.printer, c.number); });
  return found;
}

std::vector<PendingFuelling> pending_fuellings(Station& station, std::int32_t shift) {
  std::vector<PendingFuelling> found;
  Recordset rows = station.connection().Execute(sql(R"(
      SELECT   Cd_Abastecimento, De_EnderecoLogicoBico, Dt_Termino, Qt_Litros, Vl_Total
      FROM     Abastecimento
      WHERE    Cd_PessoaUsuaria = {} And
               Cd_Caixa = {} And
               Ic_Baixado = 0
      ORDER BY Cd_Abastecimento)",
                                                    station.tenant(), shift));
  for (; !rows.EOF(); rows.MoveNext()) {
    found.push_back({.code = rows["Cd_Abastecimento"].as<std::int32_t>(),
                     .address = rows["De_EnderecoLogicoBico"].value_or(std::string()),
                     .end = rows["Dt_Termino"].value_or(Date()),
                     .litres = rows["Qt_Litros"].value_or(0.0),
                     .total = rows["Vl_Total"].value_or(Currency())});
  }
  return found;
}

}  // namespace

VOCaixa open_shift(Station& station, std::int32_t employee, const std::vector<NozzleReading>& nozzles) {
  VOCaixa opened;
  in_transaction(station, [&] {
    require_employee(station, employee);
    require_no_open_shift(station, employee);
    DALCaixa shift(station.settings);
    const Date moment = clock_now();
    shift.ObVO->Cd_PessoaUsuaria = station.tenant();
    shift.ObVO->Cd_Funcionario = employee;
    shift.ObVO->No_Sequencial = shift.ConsultarUltimoSequencial(station.tenant(), employee) + 1;
    shift.ObVO->Dt_Abertura = moment.day();
    shift.ObVO->Hr_Abertura = format_date(moment, "hh:Nn:Ss");
    shift.ObVO->Cd_Situacao = Cd_SituacaoAberto;
    shift.Incluir();
    opened = shift.Consultar();
    for (const NozzleReading& reading : nozzles) take_nozzle(station, opened.Cd_Caixa, reading);
  });
  return opened;
}

void take_nozzles(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles) {
  in_transaction(station, [&] {
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    require_state(*record.ObVO, Cd_SituacaoAberto);
    for (const NozzleReading& reading : nozzles) take_nozzle(station, shift, reading);
  });
}

void leave_nozzles(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles) {
  in_transaction(station, [&] {
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    require_state(*record.ObVO, Cd_SituacaoAberto);
    for (const NozzleReading& reading : nozzles) leave_nozzle(station, shift, reading);
  });
}

void set_divergence(Station& station, std::int32_t shift, std::int32_t kind, Currency amount,
                    const std::string& description) {
  if (amount < Currency()) refuse("O valor da divergência é negativo");
  in_transaction(station, [&] {
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    if (record.ObVO->Cd_Situacao == Cd_SituacaoConferido) require_state(*record.ObVO, Cd_SituacaoAberto);
    DALTipoDivergenciaCaixa known(station.settings);
    known.ObVO->Cd_TipoDivergenciaCaixa = kind;
    known.Consultar();
    DALDivergenciaCaixa divergence(station.settings);
    divergence.ObVO->Cd_Caixa = shift;
    divergence.ObVO->Cd_TipoDivergenciaCaixa = kind;
    if (amount == Currency()) return divergence.Excluir();
    const bool stood = stands([&] { divergence.Consultar(); });
    divergence.ObVO->Vl_Divergencia = amount;
    divergence.ObVO->Ds_Divergencia = description;
    stood ? divergence.Alterar() : divergence.Incluir();
  });
}

VOCaixa settle_shift(Station& station, std::int32_t shift) {
  VOCaixa settled;
  in_transaction(station, [&] {
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    if (record.ObVO->Cd_Situacao != Cd_SituacaoConferido) {
      record.CalcularCaixa();
      record.Alterar();
    }
    settled = *record.ObVO;
  });
  return settled;
}

VOCaixa close_shift(Station& station, std::int32_t shift, const std::vector<NozzleReading>& nozzles,
                    const CashDrops& drops) {
  VOCaixa closed;
  in_transaction(station, [&] {
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    require_state(*record.ObVO, Cd_SituacaoAberto);
    leave_all_nozzles(station, shift, nozzles);
    enter(*record.ObVO, drops);
    record.CalcularCaixa();
    record.ObVO->Cd_Situacao = Cd_SituacaoFechado;
    record.ObVO->Dt_Fechamento = now();
    record.Alterar();
    closed = *record.ObVO;
  });
  return closed;
}

CheckedShift check_shift(Station& station, std::int32_t shift, std::int32_t employee, bool accept_findings,
                         const CashDrops& drops) {
  CheckedShift result;
  in_transaction(station, [&] {
    require_employee(station, employee);
    DALCaixa record(station.settings);
    read_shift(station, record, shift);
    require_state(*record.ObVO, Cd_SituacaoFechado);
    enter(*record.ObVO, drops);
    record.CalcularCaixa();
    result.coupons = mismatches(record);
    result.fuellings = pending_fuellings(station, shift);
    result.checked = accept_findings || (result.coupons.empty() && result.fuellings.empty());
    if (result.checked) {
      record.ObVO->Cd_Situacao = Cd_SituacaoConferido;
      record.ObVO->Dt_Conferencia = now();
      record.ObVO->Cd_FuncionarioConferencia = employee;
    }
    record.Alterar();
    result.shift = *record.ObVO;
  });
  return result;
}

}  // namespace posto::flows
