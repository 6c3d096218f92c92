// Starting, reading and stopping helper programs of the upload tests.
#include "tests/upload/child_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::testing {
namespace {

// Starts `argv` with its output on `out_fd`; -1 sends output and errors to /dev/null.
pid_t Spawn(const std::vector<std::string>& argv, int out_fd) {
  std::vector<char*> args;
  for (const std::string& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
  args.push_back(nullptr);
  const pid_t pid = fork();
  if (pid == 0) {
    if (out_fd >= 0) {
      dup2(out_fd, STDOUT_FILENO);
    } else {
      const int null_fd = open("/dev/null", O_WRONLY);
      dup2(null_fd, STDOUT_FILENO);
      dup2(null_fd, STDERR_FILENO);
    }
    execvp(args[0], args.data());
    _exit(127);
  }
  return pid;
}

}  // namespace

bool ChildProcess::Start(const std::vector<std::string>& argv) {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC) != 0) return false;
  pid_ = Spawn(argv, fds[1]);
  close(fds[1]);
  out_fd_ = fds[0];
  return pid_ > 0;
}

std::optional<std::string> ChildProcess::ReadLine(int timeout_ms) {
  while (pending_.find('\n') == std::string::npos) {
    pollfd waiting{out_fd_, POLLIN, 0};
    if (poll(&waiting, 1, timeout_ms) <= 0) return std::nullopt;
    char buffer[256];
    const ssize_t got = read(out_fd_, buffer, sizeof buffer);
    if (got <= 0) return std::nullopt;
    pending_.append(buffer, static_cast<std::size_t>(got));
  }
  const std::size_t end = pending_.find('\n');
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return line;
}

void ChildProcess::Stop() {
  if (pid_ > 0) {
    kill(pid_, SIGTERM);
    int status = 0;
    // Up to five seconds for a clean exit, then no more patience.
    for (int tries = 0; tries < 500 && waitpid(pid_, &status, WNOHANG) == 0; ++tries) usleep(10000);
    if (waitpid(pid_, &status, WNOHANG) == 0) {
      kill(pid_, SIGKILL);
      waitpid(pid_, &status, 0);
    }
  }
  if (out_fd_ >= 0) close(out_fd_);
  pid_ = -1;
  out_fd_ = -1;
}

int RunProgram(const std::vector<std::string>& argv) {
  const pid_t pid = Spawn(argv, -1);
  int status = 0;
  if (pid <= 0 || waitpid(pid, &status, 0) != pid) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int ClosedPort() {
  const int fd = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
  getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
  close(fd);
  return ntohs(address.sin_port);
}

}  // namespace velmora::testing
