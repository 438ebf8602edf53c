// Records that are deleted by a mark and stay in their table.
#pragma once

#include "posto/core/entity.h"
#include "posto/core/mapper.h"

namespace posto {

// An entity whose table has Ic_Excluido: Consultar finds live records only. Everything else is Entity's.
template <class VO, const Description& kDescription>
class LiveEntity : public Entity<VO, kDescription> {
 public:
  using Entity<VO, kDescription>::Entity;

  // As Entity's; a deleted record counts as not there.
  VO& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false) {
    this->routine("Consultar", [&] {
      const bool reset = Ic_RestaurarDefaulSeNaoEcontrarRegistro;
      const Names key = this->key_for(EntityBase::Purpose::read);
      if (key.empty()) this->raise_missing(reset);
      Recordset record;
      tolerant(
          [&] { record = this->open(sqlSelect2(*this->ObVOSistema, kDescription.table, this->vo(), {}, key, false)); });
      this->require_record(record, kDescription.table, reset);
      read_record(record, this->vo());
      record.Close();
    });
    return *this->ObVO;
  }
};

}  // namespace posto
