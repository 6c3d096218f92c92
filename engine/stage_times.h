// Time spent in each stage of a conversion, for profiling a run. With VELMORA_STAGE_TIMES set to
// a file path, every process appends one line of totals to that file when it exits; unset, a
// stage costs one test of a flag.
#pragma once

#include <chrono>

namespace velmora::engine {

enum class Stage { kDecode, kChain, kDepth, kEncode, kWrite };

bool StageTimesWanted();
void AddStageTime(Stage stage, std::chrono::steady_clock::duration spent);

// Adds the time between its construction and its destruction to `stage`.
class StageTimer {
 public:
  explicit StageTimer(Stage stage) : stage_(stage), on_(StageTimesWanted()) {
    if (on_) start_ = std::chrono::steady_clock::now();
  }
  ~StageTimer() {
    if (on_) AddStageTime(stage_, std::chrono::steady_clock::now() - start_);
  }
  StageTimer(const StageTimer&) = delete;
  StageTimer& operator=(const StageTimer&) = delete;

 private:
  Stage stage_;
  bool on_;
  std::chrono::steady_clock::time_point start_{};
};

}  // namespace velmora::engine
