// Value objects by name: every property of every type, and the failures.
#include "posto/schema/value_object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "posto/schema/accounting.h"
#include "posto/schema/closing.h"
#include "posto/schema/fiscal.h"
#include "posto/schema/forecourt.h"
#include "posto/schema/masterdata.h"
#include "posto/schema/stock.h"
#include "posto/schema/treasury.h"
#include "posto/types/text.h"
#include "tests/types/raised.h"

namespace posto {
namespace {

// One object of a type that is known only here.
struct Specimen {
  std::string table;
  std::shared_ptr<void> object;
  const VoLayout* layout;

  ValueObject by_name() const { return {object.get(), *layout}; }
};

template <class VO>
Specimen specimen(const char* table) {
  return {table, std::make_shared<VO>(), &layout_of<VO>()};
}

std::vector<Specimen> one_of_each() {
  return {
#include "posto/schema/def.h"
#define TABLE(table) specimen<VO##table>(#table),
#define KEY(type, name)
#define KEY_TEXT(name, n)
#define KEY_IDENTITY(type, name)
#define IDENTITY(type, name)
#define COL(type, name)
#define TEXT(name, n)
#define REQ(type, name)
#define REQ_TEXT(name, n)
#define ZERO(type, name)
#define PROP(type, name)
#define INDEX(...)
#define UNIQUE(...)
#define INDEX_WHILE_ZERO(...)
#define END_TABLE(table)
#include "posto/schema/all_tables.def"
#include "posto/schema/undef.h"
  };
}

// A value of a type that differs from its default and from its neighbours'.
Variant sample(SqlType type, std::int32_t place) {
  switch (type) {
    case SqlType::bit:
      return true;
    case SqlType::byte:
      return static_cast<std::uint8_t>(1 + place % 255);
    case SqlType::int16:
      return static_cast<std::int16_t>(-1 - place);
    case SqlType::int32:
      return 100'000 + place;
    case SqlType::float32:
      return 0.5F + static_cast<float>(place);
    case SqlType::float64:
      return 0.1 + place;
    case SqlType::money:
      return Currency::of_scaled(place + 1);
    case SqlType::date:
      return Date::of_millis(1'000 + place);
    case SqlType::text:
      break;
  }
  return std::string("a text too long to stand within the string itself, ") + std::to_string(place);
}

TEST(ValueObject, EveryPropertyKeepsItsOwnValue) {
  for (const Specimen& s : one_of_each()) {
    const ValueObject vo = s.by_name();
    SCOPED_TRACE(std::string(s.layout->type_name()));
    std::vector<Variant> defaults;
    std::int32_t place = 0;
    for (const Property& p : s.layout->properties()) {
      defaults.push_back(vo.get(p.name));
      vo.let(p.name, sample(p.type, place++));
    }
    // Read only when all are set: a member that lay over another would show here.
    place = 0;
    for (const Property& p : s.layout->properties()) EXPECT_EQ(vo.get(p.name), sample(p.type, place++)) << p.name;
    vo.RestaurarDefault();
    for (std::size_t i = 0; i < defaults.size(); ++i) {
      const Property& p = s.layout->properties()[i];
      EXPECT_EQ(vo.get(p.name), defaults[i]) << p.name;
      EXPECT_NE(defaults[i], sample(p.type, static_cast<std::int32_t>(i))) << p.name;
    }
  }
}

TEST(ValueObject, HasEveryColumnOfItsTable) {
  for (const Specimen& s : one_of_each()) {
    const Table* table = find_table(s.table);
    ASSERT_NE(table, nullptr) << s.table;
    for (const Column& column : table->columns) {
      const Property* p = s.layout->find(ascii_lower(column.name));
      ASSERT_NE(p, nullptr) << s.table << "." << column.name;
      EXPECT_EQ(p->type, column.type) << s.table << "." << column.name;
      EXPECT_EQ(p->width, column.width) << s.table << "." << column.name;
    }
  }
}

// The object of a role holds the person's record as well, and is read from and written to both tables.
TEST(ValueObject, OfARoleHasThePersonsProperties) {
  for (const Specimen& s : one_of_each()) {
    if (s.table != "Cliente" && s.table != "Fornecedor" && s.table != "Funcionario" && s.table != "EmpresaUsuaria")
      continue;
    for (const Column& column : find_table("Pessoa")->columns) {
      const Property* p = s.layout->find(column.name);
      ASSERT_NE(p, nullptr) << s.table << "." << column.name;
      EXPECT_EQ(p->type, column.type) << s.table << "." << column.name;
    }
  }
}

TEST(ValueObject, NamesAreBlindToCaseAndReachTheMember) {
  VOBomba nozzle;
  nozzle.let("DE_ENDERECOLOGICOBICO", "04");
  nozzle.let("cd_bomba", 3);
  EXPECT_EQ(nozzle.De_EnderecoLogicoBico, "04");
  EXPECT_EQ(nozzle.Cd_Bomba, 3);
  nozzle.Fl_BloquearBico = true;
  EXPECT_EQ(nozzle.get("fl_bloquearbico"), Variant(true));

  VONotaSaida invoice;
  invoice.let("Cd_Destinatário", 2);
  EXPECT_EQ(invoice.Cd_Destinatário, 2);
  EXPECT_EQ(VOProduto().get("Vl_UltimoCusto"), Variant(0.0));
}

TEST(ValueObject, RefusesWhatItCannotHoldAndKeepsWhatItHas) {
  VOAbastecimento fuelling;
  fuelling.No_Contador = 12;
  struct Case {
    const char* property;
    Variant value;
    std::int32_t failure;
  } const cases[] = {
      {"No_Contador", Null{}, 94},  {"No_Contador", 40'000, 6},
      {"No_Contador", "doze", 13},  {"Tp_OrigemRegistro", 256, 6},
      {"Tp_OrigemRegistro", -1, 6}, {"Nm_Produto", "GASOLINA", 438},
      {"No_Contador ", 12, 438},    {"", 12, 438},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(raised([&] { fuelling.let(c.property, c.value); }), c.failure) << '"' << c.property << '"';
  }
  EXPECT_EQ(raised([&] { fuelling.get("Nm_Produto"); }), 438);
  EXPECT_EQ(fuelling.No_Contador, 12);
  EXPECT_EQ(fuelling.Tp_OrigemRegistro, 0);

  // Converted to the property's type: halves to the even digit, and money at its fourth decimal.
  fuelling.let("No_Contador", 12.5);
  fuelling.let("Vl_Total", 2.00005);
  fuelling.let("Cd_Veiculo", 77);
  EXPECT_EQ(fuelling.No_Contador, 12);
  EXPECT_EQ(fuelling.Vl_Total, Currency::of_scaled(20'000));
  EXPECT_EQ(fuelling.Cd_Veiculo, "77");
}

}  // namespace
}  // namespace posto
