// What the database must hold beside the tables: the collation of text, and the functions by which PostgreSQL answers
// as the dialect wants.
#pragma once

#include <string>
#include <string_view>

namespace posto::postgres {

// Statements that create it in an empty database, in a schema "posto" apart from the tables. A function that refuses a
// value raises one of our own SQLSTATEs (failures.h) with a message for a person.
extern const std::string_view kCreateFunctions;

// All that an empty database needs, the tables and indexes of the catalogue too, as one script: all of it or nothing.
// `partitioned`: the tables that grow by company are partitioned by it, with a procedure posto.empresa(company) that
// gives a company partitions of its own, empresa_N."T", before its first row.
std::string creating_script(bool partitioned = false);

}  // namespace posto::postgres
