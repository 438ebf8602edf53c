#include "posto/masterdata/DALGradeComissao.h"

#include "posto/core/sql.h"

namespace posto {

Recordset DALGradeComissao::rsTodosRegistros() {
  return routine("rsTodosRegistros", [&] {
    return detached(sql(R"(
        SELECT B.Nm_GrupoCliente, C.Nm_GrupoProduto, D.Nm_Funcao, A.Tx_Comissao
        FROM GradeComissao A
        INNER JOIN GrupoCliente B On A.Cd_GrupoCliente = B.Cd_GrupoCliente
        INNER JOIN GrupoProduto C On A.Cd_GrupoProduto = C.Cd_GrupoProduto
        INNER JOIN Funcao D On A.Cd_Funcao = D.Cd_Funcao
        ORDER BY B.Nm_GrupoCliente, C.Nm_GrupoProduto, D.Nm_Funcao, A.Tx_Comissao)"));
  });
}

}  // namespace posto
