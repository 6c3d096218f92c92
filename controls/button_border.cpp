#include "controls/button_border.h"

#include <QPainter>
#include <array>

namespace velmora::controls {
namespace {

constexpr std::array<OleColor, 5> kHotGlow = {0x109ADC, 0x31B2F0, 0x90D6F7, 0xCEF3FF, 0x8CDBFF};
constexpr std::array<OleColor, 5> kFocusGlow = {0xD98D59, 0xE2A981, 0xF0D1B5, 0xF7D7BD, 0xFFE7CE};
constexpr OleColor kFocusRing = 0xD1D1D1;
constexpr OleColor kStyle7Pressed = 0xCFB073;
constexpr OleColor kStyle7Normal = 0xFFFFFF;
constexpr OleColor kStyle7Focus = 0xFECC04;

void rim(QImage& image, ShapeRings& rings, int inset, RimSide side, OleColor color) {
  paint_pixels(image, rings.rim(inset, side), to_rgb(color));
}

void ring(QImage& image, ShapeRings& rings, int inset, OleColor color) {
  paint_region(image, rings.ring(inset), to_rgb(color));
}

void glow(QImage& image, ShapeRings& rings, const std::array<OleColor, 5>& colors) {
  for (std::size_t i = 0; i < colors.size(); ++i) {
    ring(image, rings, kGlowFirstInset + static_cast<int>(i), colors[i]);
  }
}

void paint_style_rims(QImage& image, ShapeRings& rings, const ButtonProperties& props, const ButtonLook& look) {
  const bool focus = focus_shown(props, look);
  switch (props.ButtonStyle) {
    case 1:
      if (look.pressed) {
        rim(image, rings, kRimInset, RimSide::Lit, kSys3DDarkShadow);
        rim(image, rings, kRimInset + 1, RimSide::Lit, kSysButtonShadow);
      } else {
        rim(image, rings, kRimInset, RimSide::Shadow, kSysButtonShadow);
        rim(image, rings, kRimInset, RimSide::Lit, kSys3DHighlight);
      }
      break;
    case 2: rim(image, rings, kRimInset, RimSide::Lit, look.pressed ? kSys3DDarkShadow : kSys3DHighlight); break;
    case 3:
      if (look.pressed) {
        rim(image, rings, kRimInset, RimSide::Lit, kSys3DDarkShadow);
      } else if (look.hover) {
        rim(image, rings, kRimInset, RimSide::Lit, kSys3DHighlight);
      }
      break;
    case 4:
      if (look.enabled) {
        rim(image, rings, kRimInset, RimSide::Shadow, kSysButtonShadow);
        rim(image, rings, kRimInset, RimSide::Lit, kSys3DHighlight);
      }
      break;
    case 6:
      if (look.pressed) {
        rim(image, rings, kRimInset, RimSide::Shadow, kSys3DHighlight);
      } else if (look.hover) {
        glow(image, rings, kHotGlow);
      } else if (focus) {
        glow(image, rings, kFocusGlow);
      }
      break;
    case 7:
      ring(image, rings, kGlowFirstInset, look.pressed ? kStyle7Pressed : kStyle7Normal);
      if (focus) ring(image, rings, kGlowFirstInset, kStyle7Focus);
      break;
    default: break;  // 5, 8 and unknown styles draw no rims
  }
  const int style = props.ButtonStyle;
  if (focus && style != 4 && style != 6 && style != 7) {
    ring(image, rings, kFocusRingInset, kFocusRing);
  }
}

}  // namespace

void paint_region(QImage& image, const QRegion& region, QRgb color) {
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  for (const QRect& rect : region) painter.fillRect(rect, QColor::fromRgb(color));
}

void paint_pixels(QImage& image, const std::vector<QPoint>& pixels, QRgb color) {
  const QRect bounds = image.rect();
  for (const QPoint& p : pixels) {
    if (bounds.contains(p)) image.setPixel(p, color);
  }
}

void paint_border(QImage& image, const ButtonProperties& props, const ButtonLook& look, OleColor draw_color) {
  if (props.ButtonShape < 0 || props.ButtonShape >= shape::kCount) return;
  ShapeRings rings(props.ButtonShape, image.width(), image.height(), scaled_corner(look.scale));
  ring(image, rings, kOutlineInset, draw_color);
  if (props.ButtonShape == shape::kRectangle) {
    // The rectangle doubles its right and bottom edges one pixel further in.
    const int w = image.width(), h = image.height();
    paint_region(image, QRegion(w - 2, 1, 1, h - 2) + QRegion(1, h - 2, w - 2, 1), to_rgb(draw_color));
  }
  paint_style_rims(image, rings, props, look);
}

}  // namespace velmora::controls
