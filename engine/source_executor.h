// The run's pool of workers: sources are transformed on as many threads as asked, while the
// run takes the results in row order. Only a few sources are in flight at any time.
#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "engine/run_job.h"
#include "engine/source_queue.h"
#include "engine/source_work.h"

namespace velmora::engine {

class SourceExecutor : public SourceQueue {
 public:
  // Starts `jobs` workers over `rows` from `first_row` on (one worker when the job carries state
  // from page to page).
  SourceExecutor(const RunJob& job, imaging::ImagingLibrary& lib, const std::vector<std::string>& rows, int jobs,
                 std::size_t first_row = 0);
  ~SourceExecutor() override;
  SourceExecutor(const SourceExecutor&) = delete;
  SourceExecutor& operator=(const SourceExecutor&) = delete;

  FinishedSource Take(std::size_t row, const std::function<void()>& waiting) override;

 private:
  void Work();

  const RunJob& job_;
  imaging::ImagingLibrary& lib_;
  const std::vector<std::string>& rows_;
  std::size_t capacity_;
  bool one_state_ = false;  // a single worker: one chain state for all rows
  std::optional<ChainState> carried_;

  std::mutex mutex_;
  std::condition_variable ready_, room_;
  std::map<std::size_t, FinishedSource> finished_;
  std::size_t next_row_ = 0;   // next row a worker starts
  std::size_t next_take_ = 0;  // next row the run takes
  bool stopping_ = false;
  std::vector<std::thread> workers_;
};

// The number of workers a run uses when not told: one per core.
int DefaultJobs();

}  // namespace velmora::engine
