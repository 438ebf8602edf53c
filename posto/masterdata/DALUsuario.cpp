#include "posto/masterdata/DALUsuario.h"

#include "posto/core/mapper.h"

namespace posto {

VOUsuario& DALUsuario::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  routine("Consultar", [&] {
    const Names key = key_for(Purpose::read);
    if (key.empty()) raise_missing(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    Recordset login = open(sqlSelect(*ObVOSistema, "Usuario", vo(), {}, key));
    if (login.EOF()) {
      if (Ic_RestaurarDefaulSeNaoEcontrarRegistro) ObVO->RestaurarDefault();
      raise_described(erro::kRecordNotFound, "Senha ou usuario invalido");
    }
    read_record(login, vo());
    login.Close();
  });
  return *ObVO;
}

}  // namespace posto
