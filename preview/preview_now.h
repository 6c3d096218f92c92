// PreviewNow2: the selected source shown as it is and as the chain and output settings turn it
// out, the latter by a conversion run in preview mode. Plain code: the worker runs it on a copy.
#pragma once

#include <cstdint>

#include "engine/app_state.h"
#include "engine/preview_fit.h"
#include "engine/run_view.h"
#include "engine/worker_processes.h"

namespace velmora::preview {

// The run's outputs plus the upper box, which shows the source.
class PreviewView : public engine::RunView {
 public:
  // Inner size of the source box (prwFon2) in pixels.
  virtual void OriginalFrameSize(int& width, int& height) = 0;
  // The source picture (prw2) at the given place in its box; "No Image" (nim2) hidden.
  virtual void ShowOriginal(const imaging::DisplayPicture& picture, int top, int left) = 0;
  // An unreadable source: prw2 hidden and cleared, nim2 shown, the box cleared.
  virtual void ShowNoOriginal() = 0;
  // Nothing to show: prw hidden, nim shown, prw cleared, then as ShowNoOriginal.
  virtual void ClearBoth() = 0;
};

using engine::BoxFit;
using engine::FitSourceBox;

// A picture of w by h centred in a box of bw by bh: the top and left to place it at.
void CentreInBox(int w, int h, int bw, int bh, int& top, int& left);

// With a worker program, the source is read only in worker processes, so that a source that
// crashes its decoder shows "No Image" instead of ending the window.
void PreviewNow2(engine::AppState& state, const engine::SourceList& sources, PreviewView& view,
                 const engine::WorkerLimits& workers = {});

}  // namespace velmora::preview
