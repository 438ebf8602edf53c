// What the database must hold beside the tables: the collation of text, and the functions by which PostgreSQL answers
// as the dialect wants.
#pragma once

#include <string_view>

namespace posto::postgres {

// Statements that create it in an empty database, in a schema "posto" apart from the tables. A function that refuses a
// value raises one of our own SQLSTATEs (failures.h) with a message for a person.
extern const std::string_view kCreateFunctions;

}  // namespace posto::postgres
