#include "server_bills.h"

#include <utility>

#include "posto/core/mapper.h"
#include "posto/core/sql.h"
#include "posto/core/sql_literals.h"

namespace posto::bench {

int measure_on_server(const std::string& database, const std::function<void(const std::string&)>& run,
                      const std::function<int()>& measured) {
  run("CREATE DATABASE " + database);
  const int status = measured();
  run("DROP DATABASE " + database + " WITH (FORCE)");
  return status;
}

Pair ServerBills::calls(std::string name, const std::function<void(int)>& ours, const std::function<void(int)>& peer) {
  const auto repeated = [](const std::function<void(int)>& each) {
    return [each] {
      for (int i = 0; i < kCalls; ++i) each(i);
    };
  };
  return {std::move(name),
          {repeated(ours), [this] { connection_->BeginTrans(); }, [this] { connection_->CommitTrans(); }},
          {repeated(peer), begin_, end_},
          kCalls};
}

Pair ServerBills::read(std::string name, const std::function<void(int)>& peer) {
  return calls(
      std::move(name),
      [this](int i) {
        read_all(sql("SELECT * FROM ContaAReceber WHERE Cd_PessoaUsuaria = 1 And Cd_ContaAReceber = {}", some_code(i)));
      },
      peer);
}

Pair ServerBills::update(std::string name, const std::function<void(int)>& peer) {
  return calls(
      std::move(name),
      [this](int i) {
        ++turn_;
        connection_->Execute(sql(R"(
            UPDATE ContaAReceber
            SET    Vl_Pagamentos = {},
                   No_SituacaoPagamento = {}
            WHERE  Cd_PessoaUsuaria = 1 And
                   Cd_ContaAReceber = {})",
                                 MoneyToSql(Currency::of_scaled(turn_), 4), turn_ % 3, some_code(i)));
      },
      peer);
}

Pair ServerBills::scan(std::string name, std::function<void()> peer) {
  return {std::move(name),
          {[this] { read_all("SELECT * FROM ContaAReceber WHERE Cd_PessoaUsuaria = 1"); }},
          {std::move(peer)},
          kRecords};
}

void ServerBills::read_all(const std::string& statement) {
  for (Recordset rows = connection_->Execute(statement); !rows.EOF(); rows.MoveNext()) {
    read_record(rows, by_name(record_));
  }
}

}  // namespace posto::bench
