#include "posto/core/search_attribute.h"

namespace posto {

SearchAttribute search_attribute(const Column& column) {
  const std::int32_t type = column.type == SqlType::text   ? SearchAttribute::kText
                            : column.type == SqlType::date ? SearchAttribute::kDate
                                                           : SearchAttribute::kNumber;
  return {.name = std::string(column.name), .type = type};
}

}  // namespace posto
