// Lines that take over what their product says.
#pragma once

#include <string_view>

#include "posto/core/entity.h"
#include "posto/core/mapper.h"

namespace posto {

// `Line` is an entity whose value object has Cd_PessoaUsuaria and Cd_Produto.
template <class Line>
class LineOfProduct : public Line {
 public:
  using Line::Line;

  // Reads the line's product into the value object: the columns that both have (rates, tax situation, unit). Raises
  // 0x80040201 without Cd_PessoaUsuaria and Cd_Produto, 0x80040202 with the line's table in parentheses when there is
  // no such product; the flag resets the value object before they are raised. Errors 13, 438 and 440 go on at the next
  // statement.
  auto& ConsultarProduto(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false) {
    this->routine("ConsultarProduto", [&] {
      static constexpr std::string_view kProduct[] = {"Cd_PessoaUsuaria", "Cd_Produto"};
      const bool reset = Ic_RestaurarDefaulSeNaoEcontrarRegistro;
      Recordset product = this->open_by_key("Produto", this->has_values(kProduct) ? Names(kProduct) : Names(), reset);
      this->require_record(product, this->description().table, reset);
      read_record(product, this->vo());
      product.Close();
    });
    return *this->ObVO;
  }
};

}  // namespace posto
