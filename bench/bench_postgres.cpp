// A PostgreSQL server: the library against libpq with prepared statements and binary results, on the same database of
// the same server, which POSTO_TEST_SERVER names ("postgresql://user@host:port", as scripts/postgres does). Without one
// nothing is measured.
//
// pg_read reads a record of some forty columns by its key, pg_update changes two columns of one, pg_insert adds a
// movement of twelve columns, each 500 times in a transaction; pg_scan reads 20,000 records.
#include <endian.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "posto/core/sql.h"
#include "posto/tsql/names.h"
#include "server_bills.h"

namespace posto::bench {
namespace {

constexpr int kBinary = 1;

using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

template <class T>
T big_endian(const char* bytes) {
  std::make_unsigned_t<T> value;
  std::memcpy(&value, bytes, sizeof value);
  if constexpr (sizeof(T) == 2) return static_cast<T>(be16toh(value));
  if constexpr (sizeof(T) == 4) return static_cast<T>(be32toh(value));
  if constexpr (sizeof(T) == 8) return static_cast<T>(be64toh(value));
}

// A numeric of four decimals: digits of base 10,000, the one of weight -1 behind the point.
Currency money(const char* bytes) {
  const int count = big_endian<std::int16_t>(bytes), weight = big_endian<std::int16_t>(bytes + 2);
  std::int64_t scaled = 0;
  for (int i = 0; i <= weight + 1; ++i) {
    scaled = scaled * 10'000 + (i < count ? big_endian<std::int16_t>(bytes + 8 + 2 * i) : 0);
  }
  return Currency::of_scaled(big_endian<std::int16_t>(bytes + 4) == 0 ? scaled : -scaled);
}

void take_field(const Property& p, const char* bytes, int length, const ValueObject& vo) {
  switch (p.type) {
    case SqlType::bit:
      vo.member<bool>(p) = big_endian<std::int16_t>(bytes) != 0;
      return;
    case SqlType::byte:
      vo.member<std::uint8_t>(p) = static_cast<std::uint8_t>(big_endian<std::int16_t>(bytes));
      return;
    case SqlType::int16:
      vo.member<std::int16_t>(p) = big_endian<std::int16_t>(bytes);
      return;
    case SqlType::int32:
      vo.member<std::int32_t>(p) = big_endian<std::int32_t>(bytes);
      return;
    case SqlType::float32:
      vo.member<float>(p) = std::bit_cast<float>(big_endian<std::int32_t>(bytes));
      return;
    case SqlType::float64:
      vo.member<double>(p) = std::bit_cast<double>(big_endian<std::int64_t>(bytes));
      return;
    case SqlType::money:
      vo.member<Currency>(p) = money(bytes);
      return;
    case SqlType::date: {
      static const Date kEpoch = Date::of_day(2000, 1, 1);
      vo.member<Date>(p) = kEpoch.plus_millis(big_endian<std::int64_t>(bytes) / 1000);
      return;
    }
    case SqlType::text:
      vo.member<std::string>(p).assign(bytes, static_cast<std::size_t>(length));
  }
}

// The peer: nothing but libpq.
class Server {
 public:
  explicit Server(const std::string& address) : connection_(PQconnectdb(address.c_str()), &PQfinish) {}

  void run(const std::string& command) { require(PQexec(connection_.get(), command.c_str())); }
  void prepare(const char* name, const std::string& text) {
    require(PQprepare(connection_.get(), name, text.c_str(), 0, nullptr));
  }
  template <std::size_t N>
  Result run(const char* name, const std::array<const char*, N>& values) {
    return require(PQexecPrepared(connection_.get(), name, N, values.data(), nullptr, nullptr, kBinary));
  }
  // All rows of a prepared select, one by one into the members of `vo`.
  void scan(const char* name, const ValueObject& vo) {
    PQsendQueryPrepared(connection_.get(), name, 0, nullptr, nullptr, nullptr, kBinary);
    PQsetSingleRowMode(connection_.get());
    while (PGresult* row = PQgetResult(connection_.get())) take(*require(row), vo);
  }
  static void take(const PGresult& row, const ValueObject& vo) {
    if (PQntuples(&row) == 0) return;
    int i = -1;
    for (const Property& p : vo.layout().properties()) {
      ++i;
      if (PQgetisnull(&row, 0, i) == 0) take_field(p, PQgetvalue(&row, 0, i), PQgetlength(&row, 0, i), vo);
    }
  }

 private:
  static Result require(PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_SINGLE_TUPLE) {
      fmt::print(stderr, "{}", PQresultErrorMessage(result));
      std::abort();
    }
    return {result, &PQclear};
  }
  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

// Records with a value in each column, made by the server.
std::string filling() {
  std::vector<std::string> names, values;
  for (const Column& column : find_table("ContaAReceber")->columns) {
    names.push_back(tsql::quoted_name(column.name));
    std::string value = "n % 100";
    if (column.name == "Cd_PessoaUsuaria") value = "1";
    if (column.name == "Cd_ContaAReceber") value = "n";
    if (column.type == SqlType::bit) value = "n % 2";
    if (column.type == SqlType::money) value = "123.45 + n";
    if (column.type == SqlType::date) value = "timestamp '2026-11-01' + n % 28 * interval '1 day'";
    if (column.type == SqlType::text) value = fmt::format("left('TEXTO 0123456789', {})", column.width);
    values.push_back(value);
  }
  return fmt::format("INSERT INTO \"ContaAReceber\" ({}) SELECT {} FROM generate_series(1, {}) n",
                     fmt::join(names, ", "), fmt::join(values, ", "), ServerBills::kRecords);
}

class Workshop : public ServerBills {
 public:
  explicit Workshop(const std::string& address)
      : ServerBills([this] { raw_.run("BEGIN"); }, [this] { raw_.run("COMMIT"); }), raw_(address) {
    connection_->Create(address);
    raw_.run(filling());
    raw_.run("ANALYZE");
    std::vector<std::string> columns;
    for (const Column& column : find_table("ContaAReceber")->columns) columns.push_back(tsql::quoted_name(column.name));
    const std::string all =
        fmt::format("SELECT {} FROM \"ContaAReceber\" WHERE \"Cd_PessoaUsuaria\" = 1", fmt::join(columns, ", "));
    raw_.prepare("scan", all);
    raw_.prepare("read", all + " AND \"Cd_ContaAReceber\" = $1::int");
    raw_.prepare("update",
                 "UPDATE \"ContaAReceber\" SET \"Vl_Pagamentos\" = $1::numeric, \"No_SituacaoPagamento\" = $2::int "
                 "WHERE \"Cd_PessoaUsuaria\" = 1 AND \"Cd_ContaAReceber\" = $3::int");
    raw_.prepare("insert",
                 "INSERT INTO \"Cardex\" (\"Cd_PessoaUsuaria\", \"Cd_LancamentoCardex\", \"Dt_Emissao\", \"Nm_Doc\", "
                 "\"No_Tipo\", \"Qt_Unidade\", \"Vl_Unitario\", \"Tx_Icms\", \"Qt_Estoque\", \"Vl_CustoMedio\", "
                 "\"Vl_CredIcmsMedio\", \"Cd_Produto\") VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9, $10, $11, $12)");
  }

  std::vector<Pair> pairs() {
    return {read("pg_read",
                 [this](int i) {
                   const std::string code = std::to_string(some_code(i));
                   Server::take(*raw_.run("read", std::array{code.c_str()}), by_name(record_));
                 }),
            insert(), update("pg_update", [this](int i) { update_by_hand(i); }),
            scan("pg_scan", [this] { raw_.scan("scan", by_name(record_)); })};
  }

 private:
  Pair insert() {
    return calls(
        "pg_insert",
        [this](int) {
          connection_->Execute(
              sql("INSERT INTO Cardex (Cd_PessoaUsuaria, Cd_LancamentoCardex, Dt_Emissao, Nm_Doc, No_Tipo, "
                  "Qt_Unidade, Vl_Unitario, Tx_Icms, Qt_Estoque, Vl_CustoMedio, Vl_CredIcmsMedio, Cd_Produto) "
                  "Values (1, {}, '2026-11-23', 'NF', 20, 12.345, 5.432, 18., 0., 0., 0., 1)",
                  ++code_));
        },
        [this](int) {
          const std::string code = std::to_string(++code_);
          raw_.run("insert", std::array{"1", code.c_str(), "2026-11-23", "NF", "20", "12.345", "5.432", "18", "0", "0",
                                        "0", "1"});
        });
  }

  void update_by_hand(int i) {
    const std::string amount = Currency::of_scaled(++turn_).text(), state = std::to_string(turn_ % 3),
                      code = std::to_string(some_code(i));
    raw_.run("update", std::array{amount.c_str(), state.c_str(), code.c_str()});
  }

  std::int32_t code_ = 0;
  Server raw_;
};

int run(int argc, char** argv) {
  const char* given = std::getenv("POSTO_TEST_SERVER");
  if (given == nullptr) return 0;
  const std::string server = given, database = "posto_bench_" + std::to_string(getpid());
  Server own(server + "/postgres");
  return measure_on_server(
      database, [&](const std::string& command) { own.run(command); },
      [&] {
        Workshop workshop(server + "/" + database);
        return measure(argc, argv, workshop.pairs());
      });
}

}  // namespace
}  // namespace posto::bench

int main(int argc, char** argv) { return posto::bench::run(argc, argv); }
