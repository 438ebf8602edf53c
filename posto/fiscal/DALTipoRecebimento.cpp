#include "posto/fiscal/DALTipoRecebimento.h"

#include "posto/core/mapper.h"
#include "posto/core/sql.h"

namespace posto {

VOTipoRecebimento& DALTipoRecebimento::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  if (ObVO->Cd_TipoRecebimento != 0) return Entity::Consultar(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
  routine("Consultar", [&] {
    Recordset record;
    tolerant([&] {
      record = open(sql(R"(
          SELECT *
          FROM TipoRecebimento
          WHERE No_TipoPagamento = {}
          AND No_TipoVencimento = {}
          AND Fl_DisNaVenda = 1)",
                        ObVO->No_TipoPagamento, ObVO->No_TipoVencimento));
    });
    require_record(record, "TipoRecebimento", Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    read_record(record, vo());
  });
  return *ObVO;
}

void DALTipoRecebimento::CarregarComboBox(LateBound& Ob_ComboBox, std::string_view Ds_Condicao) {
  load_list_of(Ob_ComboBox, sql(R"(
       SELECT *
       FROM TipoRecebimento
       {}
       ORDER BY Nm_TipoRecebimento )",
                                Ds_Condicao));
}

}  // namespace posto
