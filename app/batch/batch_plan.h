// A run split into shards from the command line: --write-plan, --from-plan with --shard, and
// --finish-plan, each a whole command that returns the exit status velmora-batch ends with.
#pragma once

#include <cstdio>
#include <string>

#include "app/batch/batch_options.h"

namespace velmora::app {

// Settles the run that `options` describe (job options and sources, as a run takes them) into
// the plan file *options.write_plan, without converting anything.
int WritePlanCommand(const BatchOptions& options, std::FILE* out, std::FILE* err);

// Converts shard `shard` (0-based) of `shards` of the plan at `plan_path`; a shard run again
// converts only the rows it has not finished. Uses options.jobs, source_timeout and quiet.
int RunShardCommand(const std::string& plan_path, int shard, int shards, const BatchOptions& options, std::FILE* out,
                    std::FILE* err);

// Checks that every planned output is there, writes the index page and prints the run's closing
// lines; names each missing output on `err` and ends with kExitNotWritten when some are missing.
int FinishPlanCommand(const std::string& plan_path, const BatchOptions& options, std::FILE* out, std::FILE* err);

// Writes the plan, runs its options.slurm_tasks shards as one Slurm job array and waits for it,
// then finishes the plan; the exit status is the finish's, or that of the step that failed.
int SlurmPlanCommand(const BatchOptions& options, std::FILE* out, std::FILE* err);

}  // namespace velmora::app
