// The order of a batch run: command line, profile and sources checked, job loaded, output folder
// made ready, the run, its warnings.
#include "app/batch/batch_main.h"

#include <unistd.h>

#include "app/batch/batch_album.h"
#include "app/batch/batch_job.h"
#include "app/batch/batch_options.h"
#include "app/batch/batch_plan.h"
#include "app/batch/batch_sources.h"
#include "app/batch/batch_upload.h"
#include "app/batch/batch_view.h"
#include "engine/go_process.h"

namespace velmora::app {

int FailBatch(std::FILE* err, int code, const std::string& message) {
  std::fprintf(err, "velmora-batch: %s\n", message.c_str());
  if (code == kExitUsage) std::fputs("Try 'velmora-batch --help' for more information.\n", err);
  return code;
}

int PrepareBatchRun(const BatchOptions& options, engine::AppState& state, engine::SourceList& sources, std::FILE* err) {
  // Nothing is written until the profile and every source are known to be there.
  if (options.profile) {
    if (const std::string problem = CheckProfilePath(*options.profile); !problem.empty())
      return FailBatch(err, kExitFailure, problem);
  }
  std::vector<std::string> paths = options.sources;  // the command line's first, then the list's
  if (options.sources_from) {
    if (const std::string problem = ReadSourceList(*options.sources_from, paths); !problem.empty())
      return FailBatch(err, kExitFailure, problem);
  }
  CollectedSources collected = CollectSources(paths);
  if (!collected.error.empty()) return FailBatch(err, kExitFailure, collected.error);
  if (collected.list.rows.empty())
    return FailBatch(err, kExitFailure,
                     "no source images found: the files given are empty or already listed, "
                     "and the folders given hold no image files");
  sources = std::move(collected.list);

  const std::string profile_notice = LoadBatchJob(state, options);
  ApplyOverrides(state, options);
  if (const std::string problem = PrepareOutputFolder(state, options.output_folder.has_value()); !problem.empty())
    return FailBatch(err, kExitFailure, problem);
  if (options.upload_ftp || options.upload_album) {
    const std::string problem =
        options.upload_ftp ? CheckUploadSettings(state.settings) : CheckAlbumSettings(state.settings);
    if (!problem.empty()) return FailBatch(err, kExitFailure, problem);
  }
  if (!profile_notice.empty()) std::fprintf(err, "velmora-batch: %s\n", profile_notice.c_str());
  return kExitOk;
}

std::optional<engine::RunOptions> BatchRunOptions(const BatchOptions& options, std::FILE* err) {
  // Sources are decoded only in worker processes: without the worker program there is no run.
  const engine::RunOptions run_options{options.jobs, {engine::FindWorkerProgram(), options.source_timeout, 0}};
  if (!run_options.workers.program.empty()) return run_options;
  FailBatch(err, kExitFailure, "cannot find velmora-worker beside velmora-batch (or in $VELMORA_WORKER)");
  return std::nullopt;
}

int ReportFailures(const BatchView& view, std::FILE* err) {
  bool not_written = false;
  for (const std::string& failure : view.failures()) {
    std::fprintf(err, "velmora-batch: warning: %s\n", failure.c_str());
    not_written = not_written || failure.rfind(engine::kCannotWrite, 0) == 0;
  }
  return not_written ? kExitNotWritten : kExitOk;
}

int RunBatch(const std::vector<std::string>& arguments, std::FILE* out, std::FILE* err) {
  const ParsedArguments parsed = ParseBatchArguments(arguments);
  if (!parsed.error.empty()) return FailBatch(err, kExitUsage, parsed.error);
  const BatchOptions& options = parsed.options;
  if (options.help) {
    std::fputs(BatchHelpText().c_str(), out);
    return kExitOk;
  }
  if (options.version) {
    std::fputs(BatchVersionText().c_str(), out);
    return kExitOk;
  }
  if (options.slurm_tasks > 0) return SlurmPlanCommand(options, out, err);
  if (options.write_plan) return WritePlanCommand(options, out, err);
  if (options.from_plan) return RunShardCommand(*options.from_plan, options.shard, options.shards, options, out, err);
  if (options.finish_plan) return FinishPlanCommand(*options.finish_plan, options, out, err);

  engine::AppState state;
  engine::SourceList sources;
  if (const int code = PrepareBatchRun(options, state, sources, err); code != kExitOk) return code;
  const std::optional<engine::RunOptions> run_options = BatchRunOptions(options, err);
  if (!run_options) return kExitFailure;

  BatchView view(out, ::isatty(::fileno(out)) == 1, options.quiet);
  engine::GoProcess2(state, sources, view, *run_options);
  if (const int code = ReportFailures(view, err); code != kExitOk) return code;
  if (options.upload_ftp && !UploadWrittenFiles(state, view, err)) return kExitNotUploaded;
  if (options.upload_album && !UploadWrittenFilesToAlbum(state, options.album, view, err)) return kExitNotUploaded;
  return kExitOk;
}

}  // namespace velmora::app
