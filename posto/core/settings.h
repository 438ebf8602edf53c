// The workstation's settings as data: the properties that hold them, and for each the section and key under which it is
// stored and the text that stands there. settings.def lists them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "posto/core/enumerations.h"
#include "posto/schema/value_object.h"

namespace posto {

// The properties; those of the base of VOSistema.
struct StoredSettings {
#define SECTION(name)
#define SECTION_AS(name, written)
#define VALUE(type, name, ...) member_t<SqlType::type> name{__VA_ARGS__};
#define PASSWORD(name) std::string name;
#define ENCIPHERED(type, name) member_t<SqlType::type> name{};
#define ENCIPHERED_AS(type, name, written) ENCIPHERED(type, name)
#define ENCIPHERED_BY_MODULE ENCIPHERED
#define IN_SOURCE_FILE PASSWORD
#include "posto/core/settings.def"
  bool operator==(const StoredSettings&) const = default;
};
template <>
const VoLayout& layout_of<StoredSettings>();

// How a setting is stored.
enum class Kept : std::uint8_t { clear, password, enciphered, enciphered_by_module, source_file };

struct Setting {
  std::string_view section;
  std::string_view key;  // the property's name too
  std::string_view written_section, written_key;
  Kept kept;
  const Property* property;

  bool enciphered() const { return kept == Kept::enciphered || kept == Kept::enciphered_by_module; }
  bool secret() const { return enciphered() || kept == Kept::password; }  // shown only when asked for
  std::string name() const { return std::string(section).append(".").append(key); }
};

// All settings in the order in which they are read and written.
std::span<const Setting> all_settings();
// Blind to case; null when there is no such setting.
const Setting* find_setting(std::string_view section, std::string_view key);

// The value that a stored text stands for: a number; "Verdadeiro", "True", "Falso", "False" or a number for a boolean;
// a date in the form below, or yyyy-mm-dd with or without a time. Raises 13 when the text does not read as the
// setting's type and 6 when it does not fit; the description names the setting and tells nothing of the text.
Variant setting_value(const Setting& setting, std::string_view text);

// The text that is stored for a value: plain digits, "Verdadeiro" or "Falso", a date as "dd/mm/yyyy hh:nn:ss" without
// the time at midnight and without the day on the zero day.
std::string setting_text(const Variant& value);

}  // namespace posto
