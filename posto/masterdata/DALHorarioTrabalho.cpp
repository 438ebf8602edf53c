#include "posto/masterdata/DALHorarioTrabalho.h"

namespace posto {

void DALHorarioTrabalho::list_record(ListItems& items, Recordset& record) {
  // stored as they are shown: "hh:nn:ss"
  auto time = [&](std::string_view column) { return record[column].value_or<std::string>(""); };
  items.add(record["Nm_HorarioTrabalho"].Value());
  items.add("(de:" + time("Hr_Inicial_AI") + " a " + time("Hr_Final_AI") + ") - (de:" + time("Hr_Inicial_DI") + " a " +
                time("Hr_Final_DI"),
            record["Cd_HorarioTrabalho"].Value());
}

}  // namespace posto
