// The driver of a run: start, the sources in row order (or the one preview page), and the end
// with the index page, the folder opening and the closing status lines.
#include "engine/go_process.h"

#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/preview_fit.h"
#include "engine/run_context.h"
#include "engine/source_executor.h"

namespace velmora::engine {
namespace {

void ShowPreviewPage(RunContext& run, imaging::Handle page) {
  std::uint32_t w = 0, h = 0;
  run.lib.FreeImage_GetWidth(page, w);
  run.lib.FreeImage_GetHeight(page, h);
  int frame_width = 0, frame_height = 0;
  run.view.PreviewFrameSize(frame_width, frame_height);
  const FitResult fit = FitPreview(w, h, frame_width, frame_height);
  imaging::CallResult result = 0;
  if (fit.rescale) run.lib.FreeImage_Rescale(page, fit.width, fit.height, 1, result);

  imaging::DisplayPicture picture;
  run.lib.MakeDisplayPicture(page, picture, result);
  if (result == 0) return;
  const int top = static_cast<int>(RoundHalfEven(frame_height / 2.0 - picture.height / 2.0));
  const int left = static_cast<int>(RoundHalfEven(frame_width / 2.0 - picture.width / 2.0));
  run.view.ShowPreview(picture, top, left);
}

// The selected row's first page only, written to the preview file and shown. It runs on the
// caller's thread: a preview already has a thread of its own.
void RunPreview(RunContext& run, const SourceList& sources) {
  const bool has_row = sources.selected >= 0 && sources.selected < static_cast<int>(sources.rows.size());
  const SourcePlan plan{has_row ? sources.rows[static_cast<std::size_t>(sources.selected)] : "",
                        has_row ? sources.selected : 0, ""};
  run.view.ShowWait(true);
  run.view.SetWaitLabel("0%");
  ChainState chain = ChainStateForRow(run.job, 0);
  FinishedSource finished = TransformSource(run.job, run.lib, plan.path, chain);
  ReleaseOwnedWatermark(run.lib, chain);
  CommitSource(run, plan, finished);
  ShowPreviewPage(run, finished.pages.front().page);
}

void RunSources(RunContext& run, const SourceList& sources, int jobs) {
  run.outputs = OutputLedger(sources.rows);
  const OutputLedger::Report report = [&run](const std::string& message) { run.view.LogFailure(message); };
  SourceExecutor executor(run.job, run.lib, sources.rows, jobs);
  for (std::size_t i = 0; i < sources.rows.size(); ++i) {
    const SourcePlan plan = PlanSource(run, sources.rows[i], static_cast<std::int64_t>(i));
    run.view.SetProgressValue(static_cast<int>(i + 1));
    run.view.SetFile("Current file: " + FileNameOfPath(plan.path));
    FinishedSource finished = executor.Take(i, [&run] { run.view.Yield(); });
    // Row i has been read: outputs that would replace its source may now go in place.
    run.outputs.RowRead(i, report);
    CommitSource(run, plan, finished);
    run.view.Yield();
  }
  run.outputs.PlaceAll(report);
}

void Finish(RunContext& run, std::size_t row_count) {
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

}  // namespace

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
  if (state.settings.GenerateHtmlIndex != kFalse) run.html.emplace();

  if (preview)
    RunPreview(run, sources);
  else
    RunSources(run, sources, options.jobs > 0 ? options.jobs : DefaultJobs());
  // The font values stand where the last page's chain left them.
  state.font = run.job.font_after_pass;
  Finish(run, row_count);
}

}  // namespace velmora::engine
