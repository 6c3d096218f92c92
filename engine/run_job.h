// The fixed side of a run, settled before the first source: the chain, the output choices, the
// save flags and the state the chain carries into each source.
#pragma once

#include <cstdint>
#include <string>

#include "engine/app_state.h"
#include "engine/encoder.h"
#include "engine/ops/chain_state.h"
#include "imaging/imaging_library.h"

namespace velmora::engine {

struct RunJob {
  Blocks blocks;
  OutputChoices output;
  OutputTarget target;
  // The flags of every save. The run's flags start at 0 and each page passes them through
  // NextSaveFlags, which gives the same value again once applied: one value serves all pages.
  std::int32_t SaveFlags = 0;
  bool preview = false;
  // Photos are turned upright by their camera orientation as they are read.
  bool upright = false;
  // The source's colour profile travels with the page into the output.
  bool keep_colour_profile = false;
  std::string preview_file;  // AppDataFolder + "/Temp/preview.dat"
  // The inner size of the preview frame the page is fitted to.
  int preview_frame_width = 0, preview_frame_height = 0;
  // The font values before the first operation of the run, and after one pass of the chain.
  FontState font_at_start, font_after_pass;
  // The watermark image a pass of the chain leaves behind (0 when no image watermark loads, and
  // in a preview, which has no second page to carry it into).
  imaging::Handle warm_watermark = 0;
  // True when an operation reads what the page before it computed (a resize of unknown units,
  // a watermark of unknown alignment): such a job runs its sources one after another.
  bool carries_page_state = false;
};

// Settles the job from the program state; loads the watermark images once through `lib`.
RunJob MakeRunJob(const AppState& state, imaging::ImagingLibrary& lib);

// The state the chain has when it reaches the first page of source `row`.
ChainState ChainStateForRow(const RunJob& job, std::size_t row);

}  // namespace velmora::engine
