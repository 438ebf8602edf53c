// Whether a record is there.
#pragma once

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

}  // namespace posto::flows
