// Classes that are the standard entity and nothing else: one line of facts each.
#pragma once

#include "posto/core/entity.h"
#include "posto/schema/masterdata.h"

namespace posto {

inline constexpr Description kBairro{.class_name = "DALBairro",
                                     .table = "Bairro",
                                     .keys = {{"Cd_Bairro"}},
                                     .sequence = {"Cd_Bairro"},
                                     .empty_query = "Cd_Bairro = 0",
                                     .list = {"Cd_Bairro", "Nm_Bairro", "Nm_Bairro"}};
using DALBairro = Entity<VOBairro, kBairro>;

inline constexpr Description kGrupoProduto{.class_name = "DALGrupoProduto",
                                           .table = "GrupoProduto",
                                           .keys = {{"Cd_GrupoProduto"}},
                                           .sequence = {"Cd_GrupoProduto"},
                                           .empty_query = "Cd_GrupoProduto = 0",
                                           .list = {"Cd_GrupoProduto", "Nm_GrupoProduto", "Nm_GrupoProduto"}};
using DALGrupoProduto = Entity<VOGrupoProduto, kGrupoProduto>;

inline constexpr Description kSequenciadorGeral{
    .class_name = "DALSequenciadorGeral", .table = "SequenciadorGeral", .keys = {{"Nm_Atributo"}}};
using DALSequenciadorGeral = Entity<VOSequenciadorGeral, kSequenciadorGeral>;

}  // namespace posto
