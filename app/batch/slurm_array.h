// Runs the shards of a plan as one Slurm job array and waits for it: task K of N runs
// `velmora-batch --from-plan PLAN --shard K/N` on whichever node Slurm picks.
#pragma once

#include <functional>
#include <string>

namespace velmora::app {

struct SlurmArray {
  std::string batch_program;  // velmora-batch, as the nodes reach it
  std::string plan;           // the plan file, as the nodes reach it
  int tasks = 1;
  std::string extra_arguments;  // given to sbatch as a shell would split them, e.g. "-p big --mem=4G"
  std::string log_pattern;      // each task's output, Slurm's %A (job) and %a (task) filled in
};

struct SlurmOutcome {
  std::string job_id;   // empty when the job was never submitted
  std::string problem;  // empty when every task ended well
};

// Submits the array and waits for its end, telling `progress` how many tasks have ended whenever
// that changes.
SlurmOutcome RunSlurmArray(const SlurmArray& array,
                           const std::function<void(const std::string& job_id, int done)>& progress);

// `text` as one word for /bin/sh.
std::string ShellQuoted(const std::string& text);

}  // namespace velmora::app
