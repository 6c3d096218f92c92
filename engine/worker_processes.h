// Worker processes that transform sources away from the run's process: a decoder that crashes,
// aborts, runs out of its memory budget or takes too long costs only the source it held, which
// the run then treats as unreadable; a fresh worker takes over.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/source_queue.h"
#include "engine/worker_messages.h"

namespace velmora::engine {

struct WorkerLimits {
  std::string program;               // the velmora-worker program; empty: work on threads
  int source_timeout_seconds = 300;  // the longest one source may take
  std::uint64_t memory_bytes = 0;    // address space of one worker; 0: half the machine's memory
};

// The velmora-worker program: $VELMORA_WORKER when set, else the one beside the running program;
// empty when it is not there to run.
std::string FindWorkerProgram();

class WorkerProcesses : public SourceQueue {
 public:
  // `jobs` workers (one when the job carries state from page to page) over `rows` from
  // `first_row` on.
  WorkerProcesses(const WorkerJob& job, bool carries_page_state, const std::vector<std::string>& rows, int jobs,
                  const WorkerLimits& limits, std::size_t first_row = 0);
  ~WorkerProcesses() override;
  WorkerProcesses(const WorkerProcesses&) = delete;
  WorkerProcesses& operator=(const WorkerProcesses&) = delete;

  FinishedSource Take(std::size_t row, const std::function<void()>& waiting) override;

 private:
  struct Worker {
    pid_t pid = -1;
    int to = -1, from = -1;  // requests out, answers in
    bool busy = false;
    std::size_t row = 0;
    std::chrono::steady_clock::time_point deadline;
  };
  bool Start(Worker& worker);
  // Kills (when `kill` is set) and reaps the worker; a description of how it ended.
  std::string Stop(Worker& worker, bool kill);
  void Dispatch();
  void Collect(int timeout_ms);
  void Answer(Worker& worker);
  // The worker's source becomes an unreadable one; the worker is gone.
  void GiveUp(Worker& worker, bool timed_out);

  std::string job_message_;
  const std::vector<std::string>& rows_;
  WorkerLimits limits_;
  std::vector<Worker> workers_;
  std::size_t capacity_;
  std::map<std::size_t, FinishedSource> finished_;
  std::size_t next_row_ = 0, next_take_ = 0;
};

}  // namespace velmora::engine
