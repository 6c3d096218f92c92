// Colour values as the controls store them: 0x00BBGGRR, or a system colour with the top bit set.
// Plain RGB comes from one fixed system palette, so drawing never depends on the desktop theme.
#pragma once

#include <QColor>
#include <cstdint>

namespace velmora::controls {

using OleColor = std::uint32_t;

// System colours used by the controls (top bit set, low byte the palette index).
inline constexpr OleColor kSysDesktop = 0x80000001;
inline constexpr OleColor kSysButtonFace = 0x8000000F;
inline constexpr OleColor kSysButtonShadow = 0x80000010;
inline constexpr OleColor kSysGrayText = 0x80000011;
inline constexpr OleColor kSysButtonText = 0x80000012;
inline constexpr OleColor kSys3DHighlight = 0x80000014;
inline constexpr OleColor kSys3DDarkShadow = 0x80000015;

// Resolves a colour value to 0x00BBGGRR. A system colour outside the palette resolves to black;
// any other value keeps its three low bytes.
OleColor translate_color(OleColor value);

// The translated colour as an opaque QColor / QRgb.
QColor to_qcolor(OleColor value);
QRgb to_rgb(OleColor value);

// An opaque QColor as a plain 0x00BBGGRR value.
OleColor ole_from_qcolor(const QColor& color);

// Builds 0x00BBGGRR from its channels.
constexpr OleColor ole_rgb(int red, int green, int blue) {
  return static_cast<OleColor>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}

}  // namespace velmora::controls
