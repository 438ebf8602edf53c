#include "posto/schema/value_object.h"

#include "posto/schema/accounting.h"
#include "posto/schema/closing.h"
#include "posto/schema/fiscal.h"
#include "posto/schema/forecourt.h"
#include "posto/schema/masterdata.h"
#include "posto/schema/stock.h"
#include "posto/schema/treasury.h"
#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {

VoLayout::VoLayout(std::string_view type_name, std::span<const Property> properties, void (*reset_object)(void*))
    : type_name_(type_name), properties_(properties), reset_(reset_object) {
  for (const Property& p : properties_) {
    exact_.emplace(p.name, &p);
    folded_.emplace(ascii_lower(p.name), &p);
  }
}

const Property* VoLayout::find(std::string_view name) const {
  if (auto hit = exact_.find(name); hit != exact_.end()) return hit->second;
  auto hit = folded_.find(ascii_lower(name));
  return hit == folded_.end() ? nullptr : hit->second;
}

namespace {

const Property& required(const VoLayout& layout, std::string_view name) {
  if (const Property* p = layout.find(name)) return *p;
  throw Erro(erro::kUnknownMember, std::string(layout.type_name()),
             "O objeto não possui a propriedade " + std::string(name));
}

// Calls `use` with the member's type as a tag.
template <class Use>
decltype(auto) with_member(const ValueObject& vo, const Property& p, Use use) {
  switch (p.type) {
    case SqlType::bit:
      return use(vo.member<bool>(p));
    case SqlType::byte:
      return use(vo.member<std::uint8_t>(p));
    case SqlType::int16:
      return use(vo.member<std::int16_t>(p));
    case SqlType::int32:
      return use(vo.member<std::int32_t>(p));
    case SqlType::float32:
      return use(vo.member<float>(p));
    case SqlType::float64:
      return use(vo.member<double>(p));
    case SqlType::money:
      return use(vo.member<Currency>(p));
    case SqlType::date:
      return use(vo.member<Date>(p));
    case SqlType::text:
      break;
  }
  return use(vo.member<std::string>(p));
}

}  // namespace

Variant ValueObject::get(const Property& property) const {
  return with_member(*this, property, [](const auto& member) { return Variant(member); });
}

void ValueObject::let(const Property& property, const Variant& value) const {
  with_member(*this, property, [&](auto& member) { member = value.as<std::remove_cvref_t<decltype(member)>>(); });
}

Variant ValueObject::get(std::string_view name) const { return get(required(*layout_, name)); }
void ValueObject::let(std::string_view name, const Variant& value) const { let(required(*layout_, name), value); }

#include "posto/schema/def.h"
#define TABLE(table)                       \
  template <>                              \
  const VoLayout& layout_of<VO##table>() { \
    using Vo = VO##table;                  \
    static constexpr Property kProperties[] = {
#define KEY(type, name) {#name, SqlType::type, 0, offsetof(Vo, name)},
#define KEY_TEXT(name, width) {#name, SqlType::text, width, offsetof(Vo, name)},
#define KEY_IDENTITY KEY
#define IDENTITY KEY
#define COL KEY
#define TEXT KEY_TEXT
#define REQ KEY
#define REQ_TEXT KEY_TEXT
#define ZERO KEY
#define PROP KEY
#define INDEX(...)
#define UNIQUE(...)
#define INDEX_WHILE_ZERO(...)
#define END_TABLE(table)                                                                                            \
  }                                                                                                                 \
  ;                                                                                                                 \
  static const VoLayout layout("VO" #table, kProperties, [](void* o) { static_cast<Vo*>(o)->RestaurarDefault(); }); \
  return layout;                                                                                                    \
  }
#include "posto/schema/all_tables.def"
#include "posto/schema/undef.h"

}  // namespace posto
