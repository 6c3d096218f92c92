// Test helper: runs the real velmora-batch program as a child process in a chosen folder, with a
// home folder of the test's own, and hands back its exit code and what it printed.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace velmora::testing {

struct ProcessResult {
  int exit_code = -1;  // -1 when the program could not be run or did not exit normally
  std::string out;
  std::string err;
};

// Runs velmora-batch with `arguments` in `working_folder`, HOME set to `home` and
// XDG_CONFIG_HOME removed. Output goes through files, so the program sees no terminal.
// `while_running`, when given, is called with the child's pid before it is waited for.
ProcessResult RunBatchProcess(const std::vector<std::string>& arguments, const std::string& working_folder,
                              const std::string& home, const std::function<void(pid_t)>& while_running = {});

// Path of the velmora-batch program in the build tree.
std::string BatchProgramPath();

}  // namespace velmora::testing
