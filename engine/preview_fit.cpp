// The preview's fit rule. The tests are taken in this order and the first that holds decides;
// a tall page wider than the frame but not taller fits by height, as the rule has always done.
#include "engine/preview_fit.h"

#include <limits>

#include "engine/number_text.h"

namespace velmora::engine {

FitResult FitPreview(std::int64_t W, std::int64_t H, std::int64_t SW, std::int64_t SH) {
  const double R = W > H ? static_cast<double>(H) / W : (W < H ? static_cast<double>(W) / H : 1.0);
  auto scaled = [&](std::int64_t side) { return static_cast<std::int32_t>(RoundHalfEven(R * side)); };
  if (SW < W && W == H) return {true, static_cast<std::int32_t>(SW), scaled(SW)};
  if (SW < W && W > H) return {true, static_cast<std::int32_t>(SW), scaled(SW)};
  if (SH < H && H > W) return {true, scaled(SH), static_cast<std::int32_t>(SH)};
  if (SH < H && H < W) return {true, static_cast<std::int32_t>(SW), scaled(SW)};
  if (SW < W && W < H) return {true, scaled(SH), static_cast<std::int32_t>(SH)};
  return {};
}

// The source box rounds its ratio in single precision and keeps its sizes 16-bit.
BoxFit FitSourceBox(std::int64_t W, std::int64_t H, std::int64_t BW, std::int64_t BH) {
  const float r = W > H ? static_cast<float>(H) / static_cast<float>(W)
                        : (W < H ? static_cast<float>(W) / static_cast<float>(H) : 1.0f);
  auto fits = [](double value) {
    const std::int64_t rounded = RoundHalfEven(value);
    return rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max();
  };
  auto make = [&](double w, double h) {
    if (!fits(w) || !fits(h)) return BoxFit{};
    return BoxFit{true, static_cast<std::int16_t>(RoundHalfEven(w)), static_cast<std::int16_t>(RoundHalfEven(h))};
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

}  // namespace velmora::engine
