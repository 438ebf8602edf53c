#include "posto/core/settings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "posto/tsql/date_literal.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

constexpr Property kProperties[] = {
#define SECTION(name)
#define SECTION_AS(name, written)
#define VALUE(type, name, ...) {#name, SqlType::type, 0, offsetof(StoredSettings, name)},
#define PASSWORD(name) VALUE(text, name)
#define ENCIPHERED VALUE
#define ENCIPHERED_AS VALUE
#define ENCIPHERED_BY_MODULE VALUE
#define IN_SOURCE_FILE PASSWORD
#include "posto/core/settings.def"
};

using Settings = std::array<Setting, std::size(kProperties)>;

constexpr Settings listed_settings() {
  Settings settings{};
  std::size_t count = 0;
  std::string_view section, written_section;
  const auto add = [&](std::string_view key, std::string_view written_key, Kept kept) {
    settings[count] = {section, key, written_section, written_key, kept, &kProperties[count]};
    ++count;
  };
#define SECTION(name) section = written_section = #name;
#define SECTION_AS(name, written) section = #name, written_section = #written;
#define VALUE(type, name, ...) add(#name, #name, Kept::clear);
#define PASSWORD(name) add(#name, #name, Kept::password);
#define ENCIPHERED(type, name) add(#name, #name, Kept::enciphered);
#define ENCIPHERED_AS(type, name, written) add(#name, #written, Kept::enciphered);
#define ENCIPHERED_BY_MODULE(type, name) add(#name, #name, Kept::enciphered_by_module);
#define IN_SOURCE_FILE(name) add(#name, #name, Kept::source_file);
#include "posto/core/settings.def"
  return settings;
}

constexpr Settings kSettings = listed_settings();

Variant boolean_of(std::string_view text) {
  const std::string_view word = trim(text);
  if (equal_names(word, "Verdadeiro")) return true;
  if (equal_names(word, "Falso")) return false;
  return Variant(text).as<bool>();
}

Variant date_of(std::string_view text) {
  static const tsql::DateOrder day_first = tsql::DateOrder::of("dmy");
  const std::string_view moment = trim(text);
  auto date = Date::parse_iso(moment);
  if (!date && moment.find_first_of("/-.") != std::string_view::npos) date = tsql::read_date(moment, day_first);
  if (!date && !moment.empty()) date = tsql::read_date("30/12/1899 " + std::string(moment), day_first);
  if (!date) throw platform_erro(erro::kTypeMismatch);
  return *date;
}

Variant converted(SqlType type, std::string_view text) {
  switch (type) {
    case SqlType::bit:
      return boolean_of(text);
    case SqlType::byte:
      return Variant(text).as<std::uint8_t>();
    case SqlType::int16:
      return Variant(text).as<std::int16_t>();
    case SqlType::int32:
      return Variant(text).as<std::int32_t>();
    case SqlType::date:
      return date_of(text);
    default:
      return text;
  }
}

std::string date_text(Date date) {
  if (date.day().empty()) return format_date(date, "hh:nn:ss");
  return format_date(date, date == date.day() ? "dd/mm/yyyy" : "dd/mm/yyyy hh:nn:ss");
}

}  // namespace

template <>
const VoLayout& layout_of<StoredSettings>() {
  static const VoLayout layout("VOSistema", kProperties, [](void* o) { *static_cast<StoredSettings*>(o) = {}; });
  return layout;
}

std::span<const Setting> all_settings() { return kSettings; }

const Setting* find_setting(std::string_view section, std::string_view key) {
  const auto found = std::ranges::find_if(kSettings, [&](const Setting& setting) {
    return equal_names(setting.section, section) && equal_names(setting.key, key);
  });
  return found == kSettings.end() ? nullptr : &*found;
}

Variant setting_value(const Setting& setting, std::string_view text) {
  try {
    return converted(setting.property->type, text);
  } catch (const Erro& failure) {
    throw platform_erro(failure.number(), setting.name());
  }
}

std::string setting_text(const Variant& value) {
  switch (value.kind()) {
    case VariantKind::Boolean:
      return value.held<bool>() ? "Verdadeiro" : "Falso";
    case VariantKind::Date:
      return date_text(value.held<Date>());
    default:
      return value.as<std::string>();
  }
}

}  // namespace posto
