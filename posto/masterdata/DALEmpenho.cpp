#include "posto/masterdata/DALEmpenho.h"

#include "posto/core/sql.h"

namespace posto {

Recordset DALEmpenho::rsItens() {
  return routine("rsItens", [&] {
    return open(sql(R"(
        SELECT   A.*, B.Nm_Produto
        FROM     ItemEmpenho A
                 INNER JOIN Produto B On A.Cd_Produto = B.Cd_Produto
        WHERE    A.Cd_PessoaUsuaria = {} And
                 A.Cd_Cliente = {} And
                 A.Id_Empenho = '{}'
        ORDER BY A.No_Item)",
                    ObVO->Cd_PessoaUsuaria, ObVO->Cd_Cliente, ObVO->Id_Empenho));
  });
}

}  // namespace posto
