// Value objects by name: a VO struct (VOBomba, ...) is plain data that can also be read and written by the names of its
// columns, in constant time and without regard to case.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "posto/schema/table.h"
#include "posto/types/variant.h"

namespace posto {

// The members of a VO struct: what a column's type is in memory.
template <>
struct MemberType<SqlType::bit> {
  using type = bool;
};
template <>
struct MemberType<SqlType::byte> {
  using type = std::uint8_t;
};
template <>
struct MemberType<SqlType::int16> {
  using type = std::int16_t;
};
template <>
struct MemberType<SqlType::int32> {
  using type = std::int32_t;
};
template <>
struct MemberType<SqlType::float32> {
  using type = float;
};
template <>
struct MemberType<SqlType::float64> {
  using type = double;
};
template <>
struct MemberType<SqlType::money> {
  using type = Currency;
};
template <>
struct MemberType<SqlType::date> {
  using type = Date;
};
template <>
struct MemberType<SqlType::text> {
  using type = std::string;
};
template <SqlType T>
using member_t = typename MemberType<T>::type;

struct Property {
  std::string_view name;
  SqlType type;
  std::uint16_t width;  // of text: the column's width, 0 for a property without a column
  std::size_t offset;   // of the member in the struct
};

// What a VO type offers by name. One instance a type, alive for the whole run.
class VoLayout {
 public:
  VoLayout(std::string_view type_name, std::span<const Property> properties, void (*reset_object)(void*));
  VoLayout(const VoLayout&) = delete;
  VoLayout& operator=(const VoLayout&) = delete;

  std::string_view type_name() const { return type_name_; }
  std::span<const Property> properties() const { return properties_; }
  const Property* find(std::string_view name) const;  // null when there is none
  void reset(void* object) const { reset_(object); }

 private:
  std::string_view type_name_;
  std::span<const Property> properties_;
  std::unordered_map<std::string_view, const Property*> exact_;  // as spelt
  std::unordered_map<std::string, const Property*> folded_;      // in lower case
  void (*reset_)(void*);
};

// A VO struct whose type is known only at run time. It does not own the object.
class ValueObject {
 public:
  ValueObject(void* object, const VoLayout& layout) : object_(object), layout_(&layout) {}

  const VoLayout& layout() const { return *layout_; }
  void* object() const { return object_; }
  bool has(std::string_view name) const { return layout_->find(name) != nullptr; }
  // The value of a property. Raises 438 for a name that the type does not have.
  Variant get(std::string_view name) const;
  // Sets a property, converted to its type. Raises 438 for an unknown name, 94 for null, 13 and 6 as conversions do.
  void let(std::string_view name, const Variant& value) const;
  // Every property back to its default.
  void RestaurarDefault() const { layout_->reset(object_); }

  Variant get(const Property& property) const;
  void let(const Property& property, const Variant& value) const;
  // The member behind a property whose type is known.
  template <class T>
  T& member(const Property& property) const {
    return *reinterpret_cast<T*>(static_cast<char*>(object_) + property.offset);
  }

 private:
  void* object_;
  const VoLayout* layout_;
};

// The layout of a VO struct; defined for every table of the catalogue.
template <class VO>
const VoLayout& layout_of();

// A VO struct as an object that is asked by name.
template <class VO>
ValueObject by_name(VO& vo) {
  return {&vo, layout_of<VO>()};
}

}  // namespace posto
