// Where the run takes its finished sources from, in row order: worker threads of this process,
// or worker processes (engine/worker_processes.h).
#pragma once

#include <cstddef>
#include <functional>

#include "engine/source_work.h"

namespace velmora::engine {

class SourceQueue {
 public:
  virtual ~SourceQueue() = default;
  // The finished source of `row`; rows must be taken in order. Calls `waiting` now and then
  // until it is ready, so that the caller's event loop keeps running.
  virtual FinishedSource Take(std::size_t row, const std::function<void()>& waiting) = 0;
};

}  // namespace velmora::engine
