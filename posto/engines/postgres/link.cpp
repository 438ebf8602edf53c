#include "posto/engines/postgres/link.h"

#include <optional>

#include "posto/engines/postgres/failures.h"
#include "posto/types/text.h"

namespace posto::postgres {
namespace {

constexpr int kBinaryResult = 1;

bool failed(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_FATAL_ERROR || status == PGRES_NONFATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

}  // namespace

Link::Link(const std::string& connection_string, std::int32_t timeout_seconds) {
  const std::string timeout = std::to_string(timeout_seconds);
  const char* const keywords[] = {"dbname", "connect_timeout", "client_encoding", "fallback_application_name", nullptr};
  const char* const values[] = {connection_string.c_str(), timeout.c_str(), "UTF8", "posto", nullptr};
  connection_ = PQconnectdbParams(keywords, values, 1);
  if (PQstatus(connection_) != CONNECTION_OK) {
    std::string why(trim(PQerrorMessage(connection_)));
    PQfinish(connection_);
    // An address that cannot be read is told whole.
    if (const std::size_t told = why.find(connection_string); told != std::string::npos) {
      why.replace(told, connection_string.size(), shown_address(connection_string));
    }
    throw Erro(erro::kProviderFailure, "PostgreSQL", "Não foi possível abrir o banco: " + why,
               {.connection_good = false});
  }
  PQsetNoticeProcessor(
      connection_, [](void*, const char*) {}, nullptr);
  PQenterPipelineMode(connection_);
}

void Link::require_sent(int sent) {
  if (sent == 0) throw failure_of(connection_, nullptr, {});
  ++queued_;
}

void Link::send(const char* command) {
  require_sent(PQsendQueryParams(connection_, command, 0, nullptr, nullptr, nullptr, nullptr, kBinaryResult));
}

void Link::send_prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types) {
  require_sent(PQsendPrepare(connection_, name.c_str(), text.c_str(), static_cast<int>(types.size()), types.data()));
}

void Link::send_run(const std::string& name, Values& values) {
  require_sent(PQsendQueryPrepared(connection_, name.c_str(), values.count(), values.values(), values.lengths(),
                                   values.formats(), kBinaryResult));
}

void Link::send_once(const std::string& text, Values& values) {
  require_sent(PQsendQueryParams(connection_, text.c_str(), values.count(), values.types(), values.values(),
                                 values.lengths(), values.formats(), kBinaryResult));
}

void Link::flush() {
  if (PQpipelineSync(connection_) == 0) throw failure_of(connection_, nullptr, {});
}

// The answer to one command, and the mark behind it.
Result Link::answer() {
  Result result(PQgetResult(connection_));
  --queued_;
  while (PGresult* rest = PQgetResult(connection_)) PQclear(rest);
  return result;
}

void Link::end_queue() {
  queued_ = 0;
  streaming_ = false;
  // The answer to the end of the queue; a lost connection has none.
  Result end(PQgetResult(connection_));
  while (end && PQresultStatus(end.get()) != PGRES_PIPELINE_SYNC) end.reset(PQgetResult(connection_));
}

std::vector<Result> Link::finish(std::string_view statement) {
  std::vector<Result> results;
  std::optional<Erro> failure;
  while (queued_ > 0) {
    results.push_back(answer());
    if (!failure && (!results.back() || failed(results.back().get()))) {
      failure = failure_of(connection_, results.back().get(), statement);
    }
    if (PQstatus(connection_) != CONNECTION_OK) break;
  }
  end_queue();
  if (failure) throw *failure;
  return results;
}

void Link::stream(std::string_view statement) {
  while (queued_ > 1) {
    const Result result = answer();
    if (result && !failed(result.get())) continue;
    const Erro failure = failure_of(connection_, result.get(), statement);
    while (queued_ > 0 && PQstatus(connection_) == CONNECTION_OK) answer();
    end_queue();
    throw failure;
  }
  PQsetSingleRowMode(connection_);
  streaming_ = true;
}

Result Link::next_row(std::string_view statement) {
  Result row(PQgetResult(connection_));
  if (row && PQresultStatus(row.get()) == PGRES_SINGLE_TUPLE) return row;
  std::optional<Erro> failure;
  if (!row || failed(row.get())) failure = failure_of(connection_, row.get(), statement);
  while (PGresult* rest = PQgetResult(connection_)) PQclear(rest);
  end_queue();
  if (failure) throw *failure;
  return nullptr;
}

// A few rows are read to the end, which costs less than to tell the server.
void Link::abandon() {
  constexpr int kFewRows = 200;
  bool cancelled = false;
  for (int rows = 0;; ++rows) {
    const Result row(PQgetResult(connection_));
    if (!row || PQresultStatus(row.get()) != PGRES_SINGLE_TUPLE) break;
    if (rows < kFewRows || cancelled) continue;
    if (PGcancel* cancel = PQgetCancel(connection_)) {
      char why[256];
      PQcancel(cancel, why, sizeof why);
      PQfreeCancel(cancel);
    }
    cancelled = true;
  }
  while (PGresult* rest = PQgetResult(connection_)) PQclear(rest);
  end_queue();
}

void Link::script(const char* commands) {
  PQexitPipelineMode(connection_);
  const Result result(PQexec(connection_, commands));
  const bool bad = !result || failed(result.get());
  const Erro failure = bad ? failure_of(connection_, result.get(), {}) : Erro(0, "", "");
  if (bad) Result(PQexec(connection_, "ROLLBACK"));
  PQenterPipelineMode(connection_);
  if (bad) throw failure;
}

}  // namespace posto::postgres
