// The servers that may stand behind a driver, and how the engine speaks with each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "posto/engines/odbc/failures.h"
#include "posto/engines/session.h"
#include "posto/tsql/compiled.h"

namespace posto::odbc {

// The plan of a statement is what `ask` answers between the commands before and behind it.
struct Explaining {
  std::vector<std::string> before;
  std::string ask;
  std::vector<std::string> behind;
};

struct Server {
  std::string_view dbms;  // as its drivers name it
  std::string_view name;  // as failures name it
  tsql::WriteStatement write;
  // Whether it gets a statement as the library composed it, its values in the text; otherwise it gets the writer's text
  // and the values apart.
  bool to_the_letter;
  std::string_view opening;  // what a new connection is told, or empty
  std::string_view station;  // gives a row where the database is a station's
  // What the server must know of the session.
  std::string (*settings)(const EngineSession& session);
  // Gives a number above 0 while the transaction stands, or is empty: failures end no transaction there.
  std::string_view transactions_open;
  std::string_view identity;             // gives the number that was generated last; empty: an INSERT gives it itself
  std::vector<std::string> (*schema)();  // what makes a station of an empty database
  Explaining (*explain)(const tsql::CompiledStatement& statement, std::string_view text);
  Told (*told)(const Report& report);
};

// The server of that name; null where it is not known.
const Server* server_named(std::string_view dbms);

// The type, in the writer's SQL, as which the value of a parameter is sent.
std::string_view sent_type(const tsql::Parameter& parameter);

}  // namespace posto::odbc
