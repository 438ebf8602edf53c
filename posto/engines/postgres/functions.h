// What the database must hold beside the tables: the collation of text, and the functions by which PostgreSQL answers
// as the dialect wants.
#pragma once

#include <string_view>

namespace posto::postgres {

// Everything of ours in the database stands in this schema, apart from the tables.
inline constexpr std::string_view kSchema = "posto";

// Statements that create it in an empty database. A function that refuses a value raises one of our own SQLSTATEs
// (failures.h) with a message for a person.
std::string_view create_functions();

}  // namespace posto::postgres
