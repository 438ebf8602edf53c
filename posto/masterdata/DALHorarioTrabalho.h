// Working hours of a shift, in two stretches.
#pragma once

#include "posto/masterdata/catalogue.h"

namespace posto {

// Standard operations (core/entity.h). The list shows two items a record: the name, without a key, and
// "(de:08:00:00 a 12:00:00) - (de:14:00:00 a 18:00:00" with the key.
class DALHorarioTrabalho : public Entity<VOHorarioTrabalho, kHorarioTrabalho> {
 public:
  using Entity::Entity;

 protected:
  void list_record(ListItems& items, Recordset& record) override;
};

}  // namespace posto
