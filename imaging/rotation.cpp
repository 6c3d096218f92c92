// Rotation over FreeImage, with the depths it refuses widened first.
#include "imaging/rotation.h"

namespace velmora::imaging {
namespace {

// The nearest depth FreeImage turns, for the depths it does not: 1 and 4 bits to 8, 16 to 24.
Bitmap WidenForRotation(FIBITMAP* dib) {
  if (FreeImage_GetImageType(dib) != FIT_BITMAP) return nullptr;
  switch (FreeImage_GetBPP(dib)) {
    case 1:
    case 4: return Bitmap(FreeImage_ConvertTo8Bits(dib));
    case 16: return Bitmap(FreeImage_ConvertTo24Bits(dib));
    default: return nullptr;
  }
}

template <typename Turn>
Bitmap TurnOrWiden(FIBITMAP* dib, Turn turn) {
  if (!dib) return nullptr;
  if (Bitmap turned{turn(dib)}) return turned;
  Bitmap wide = WidenForRotation(dib);
  return wide ? Bitmap(turn(wide.get())) : nullptr;
}

}  // namespace

Bitmap RotateByRightAngle(FIBITMAP* dib, int angle) {
  if (angle != 0 && angle != 90 && angle != 180 && angle != 270 && angle != 360) return nullptr;
  return TurnOrWiden(dib, [angle](FIBITMAP* page) { return FreeImage_Rotate(page, angle, nullptr); });
}

Bitmap RotateByAngle(FIBITMAP* dib, double angle, double x_origin, double y_origin, bool mask) {
  if (x_origin < 0 || y_origin < 0)
    return TurnOrWiden(dib, [angle](FIBITMAP* page) { return FreeImage_Rotate(page, angle, nullptr); });
  return TurnOrWiden(dib, [&](FIBITMAP* page) {
    return FreeImage_RotateEx(page, angle, 0, 0, x_origin, y_origin, mask ? TRUE : FALSE);
  });
}

}  // namespace velmora::imaging
