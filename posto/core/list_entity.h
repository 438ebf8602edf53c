// The list classes: one operation that gives all rows of a table.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "posto/core/entity.h"

namespace posto {

// A list class, of whose description the table, the first key set and the order of the list count. The values of the
// keys are those of the settings' user company. Failures take the road of the entities.
template <const Description& kDescription>
class ListEntity : private EntityBase {
 public:
  ListEntity() : EntityBase(kDescription) {}
  explicit ListEntity(std::shared_ptr<VOSistema> settings) : EntityBase(kDescription, std::move(settings)) {}

  using EntityBase::ObVOSistema;
  using EntityBase::statement;

  // The rows in their order, detached.
  Recordset ConsultarTodasRs() {
    return routine("ConsultarTodasRs", [&] {
      const std::string_view order[] = {kDescription.list.order};
      return detached(
          sqlSelect(*ObVOSistema, kDescription.table, vo(), {}, kDescription.keys[0].names(), {}, {}, order));
    });
  }

 private:
  ValueObject vo() override { return by_name(*ObVOSistema->ObVOEmpresaUsuaria); }
};

}  // namespace posto
