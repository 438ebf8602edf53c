// ODBC's connection strings: "Driver={FreeTDS};Server=posto1;UID=caixa;PWD=...".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace posto::odbc {

class ConnectionString {
 public:
  // What is no "key=value" is left out.
  explicit ConnectionString(std::string_view text);

  // The value behind a key, blind to case and without the braces around it; nothing when the key is not there.
  std::optional<std::string> find(std::string_view key) const;
  // Gives a key that is there already another value, or adds it; the value stands in braces where it must.
  void set(std::string_view key, std::string_view value);
  void remove(std::string_view key);
  std::string text() const;

  // Whether a driver or a data source is named.
  bool opens_odbc() const;
  // With "***" in place of a password.
  std::string shown() const;

 private:
  std::vector<std::pair<std::string, std::string>> entries_;  // values as they stand
};

}  // namespace posto::odbc
