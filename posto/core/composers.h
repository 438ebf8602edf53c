// Statements composed from names of columns and the values that a value object holds under these names.
//
// They compose for SQL Server only: under any other Cd_BD the result is the empty text. Lines end in a carriage return
// alone. A key that the value object does not have raises 438 with the step " -> DALModulo.<routine>, " on its source.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "posto/core/sistema.h"
#include "posto/schema/value_object.h"

namespace posto {

// Column names or select expressions in their order; absent and empty are the same.
using Names = std::span<const std::string_view>;

// SELECT of the fields (all when none are named) FROM the table WHERE every key equals its value, with the parts that
// are given behind it. Fields, groups and order stand as they are written. The value of a key is written by its type:
// text in quotes, not escaped; whole numbers; money and float64 with ONE decimal; dates in the settings' format;
// booleans as "<> 0" and "= 0". A float32 key writes nothing but its separator. `having` is composed like the keys;
// there float64 and booleans write nothing either.
std::string sqlSelect(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names fields,
                      Names keys, Names groups = {}, Names having = {}, Names order = {});

// The same on a table with a column Ic_Excluido: leaves the deleted records out unless `include_deleted`. Without a key
// that condition stands in front of its WHERE, which the server refuses: callers always give a key.
std::string sqlSelect2(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names fields,
                       Names keys, bool include_deleted, Names groups = {}, Names having = {}, Names order = {});

// DELETE of the rows whose keys equal their values. Money is written in full here; a float or boolean key writes
// nothing but its separator.
std::string sqlDelete(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names keys);

// The logical delete: UPDATE that sets Ic_Excluido to true, with the conditions of sqlDelete.
std::string sqlIndicadorExcluido(const VOSistema& settings, std::string_view table, const ValueObject& vo, Names keys);

// Reads a property by its name. False, with `value` empty, when there is none.
bool LerPropriedadeVO(const ValueObject& vo, std::string_view name, Variant& value);

}  // namespace posto
