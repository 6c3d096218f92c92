// The driver of a run: start, the loop over sources (or the one preview page), and the end
// with the index page, the folder opening and the closing status lines.
#include "engine/go_process.h"

#include "engine/number_text.h"
#include "engine/paths.h"
#include "engine/preview_fit.h"
#include "engine/run_context.h"

namespace velmora::engine {
namespace {

void ShowPreviewPage(RunContext& run, imaging::Handle& page) {
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

// The selected row's first page only, written to the preview file and shown.
void RunPreview(RunContext& run, const SourceList& sources) {
  const bool has_row = sources.selected >= 0 && sources.selected < static_cast<int>(sources.rows.size());
  const SourcePlan plan{has_row ? sources.rows[static_cast<std::size_t>(sources.selected)] : "",
                        has_row ? sources.selected : 0, ""};
  run.view.ShowWait(true);
  run.view.SetWaitLabel("0%");
  imaging::Handle page = 0;
  LoadSinglePage(run.lib, plan.path, page);
  std::string TargetPath;
  ProcessPage(run, page, 0, 0, plan, TargetPath);
  ShowPreviewPage(run, page);
}

void Finish(RunContext& run, std::size_t row_count) {
  AppState& state = run.state;
  if (!run.preview() && run.html) {
    run.view.Yield();
    WriteTextFile(state.output.OutputFolder + "index.html", run.html->Finish());
  }
  if (!run.preview() && state.output.OpenTargetFolder != kFalse) run.view.OpenFolder(state.output.OutputFolder);
  run.view.SetStatus("Completed.");
  std::string counts = std::to_string(row_count) + " file(s) processed.";
  if (state.SkipCounter > 0) counts += " " + std::to_string(state.SkipCounter) + " file(s) skipped.";
  run.view.SetFile(counts);
  state.preview.PreviewMode = kFalse;
  run.view.ShowWait(false);
}

}  // namespace

void GoProcess2(AppState& state, const SourceList& sources, RunView& view) {
  RunContext run(state, view);
  const std::size_t row_count = sources.rows.size();
  if (!run.preview() && row_count == 0) {
    view.SetStatus("Terminated.");
    view.SetFile("No files to process.");
    return;
  }
  state.SkipCounter = 0;
  state.WrittenFiles.Clear();
  if (!run.preview()) {
    view.SetProgressRange(0, static_cast<int>(row_count));
    view.SetProgressValue(0);
    view.SetStatus("Processing...");
    view.SetFile("");
    if (state.settings.AlwaysCreateOutputFolder != kFalse) MakePath(state.output.OutputFolder);
  }
  run.target = OutputTargetFor(state.output.OutputFormat);
  if (state.settings.GenerateHtmlIndex != kFalse) run.html.emplace();

  if (run.preview()) {
    RunPreview(run, sources);
  } else {
    for (std::size_t i = 0; i < row_count; ++i) {
      const SourcePlan plan = PlanSource(run, sources.rows[i], static_cast<std::int64_t>(i));
      ExecuteSource(run, plan);
    }
  }
  Finish(run, row_count);
}

}  // namespace velmora::engine
