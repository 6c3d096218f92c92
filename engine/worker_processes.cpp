// Starting, feeding, watching and replacing worker processes.
#include "engine/worker_processes.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "engine/wire.h"

extern char** environ;

namespace velmora::engine {
namespace {

// The worker's ends of the pipes: it reads requests on 3 and writes answers on 4.
constexpr int kWorkerIn = 3, kWorkerOut = 4;

std::uint64_t HalfTheMemory() {
  const long pages = ::sysconf(_SC_PHYS_PAGES), page_size = ::sysconf(_SC_PAGE_SIZE);
  return pages > 0 && page_size > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page_size) / 2 : 0;
}

// A pipe whose ends sit above the descriptors the worker is given, closed on exec.
bool MakePipe(int ends[2]) {
  int raw[2];
  if (::pipe2(raw, O_CLOEXEC) != 0) return false;
  for (int i = 0; i < 2; ++i) {
    ends[i] = ::fcntl(raw[i], F_DUPFD_CLOEXEC, 10);
    ::close(raw[i]);
  }
  if (ends[0] >= 0 && ends[1] >= 0) return true;
  for (int i = 0; i < 2; ++i)
    if (ends[i] >= 0) ::close(ends[i]);
  return false;
}

void CloseFd(int& fd) {
  if (fd >= 0) ::close(fd);
  fd = -1;
}

}  // namespace

std::string FindWorkerProgram() {
  std::string program;
  if (const char* given = std::getenv("VELMORA_WORKER"); given && *given) {
    program = given;
  } else {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error) program = (self.parent_path() / "velmora-worker").string();
  }
  return !program.empty() && ::access(program.c_str(), X_OK) == 0 ? program : std::string();
}

WorkerProcesses::WorkerProcesses(const WorkerJob& job, bool carries_page_state, const std::vector<std::string>& rows,
                                 int jobs, const WorkerLimits& limits, std::size_t first_row)
    : job_message_(EncodeWorkerJob(job)), rows_(rows), limits_(limits), next_row_(first_row), next_take_(first_row) {
  // A worker that dies while being written to must not take the run with it.
  ::signal(SIGPIPE, SIG_IGN);
  if (limits_.memory_bytes == 0) limits_.memory_bytes = HalfTheMemory();
  std::size_t count = carries_page_state ? 1 : static_cast<std::size_t>(std::max(1, jobs));
  count = std::min(count, std::max<std::size_t>(1, rows.size()));
  workers_.resize(count);
  capacity_ = count + 1;
}

WorkerProcesses::~WorkerProcesses() {
  for (Worker& worker : workers_) Stop(worker, worker.busy);
}

bool WorkerProcesses::Start(Worker& worker) {
  int requests[2], answers[2];
  if (!MakePipe(requests)) return false;
  if (!MakePipe(answers)) {
    ::close(requests[0]), ::close(requests[1]);
    return false;
  }
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  // The worker says nothing: what went wrong comes back as the source's failure, and a decoder's
  // own complaints (libtiff's, or glibc's on a heap it corrupted) would only clutter the run's.
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, requests[0], kWorkerIn);
  posix_spawn_file_actions_adddup2(&actions, answers[1], kWorkerOut);
  std::string memory = std::to_string(limits_.memory_bytes);
  std::string program = limits_.program;
  std::string option = "--memory-limit";
  char* argv[] = {program.data(), option.data(), memory.data(), nullptr};
  pid_t pid = -1;
  const int spawned = ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv, environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(requests[0]);
  ::close(answers[1]);
  if (spawned != 0) {
    ::close(requests[1]), ::close(answers[0]);
    return false;
  }
  worker = Worker{pid, requests[1], answers[0], false, 0, {}};
  if (SendMessage(worker.to, job_message_)) return true;
  Stop(worker, true);
  return false;
}

std::string WorkerProcesses::Stop(Worker& worker, bool kill) {
  CloseFd(worker.to);
  CloseFd(worker.from);
  std::string how = "the worker process ended";
  if (worker.pid > 0) {
    if (kill) ::kill(worker.pid, SIGKILL);
    int status = 0;
    while (::waitpid(worker.pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status)) {
      how = ::strsignal(WTERMSIG(status));  // "Segmentation fault", "Aborted", "Killed"
      if (!how.empty()) how[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(how[0])));
    }
    if (WIFEXITED(status)) how = "exit status " + std::to_string(WEXITSTATUS(status));
  }
  worker = Worker{};
  return how;
}

void WorkerProcesses::GiveUp(Worker& worker, bool timed_out) {
  const std::size_t row = worker.row;
  // A worker that broke off has ended or ends as soon as its pipes close; one that ran out of
  // time is stopped.
  const std::string how = Stop(worker, timed_out);
  const std::string why = timed_out ? "gave up after " + std::to_string(limits_.source_timeout_seconds) + " s"
                                    : "the decoder crashed (" + how + ")";
  finished_[row] = UnreadableSource("cannot read " + rows_[row] + ": " + why);
}

void WorkerProcesses::Dispatch() {
  for (Worker& worker : workers_) {
    if (worker.busy || next_row_ >= rows_.size() || next_row_ >= next_take_ + capacity_) continue;
    const std::size_t row = next_row_++;
    const std::string request = EncodeWorkerRow({row, rows_[row]});
    // A worker that died between sources is replaced before it is given the next one.
    if (worker.pid < 0 || !SendMessage(worker.to, request)) {
      Stop(worker, true);
      if (!Start(worker) || !SendMessage(worker.to, request)) {
        Stop(worker, true);
        finished_[row] = UnreadableSource("cannot read " + rows_[row] + ": cannot start " + limits_.program);
        continue;
      }
    }
    worker.busy = true;
    worker.row = row;
    worker.deadline = std::chrono::steady_clock::now() + std::chrono::seconds(limits_.source_timeout_seconds);
  }
}

void WorkerProcesses::Answer(Worker& worker) {
  std::string message;
  FinishedSource finished;
  if (!ReceiveMessage(worker.from, message) || !DecodeFinishedSource(message, finished)) {
    GiveUp(worker, false);
    return;
  }
  finished_[worker.row] = std::move(finished);
  worker.busy = false;
}

void WorkerProcesses::Collect(int timeout_ms) {
  std::vector<pollfd> watched;
  std::vector<Worker*> owners;
  const auto now = std::chrono::steady_clock::now();
  for (Worker& worker : workers_) {
    if (!worker.busy) continue;
    if (now >= worker.deadline) {
      GiveUp(worker, true);
      continue;
    }
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(worker.deadline - now).count();
    timeout_ms = static_cast<int>(std::min<long long>(timeout_ms, left + 1));
    watched.push_back({worker.from, POLLIN, 0});
    owners.push_back(&worker);
  }
  if (watched.empty()) return;
  if (::poll(watched.data(), watched.size(), timeout_ms) <= 0) return;
  for (std::size_t i = 0; i < watched.size(); ++i)
    if (watched[i].revents != 0) Answer(*owners[i]);
}

FinishedSource WorkerProcesses::Take(std::size_t row, const std::function<void()>& waiting) {
  for (;;) {
    Dispatch();
    if (auto it = finished_.find(row); it != finished_.end()) {
      FinishedSource finished = std::move(it->second);
      finished_.erase(it);
      next_take_ = row + 1;
      return finished;
    }
    Collect(40);
    waiting();
  }
}

}  // namespace velmora::engine
