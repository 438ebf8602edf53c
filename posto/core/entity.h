// The standard entity: one class serves one table. It is written once, over a description of the table and a value
// object that is asked by name; a class that differs overrides the step in which it differs.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "posto/ado/recordset.h"
#include "posto/core/composers.h"
#include "posto/core/error_vocabulary.h"
#include "posto/core/sistema.h"
#include "posto/schema/value_object.h"
#include "posto/services/late_bound.h"

namespace posto {

namespace erro {
inline constexpr std::int32_t kObjectNotSet = 91;  // an operation was called before ObVOSistema was set
}  // namespace erro

// Columns that find a record together.
class KeySet {
 public:
  static constexpr std::size_t kMost = 6;
  constexpr KeySet() = default;
  constexpr KeySet(std::initializer_list<std::string_view> columns) {
    for (std::string_view column : columns) columns_[count_++] = column;
  }
  constexpr Names names() const { return {columns_, count_}; }
  constexpr bool empty() const { return count_ == 0; }
  constexpr std::string_view last() const { return columns_[count_ - 1]; }

 private:
  std::string_view columns_[kMost];
  std::size_t count_ = 0;
};

// The facts about a class. A catalogue tells them in words (core/describe.h).
struct Description {
  static constexpr std::size_t kMostKeySets = 3;
  std::string_view class_name;  // as it stands in the path of a failure
  std::string_view table;
  KeySet keys[kMostKeySets]{};       // tried in order; the first whose columns all have a value is taken
  KeySet read_keys[kMostKeySets]{};  // tried behind them by Consultar alone
  KeySet remove_keys{};              // of Excluir, where they are others
  KeySet sequence{};                 // columns that nomeCamposSequencial gives
  std::string_view insert_table{};   // that Incluir adds to, where it is another
  std::string_view empty_query{};    // WHERE of the query without rows that Incluir opens; none: the table itself
  bool empty_query_by_keys = false;  // that WHERE says of every key of the first set that it is 0, or ''
  struct List {
    std::string_view key{}, display{};  // the display may be several columns, where list_record is overridden
    std::string_view order{};           // none: the list takes no condition either
    bool refuses_empty = false;         // an empty table is 0x80040202
  } list{};                             // of CarregarComboBox; without a display there is no such operation
  bool existe = false;                  // there is an operation Existe
  bool enters_reading = false;          // Consultar tells the settings that it is entered and left
  std::string_view not_read{};          // what Consultar says where there is no record; none: the standard words
};

// A list control that is being filled, called by name. Failures 13, 438, 440 and 451 of the control go on at the next
// statement.
class ListItems {
 public:
  explicit ListItems(LateBound& control) : control_(control) {}
  void clear();
  void add(const Variant& text);
  void add(const Variant& text, const Variant& data);  // `data` becomes the item's ItemData

 private:
  LateBound& control_;
};

// What every entity does. An object serves one caller at a time and may be used for many operations.
//
// Failures, in every public operation: the error is saved, ObVOSistema.SairRotina is told "<class>.<operation>", and
// the error goes on with " -> <class>.<operation>" behind its source. Errors of the class itself (0x80040201 missing
// key, 0x80040202 no such record) start with the source " -> <class>.<operation>, ".
class EntityBase {
 public:
  virtual ~EntityBase() = default;
  EntityBase(const EntityBase&) = delete;
  EntityBase& operator=(const EntityBase&) = delete;

  // The settings, the open connection among them; set by the caller before the first operation.
  std::shared_ptr<VOSistema> ObVOSistema;

  // Changes the record of the key to what the value object holds. Raises 0x80040201 without a key, 0x80040202 with
  // "(<table>)" when there is no such record; both reset the value object unless Ic_Salvando. Errors 13, 438 and 440 go
  // on at the next statement. Conflicts and constraints come as the provider's failures.
  void Alterar(bool Ic_Salvando = false);
  // Adds a record. A key that exists is the provider's failure 0x80040E2F; nothing is read back.
  void Incluir();
  // Deletes the record of the key; none is no failure. Raises 0x80040201 without a key, and resets the value object.
  void Excluir();
  // Whether the key is numbered by a sequence, and the columns that are.
  bool temCampoSequencial() const { return !description_.sequence.empty(); }
  std::vector<std::string> nomeCamposSequencial() const;

  // The statement of the last operation.
  const std::string& statement() const { return statement_; }

 protected:
  enum class Purpose { read, change, remove };

  explicit EntityBase(const Description& description, std::shared_ptr<VOSistema> settings = nullptr)
      : ObVOSistema(std::move(settings)), description_(description) {}
  virtual ValueObject vo() = 0;
  // The key columns that an operation uses; empty when the value object holds no key.
  virtual Names key_for(Purpose purpose);
  // The value object into a record, as the mapper does it.
  void fill(Recordset& record);
  // Alterar, with `write` putting the value object into the record that was found, and `then` behind its Update.
  using Step = std::function<void()>;
  using Write = std::function<void(Recordset&)>;
  void alter(bool saving, const Write& write, const Step& then = {});

  // The steps of the operations, for a class whose record stands in two tables. The record that a key finds; raises
  // 0x80040201 without a key. Then 0x80040202 with "(<table>)" where there is none.
  Recordset open_by_key(std::string_view table, Names key, bool reset);
  void require_record(Recordset& record, std::string_view table, bool reset);
  // Changes the record, whose generated columns the value object gets first.
  void change_record(Recordset& record, Names sequence, const Write& write);
  // Adds one through a statement or a table's name; the value object gets the columns that were generated for it.
  void insert_record(std::string source, Names read_back = {});

  // The failure road around the inside of an operation, whose name is given here and nowhere else.
  template <class Body>
  auto routine(std::string_view operation, Body&& body) {
    Operation under_way(*this, operation);
    try {
      require_settings();
      return body();
    } catch (const Erro& failure) {
      leave_with(failure);
    }
  }

  // Consultar, with `then` behind the reading.
  void consult(bool reset_when_missing, const Step& then = {});
  // Existe.
  bool exists();
  // CarregarComboBox over the description's statement, or over another.
  void load_list(LateBound& control, std::string_view condition);
  void load_list_of(LateBound& control, std::string statement);
  // What the current record shows in the list: the display column, with the key.
  virtual void list_record(ListItems& items, Recordset& record);
  // An operation that inserts where its update finds no record or no key.
  template <class Update, class Insert>
  void save(std::string_view operation, Update update, Insert insert) {
    routine(operation, [&] {
      try {
        update();
      } catch (const Erro& failure) {
        if (failure.number() != erro::kMissingKey && failure.number() != erro::kRecordNotFound) throw;
        insert();
      }
    });
  }

  // Raises one of the system's own errors from the operation under way.
  [[noreturn]] void raise(std::int32_t number, std::string_view behind = {}) const;
  [[noreturn]] void raise_described(std::int32_t number, const std::string& description) const;
  [[noreturn]] void raise_missing(bool reset) { raise_and_reset(erro::kMissingKey, {}, reset); }

  std::int32_t tenant() const { return ObVOSistema->tenant(); }
  Connection& connection() const;  // raises 3709 when the settings have none
  const Description& description() const { return description_; }
  bool has_value(std::string_view column);
  bool has_values(Names columns);

  // Record sets over a statement, which becomes statement(): with the settings' cursor and lock; read once from first
  // to last; fetched whole and detached from the connection.
  Recordset open(std::string statement);
  Recordset read(std::string statement);
  Recordset detached(std::string statement);
  void execute(std::string statement);

 private:
  class Operation {
   public:
    Operation(EntityBase& entity, std::string_view name)
        : entity_(entity), outer_(std::exchange(entity.operation_, name)) {}
    ~Operation() { entity_.operation_ = outer_; }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

   private:
    EntityBase& entity_;
    std::string_view outer_;
  };

  void require_settings() const;
  Names first_given(std::span<const KeySet> sets);
  [[noreturn]] void leave_with(const Erro& failure) const;
  [[noreturn]] void raise_and_reset(std::int32_t number, std::string_view behind, bool reset);
  Recordset open_record(Purpose purpose, bool reset);
  std::string insert_source();

  const Description& description_;
  std::string_view operation_;
  std::string statement_;
};

// An entity of a table's value object.
template <class VO, const Description& kDescription>
class Entity : public EntityBase {
 public:
  Entity() : EntityBase(kDescription) {}
  explicit Entity(std::shared_ptr<VOSistema> settings) : EntityBase(kDescription, std::move(settings)) {}

  // The record on which the operations work.
  std::shared_ptr<VO> ObVO = std::make_shared<VO>();

  // Reads the record of the key into the value object; a null leaves its property as it was. Raises 0x80040201 without
  // a key and 0x80040202 with "(<table>)" when there is no such record; the flag resets the value object before they
  // are raised. Errors 13, 438 and 440 go on at the next statement.
  VO& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false) {
    consult(Ic_RestaurarDefaulSeNaoEcontrarRegistro);
    return *ObVO;
  }

  // Whether there is a record of the key that Consultar would take. Raises 0x80040201 without a key.
  bool Existe() requires(kDescription.existe) { return exists(); }

  // Fills a list control, called by name: "SELECIONE ->" with 0, then the display column of each record with its key.
  // Ds_Condicao: a WHERE clause or nothing. An empty table leaves the control empty (or raises 0x80040202, where the
  // description says so). Errors 13, 438, 440 and 451 go on at the next statement.
  void CarregarComboBox(LateBound& Ob_ComboBox,
                        std::string_view Ds_Condicao = {}) requires(!kDescription.list.order.empty()) {
    load_list(Ob_ComboBox, Ds_Condicao);
  }
  void CarregarComboBox(LateBound& Ob_ComboBox) requires(kDescription.list.order.empty() &&
                                                         !kDescription.list.display.empty()) {
    load_list(Ob_ComboBox, {});
  }

 protected:
  ValueObject vo() override { return by_name(*ObVO); }
};

}  // namespace posto
