// Fiscal codes of operations.
#pragma once

#include "posto/masterdata/catalogue.h"

namespace posto {

// Standard operations (core/entity.h). The list shows "5.102 - VENDA DE MERCADORIA": the code with its thousands apart.
class DALCFOP : public Entity<VOCFOP, kCFOP> {
 public:
  using Entity::Entity;

 protected:
  void list_record(ListItems& items, Recordset& record) override;
};

}  // namespace posto
