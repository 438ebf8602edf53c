// What the program says of wrong use.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace posto::program {

// Portuguese words for the help and for what the command-line library has to say. Before commands are added, which take
// them over.
void speak_portuguese(CLI::App& app);

}  // namespace posto::program
