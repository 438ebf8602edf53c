#include "posto/fiscal/DALConsultaCheque.h"

namespace posto {

bool DALConsultaCheque::Existe(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  return routine("Existe", [&] {
    const Names key = key_for(Purpose::read);
    if (key.empty()) raise_missing(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    const bool there = !read(sqlSelect(*ObVOSistema, "ConsultaCheque", vo(), {}, key)).EOF();
    if (!there && Ic_RestaurarDefaulSeNaoEcontrarRegistro) vo().RestaurarDefault();
    return there;
  });
}

}  // namespace posto
