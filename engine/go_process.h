// The conversion run: every page of every source through the chain, encoded and written under
// names from the template; in preview mode the selected row only, shown instead of delivered.
#pragma once

#include "engine/app_state.h"
#include "engine/run_view.h"

namespace velmora::engine {

// Runs the job that `state` describes over `sources`, reporting through `view`.
// Reads state.preview.PreviewMode; writes WrittenFiles and SkipCounter.
void GoProcess2(AppState& state, const SourceList& sources, RunView& view);

}  // namespace velmora::engine
