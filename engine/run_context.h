// What one conversion run carries while it goes: the back end, the job, the surroundings and the
// state passed from page to page. Split into the plan of a source (its output name, decided in
// row order) and the execution of its pages.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "engine/app_state.h"
#include "engine/encoder.h"
#include "engine/html_index.h"
#include "engine/ops/chain_state.h"
#include "engine/run_view.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

struct RunContext {
  RunContext(AppState& app_state, RunView& run_view)
      : state(app_state), view(run_view), chain(app_state.font) {}

  imaging::ImagingLibrary lib;
  AppState& state;
  RunView& view;
  ChainState chain;
  OutputTarget target;
  std::int32_t SaveFlags = 0;
  std::optional<HtmlIndex> html;  // present when GenerateHtmlIndex is on

  bool preview() const { return state.preview.PreviewMode != kFalse; }
};

// The output decision for one source: its path, its row (zero-based) and the name it will be
// written under, empty when the collision policy skips it.
struct SourcePlan {
  std::string path;
  std::int64_t row = 0;
  std::string TargetPath;
};

// Loads a file as one image: icons with their alpha channel, anything else by its content.
void LoadSinglePage(imaging::ImagingLibrary& lib, const std::string& path, imaging::Handle& page);

// Expands the template for `row` and applies the collision policy against the files on disk.
SourcePlan PlanSource(RunContext& run, const std::string& path, std::int64_t row);

// Loads every page of the planned source and sends each through the chain and the encoder.
void ExecuteSource(RunContext& run, const SourcePlan& plan);

// The work on one page: metadata aside, the chain, the index cell, depth, flags and save.
// `page_upper_bound` is the number of pages of the source minus one; `TargetPath` may be
// renamed by a per-page save.
void ProcessPage(RunContext& run, imaging::Handle& page, int page_index, int page_upper_bound,
                 const SourcePlan& plan, std::string& TargetPath);

}  // namespace velmora::engine
