#include "controls/ole_color.h"

#include <array>

namespace velmora::controls {
namespace {

// The classic desktop palette by system colour index (0x00BBGGRR).
constexpr std::array<OleColor, 31> kSystemPalette = {
    ole_rgb(200, 200, 200),  // 0 scroll bar
    ole_rgb(58, 110, 165),   // 1 desktop
    ole_rgb(153, 180, 209),  // 2 active caption
    ole_rgb(191, 205, 219),  // 3 inactive caption
    ole_rgb(240, 240, 240),  // 4 menu
    ole_rgb(255, 255, 255),  // 5 window
    ole_rgb(100, 100, 100),  // 6 window frame
    ole_rgb(0, 0, 0),        // 7 menu text
    ole_rgb(0, 0, 0),        // 8 window text
    ole_rgb(0, 0, 0),        // 9 caption text
    ole_rgb(180, 180, 180),  // 10 active border
    ole_rgb(244, 247, 252),  // 11 inactive border
    ole_rgb(171, 171, 171),  // 12 application workspace
    ole_rgb(51, 153, 255),   // 13 highlight
    ole_rgb(255, 255, 255),  // 14 highlight text
    ole_rgb(240, 240, 240),  // 15 button face
    ole_rgb(160, 160, 160),  // 16 button shadow
    ole_rgb(109, 109, 109),  // 17 gray text
    ole_rgb(0, 0, 0),        // 18 button text
    ole_rgb(67, 78, 84),     // 19 inactive caption text
    ole_rgb(255, 255, 255),  // 20 3D highlight
    ole_rgb(105, 105, 105),  // 21 3D dark shadow
    ole_rgb(227, 227, 227),  // 22 3D light
    ole_rgb(0, 0, 0),        // 23 tooltip text
    ole_rgb(255, 255, 225),  // 24 tooltip background
    ole_rgb(0, 0, 0),        // 25 unused
    ole_rgb(0, 102, 204),    // 26 hot-tracked item
    ole_rgb(185, 209, 234),  // 27 active caption gradient
    ole_rgb(215, 228, 242),  // 28 inactive caption gradient
    ole_rgb(51, 153, 255),   // 29 menu highlight
    ole_rgb(240, 240, 240),  // 30 menu bar
};

}  // namespace

OleColor translate_color(OleColor value) {
  if ((value & 0x80000000u) != 0) {
    const OleColor index = value & 0x7FFFFFFFu;
    return index < kSystemPalette.size() ? kSystemPalette[index] : 0;
  }
  return value & 0x00FFFFFFu;
}

QRgb to_rgb(OleColor value) {
  const OleColor bgr = translate_color(value);
  return qRgb(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

QColor to_qcolor(OleColor value) {
  return QColor::fromRgb(to_rgb(value));
}

OleColor ole_from_qcolor(const QColor& color) {
  return ole_rgb(color.red(), color.green(), color.blue());
}

}  // namespace velmora::controls
