// Classes of the fiscal sales that are a template and nothing else: one line of facts each.
#pragma once

#include "posto/core/describe.h"
#include "posto/core/list_entity.h"
#include "posto/schema/fiscal.h"

namespace posto {

// Lines of purchase notes, which hang on the note's No_Entrada.
POSTO_DESCRIPTION(ItemNotaEntrada, keys("Cd_PessoaUsuaria", "No_Entrada", "No_Item"), by_query_of("No_Entrada = 0"))
using DALItemNotaEntrada = Entity<VOItemNotaEntrada, kItemNotaEntrada>;

// The company's places of sale, by number.
inline constexpr Description kPonVens{
    .class_name = "DALPonVens", .table = "PonVen", .keys = {{"Cd_PessoaUsuaria"}}, .list = {.order = "Cd_PonVen"}};
using DALPonVens = ListEntity<kPonVens>;

// The kinds of receipt, by name.
inline constexpr Description kTiposRecebimento{
    .class_name = "DALTiposRecebimento", .table = "TipoRecebimento", .list = {.order = "Nm_TipoRecebimento"}};
using DALTiposRecebimento = ListEntity<kTiposRecebimento>;

}  // namespace posto
