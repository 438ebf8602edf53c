// What a call raises, for tests of failures.
#pragma once

#include <cstdint>

#include "posto/types/erro.h"

namespace posto {

// The number of the failure that `call` raises; 0 when it raises none.
template <class Call>
std::int32_t raised(Call&& call) {
  try {
    call();
  } catch (const Erro& failure) {
    return failure.number();
  }
  return 0;
}

}  // namespace posto
