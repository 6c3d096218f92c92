// The source box, then the preview run.
#include "preview/preview_now.h"

#include <cmath>
#include <limits>

#include "engine/go_process.h"
#include "engine/number_text.h"
#include "engine/source_work.h"
#include "imaging/imaging_library.h"

namespace velmora::preview {

void CentreInBox(int w, int h, int bw, int bh, int& top, int& left) {
  top = static_cast<int>(engine::RoundHalfEven(bh / 2.0 - h / 2.0));
  left = static_cast<int>(engine::RoundHalfEven(bw / 2.0 - w / 2.0));
}

namespace {

// The source box: the source read here, or in a worker process when there is a worker program.
void ShowSourceBox(const std::string& path, bool upright, PreviewView& view, const engine::WorkerLimits& workers) {
  int box_width = 0, box_height = 0;
  view.OriginalFrameSize(box_width, box_height);
  engine::FinishedSource source;
  if (workers.program.empty()) {
    imaging::ImagingLibrary lib;
    source = engine::PictureOfSource(lib, path, box_width, box_height, upright);
  } else {
    engine::WorkerJob job;
    job.preview = job.source_picture = true;
    job.frame_width = box_width;
    job.frame_height = box_height;
    job.upright = upright;
    const std::vector<std::string> rows{path};
    source = engine::WorkerProcesses(job, false, rows, 1, workers).Take(0, [] {});
  }
  // An unreadable source shows "No Image"; the run still goes on with nothing loaded.
  if (!source.pages.front().readable) {
    view.ShowNoOriginal();
    return;
  }
  if (!source.picture_ok) return;
  int top = 0, left = 0;
  CentreInBox(static_cast<int>(source.picture.width), static_cast<int>(source.picture.height), box_width, box_height,
              top, left);
  view.ShowOriginal(source.picture, top, left);
}

}  // namespace

void PreviewNow2(engine::AppState& state, const engine::SourceList& sources, PreviewView& view,
                 const engine::WorkerLimits& workers) {
  const bool has_row = sources.selected >= 0 && sources.selected < static_cast<int>(sources.rows.size());
  if (sources.rows.empty() || !has_row || sources.rows[static_cast<std::size_t>(sources.selected)].empty()) {
    view.ClearBoth();
    return;
  }
  ShowSourceBox(sources.rows[static_cast<std::size_t>(sources.selected)],
                state.settings.RotateByCameraOrientation != engine::kFalse, view, workers);
  state.preview.PreviewMode = engine::kTrue;
  engine::GoProcess2(state, sources, view, engine::RunOptions{0, workers});
  state.preview.PreviewMode = engine::kFalse;
}

}  // namespace velmora::preview
