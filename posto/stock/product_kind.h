// Codes of Produto.No_Tipo.
#pragma once

#include <cstdint>

namespace posto {

inline constexpr std::uint8_t kGoods = 1, kService = 2;

}  // namespace posto
