#include "program/caixa_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "posto/core/enumerations.h"
#include "posto/types/number_pattern.h"
#include "posto/types/text.h"
#include "program/answer.h"

namespace posto::program {
namespace {

constexpr std::string_view kCount = "###,###,##0";

// The captions of figures that are no amounts.
constexpr std::pair<std::string_view, std::string_view> kPatterns[] = {
    {"ENCER.FINAL", kQuantity}, {"ENCER.INICIAL", kQuantity}, {"VENDA LITROS", kQuantity},
    {"LITROS", kQuantity},      {"QUANT.", kQuantity},        {"PREÇO", "###,##0.00##"}};

std::string moment_text(Date moment) { return format_date(moment, "dd/mm/yyyy hh:Nn:Ss"); }

}  // namespace

std::string shift_title(const ShiftPapers& papers) {
  const VOCaixa& shift = papers.shift;
  const std::string employee =
      papers.employee.empty() ? fmt::format("funcionário {}", shift.Cd_Funcionario) : papers.employee;
  return fmt::format("CAIXA {}: {}, turno {} de {}", shift.Cd_Caixa, employee, format_number(shift.No_Sequencial, "00"),
                     format_date(shift.Dt_Abertura, "dd/mm/yyyy"));
}

std::string shift_history(const ShiftPapers& papers) {
  const VOCaixa& shift = papers.shift;
  std::string text = "Aberto às " + shift.Hr_Abertura;
  if (!shift.Dt_Fechamento.empty()) text += "; fechado em " + moment_text(shift.Dt_Fechamento);
  if (!shift.Dt_Conferencia.empty()) text += "; conferido em " + moment_text(shift.Dt_Conferencia);
  if (!papers.checker.empty()) text += " por " + papers.checker;
  return text;
}

std::vector<SettlementLine> settlement_lines(const VOCaixa& shift) {
  const auto debit = [](const char* name, Currency amount) { return SettlementLine{name, amount, {}}; };
  const auto credit = [](const char* name, Currency amount) { return SettlementLine{name, {}, amount}; };
  return {debit("Vendas de combustíveis", shift.Vl_VendaCombustiveis),
          debit("Vendas de produtos", shift.Vl_VendaProdutos),
          debit("Vendas de serviços", shift.Vl_VendaServicos),
          debit("Descontos nos cupons", -shift.Vl_DescontoCupons),
          debit("Contas recebidas", shift.Vl_ContasRecebidas),
          debit("Abastecimentos pendentes", shift.Vl_AbastecimentosPendentes),
          debit("Suprimentos", shift.Vl_Suprimento),
          debit("Outros débitos", shift.Vl_OutrosDebitos),
          credit("Recebimentos", shift.Vl_Recebimentos),
          credit("Vendas a crédito", shift.Vl_VendaACredito),
          credit("Outros créditos", shift.Vl_OutrosCreditos),
          {"Soma", shift.Vl_SomaDebitos, shift.Vl_SomaCreditos, true},
          debit("Falta nas sangrias", shift.Vl_FaltaSangrias),
          credit("Sobra nas sangrias", shift.Vl_SobraSangrias)};
}

std::string difference_text(Currency difference) {
  if (difference == Currency()) return "Sem diferença";
  return difference < Currency() ? "Faltam " + money_text(-difference) : "Sobram " + money_text(difference);
}

std::string money_text(const std::optional<Currency>& amount) {
  return amount ? format_number(*amount, kMoney) : std::string();
}

std::string_view value_pattern(const flows::SummaryGroup& group, std::size_t column) {
  const std::string& caption = group.heads[column + 1];
  const bool whole = std::ranges::all_of(group.rows, [&](const auto& row) {
    return !row.values[column] || row.values[column]->scaled() % Currency::kScale == 0;
  });
  if (caption == "QUANT." && whole) return kCount;
  for (const auto& [known, pattern] : kPatterns) {
    if (known == caption) return pattern;
  }
  return kMoney;
}

bool is_shown(const flows::SummaryGroup& group, std::size_t column) { return trim(group.heads[column + 1]) != "-"; }

}  // namespace posto::program
