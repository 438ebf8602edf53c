// The engine over ODBC: the library against the plain functions of ODBC with prepared statements and bound columns, on
// the same database of the same server, which POSTO_TEST_SERVER names ("postgresql://user@host:port", as
// scripts/postgres does). Without one nothing is measured.
//
// odbc_read and odbc_update work on records of some forty columns, 500 of them in a transaction; odbc_scan reads
// 20,000.
#include <fmt/format.h>
#include <sql.h>
#include <sqlext.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "posto/engines/odbc/link.h"
#include "posto/tsql/bound_value.h"
#include "posto/tsql/names.h"
#include "server_bills.h"

namespace posto::bench {
namespace {

constexpr SQLULEN kBlock = 100;

std::string odbc_address(std::string server, const std::string& database) {
  server.erase(0, server.find("//") + 2);
  const std::size_t at = server.find('@'), colon = server.rfind(':');
  return fmt::format("Driver={{PostgreSQL Unicode}};Server={};Port={};UID={};Database={}",
                     server.substr(at + 1, colon - at - 1), server.substr(colon + 1), server.substr(0, at), database);
}

void require(SQLRETURN code) {
  if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) std::abort();
}

// A prepared select of all columns of the bills, bound row by row to a block in the types of their properties.
class RawBills {
 public:
  RawBills(const odbc::Link& link, const std::string& where, SQLULEN rows) : command_(link) {
    std::string columns;
    for (const Column& column : find_table("ContaAReceber")->columns)
      columns += (columns.empty() ? "" : ", ") + tsql::quoted_name(column.name);
    command_.prepare(fmt::format("SELECT {} FROM \"ContaAReceber\" WHERE {}", columns, where), "");
    const auto& properties = layout_of<VOContaAReceber>().properties();
    for (const Property& p : properties) {
      fields_.push_back(row_bytes_);
      row_bytes_ += sizeof(SQLLEN) + (room(p) + 7) / 8 * 8;
    }
    block_ = std::make_unique<char[]>(row_bytes_ * rows);
    const SQLHSTMT handle = command_.handle();
    SQLSetStmtAttr(handle, SQL_ATTR_ROW_BIND_TYPE, reinterpret_cast<SQLPOINTER>(row_bytes_), 0);
    SQLSetStmtAttr(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows), 0);
    SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    SQLUSMALLINT number = 0;
    for (const Property& p : properties) {
      char* const at = block_.get() + fields_[number];
      SQLBindCol(handle, ++number, form(p), at + sizeof(SQLLEN), static_cast<SQLLEN>(room(p)),
                 reinterpret_cast<SQLLEN*>(at));
    }
  }
  RawBills(const RawBills&) = delete;
  RawBills& operator=(const RawBills&) = delete;

  SQLHSTMT handle() const { return command_.handle(); }
  // Runs it and reads all rows into the members of `vo`.
  void read(VOContaAReceber& vo) {
    require(SQLExecute(handle()));
    while (SQL_SUCCEEDED(SQLFetch(handle()))) {
      for (SQLULEN row = 0; row < fetched_; ++row) take(block_.get() + row * row_bytes_, by_name(vo));
    }
    SQLFreeStmt(handle(), SQL_CLOSE);
  }

 private:
  static SQLSMALLINT form(const Property& p) {
    switch (p.type) {
      case SqlType::text:
      case SqlType::money:
        return SQL_C_CHAR;
      case SqlType::date:
        return SQL_C_TYPE_TIMESTAMP;
      case SqlType::float32:
      case SqlType::float64:
        return SQL_C_DOUBLE;
      default:
        return SQL_C_SBIGINT;
    }
  }
  static std::size_t room(const Property& p) {
    if (p.type == SqlType::text) return p.width * 4U + 1;
    return p.type == SqlType::money ? 32 : p.type == SqlType::date ? sizeof(SQL_TIMESTAMP_STRUCT) : 8;
  }

  void take(const char* row, const ValueObject& vo) const {
    std::size_t i = 0;
    for (const Property& p : layout_of<VOContaAReceber>().properties()) {
      const char* const at = row + fields_[i++];
      SQLLEN length = 0;
      std::memcpy(&length, at, sizeof length);
      if (length != SQL_NULL_DATA) take_field(p, at + sizeof length, static_cast<std::size_t>(length), vo);
    }
  }
  static void take_field(const Property& p, const char* at, std::size_t length, const ValueObject& vo) {
    std::int64_t integer = 0;
    double real = 0;
    SQL_TIMESTAMP_STRUCT t{};
    switch (p.type) {
      case SqlType::text:
        vo.member<std::string>(p).assign(at, length);
        return;
      case SqlType::money:
        vo.member<Currency>(p) = tsql::text_to_money({at, length});
        return;
      case SqlType::date:
        std::memcpy(&t, at, sizeof t);
        vo.member<Date>(p) = Date::of_moment(t.year, t.month, t.day, t.hour, t.minute, t.second);
        return;
      case SqlType::float32:
      case SqlType::float64:
        std::memcpy(&real, at, sizeof real);
        p.type == SqlType::float32 ? void(vo.member<float>(p) = static_cast<float>(real))
                                   : void(vo.member<double>(p) = real);
        return;
      default:
        std::memcpy(&integer, at, sizeof integer);
    }
    switch (p.type) {
      case SqlType::bit:
        vo.member<bool>(p) = integer != 0;
        return;
      case SqlType::byte:
        vo.member<std::uint8_t>(p) = static_cast<std::uint8_t>(integer);
        return;
      case SqlType::int16:
        vo.member<std::int16_t>(p) = static_cast<std::int16_t>(integer);
        return;
      default:
        vo.member<std::int32_t>(p) = static_cast<std::int32_t>(integer);
    }
  }

  odbc::Command command_;
  std::vector<std::size_t> fields_;
  std::size_t row_bytes_ = 0;
  std::unique_ptr<char[]> block_;
  SQLULEN fetched_ = 0;
};

class Workshop : public ServerBills {
 public:
  explicit Workshop(const std::string& address)
      : ServerBills([this] { raw_.begin_transaction(); }, [this] { raw_.end_transaction(true); }),
        raw_(address, 10),
        by_key_(raw_, kKey, 1),
        all_(raw_, kAll, kBlock) {
    connection_->Open(address);
    bind_integer(by_key_.handle(), 1, code_);
    update_.prepare(
        "UPDATE \"ContaAReceber\" SET \"Vl_Pagamentos\" = ?::numeric, \"No_SituacaoPagamento\" = ?::int WHERE "
        "\"Cd_PessoaUsuaria\" = 1 AND \"Cd_ContaAReceber\" = ?::int",
        "");
    SQLBindParameter(update_.handle(), 1, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, sizeof amount_, 0, amount_,
                     sizeof amount_, nullptr);
    bind_integer(update_.handle(), 2, state_);
    bind_integer(update_.handle(), 3, code_);
  }

  std::vector<Pair> pairs() {
    return {read("odbc_read",
                 [this](int i) {
                   code_ = some_code(i);
                   by_key_.read(record_);
                 }),
            update("odbc_update", [this](int i) { update_by_hand(i); }),
            scan("odbc_scan", [this] { all_.read(record_); })};
  }

 private:
  static constexpr const char* kKey = "\"Cd_PessoaUsuaria\" = 1 AND \"Cd_ContaAReceber\" = ?::int";
  static constexpr const char* kAll = "\"Cd_PessoaUsuaria\" = 1";

  static void bind_integer(SQLHSTMT statement, SQLUSMALLINT number, std::int64_t& value) {
    SQLBindParameter(statement, number, SQL_PARAM_INPUT, SQL_C_SBIGINT, SQL_INTEGER, 0, 0, &value, 0, nullptr);
  }
  void update_by_hand(int i) {
    code_ = some_code(i);
    state_ = ++turn_ % 3;
    const std::string amount = Currency::of_scaled(turn_).text();
    std::memcpy(amount_, amount.c_str(), amount.size() + 1);
    require(SQLExecute(update_.handle()));
  }

  std::int64_t code_ = 0, state_ = 0;
  char amount_[32] = {};
  odbc::Link raw_;
  RawBills by_key_, all_;
  odbc::Command update_{raw_};
};

// A row with a value in each column.
std::string bill(int code) {
  std::string columns, values;
  for (const Column& column : find_table("ContaAReceber")->columns) {
    std::string value = std::to_string(code % 100);
    if (column.name == "Cd_PessoaUsuaria") value = "1";
    if (column.name == "Cd_ContaAReceber") value = std::to_string(code);
    if (column.type == SqlType::bit) value = std::to_string(code % 2);
    if (column.type == SqlType::money) value = "123.45";
    if (column.type == SqlType::date) value = "'2026-11-24'";
    if (column.type == SqlType::text) value = "'" + std::string("TEXTO 0123456789").substr(0, column.width) + "'";
    columns += (columns.empty() ? "" : ", ") + std::string(column.name);
    values += (values.empty() ? "" : ", ") + value;
  }
  return fmt::format("INSERT INTO ContaAReceber ({}) Values ({})", columns, values);
}

void fill(const std::string& address) {
  auto connection = Connection::create();
  connection->Create(address);
  Transaction transaction(connection);
  for (int i = 1; i <= ServerBills::kRecords; ++i) connection->Execute(bill(i));
  transaction.commit();
}

int run(int argc, char** argv) {
  const char* server = std::getenv("POSTO_TEST_SERVER");
  if (server == nullptr) return 0;
  const std::string database = "posto_bench_odbc_" + std::to_string(getpid());
  odbc::Link own(odbc_address(server, "postgres"), 10);
  return measure_on_server(
      database, [&](const std::string& command) { own.run(command); },
      [&] {
        fill(std::string(server) + "/" + database);
        Workshop workshop(odbc_address(server, database));
        return measure(argc, argv, workshop.pairs());
      });
}

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) { return posto::bench::run(argc, argv); }
