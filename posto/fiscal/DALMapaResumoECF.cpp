#include "posto/fiscal/DALMapaResumoECF.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

std::string six_places(std::int32_t number) { return format_number(number, "######"); }

}  // namespace

// The company's coupons of the printer and day; `prefix` is the alias with its point, or nothing.
std::string DALMapaResumoECF::of_day(std::string_view prefix, std::string_view printer) const {
  return sql(R"(
      {}Cd_PessoaUsuaria = {}
      And {}No_Impressora = {}
      And {}Dt_Movimento = {})",
             prefix, ObVO->Cd_PessoaUsuaria, prefix, printer, prefix, day_literal());
}

std::string DALMapaResumoECF::prorated_discount(std::string_view printer, std::string_view condition) const {
  return sql(R"(
      (SELECT Round(Sum(D.Qt_Unidade * D.Vl_AltFinalCupom),2)
      FROM ItemCupomFiscal D
      INNER JOIN CupomFiscal E On D.Cd_PessoaUsuaria = E.Cd_PessoaUsuaria
      And D.No_Impressora = E.No_Impressora
      And D.No_CupomFiscal = E.No_CupomFiscal
      And D.Dt_Emissao = E.Dt_Emissao
      WHERE {}{}))",
             of_day("E.", printer), condition);
}

Recordset DALMapaResumoECF::Rs_SomaVendasCFAgrupadosPorECF() {
  return routine("Rs_SomaVendasCFAgrupadosPorECF", [&] {
    const std::int32_t company = ObVO->Cd_PessoaUsuaria;
    execute(sql(R"(
        UPDATE CupomFiscal
        SET Vl_Isentas = 0
        WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And CupomFiscal.Dt_Movimento = {})",
                company, day_literal()));
    execute(sql(R"(
        UPDATE CupomFiscal
        SET Vl_Isentas = (SELECT SUM(Round(ItemCupomFiscal.Qt_Unidade * ItemCupomFiscal.Vl_UnitVenda,2))
        FROM ItemCupomFiscal
        INNER JOIN Produto On Produto.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria
        And Produto.Cd_Produto = ItemCupomFiscal.Cd_Produto
        WHERE ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria
        And ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora
        And ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal
        And ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao
        And ItemCupomFiscal.No_SitTributaria = '040'
        And Produto.No_Tipo = 1)
        WHERE CupomFiscal.Cd_PessoaUsuaria = {}
        And CupomFiscal.Dt_Movimento = {})",
                company, day_literal()));
    const std::string printer = six_places(ObVO->No_Impressora);
    return detached(sql(R"(
        SELECT No_Impressora,
        IsNull(Min(No_CupomFiscal),0) As MinimoDeNo_CupomFiscal,
        IsNull(Max(No_CupomFiscal),0) As MaximoDeNo_CupomFiscal,
        IsNull(Min(Vl_GTotal),0) As MinimoDeVl_GTotal,
        IsNull(Max(Vl_GTotal),0) As MaximoDeVl_GTotal,
        IsNull(Max(Vl_Cancelamentos),0) As MaximoDeVl_Cancelamentos,
        IsNull(Sum(Vl_Isentas),0) As SomaDeVl_Isentas,
        IsNull(Sum(Vl_SubTrib),0) As SomaDeVl_SubTrib,
        IsNull(Sum(Vl_DescontoCF),0) As SomaDeVl_DescontoCF,
        IsNull(Sum(Vl_TotSer),0) As SomaDeVl_TotSer,
        IsNull(Sum(Vl_DesAcr),0) As SomaDeVl_DesAcr,
        (SELECT Sum(B.Vl_DesAcr)
        FROM CupomFiscal B
        WHERE {}
        And B.Vl_DesAcr > 0) As Vl_Descontos,
        (SELECT Sum(C.Vl_DesAcr) * -1
        FROM CupomFiscal C
        WHERE {}
        And C.Vl_DesAcr < 0) As Vl_Acrescimos,
        {} As Vl_DescontoFinalCupom,
        {} As Vl_DescontoFinalCupomST,
        {} As Vl_DescontoFinalCupomTributado
        FROM CupomFiscal
        WHERE {}
        GROUP BY No_Impressora)",
                        of_day("B.", printer), of_day("C.", printer), prorated_discount(printer, {}),
                        prorated_discount(printer, "\rAnd Cast(D.No_TribIcms As Int) = 6"),
                        prorated_discount(printer, "\rAnd Cast(D.No_TribIcms As Int) = 0"), of_day({}, printer)));
  });
}

Recordset DALMapaResumoECF::coupons_from(std::string_view condition) {
  return detached(sql(R"(
      SELECT *
      FROM CupomFiscal
      WHERE Cd_PessoaUsuaria = {}
      And No_Impressora = {}
      And {} {}
      ORDER BY No_CupomFiscal)",
                      ObVO->Cd_PessoaUsuaria, ObVO->No_Impressora, condition, day_literal()));
}

Recordset DALMapaResumoECF::rsCupomFiscais() {
  return routine("rsCupomFiscais", [&] { return coupons_from("Dt_Movimento ="); });
}

Recordset DALMapaResumoECF::rsCupomFiscaisDataMovimentoEProximoDia() {
  return routine("rsCupomFiscaisDataMovimentoEProximoDia", [&] { return coupons_from("Dt_Emissao >="); });
}

Recordset DALMapaResumoECF::rsCupomFiscaisComDescontoFinalCupom() {
  return routine("rsCupomFiscaisComDescontoFinalCupom", [&] {
    return detached(sql(R"(
        SELECT Cd_PessoaUsuaria, No_Impressora, No_CupomFiscal, Dt_Emissao, Vl_DescontoCF, Vl_TotalLiquido, Vl_DescontoCF,
        Vl_DescontoCF / (Vl_TotalLiquido + Vl_DescontoCF) As Vl_FatorDescontoFinalCupom
        FROM CupomFiscal
        WHERE {}
        And Vl_DescontoCF > 0)",
                        of_day({}, six_places(ObVO->No_Impressora))));
  });
}

bool DALMapaResumoECF::RatearDescontoFinalCupom(std::int32_t Cd_PessoaUsuaria, std::int32_t No_Impressora,
                                                std::int32_t No_CupomFiscal, Date Dt_Emissao,
                                                double Vl_FatorDescontoFinalCupom) {
  return routine("RatearDescontoFinalCupom", [&] {
    execute(sql(R"(
        UPDATE ItemCupomFiscal
        SET Vl_AltFinalCupom = Vl_UnitVenda * {}
        WHERE Cd_PessoaUsuaria = {}
        And No_Impressora = {}
        And No_CupomFiscal = {}
        And Dt_Emissao = {})",
                SubstituirVirgulaPorPonto(format_number(Vl_FatorDescontoFinalCupom, "########0.000000000000")),
                six_places(Cd_PessoaUsuaria), six_places(No_Impressora), six_places(No_CupomFiscal),
                DateSemHoraToSql(Dt_Emissao, *ObVOSistema)));
    return true;
  });
}

bool DALMapaResumoECF::ZerarDescontoFinalCupomNulo([[maybe_unused]] std::int32_t Cd_PessoaUsuaria, Date Dt_Emissao) {
  return routine("ZerarDescontoFinalCupomNulo", [&] {
    execute(sql(R"(
        UPDATE ItemCupomFiscal
        SET Vl_AltFinalCupom = 0
        WHERE Dt_Emissao Between {} And {}
        And Vl_AltFinalCupom Is Null)",
                DateSemHoraToSql(Dt_Emissao.plus_days(-1), *ObVOSistema),
                DateSemHoraToSql(Dt_Emissao.plus_days(1), *ObVOSistema)));
    return true;
  });
}

}  // namespace posto
