// Questions about coupons: fuel and odometers, lines by ledger movement and by fuelling, sales without an invoice.
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"
#include "posto/fiscal/DALCupomFiscal.h"
#include "posto/types/number_pattern.h"

namespace posto {
namespace {

std::string figure(Currency value) { return format_number(value, "########0.0#####", kPointLocale); }

// Lines with their coupon and their product, as fuel is asked for.
std::string lines_of_fuel() {
  return sql(R"(
      FROM     ItemCupomFiscal A
               INNER JOIN CupomFiscal B On A.Cd_PessoaUsuaria = B.Cd_PessoaUsuaria And
                                           A.No_Impressora = B.No_Impressora And
                                           A.No_CupomFiscal = B.No_CupomFiscal And
                                           A.Dt_Emissao = B.Dt_Emissao
               INNER JOIN Produto C On A.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                       A.Cd_Produto = C.Cd_Produto)");
}

// Lines with their coupon, as fuellings are asked for.
std::string lines_of_coupons() {
  return sql(R"(
      FROM     ItemCupomFiscal
               INNER JOIN CupomFiscal On ItemCupomFiscal.Cd_PessoaUsuaria = CupomFiscal.Cd_PessoaUsuaria And
                                         ItemCupomFiscal.No_Impressora = CupomFiscal.No_Impressora And
                                         ItemCupomFiscal.No_CupomFiscal = CupomFiscal.No_CupomFiscal And
                                         ItemCupomFiscal.Dt_Emissao = CupomFiscal.Dt_Emissao)");
}

// The lines of ledger movements with their product.
std::string lines_of_ledger(std::string_view codes) {
  return sql(R"(
      FROM     ItemCupomFiscal A
               INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                       B.Cd_Produto = A.Cd_Produto
      WHERE    A.Cd_LancamentoCardex in ({}) And
               A.Ic_Excluido = 0)",
             codes);
}

}  // namespace

Recordset DALCupomFiscal::Rs_CuponsNaoConcluidos(Date Dt_UltimoMovimento, std::int32_t No_Impressora) {
  return routine("Rs_CuponsNaoConcluidos", [&] {
    return detached(sql(R"(
        SELECT   A.*
        FROM     CupomFiscal A
        WHERE    A.Cd_PessoaUsuaria = {} AND
                 A.Dt_Movimento >= {} AND
                 A.No_Impressora = {} And
                 A.Ic_Excluido = 0
        ORDER BY A.No_CupomFiscal)",
                        ObVO->Cd_PessoaUsuaria, day(Dt_UltimoMovimento), No_Impressora));
  });
}

std::int32_t DALCupomFiscal::No_UltimoKm() {
  return routine("No_UltimoKm", [&] {
    Recordset last = read(sql(R"(
        SELECT   TOP 1 B.No_Km
        {}
        WHERE    A.Cd_PessoaUsuaria = {} And
                 B.Cd_Veiculo = '{}' And
                 C.Fl_VendBomba <> 0 And
                 A.Dt_Emissao <= {} And
                 A.No_CupomFiscal < {} And
                 B.No_Km > 0 And
                 A.Ic_Excluido = 0 And
                 B.Ic_Excluido = 0
        ORDER BY B.Dt_Emissao Desc, B.Hr_Emissao Desc)",
                              lines_of_fuel(), ObVO->Cd_PessoaUsuaria, ObVO->Cd_Veiculo, day(ObVO->Dt_Emissao),
                              ObVO->No_CupomFiscal));
    return last.EOF() ? 0 : last["No_Km"].value_or(std::int32_t{0});
  });
}

float DALCupomFiscal::Qt_Combustivel() {
  return routine("Qt_Combustivel", [&] {
    Recordset fuel = read(sql(R"(
        SELECT   Sum(A.Qt_Unidade) As SomaDeQt_Unidade
        {}
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Dt_Emissao = {} And
                 A.No_CupomFiscal = {} And
                 C.Fl_VendBomba <> 0 And
                 A.Ic_Excluido = 0 And
                 B.Ic_Excluido = 0)",
                              lines_of_fuel(), ObVO->Cd_PessoaUsuaria, day(ObVO->Dt_Emissao), ObVO->No_CupomFiscal));
    return fuel.EOF() ? 0.0f : fuel["SomaDeQt_Unidade"].value_or(0.0f);
  });
}

void DALCupomFiscal::GravarConsumoCombustivel(float Qt_KmPorLitro) {
  routine("GravarConsumoCombustivel", [&] {
    constexpr std::uint8_t kDecimals = 3;
    require_key();
    const std::string statement = sql(R"(
        UPDATE ItemCupomFiscal
        SET    Qt_KmPorLitro = {}
        WHERE  {})",
                                      SingleToSql(Qt_KmPorLitro, kDecimals), key_of(""));
    std::string lines;  // which end in carriage return and line feed in this statement alone
    for (char c : statement) lines.append(c == '\r' ? "\r\n" : std::string(1, c));
    execute(std::move(lines));
  });
}

Recordset DALCupomFiscal::ItensPeloKardexRs(std::string_view inCd_LancamentoCardex) {
  return routine("ItensPeloKardexRs", [&] {
    return detached(sql(R"(
        SELECT   A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade,
                 A.Vl_UnitVenda, Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total
        {}
        ORDER BY A.Dt_Emissao, A.No_CupomFiscal;)",
                        lines_of_ledger(inCd_LancamentoCardex)));
  });
}

Recordset DALCupomFiscal::ItensPeloKardexSomadosPorProdutoRs(std::string_view inCd_LancamentoCardex) {
  return routine("ItensPeloKardexSomadosPorProdutoRs", [&] {
    return detached(sql(R"(
        SELECT   B.Cd_Produto, B.Nm_Produto, Sum(A.Qt_Unidade) As SomaDeQt_Unidade, A.Vl_UnitVenda,
                 Round(Sum(A.Qt_Unidade) * A.Vl_UnitVenda,2) As Vl_Total
        {}
        GROUP BY B.Cd_Produto, A.Vl_UnitVenda;)",
                        lines_of_ledger(inCd_LancamentoCardex)));
  });
}

Recordset DALCupomFiscal::CuponsSemEmissaoDeNfRs(std::int32_t Cd_PessoaUsuaria, std::int32_t Cd_Produto,
                                                 Date Dt_EmissaoInicial, Date Dt_EmissaoFinal,
                                                 Currency Qt_UnidadeInicial, Currency Qt_UnidadeFinal,
                                                 Currency Vl_UnitVenda, std::int32_t Cd_Cliente,
                                                 std::int32_t Cd_TipoRecebimento, std::int32_t Qt_Recebimento) {
  return routine("CuponsSemEmissaoDeNfRs", [&] {
    const Currency zero;
    std::string conditions;
    auto add = [&](bool asked, const std::string& condition) {
      if (asked) conditions += "\r" + condition;
    };
    add(Cd_Produto > 0, sql("And B.Cd_Produto = {}", Cd_Produto));
    add(!Dt_EmissaoInicial.empty() && !Dt_EmissaoFinal.empty(),
        sql("And A.Dt_Emissao Between {} And {}", day(Dt_EmissaoInicial), day(Dt_EmissaoFinal)));
    add(Qt_UnidadeInicial > zero && Qt_UnidadeFinal > zero,
        sql("And A.Qt_Unidade Between {} And {}", figure(Qt_UnidadeInicial), figure(Qt_UnidadeFinal)));
    add(Vl_UnitVenda > zero, sql("And A.Vl_UnitVenda = {}", figure(Vl_UnitVenda)));
    add(Cd_Cliente > 0, sql("And E.Cd_Cliente = {}", Cd_Cliente));
    add(true, "And (E.No_NF = 0 or E.No_NF Is Null)\rAnd E.Tp_Venda = 21");
    add(Cd_TipoRecebimento > 0, sql(R"(
        And Exists(Select * From RecebimentoCupom C
                          INNER JOIN Recebimento D On D.Cd_PessoaUsuaria = C.Cd_PessoaUsuaria And
                                                      D.No_Recebimento = C.No_Recebimento
                   Where  C.No_Impressora = A.No_Impressora And
                          C.No_CupomFiscal = A.No_CupomFiscal And
                          C.Dt_Emissao = A.Dt_Emissao And
                          D.Cd_TipoRecebimento = {}))",
                                    Cd_TipoRecebimento));
    add(Qt_Recebimento > 0, sql(R"(
        And (Select Count(*) From ItemCupomFiscal E
             Where  E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                    E.No_Impressora = A.No_Impressora And
                    E.No_CupomFiscal = A.No_CupomFiscal And
                    E.Dt_Emissao = A.Dt_Emissao) = {})",
                                Qt_Recebimento));
    return detached(sql(R"(
        SELECT   A.No_Impressora, A.Dt_Emissao, A.No_CupomFiscal, B.Cd_Produto, B.Nm_Produto, A.Qt_Unidade,
                 A.Vl_UnitVenda, Round(A.Qt_Unidade * A.Vl_UnitVenda,2) As Vl_Total, A.Cd_Abastecimento
        FROM     ItemCupomFiscal A
                 INNER JOIN Produto B On B.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                         B.Cd_Produto = A.Cd_Produto
                 INNER JOIN CupomFiscal E On E.Cd_PessoaUsuaria = A.Cd_PessoaUsuaria And
                                             E.No_Impressora = A.No_Impressora And
                                             E.No_CupomFiscal = A.No_CupomFiscal And
                                             E.Dt_Emissao = A.Dt_Emissao
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Ic_Excluido = 0 And
                 E.Ic_Excluido = 0{}
        ORDER BY Round(A.Qt_Unidade * A.Vl_UnitVenda,2);)",
                        Cd_PessoaUsuaria, conditions));
  });
}

Recordset DALCupomFiscal::ObterItensPeloCodigoAbastecimento(std::string_view InCd_Abastecimento) {
  return routine("ObterItensPeloCodigoAbastecimento", [&] {
    return detached(sql(R"(
        SELECT   ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
                 CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms,
                 Produto.No_Tipo, Sum(ItemCupomFiscal.Qt_Unidade) As SomaDeQt_Unidade, ItemCupomFiscal.Vl_UnitVenda
        {}
                 INNER JOIN Produto On ItemCupomFiscal.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And
                                       ItemCupomFiscal.Cd_Produto = Produto.Cd_Produto
        WHERE    ItemCupomFiscal.Cd_Abastecimento In({}) And
                 ItemCupomFiscal.Ic_Excluido = 0 And
                 CupomFiscal.Ic_Excluido = 0
        GROUP BY ItemCupomFiscal.Cd_Produto, ItemCupomFiscal.No_SitTributaria, ItemCupomFiscal.Tx_Icms,
                 CupomFiscal.Fl_IssRetido, ItemCupomFiscal.Tx_BaseCalculo, ItemCupomFiscal.No_TribIcms,
                 Produto.No_Tipo, ItemCupomFiscal.Vl_UnitVenda)",
                        lines_of_coupons(), InCd_Abastecimento));
  });
}

Recordset DALCupomFiscal::ObterCuponsFiscaisPeloCodigoAbastecimento(std::string_view InCd_Abastecimento) {
  return routine("ObterCuponsFiscaisPeloCodigoAbastecimento", [&] {
    return detached(sql(R"(
        SELECT   Distinct CupomFiscal.Cd_PessoaUsuaria, CupomFiscal.No_Impressora, CupomFiscal.No_CupomFiscal,
                 CupomFiscal.Dt_Emissao
        {}
        WHERE    ItemCupomFiscal.Cd_Abastecimento In({}) And
                 ItemCupomFiscal.Ic_Excluido = 0 And
                 CupomFiscal.Ic_Excluido = 0)",
                        lines_of_coupons(), InCd_Abastecimento));
  });
}

Recordset DALCupomFiscal::rsAbastecimentos() {
  return routine("rsAbastecimentos", [&] {
    return detached(sql(R"(
        SELECT   Bomba.Ds_Bomba, Bomba.Ds_Bico, Bomba.Cd_Bomba,
                 Abastecimento.No_EncerranteFechamento - Abastecimento.Qt_Litros As No_EncerranteAbertura,
                 Abastecimento.No_EncerranteFechamento
        FROM     ItemCupomFiscal
                 INNER JOIN Abastecimento On Abastecimento.Cd_PessoaUsuaria = ItemCupomFiscal.Cd_PessoaUsuaria And
                                             Abastecimento.Cd_Abastecimento = ItemCupomFiscal.Cd_Abastecimento
                 INNER JOIN Bomba On Bomba.Cd_PessoaUsuaria = Abastecimento.Cd_PessoaUsuaria And
                                     Bomba.De_EnderecoLogicoBico = Abastecimento.De_EnderecoLogicoBico
        WHERE    {})",
                        key_of("ItemCupomFiscal.")));
  });
}

}  // namespace posto
