#include "posto/masterdata/DALCartao.h"

#include "posto/core/sql.h"

namespace posto {
namespace {

std::string card_sales_with_coupons() {
  return sql(R"(
        FROM VendaCartaoPorCupomFiscal
        INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria
        And CupomFiscal.No_Impressora = VendaCartaoPorCupomFiscal.No_Impressora
        And CupomFiscal.No_CupomFiscal = VendaCartaoPorCupomFiscal.No_CupomFiscal
        And CupomFiscal.Dt_Emissao = VendaCartaoPorCupomFiscal.Dt_Emissao)");
}

}  // namespace

std::int16_t DALCartao::QuantidadeDePendencias() {
  return routine("QuantidadeDePendencias", [&] {
    Recordset rs = read(sql(R"(
        SELECT Count(Cd_Cartao) As Qt_Pendencia
        {}
        WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = {}
        And Tp_Venda = 11
        And VendaCartaoPorCupomFiscal.Cd_TipoCartao = {}
        And VendaCartaoPorCupomFiscal.Cd_Cartao = {}
        And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
        And CupomFiscal.FL_Fechada = 'N')",
                            card_sales_with_coupons(), ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoCartao, ObVO->Cd_Cartao));
    return rs["Qt_Pendencia"].as<std::int16_t>();
  });
}

Recordset DALCartao::rsPendencias() {
  return routine("rsPendencias", [&] {
    return detached(sql(R"(
        SELECT VendaCartaoPorCupomFiscal.*
        {}
        WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = {}
        And VendaCartaoPorCupomFiscal.Cd_TipoCartao = {}
        And VendaCartaoPorCupomFiscal.Cd_Cartao = {}
        And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
        And CupomFiscal.FL_Fechada = 'N'
        And CupomFiscal.Tp_Venda = 11)",
                        card_sales_with_coupons(), ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoCartao, ObVO->Cd_Cartao));
  });
}

}  // namespace posto
