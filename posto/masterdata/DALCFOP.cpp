#include "posto/masterdata/DALCFOP.h"

#include "posto/types/number_pattern.h"

namespace posto {

void DALCFOP::list_record(ListItems& items, Recordset& record) {
  auto code = record["Cd_CFOP"].as<std::int32_t>();
  items.add(format_number(code, "###,###") + " - " + record["Ds_Cfop"].value_or<std::string>(""), code);
}

}  // namespace posto
