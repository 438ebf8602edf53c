// Measures the library against a peer that does the same work, in one run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace posto::bench {

// The same work done twice; a call does all of it.
struct Pair {
  std::string name;
  std::function<void()> ours;
  std::function<void()> peer;
  double units = 1;        // pieces of work in a call, to tell the time of one
  int repetitions = 9;
};

// Runs the pairs, ours and peer in turns, and ends with a line "ratio NAME VALUE" for each: the median time of ours by that of
// the peer. Returns the status for main.
int measure(int argc, char** argv, const std::vector<Pair>& pairs);

}  // namespace posto::bench
