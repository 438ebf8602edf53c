#include "posto/fiscal/DALCuponsFiscais.h"

#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto {

Recordset DALCuponsFiscais::rsItensParaEmissaoNFServicosCupons(Date Dt_Emissao) {
  return routine("rsItensParaEmissaoNFServicosCupons", [&] {
    return detached(sql(R"(
        SELECT   A.Cd_PessoaUsuaria, A.Cd_Produto, Sum(A.Qt_Unidade) AS SomaDeQt_Unidade, A.Vl_UnitVenda, A.Cd_Unidade
        FROM     ItemCupomFiscal AS A
                 INNER JOIN CupomFiscal AS B ON (A.Dt_Emissao = B.Dt_Emissao) AND
                                                (A.No_CupomFiscal = B.No_CupomFiscal) AND
                                                (A.No_Impressora = B.No_Impressora)
        WHERE    A.Cd_PessoaUsuaria= {} AND
                 A.Dt_Emissao={} AND
                 A.Fl_Tipo='SERVIcO' AND
                 B.No_TipoEnvioNF=1 AND
                 A.Ic_Excluido = 0 AND
                 B.Ic_Excluido = 0
        GROUP BY A.Cd_PessoaUsuaria, A.Cd_Produto, A.Vl_UnitVenda, A.Cd_Unidade, A.Dt_Emissao)",
                        tenant(), DateSemHoraToSql(Dt_Emissao, *ObVOSistema)));
  });
}

}  // namespace posto
