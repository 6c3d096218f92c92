// The whole of velmora-batch as a function: arguments in, messages on the two streams, exit code
// out. Everything the user got wrong is reported before any image is written.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace velmora::app {

// Runs the command with the arguments after the program name. The progress bar is drawn when
// `out` is a terminal.
int RunBatch(const std::vector<std::string>& arguments, std::FILE* out, std::FILE* err);

}  // namespace velmora::app
