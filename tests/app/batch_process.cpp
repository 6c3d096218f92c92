// fork/exec runner for velmora-batch.
#include "tests/app/batch_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

#include "tests/support/test_support.h"

extern char** environ;

namespace velmora::testing {

std::string BatchProgramPath() {
  return std::string(VELMORA_BINARY_DIR) + "/app/velmora-batch";
}

ProcessResult RunBatchProcess(const std::vector<std::string>& arguments, const std::string& working_folder,
                              const std::string& home, const std::function<void(pid_t)>& while_running) {
  TempFolder streams;
  const std::string out_path = streams.file("out.txt");
  const std::string err_path = streams.file("err.txt");
  const std::string program = BatchProgramPath();

  // Everything the child needs is built before the fork.
  std::vector<std::string> environment;
  for (char** entry = environ; *entry; ++entry) {
    if (std::strncmp(*entry, "HOME=", 5) == 0 || std::strncmp(*entry, "XDG_CONFIG_HOME=", 16) == 0) continue;
    environment.emplace_back(*entry);
  }
  environment.push_back("HOME=" + home);
  std::vector<char*> env_pointers;
  for (std::string& entry : environment) env_pointers.push_back(entry.data());
  env_pointers.push_back(nullptr);
  std::vector<std::string> argv_strings{program};
  argv_strings.insert(argv_strings.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv_pointers;
  for (std::string& argument : argv_strings) argv_pointers.push_back(argument.data());
  argv_pointers.push_back(nullptr);

  ProcessResult result;
  const pid_t child = ::fork();
  if (child < 0) return result;
  if (child == 0) {
    const int out = ::open(out_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const int err = ::open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (out < 0 || err < 0 || ::chdir(working_folder.c_str()) != 0) ::_exit(127);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(err, STDERR_FILENO);
    ::execve(program.c_str(), argv_pointers.data(), env_pointers.data());
    ::_exit(127);
  }
  if (while_running) while_running(child);
  int status = 0;
  if (::waitpid(child, &status, 0) == child && WIFEXITED(status)) result.exit_code = WEXITSTATUS(status);
  result.out = ReadWholeFile(out_path);
  result.err = ReadWholeFile(err_path);
  return result;
}

}  // namespace velmora::testing
