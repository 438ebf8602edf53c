// The program as a shell runs it.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace posto {

struct ProgramRun {
  int status;        // of the program; -1 when it did not end by itself
  std::string said;  // on both outputs
};

// Runs "posto <arguments>"; the arguments are words of a shell.
inline ProgramRun run_program(const std::string& arguments) {
  const std::string command = POSTO_PROGRAM " " + arguments + " 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {-1, {}};
  ProgramRun run{-1, {}};
  std::array<char, 4096> piece{};
  for (std::size_t size = 0; (size = std::fread(piece.data(), 1, piece.size(), pipe)) > 0;) {
    run.said.append(piece.data(), size);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
  return run;
}

}  // namespace posto
