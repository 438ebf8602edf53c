// The conversation with a server: commands are sent together and answered in their order (libpq's pipeline mode), so
// that a statement and what belongs to it cost one round trip.
#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "posto/engines/postgres/wire.h"

namespace posto::postgres {

struct ClearResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ClearResult>;

class Link {
 public:
  // Raises 0x80004005 when the server cannot be reached within the time or refuses.
  Link(const std::string& connection_string, std::int32_t timeout_seconds);
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link() { PQfinish(connection_); }

  PGconn* connection() const { return connection_; }

  // Queue one command each; the answers come with `finish`, or one by one with `next`.
  void send(const char* command);
  void send_prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types);
  void send_run(const std::string& name, Values& values);
  // A statement that is not kept.
  void send_once(const std::string& text, Values& values);
  // Ends the queue: the server answers. Behind a failure it skips the rest of the queue.
  void flush();

  // The answers to all that was queued, one for each command, once `flush` was called. Raises the first failure, met by
  // `statement`, when all have come.
  std::vector<Result> finish(std::string_view statement);

  // For a command whose rows come one by one: the commands before it answer first.
  void stream(std::string_view statement);
  // The next row; null behind the last, when the queue has ended. Raises a failure when the queue has ended.
  Result next_row(std::string_view statement);
  // Gives up the rows that are left.
  void abandon();
  bool streaming() const { return streaming_; }

  // Runs a script at once, outside the queue.
  void script(const char* commands);

 private:
  void require_sent(int sent);
  Result answer();
  void end_queue();

  PGconn* connection_ = nullptr;
  std::size_t queued_ = 0;
  bool streaming_ = false;
};

}  // namespace posto::postgres
