// What stands in a station already.
#pragma once

#include <string>

#include "flows/station.h"
#include "posto/core/error_vocabulary.h"

namespace posto::flows {

// Runs a Consultar: false where it ends in "no such record".
template <class Read>
bool stands(Read read) {
  try {
    read();
    return true;
  } catch (const Erro& failure) {
    if (failure.number() != erro::kRecordNotFound) throw;
    return false;
  }
}

// The code of a product by its bar code; 0 where there is none.
std::int32_t product_of(Station& station, const std::string& bar_code);

}  // namespace posto::flows
