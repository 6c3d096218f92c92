// A run split into shards that give exactly what one run would: the plan settles every name in
// row order without converting anything; each shard converts a contiguous range of rows under the
// planned names, recording what each row did in a journal; the finish checks the outputs and
// writes the index page and the closing lines from the journals.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/app_state.h"
#include "engine/go_process.h"
#include "engine/run_plan.h"
#include "engine/run_view.h"

namespace velmora::engine {

// The plan of the run that `state` describes over `sources`: names, collision policy and skip
// count as the run decides them. Sources of several pages have theirs counted from their headers
// where page files are written, since those write page names instead of the row's name. Nothing
// is shown on `view`: it only lets the event loop run.
RunPlan PlanRun(AppState& state, const SourceList& sources, RunView& view);

// The rows [first, end) of shard `shard` (0-based) of `shards`: contiguous, each row in one shard.
struct ShardRows {
  std::size_t first = 0, end = 0;
};
ShardRows RowsOfShard(std::size_t row_count, int shard, int shards);

struct ShardOutcome {
  std::string refusal;  // why the shard did not run, or ""
  std::size_t converted = 0, done_before = 0;
};

// Converts shard `shard` of `shards` of the plan read from `plan_path`, skipping the rows its
// journal already lists, and appends each finished row to the journal once its files are in place.
ShardOutcome RunShard(const RunPlan& plan, const std::string& plan_path, int shard, int shards, RunView& view,
                      const RunOptions& options);

struct PlanCheck {
  std::vector<std::string> missing;    // outputs (or rows) no shard has finished
  std::vector<std::string> differing;  // rows that wrote other files than planned
};

// Checks that every row is finished and its files are there; when they are, writes the index page
// and shows the closing lines of the run on `view`, as one run would have.
PlanCheck FinishPlan(const RunPlan& plan, const std::string& plan_path, RunView& view);

}  // namespace velmora::engine
