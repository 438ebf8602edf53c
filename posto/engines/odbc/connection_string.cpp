#include "posto/engines/odbc/connection_string.h"

#include <algorithm>

#include "posto/types/text.h"

namespace posto::odbc {
namespace {

// The length of the value that begins `text`: up to a semicolon, or to the brace that ends it.
std::size_t value_length(std::string_view text) {
  if (!text.starts_with('{')) return std::min(text.find(';'), text.size());
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != '}') continue;
    if (i + 1 < text.size() && text[i + 1] == '}') {
      ++i;
    } else {
      return std::min(text.find(';', i), text.size());
    }
  }
  return text.size();
}

std::string without_braces(std::string_view value) {
  if (value.size() < 2 || !value.starts_with('{') || !value.ends_with('}')) return std::string(value);
  std::string bare;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    bare += value[i];
    if (value[i] == '}') ++i;
  }
  return bare;
}

std::string with_braces(std::string_view value) {
  if (value.find_first_of("[]{}(),;?*=!@ ") == std::string_view::npos) return std::string(value);
  std::string braced = "{";
  for (char c : value) {
    braced += c;
    if (c == '}') braced += c;
  }
  return braced + '}';
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
  while (!text.empty()) {
    const std::size_t equals = text.find('='), end = text.find(';');
    if (equals < end) {
      const std::string_view value = text.substr(equals + 1);
      const std::size_t length = value_length(value);
      entries_.emplace_back(trim(text.substr(0, equals)), trim(value.substr(0, length)));
      text = value.substr(length);
    } else {
      text.remove_prefix(std::min(end, text.size()));
    }
    if (!text.empty()) text.remove_prefix(1);
  }
}

std::optional<std::string> ConnectionString::find(std::string_view key) const {
  for (const auto& [name, value] : entries_) {
    if (equal_names(name, key)) return without_braces(value);
  }
  return std::nullopt;
}

void ConnectionString::set(std::string_view key, std::string_view value) {
  for (auto& [name, old] : entries_) {
    if (equal_names(name, key)) {
      old = with_braces(value);
      return;
    }
  }
  entries_.emplace_back(key, with_braces(value));
}

void ConnectionString::remove(std::string_view key) {
  std::erase_if(entries_, [&](const auto& entry) { return equal_names(entry.first, key); });
}

std::string ConnectionString::text() const {
  std::string text;
  for (const auto& [name, value] : entries_) text.append(name).append("=").append(value).append(";");
  return text;
}

bool ConnectionString::opens_odbc() const { return find("Driver") || find("DSN"); }

std::string ConnectionString::shown() const {
  ConnectionString masked = *this;
  for (auto& [name, value] : masked.entries_) {
    if (equal_names(name, "PWD") || equal_names(name, "Password")) value = "***";
  }
  return masked.text();
}

}  // namespace posto::odbc
