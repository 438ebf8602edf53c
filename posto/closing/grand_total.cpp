// The day's coupons against what the fiscal printers counted.
#include <limits>

#include "posto/closing/DALFecDiario.h"
#include "posto/closing/coupon_walk.h"
#include "posto/core/sql.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kPrinted = "Causa provável: O cupom foi impresso e não foi salvo no banco de dados.";
constexpr std::string_view kDeleted =
    "Causa provável: O cupom foi excluído na impressora, e continua constando no banco de dados.";

std::string amount(Currency value) { return format_number(value, "###,###,##0.00"); }

// The numbered list of findings.
class Items {
 public:
  // Raises 6 behind the 255th: the number is a byte.
  void add(const std::string& text) {
    if (count_ == std::numeric_limits<std::uint8_t>::max()) throw platform_erro(erro::kOverflow);
    text_ += "\r" + std::string(kLineEnd) + std::to_string(++count_) + ") " + text;
  }
  const std::string& text() const { return text_; }

 private:
  std::uint8_t count_ = 0;
  std::string text_;
};

Currency money(Recordset& row, std::string_view column) { return row[column].value_or(Currency()); }

CouponFigures coupon_figures(Recordset& row) {
  return {.number = row["No_CupomFiscal"].as<std::int32_t>(),
          .net = money(row, "Vl_TotalLiquido"),
          .cancellations = money(row, "Vl_Cancelamentos"),
          .iss_retained = money(row, "Vl_IssRetido"),
          .grand_total = money(row, "Vl_GTotal"),
          .surcharge = money(row, "Vl_DesAcr"),
          .discount = money(row, "Vl_DescontoCF")};
}

std::string told(const CouponWalk::Step& step, std::int32_t coupon, std::int32_t printer) {
  const std::string between =
      step.verdict == CouponVerdict::first_differs
          ? " no primeiro cupom do dia (" + std::to_string(coupon) + ")"
          : " entre os cupons fiscais " + std::to_string(step.previous_coupon) + " e " + std::to_string(coupon);
  const std::string_view cause = step.verdict == CouponVerdict::database_ahead ? kDeleted : kPrinted;
  return "Diferença de: " + amount(step.difference) + between + " da impressora " + std::to_string(printer) + "." +
         std::string(kLineEnd) + std::string(cause);
}

}  // namespace

bool DALFecDiario::VerificarSequenciaDeVendasComGtEcf(Date Dt_Fechamento, std::string& Ds_Resultado) {
  return routine("VerificarSequenciaDeVendasComGtEcf", [&] {
    Recordset maps = maps_of(Dt_Fechamento);
    Currency map_sum;
    for (; !maps.EOF(); maps.MoveNext()) {
      map_sum += money(maps, "Vl_GTotalFinal") - money(maps, "Vl_GTotalInicial") - money(maps, "Vl_Cancelamentos") -
                 money(maps, "Vl_Descontos");
    }
    const Currency coupon_sum = coupon_sum_of(Dt_Fechamento);
    if (map_sum == coupon_sum) return true;
    Items items;
    items.add("O valor das vendas esta divergente: no arquivo de mapa resumo é " + amount(map_sum) +
              " no arquivo de cupom fiscal é " + amount(coupon_sum) + " diferença " + amount(map_sum - coupon_sum) +
              ". ");
    CouponWalk walk;
    if (maps.RecordCount() > 0) maps.MoveFirst();
    for (; !maps.EOF(); maps.MoveNext()) {
      walk.start_printer(money(maps, "Vl_GTotalInicial"), maps["No_CupomFiscalInicial"].value_or(std::int32_t{0}));
      Recordset coupons = coupons_of(maps, Dt_Fechamento);
      for (; !coupons.EOF(); coupons.MoveNext()) {
        const CouponFigures coupon = coupon_figures(coupons);
        const CouponWalk::Step step = walk.take(coupon);
        if (step.verdict == CouponVerdict::fits) continue;
        items.add(told(step, coupon.number, maps["No_Impressora"].as<std::int32_t>()));
      }
    }
    if (!Ds_Resultado.empty()) Ds_Resultado += kLineEnd;
    Ds_Resultado +=
        "Encontrado inconsistência entre os valores das venda no arquivo dos cupons fiscais e mapa resumo, conforme "
        "segue:" +
        items.text();
    return false;
  });
}

// One row a printer and reduction.
Recordset DALFecDiario::maps_of(Date day) {
  return detached(sql(R"(
      SELECT   *
      FROM     MapaResumoECF
      WHERE    Cd_PessoaUsuaria = {} And
               Dt_Movimento = {}
      ORDER BY No_Impressora, Qt_ContReducoes)",
                      ObVO->Cd_PessoaUsuaria, day_literal(day)));
}

Currency DALFecDiario::coupon_sum_of(Date day) {
  Recordset sum = read(sql(R"(
      SELECT   Sum(CupomFiscal.Vl_TotalLiquido) AS SomaDeVl_TotalLiquido
      FROM     CupomFiscal
      WHERE    CupomFiscal.Cd_PessoaUsuaria = {} And
               CupomFiscal.Dt_Movimento={})",
                           ObVO->Cd_PessoaUsuaria, day_literal(day)));
  return money(sum, "SomaDeVl_TotalLiquido");
}

Recordset DALFecDiario::coupons_of(Recordset& map, Date day) {
  return read(sql(R"(
      SELECT   CupomFiscal.*
      FROM     CupomFiscal
               INNER JOIN MapaResumoECF On CupomFiscal.Cd_PessoaUsuaria = MapaResumoECF.Cd_PessoaUsuaria And
                                           CupomFiscal.No_Impressora = MapaResumoECF.No_Impressora And
                                           CupomFiscal.Qt_ContReducoes = MapaResumoECF.Qt_ContReducoes
      WHERE    MapaResumoECF.Cd_PessoaUsuaria = {} And
               MapaResumoECF.Dt_Movimento = {} And
               MapaResumoECF.No_Impressora = {} And
               MapaResumoECF.Qt_ContReducoes = {}
      ORDER BY CupomFiscal.Dt_Emissao, CupomFiscal.No_Impressora, CupomFiscal.Qt_ContReducoes, CupomFiscal.Hr_Emissao, CupomFiscal.No_CupomFiscal)",
                  ObVO->Cd_PessoaUsuaria, day_literal(day), map["No_Impressora"].as<std::int32_t>(),
                  map["Qt_ContReducoes"].as<std::int32_t>()));
}

}  // namespace posto
