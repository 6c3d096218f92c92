// The preview's fit rule. The tests are taken in this order and the first that holds decides;
// a tall page wider than the frame but not taller fits by height, as the rule has always done.
#include "engine/preview_fit.h"

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

}  // namespace velmora::engine
