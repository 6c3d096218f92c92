// The source box, then the preview run.
#include "preview/preview_now.h"

#include <cmath>
#include <limits>

#include "engine/go_process.h"
#include "engine/number_text.h"
#include "imaging/imaging_library.h"

namespace velmora::preview {

BoxFit FitSourceBox(std::int64_t W, std::int64_t H, std::int64_t BW, std::int64_t BH) {
  const float r = W > H ? static_cast<float>(H) / static_cast<float>(W)
                        : (W < H ? static_cast<float>(W) / static_cast<float>(H) : 1.0f);
  auto fits = [](double value) {
    const std::int64_t rounded = engine::RoundHalfEven(value);
    return rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max();
  };
  auto make = [&](double w, double h) {
    if (!fits(w) || !fits(h)) return BoxFit{};
    return BoxFit{true, static_cast<std::int16_t>(engine::RoundHalfEven(w)),
                  static_cast<std::int16_t>(engine::RoundHalfEven(h))};
  };
  const double scaled_w = static_cast<double>(r) * static_cast<double>(BW);
  const double scaled_h = static_cast<double>(r) * static_cast<double>(BH);
  if (BW < W && W == H) return make(static_cast<double>(BW), scaled_w);
  if (BW < W && W > H) return make(static_cast<double>(BW), scaled_w);
  if (BH < H && H > W) return make(scaled_h, static_cast<double>(BH));
  if (BH < H && H < W) return make(static_cast<double>(BW), scaled_w);
  if (BW < W && W < H) return make(scaled_h, static_cast<double>(BH));
  return {};
}

void CentreInBox(int w, int h, int bw, int bh, int& top, int& left) {
  top = static_cast<int>(engine::RoundHalfEven(bh / 2.0 - h / 2.0));
  left = static_cast<int>(engine::RoundHalfEven(bw / 2.0 - w / 2.0));
}

void PreviewNow2(engine::AppState& state, const engine::SourceList& sources, PreviewView& view) {
  imaging::ImagingLibrary lib;
  const bool has_row = sources.selected >= 0 && sources.selected < static_cast<int>(sources.rows.size());
  if (sources.rows.empty() || !has_row || sources.rows[static_cast<std::size_t>(sources.selected)].empty()) {
    view.ClearBoth();
    return;
  }
  const std::string& path = sources.rows[static_cast<std::size_t>(sources.selected)];
  imaging::Handle image = 0;
  imaging::CallResult result = 0;
  lib.FreeImage_Load(path, image, imaging::kFormatUnknown, 0, result);
  if (result == 0) {
    // The run still goes on below with nothing loaded here.
    view.ShowNoOriginal();
  } else {
    std::uint32_t width = 0, height = 0;
    lib.FreeImage_GetWidth(image, width);
    lib.FreeImage_GetHeight(image, height);
    int box_width = 0, box_height = 0;
    view.OriginalFrameSize(box_width, box_height);
    const BoxFit fit = FitSourceBox(width, height, box_width, box_height);
    if (fit.rescale) lib.FreeImage_Rescale(image, fit.width, fit.height, 1, result);
    imaging::DisplayPicture picture;
    lib.MakeDisplayPicture(image, picture, result);
    if (result != 0) {
      int top = 0, left = 0;
      CentreInBox(static_cast<int>(picture.width), static_cast<int>(picture.height), box_width, box_height, top, left);
      view.ShowOriginal(picture, top, left);
    }
  }
  state.preview.PreviewMode = engine::kTrue;
  engine::GoProcess2(state, sources, view);
  state.preview.PreviewMode = engine::kFalse;
}

}  // namespace velmora::preview
