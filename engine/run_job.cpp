// Settling a run's job: flags, font passes, the watermark left by a pass, and whether pages
// depend on the page before them.
#include "engine/run_job.h"

namespace velmora::engine {
namespace {

bool IsTextWatermark(const Block& block) {
  return block.Kind == kWatermark && block.WatermarkKind == 0;
}
bool IsImageWatermark(const Block& block) {
  return block.Kind == kWatermark && block.WatermarkKind != 0;
}
bool IsKnownAlignment(std::int16_t align) {
  return align >= 0 && align <= 2;
}

bool CarriesPageState(const Blocks& blocks) {
  for (std::int32_t b = 0; b < blocks.UpperBound(); ++b) {
    const Block& block = blocks[b];
    if (block.Kind == kResize && block.Units != 0 && block.Units != 1) return true;
    if (block.Kind == kWatermark && (!IsKnownAlignment(block.HAlign) || !IsKnownAlignment(block.VAlign))) return true;
  }
  return false;
}

}  // namespace

RunJob MakeRunJob(const AppState& state, imaging::ImagingLibrary& lib) {
  RunJob job;
  job.blocks = state.blocks;
  job.output = state.output;
  job.target = OutputTargetFor(state.output.OutputFormat);
  job.SaveFlags = NextSaveFlags(0, state.output);
  job.preview = state.preview.PreviewMode != kFalse;
  job.upright = state.settings.RotateByCameraOrientation != kFalse;
  job.keep_colour_profile = state.settings.KeepColourProfiles != kFalse;
  lib.KeepColourProfiles(job.keep_colour_profile);
  job.preview_file = state.AppDataFolder + "/Temp/preview.dat";
  job.carries_page_state = CarriesPageState(state.blocks);

  job.font_at_start = job.font_after_pass = state.font;
  for (std::int32_t b = 0; b < job.blocks.UpperBound(); ++b) {
    const Block& block = job.blocks[b];
    if (IsTextWatermark(block)) ParseWatermarkFont(job.font_after_pass, block.WatermarkFont);
    // A preview has one page, which starts cold: it never needs the image a pass leaves behind.
    if (IsImageWatermark(block) && !job.preview) {
      imaging::Handle loaded = 0;
      imaging::CallResult result = 0;
      lib.FreeImage_Load(block.WatermarkSource, loaded, imaging::kFormatUnknown, 0, result);
      if (loaded == 0) continue;
      lib.Release(job.warm_watermark);
      job.warm_watermark = loaded;
    }
  }
  return job;
}

ChainState ChainStateForRow(const RunJob& job, std::size_t row) {
  // The first source meets the values the run started with; every later one what a whole pass
  // of the chain left, which is the same after any number of passes.
  ChainState chain;
  if (row == 0) {
    chain.font = job.font_at_start;
  } else {
    chain.font = job.font_after_pass;
    chain.watermark = job.warm_watermark;
  }
  return chain;
}

}  // namespace velmora::engine
