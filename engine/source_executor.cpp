// Worker threads, their bounded look-ahead, and the ordered hand-over of finished sources.
#include "engine/source_executor.h"

#include <algorithm>
#include <chrono>

namespace velmora::engine {

int DefaultJobs() {
  return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

SourceExecutor::SourceExecutor(const RunJob& job, imaging::ImagingLibrary& lib, const std::vector<std::string>& rows,
                               int jobs, std::size_t first_row)
    : job_(job), lib_(lib), rows_(rows), next_row_(first_row), next_take_(first_row) {
  std::size_t threads = job.carries_page_state ? 1 : static_cast<std::size_t>(std::max(1, jobs));
  threads = std::min(threads, std::max<std::size_t>(1, rows.size()));
  // One worker goes through the sources in turn with one chain state, as a plain loop would;
  // several workers start each source from the state a pass of the chain leaves.
  one_state_ = threads == 1;
  capacity_ = threads + 1;
  for (std::size_t i = 0; i < threads; ++i) workers_.emplace_back([this] { Work(); });
}

SourceExecutor::~SourceExecutor() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  room_.notify_all();
  for (std::thread& worker : workers_) worker.join();
  if (carried_) ReleaseOwnedWatermark(lib_, *carried_);
}

void SourceExecutor::Work() {
  for (;;) {
    std::size_t row = 0;
    {
      std::unique_lock lock(mutex_);
      room_.wait(lock, [this] { return stopping_ || next_row_ >= rows_.size() || next_row_ < next_take_ + capacity_; });
      if (stopping_ || next_row_ >= rows_.size()) return;
      row = next_row_++;
    }
    FinishedSource finished = TransformRow(job_, lib_, rows_[row], row, one_state_ ? &carried_ : nullptr);
    {
      std::lock_guard lock(mutex_);
      finished_.emplace(row, std::move(finished));
    }
    ready_.notify_all();
  }
}

FinishedSource SourceExecutor::Take(std::size_t row, const std::function<void()>& waiting) {
  std::unique_lock lock(mutex_);
  while (!finished_.contains(row)) {
    if (ready_.wait_for(lock, std::chrono::milliseconds(40), [&] { return finished_.contains(row); })) break;
    lock.unlock();
    waiting();
    lock.lock();
  }
  FinishedSource finished = std::move(finished_.at(row));
  finished_.erase(row);
  next_take_ = row + 1;
  lock.unlock();
  room_.notify_all();
  return finished;
}

}  // namespace velmora::engine
