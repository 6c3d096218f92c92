// A helper program run by a test: started with its output piped, read line by line with a
// bounded wait, and always stopped when the object goes.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace velmora::testing {

class ChildProcess {
 public:
  ChildProcess() = default;
  ~ChildProcess() { Stop(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // Starts `argv` (argv[0] looked up on PATH); false when it cannot be started.
  bool Start(const std::vector<std::string>& argv);
  // The next line of the program's output, or nothing if none comes within `timeout_ms`.
  std::optional<std::string> ReadLine(int timeout_ms);
  // Ends the program (SIGTERM, SIGKILL if it lingers) and reaps it.
  void Stop();

 private:
  pid_t pid_ = -1;
  int out_fd_ = -1;
  std::string pending_;
};

// Runs `argv` to its end; its exit status, or -1 when it could not run.
int RunProgram(const std::vector<std::string>& argv);

// A TCP port on 127.0.0.1 that nothing listens on.
int ClosedPort();

}  // namespace velmora::testing
