// Work that several processes do at once.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>
#include <utility>

namespace posto::testing {

// A process that runs `work` and ends. No connection may be open when it begins: two processes would share it.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<void()>& work) : id_(fork()) {
    if (id_ != 0) return;
    int status = 0;
    try {
      work();
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "process %d: %s\n", static_cast<int>(getpid()), failure.what());
      status = 1;
    }
    _exit(status);
  }
  ChildProcess(ChildProcess&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() {
    if (id_ <= 0) return;
    kill();
    end();
  }

  // Ends it wherever it is.
  void kill() const { ::kill(id_, SIGKILL); }
  // Waits for its end; whether the work ended without a failure.
  bool end() {
    int status = 0;
    const bool known = waitpid(std::exchange(id_, 0), &status, 0) > 0;
    return known && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  pid_t id_;
};

}  // namespace posto::testing
