#include "posto/masterdata/DALCartao.h"

#include "posto/core/sql.h"

namespace posto {

std::int16_t DALCartao::QuantidadeDePendencias() {
  return routine("QuantidadeDePendencias", [&] {
    Recordset rs = read(sql(R"(
        SELECT Count(Cd_Cartao) As Qt_Pendencia
        FROM VendaCartaoPorCupomFiscal
        INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria
        And CupomFiscal.No_Impressora = VendaCartaoPorCupomFiscal.No_Impressora
        And CupomFiscal.No_CupomFiscal = VendaCartaoPorCupomFiscal.No_CupomFiscal
        And CupomFiscal.Dt_Emissao = VendaCartaoPorCupomFiscal.Dt_Emissao
        WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = {}
        And Tp_Venda = 11
        And VendaCartaoPorCupomFiscal.Cd_TipoCartao = {}
        And VendaCartaoPorCupomFiscal.Cd_Cartao = {}
        And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
        And CupomFiscal.FL_Fechada = 'N')",
                            ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoCartao, ObVO->Cd_Cartao));
    return rs["Qt_Pendencia"].as<std::int16_t>();
  });
}

Recordset DALCartao::rsPendencias() {
  return routine("rsPendencias", [&] {
    return detached(sql(R"(
        SELECT VendaCartaoPorCupomFiscal.*
        FROM VendaCartaoPorCupomFiscal
        INNER JOIN CupomFiscal On CupomFiscal.Cd_PessoaUsuaria = VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria
        And CupomFiscal.No_Impressora = VendaCartaoPorCupomFiscal.No_Impressora
        And CupomFiscal.No_CupomFiscal = VendaCartaoPorCupomFiscal.No_CupomFiscal
        And CupomFiscal.Dt_Emissao = VendaCartaoPorCupomFiscal.Dt_Emissao
        WHERE VendaCartaoPorCupomFiscal.Cd_PessoaUsuaria = {}
        And VendaCartaoPorCupomFiscal.Cd_TipoCartao = {}
        And VendaCartaoPorCupomFiscal.Cd_Cartao = {}
        And VendaCartaoPorCupomFiscal.Ic_Aprovado = 0
        And CupomFiscal.FL_Fechada = 'N'
        And CupomFiscal.Tp_Venda = 11)",
                        ObVO->Cd_PessoaUsuaria, ObVO->Cd_TipoCartao, ObVO->Cd_Cartao));
  });
}

}  // namespace posto
