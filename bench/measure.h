// Measures the library against a peer that does the same work, in one run.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace posto::bench {

// A piece of work. Only `work` is timed; `before` and `after` begin and end its transaction, because what a disk takes
// for a commit would hide the rest.
struct Side {
  std::function<void()> work;
  std::function<void()> before{};
  std::function<void()> after{};
};

// The same work done by the library and by its peer.
struct Pair {
  std::string name;
  Side ours, peer;
  double units = 1;  // pieces in a call, to tell the time of one
  int repetitions = 15;
  bool warm = false;  // the work is done once more before it is timed, so that both sides find their pages in memory
};

// Runs the pairs, ours and peer in turns, and ends with a line "ratio NAME VALUE" for each: the best time of ours by
// the best of the peer, which is what they take when nothing else runs on the machine. Returns the status for main.
int measure(int argc, char** argv, const std::vector<Pair>& pairs);

}  // namespace posto::bench
