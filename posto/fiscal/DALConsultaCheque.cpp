#include "posto/fiscal/DALConsultaCheque.h"

#include "posto/core/mapper.h"

namespace posto {

std::string DALConsultaCheque::reading(bool reset_when_missing) {
  const Names key = key_for(Purpose::read);
  if (key.empty()) raise_missing(reset_when_missing);
  const bool by_line = key.size() == 1;
  return sqlSelect(*ObVOSistema, "ConsultaCheque", vo(), {}, key) +
         (by_line ? "-- ConsultaCheque_03\r" : "-- ConsultaCheque_01\r");
}

VOConsultaCheque& DALConsultaCheque::Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  routine("Consultar", [&] {
    const std::string statement = reading(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    Recordset record;
    tolerant([&] { record = open(statement); });
    require_record(record, "ConsultaCheque", Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    read_record(record, vo());
    record.Close();
  });
  return *ObVO;
}

bool DALConsultaCheque::Existe(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro) {
  return routine("Existe", [&] {
    const bool there = !read(reading(Ic_RestaurarDefaulSeNaoEcontrarRegistro)).EOF();
    if (!there && Ic_RestaurarDefaulSeNaoEcontrarRegistro) vo().RestaurarDefault();
    return there;
  });
}

}  // namespace posto
