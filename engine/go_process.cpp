// The driver of a run: start, the sources in row order (or the one preview page), and the end
// with the index page, the folder opening and the closing status lines.
#include "engine/go_process.h"

#include <memory>

#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/run_context.h"
#include "engine/source_executor.h"
#include "engine/worker_messages.h"

namespace velmora::engine {
namespace {

void ShowPreviewPage(RunContext& run, const FinishedSource& finished) {
  if (!finished.picture_ok) return;
  const imaging::DisplayPicture& picture = finished.picture;
  const int top = static_cast<int>(RoundHalfEven(run.job.preview_frame_height / 2.0 - picture.height / 2.0));
  const int left = static_cast<int>(RoundHalfEven(run.job.preview_frame_width / 2.0 - picture.width / 2.0));
  run.view.ShowPreview(picture, top, left);
}

// The selected row's first page only, written to the preview file and shown. It runs on the
// caller's thread: a preview already has a thread of its own.
// Where the sources are transformed: worker processes when a worker program is given.
std::unique_ptr<SourceQueue> MakeSourceQueue(RunContext& run, const std::vector<std::string>& rows, int jobs,
                                             const WorkerLimits& limits, std::size_t first_row = 0) {
  if (limits.program.empty()) return std::make_unique<SourceExecutor>(run.job, run.lib, rows, jobs, first_row);
  return std::make_unique<WorkerProcesses>(WorkerJobOf(run), run.job.carries_page_state, rows, jobs, limits, first_row);
}

void RunPreview(RunContext& run, const SourceList& sources, const WorkerLimits& limits) {
  const bool has_row = sources.selected >= 0 && sources.selected < static_cast<int>(sources.rows.size());
  const SourcePlan plan{has_row ? sources.rows[static_cast<std::size_t>(sources.selected)] : "",
                        has_row ? sources.selected : 0, ""};
  run.view.ShowWait(true);
  run.view.SetWaitLabel("0%");
  // A preview has one page, which starts from the first row's chain state.
  const std::vector<std::string> rows{plan.path};
  const FinishedSource finished = limits.program.empty() ? TransformRow(run.job, run.lib, plan.path, 0, nullptr)
                                                         : MakeSourceQueue(run, rows, 1, limits)->Take(0, [] {});
  CommitSource(run, plan, finished);
  ShowPreviewPage(run, finished);
}

void RunSources(RunContext& run, const SourceList& sources, int jobs, const WorkerLimits& limits) {
  run.outputs = OutputLedger(run.FailureLog(), sources.rows);
  ConvertRows(run, sources.rows, 0, jobs, limits,
              [&](std::size_t row) { return PlanSource(run, sources.rows[row], static_cast<std::int64_t>(row)); }, {});
}

}  // namespace

WorkerJob WorkerJobOf(const RunContext& run) {
  WorkerJob job{run.state.blocks,
                run.state.output,
                run.state.font,
                run.job.preview,
                run.job.preview_frame_width,
                run.job.preview_frame_height};
  job.upright = run.job.upright;
  job.keep_colour_profile = run.job.keep_colour_profile;
  return job;
}

void ConvertRows(RunContext& run, const std::vector<std::string>& rows, std::size_t first_row, int jobs,
                 const WorkerLimits& limits, const std::function<SourcePlan(std::size_t row)>& plan_row,
                 const std::function<void(std::size_t row)>& row_done) {
  const std::unique_ptr<SourceQueue> queue = MakeSourceQueue(run, rows, jobs, limits, first_row);
  for (std::size_t i = first_row; i < rows.size(); ++i) {
    const SourcePlan plan = plan_row(i);
    run.view.SetProgressValue(static_cast<int>(i - first_row + 1));
    run.view.SetFile("Current file: " + FileNameOfPath(plan.path));
    FinishedSource finished = queue->Take(i, [&run] { run.view.Yield(); });
    // Row i has been read: outputs that would replace its source may now go in place.
    run.outputs.RowRead(i);
    CommitSource(run, plan, finished);
    if (row_done) row_done(i);
    run.view.Yield();
  }
  run.outputs.PlaceAll();
}

void FinishRun(RunContext& run, std::size_t row_count) {
  AppState& state = run.state;
  if (!run.job.preview && run.html) {
    run.view.Yield();
    const std::string index = run.job.output.OutputFolder + "index.html";
    if (!WriteTextFile(index, run.html->Finish())) run.view.LogFailure(kCannotWrite + index);
  }
  if (!run.job.preview && run.job.output.OpenTargetFolder != kFalse) run.view.OpenFolder(run.job.output.OutputFolder);
  run.view.SetStatus("Completed.");
  std::string counts = std::to_string(row_count) + " file(s) processed.";
  if (state.SkipCounter > 0) counts += " " + std::to_string(state.SkipCounter) + " file(s) skipped.";
  run.view.SetFile(counts);
  state.preview.PreviewMode = kFalse;
  run.view.ShowWait(false);
}

void GoProcess2(AppState& state, const SourceList& sources, RunView& view, const RunOptions& options) {
  RunContext run(state, view);
  const std::size_t row_count = sources.rows.size();
  const bool preview = state.preview.PreviewMode != kFalse;
  if (!preview && row_count == 0) {
    view.SetStatus("Terminated.");
    view.SetFile("No files to process.");
    return;
  }
  state.SkipCounter = 0;
  state.WrittenFiles.Clear();
  if (!preview) {
    view.SetProgressRange(0, static_cast<int>(row_count));
    view.SetProgressValue(0);
    view.SetStatus("Processing...");
    view.SetFile("");
    if (state.settings.AlwaysCreateOutputFolder != kFalse) MakePath(state.output.OutputFolder);
  }
  run.job = MakeRunJob(state, run.lib);
  if (preview) view.PreviewFrameSize(run.job.preview_frame_width, run.job.preview_frame_height);
  if (state.settings.GenerateHtmlIndex != kFalse) run.html.emplace();

  if (preview)
    RunPreview(run, sources, options.workers);
  else
    RunSources(run, sources, options.jobs > 0 ? options.jobs : DefaultJobs(), options.workers);
  // The font values stand where the last page's chain left them.
  state.font = run.job.font_after_pass;
  FinishRun(run, row_count);
}

}  // namespace velmora::engine
