// The conversion run: every page of every source through the chain, encoded and written under
// names from the template; in preview mode the selected row only, shown instead of delivered.
#pragma once

#include "engine/app_state.h"
#include "engine/run_view.h"
#include "engine/worker_processes.h"

namespace velmora::engine {

struct RunOptions {
  // Workers that convert sources at the same time; 0 means one per core. The files written are
  // the same whatever the number.
  int jobs = 0;
  // With a worker program, sources are transformed in worker processes under these limits, so
  // that a decoder crash costs only its source; without one, on threads of this process.
  WorkerLimits workers;
};

// Runs the job that `state` describes over `sources`, reporting through `view` on the calling
// thread. Reads state.preview.PreviewMode; writes WrittenFiles, SkipCounter and the font values.
void GoProcess2(AppState& state, const SourceList& sources, RunView& view, const RunOptions& options = {});

}  // namespace velmora::engine
