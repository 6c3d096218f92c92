#include "engine/stage_times.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace velmora::engine {
namespace {

constexpr const char* kStageNames[] = {"decode", "chain", "depth", "encode", "write"};
constexpr std::size_t kStages = std::size(kStageNames);

std::array<std::atomic<std::int64_t>, kStages> totals_ns{};

void AppendTotals() {
  std::FILE* file = std::fopen(std::getenv("VELMORA_STAGE_TIMES"), "a");
  if (!file) return;
  std::fprintf(file, "pid %d:", static_cast<int>(::getpid()));
  for (std::size_t s = 0; s < kStages; ++s) std::fprintf(file, " %s %.3f s", kStageNames[s], totals_ns[s] * 1e-9);
  std::fprintf(file, "\n");
  std::fclose(file);
}

bool Wanted() {
  const char* path = std::getenv("VELMORA_STAGE_TIMES");
  if (!path || !*path) return false;
  std::atexit(AppendTotals);
  return true;
}

}  // namespace

bool StageTimesWanted() {
  static const bool wanted = Wanted();
  return wanted;
}

void AddStageTime(Stage stage, std::chrono::steady_clock::duration spent) {
  totals_ns[static_cast<std::size_t>(stage)] += std::chrono::duration_cast<std::chrono::nanoseconds>(spent).count();
}

}  // namespace velmora::engine
