// Every class of the catalogue on the engine, by the lines that define it.
#include "posto/masterdata/catalogue.h"

#include <functional>
#include <optional>
#include <ostream>

#include "posto/core/mapper.h"
#include "posto/masterdata/DALCFOP.h"
#include "posto/masterdata/DALCartao.h"
#include "posto/masterdata/DALGradeComissao.h"
#include "posto/masterdata/DALHorarioTrabalho.h"
#include "tests/core/failures.h"
#include "tests/dialect/corpus.h"
#include "tests/support/database.h"

namespace posto {
namespace {

using Settings = std::shared_ptr<VOSistema>;

// A class whose value object's type does not matter.
struct AnyEntity {
  std::shared_ptr<EntityBase> entity;
  ValueObject vo;
  std::function<void()> Consultar;
  std::function<void(LateBound&)> CarregarComboBox;  // none where the class has none

  void call(std::string_view operation) const {
    if (operation == "Consultar") Consultar();
    if (operation == "Alterar") entity->Alterar(true);
    if (operation == "Excluir") entity->Excluir();
  }
};

template <class Dal>
AnyEntity make(const Settings& settings) {
  auto entity = std::make_shared<Dal>(settings);
  AnyEntity any{entity, by_name(*entity->ObVO), [=] { entity->Consultar(); }, {}};
  if constexpr (requires(LateBound & list) { entity->CarregarComboBox(list); }) {
    any.CarregarComboBox = [=](LateBound& list) { entity->CarregarComboBox(list); };
  }
  return any;
}

struct Line {
  const Description& facts;
  AnyEntity (*make)(const Settings&);
};
void PrintTo(const Line& line, std::ostream* out) { *out << line.facts.table; }

const Line kLines[] = {
#define CATALOGUE(table, ...) {k##table, make<DAL##table>},
#define CLASS CATALOGUE
#include "posto/masterdata/catalogue.def"
#undef CLASS
#undef CATALOGUE
};

Variant sample(const Property& property, int seed) {
  switch (property.type) {
    case SqlType::bit:
      return seed % 2 == 1;
    case SqlType::byte:
      return static_cast<std::uint8_t>(200 + seed);
    case SqlType::int16:
      return static_cast<std::int16_t>(30000 + seed);
    case SqlType::int32:
      return 2'000'000'000 + seed;
    case SqlType::float32:
      return 0.1F * static_cast<float>(seed);
    case SqlType::float64:
      return 0.1 * seed;
    case SqlType::money:
      return Currency::of_scaled(-123456789 - seed);
    case SqlType::date:
      return Date::of_day(2009, 4, 3).plus_days(seed);
    case SqlType::text:
      break;
  }
  return std::string(property.width - 1U, static_cast<char>('a' + seed)) + "z";
}

// A statement without what the corpus leaves out: blanks at the end of lines, empty lines, the last line's end.
std::string tidy(std::string_view statement) {
  std::string text;
  while (!statement.empty()) {
    const std::string_view line = statement.substr(0, statement.find('\r'));
    statement.remove_prefix(std::min(line.size() + 1, statement.size()));
    if (const auto end = line.find_last_not_of(' '); end != std::string_view::npos) {
      text += (text.empty() ? "" : "\r") + std::string(line.substr(0, end + 1));
    }
  }
  return text;
}

class Catalogue : public DatabaseTest, public ::testing::WithParamInterface<Line> {
 protected:
  // One record: whose, under which key, with which values.
  struct Record {
    int company, key, values;
  };

  bool has_company() const { return is_key("Cd_PessoaUsuaria"); }
  bool is_key(std::string_view column) const {
    const Names key = facts_.keys[0].names();
    return std::ranges::find(key, column) != key.end();
  }

  // The record's key, and its values where they are asked for, in the value object.
  void set(const Record& record, bool with_values) {
    any_.vo.RestaurarDefault();
    for (const Property& p : any_.vo.layout().properties()) {
      if (p.name == "Cd_PessoaUsuaria") {
        any_.vo.let(p, std::int32_t{record.company});
      } else if (is_key(p.name)) {
        any_.vo.let(p, any_.entity->temCampoSequencial() ? Variant(std::int32_t{record.key}) : sample(p, record.key));
      } else if (with_values) {
        any_.vo.let(p, sample(p, record.values));
      }
    }
  }

  // Through Incluir, or past it where it adds to another table.
  void insert(const Record& record) {
    set(record, true);
    if (facts_.insert_table.empty()) return any_.entity->Incluir();
    Recordset rows;
    rows.ActiveConnection(settings_->ObConnection);
    rows.Source = facts_.table;
    rows.LockType = adLockOptimistic;
    rows.Open();
    rows.AddNew();
    TransferirDadosDeVOParaBd(*settings_, any_.vo, rows);
    rows.Update();
  }

  // What the columns of the table have in the value object.
  std::string columns() const {
    std::string text;
    for (const Property& p : any_.vo.layout().properties()) {
      if (table_.find(p.name) != nullptr) text += std::string(p.name) + "=" + any_.vo.get(p).as<std::string>() + "\n";
    }
    return text;
  }

  void expect_to_read(const Record& record) {
    set(record, true);
    const std::string written = columns();
    set(record, false);
    any_.Consultar();
    EXPECT_EQ(columns(), written);
  }

  void expect_list(const std::vector<int>& keys) {
    MemoryList list;
    any_.CarregarComboBox(list);
    const std::string statement = tidy(any_.entity->statement());
    EXPECT_EQ(statement, told("CarregarComboBox").value_or(statement));
    ASSERT_FALSE(list.items().empty());
    EXPECT_EQ(list.items().front(), (MemoryList::Item{"SELECIONE ->", 0}));
    std::vector<std::int32_t> data, expected;
    for (const auto& item : list.items()) {
      if (item.data != 0) data.push_back(item.data);
    }
    for (int key : keys) {
      set({.company = 1, .key = key, .values = 0}, false);
      expected.push_back(any_.vo.get(facts_.list.key).as<std::int32_t>());
    }
    std::ranges::sort(data);
    EXPECT_EQ(data, expected);
  }

  // The corpus's statement of an operation of the class.
  std::optional<std::string> told(std::string_view operation) const {
    const auto statement = testing::corpus_statement(std::string(facts_.class_name) + "." + std::string(operation));
    return statement ? std::optional(tidy(*statement)) : std::nullopt;
  }

  // The path of a failure of the class's own.
  std::string path(std::string_view operation) const {
    const std::string step = " -> " + std::string(facts_.class_name) + "." + std::string(operation);
    return step + ", " + step;
  }

  const Description& facts_ = GetParam().facts;
  const Table& table_ = *find_table(facts_.table);
  AnyEntity any_ = GetParam().make(settings_);
};

INSTANTIATE_TEST_SUITE_P(Line, Catalogue, ::testing::ValuesIn(kLines),
                         [](const auto& line) { return std::string(line.param.facts.table); });

TEST_P(Catalogue, ARecordsLife) {
  const bool generated = any_.entity->temCampoSequencial();
  const Record mine{1, 1, 1}, changed{1, 1, 3};
  const Record other{has_company() ? 2 : 1, has_company() && !generated ? 1 : 2, 2};
  insert(mine);
  if (facts_.insert_table.empty()) {
    EXPECT_EQ(tidy(any_.entity->statement()), told("Incluir").value_or(std::string(facts_.table)));
  }
  insert(other);
  expect_to_read(mine);
  expect_to_read(other);
  set(changed, true);
  any_.entity->Alterar();
  expect_to_read(changed);
  expect_to_read(other);
  if (any_.CarregarComboBox) expect_list({mine.key, other.key});
  set(mine, false);
  any_.entity->Excluir();
  set(mine, false);
  expect_failure(erro::kRecordNotFound, path("Consultar"), any_.Consultar);
  expect_to_read(other);
}

TEST_P(Catalogue, MissingKeysAndRecords) {
  for (const char* operation : {"Consultar", "Alterar", "Excluir"}) {
    SCOPED_TRACE(operation);
    any_.vo.RestaurarDefault();
    expect_failure(erro::kMissingKey, path(operation), [&] { any_.call(operation); });
    const std::string_view deletes = "Excluir";
    set({1, 1, 1}, false);
    const auto failure = failure_of([&] { any_.call(operation); });
    ASSERT_EQ(failure.has_value(), operation != deletes);
    if (!failure) continue;
    EXPECT_EQ(failure->number(), erro::kRecordNotFound);
    EXPECT_EQ(failure->description(), "Registro nao encontrado(" + std::string(facts_.table) + ")");
    EXPECT_EQ(failure->source(), path(operation));
  }
  for (std::string_view column : facts_.keys[0].names()) {
    SCOPED_TRACE(column);
    set({1, 1, 1}, false);
    const Property& property = *any_.vo.layout().find(column);
    any_.vo.let(property, property.type == SqlType::text ? Variant("") : Variant(std::int32_t{0}));
    expect_failure(erro::kMissingKey, path("Excluir"), [&] { any_.entity->Excluir(); });
  }
}

TEST(CatalogueLines, KeysAreThoseOfTheTable) {
  for (const Line& line : kLines) {
    SCOPED_TRACE(line.facts.table);
    std::vector<std::string> keys, generated;
    for (const Column& column : find_table(line.facts.table)->columns) {
      if (column.key) keys.emplace_back(column.name);
      if (column.identity) generated.emplace_back(column.name);
    }
    const Names told = line.facts.keys[0].names();
    EXPECT_EQ(std::vector<std::string>(told.begin(), told.end()), keys);
    EXPECT_EQ(line.make({}).entity->nomeCamposSequencial(), generated);
  }
}

}  // namespace
}  // namespace posto
