// A planned run on disk: the job, each row's source, the name its collision policy settled and the
// files it will write, decided in row order before anything is converted; and the journals in
// which the shards of the run record the rows they finished.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/worker_messages.h"

namespace velmora::engine {

// The first line of a plan names its format and version; a reader refuses any other.
inline constexpr const char* kPlanFormat = "velmora-plan";
inline constexpr int kPlanVersion = 1;

struct PlannedRow {
  std::string source;
  std::string target;                // empty when the collision policy skips the source
  std::vector<std::string> outputs;  // the files the row is expected to leave in place
  // Files the row writes that a later row replaces (the Overwrite policy): in one run they stand
  // only until then, so a shard, which may run after the later row's, throws them away.
  std::vector<std::string> superseded;
};

struct RunPlan {
  std::string id;  // tells this plan's journals from those of an earlier plan of the same name
  WorkerJob job;
  bool html_index = false;
  std::int32_t skipped = 0;
  // Why the rows cannot be split among shards that run at the same time ("" when they can).
  std::string single_shard_reason;
  std::vector<PlannedRow> rows;
};

// Writes the plan under a temporary name and renames it over `path`.
bool WriteRunPlan(const RunPlan& plan, const std::string& path);
// Reads a plan; returns why it can't be used, or "".
std::string ReadRunPlan(const std::string& path, RunPlan& plan);

// What a shard recorded for a row it finished.
struct JournalEntry {
  std::vector<std::string> cells;    // the names of the row's index cells, one per page
  std::vector<std::string> written;  // the files the row left in place
};
using Journal = std::map<std::size_t, JournalEntry>;

// The journal of shard `shard` of `shards` of the plan at `plan_path`, beside it.
std::string JournalPath(const std::string& plan_path, int shard, int shards);
// Every journal beside the plan, whatever the shard count.
std::vector<std::string> JournalPaths(const std::string& plan_path);

// The journal's header and its lines for rows.
std::string JournalHeader(const std::string& plan_id);
std::string JournalLine(std::size_t row, const JournalEntry& entry);
// Adds the rows of the journal at `path` written for plan `plan_id` to `journal`; a line cut short
// by a crash is left out. Returns the length of the journal's whole lines (0 when it belongs to
// another plan or is missing).
std::size_t ReadJournal(const std::string& path, const std::string& plan_id, Journal& journal);

}  // namespace velmora::engine
