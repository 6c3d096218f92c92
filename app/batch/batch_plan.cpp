// The plan, shard and finish commands over the engine's planned run.
#include "app/batch/batch_plan.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "app/batch/batch_main.h"
#include "app/batch/batch_view.h"
#include "app/batch/slurm_array.h"
#include "engine/plan_run.h"

namespace velmora::app {
namespace {

BatchView ViewOn(std::FILE* out, const BatchOptions& options) {
  return BatchView(out, ::isatty(::fileno(out)) == 1, options.quiet);
}

}  // namespace

int WritePlanCommand(const BatchOptions& options, std::FILE* out, std::FILE* err) {
  engine::AppState state;
  engine::SourceList sources;
  if (const int code = PrepareBatchRun(options, state, sources, err); code != kExitOk) return code;
  // Shards may run in other folders: the names are planned from the output folder's full path.
  std::string& folder = state.output.OutputFolder;
  if (!folder.starts_with('/')) folder = std::filesystem::absolute(folder).lexically_normal().string();
  BatchView silent(out, false, true);
  const engine::RunPlan plan = engine::PlanRun(state, sources, silent);
  const std::string& path = *options.write_plan;
  if (!engine::WriteRunPlan(plan, path)) return FailBatch(err, kExitFailure, "cannot write the plan " + path);
  // The journals of an earlier plan of this name belong to another run.
  for (const std::string& journal : engine::JournalPaths(path)) std::remove(journal.c_str());
  if (!plan.single_shard_reason.empty())
    std::fprintf(err, "velmora-batch: this plan runs as one shard only: %s\n", plan.single_shard_reason.c_str());
  if (!options.quiet) {
    std::fprintf(out, "Planned %zu file(s) into %s.\n", plan.rows.size(), path.c_str());
    if (plan.skipped > 0) std::fprintf(out, "%d file(s) will be skipped.\n", plan.skipped);
  }
  return kExitOk;
}

int RunShardCommand(const std::string& plan_path, int shard, int shards, const BatchOptions& options, std::FILE* out,
                    std::FILE* err) {
  engine::RunPlan plan;
  if (const std::string problem = engine::ReadRunPlan(plan_path, plan); !problem.empty())
    return FailBatch(err, kExitFailure, problem);
  const std::optional<engine::RunOptions> run_options = BatchRunOptions(options, err);
  if (!run_options) return kExitFailure;
  BatchView view = ViewOn(out, options);
  const engine::ShardOutcome outcome = engine::RunShard(plan, plan_path, shard, shards, view, *run_options);
  if (!outcome.refusal.empty()) return FailBatch(err, kExitFailure, outcome.refusal);
  std::string summary = "Shard " + std::to_string(shard) + "/" + std::to_string(shards) + ": " +
                        std::to_string(outcome.converted) + " file(s) processed";
  if (outcome.done_before > 0) summary += ", " + std::to_string(outcome.done_before) + " done before";
  view.SetFile(summary + ".");
  return ReportFailures(view, err);
}

int FinishPlanCommand(const std::string& plan_path, const BatchOptions& options, std::FILE* out, std::FILE* err) {
  engine::RunPlan plan;
  if (const std::string problem = engine::ReadRunPlan(plan_path, plan); !problem.empty())
    return FailBatch(err, kExitFailure, problem);
  BatchView view = ViewOn(out, options);
  const engine::PlanCheck check = engine::FinishPlan(plan, plan_path, view);
  for (const std::string& source : check.differing)
    std::fprintf(err,
                 "velmora-batch: warning: %s wrote other files than planned (it could not be read whole); the "
                 "names after it may differ from those of one run\n",
                 source.c_str());
  if (check.missing.empty()) return kExitOk;
  for (const std::string& name : check.missing) std::fprintf(err, "velmora-batch: missing: %s\n", name.c_str());
  return FailBatch(err, kExitNotWritten,
                   std::to_string(check.missing.size()) +
                       " planned output(s) are missing; run their shards again (a shard redoes only the rows it "
                       "has not finished)");
}

int SlurmPlanCommand(const BatchOptions& options, std::FILE* out, std::FILE* err) {
  if (const int code = WritePlanCommand(options, out, err); code != kExitOk) return code;
  // The tasks start elsewhere: the plan and this program by their full paths.
  std::error_code error;
  const std::string self = std::filesystem::read_symlink("/proc/self/exe", error).string();
  const std::string plan = std::filesystem::absolute(*options.write_plan).lexically_normal().string();
  const SlurmArray array{self, plan, options.slurm_tasks, options.slurm_arguments.value_or(""),
                         plan + ".task-%A_%a.log"};
  BatchView view = ViewOn(out, options);
  view.SetProgressRange(0, array.tasks);
  view.SetStatus("Processing...");
  const SlurmOutcome outcome = RunSlurmArray(array, [&](const std::string& job_id, int done) {
    view.SetProgressValue(done);
    view.SetFile("Slurm job " + job_id + ": " + std::to_string(done) + " of " + std::to_string(array.tasks) +
                 " task(s) ended");
  });
  view.SetStatus("");
  if (outcome.job_id.empty()) return FailBatch(err, kExitFailure, outcome.problem);
  view.SetFile("Slurm job " + outcome.job_id + " ended.");
  // The finish names whatever a failed task left undone.
  if (!outcome.problem.empty()) std::fprintf(err, "velmora-batch: warning: %s\n", outcome.problem.c_str());
  return FinishPlanCommand(plan, options, out, err);
}

}  // namespace velmora::app
