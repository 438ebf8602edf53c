#include "posto/masterdata/catalogue.h"

namespace posto {

template class Entity<VOBairro, kBairro>;
template class Entity<VOGrupoProduto, kGrupoProduto>;
template class Entity<VOSequenciadorGeral, kSequenciadorGeral>;

}  // namespace posto
