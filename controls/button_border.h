// The skinned button's outline: the shape's outermost ring in the border colour, then the 3D rims
// or glow rings of `ButtonStyle`, then the focus ring. One scheme serves all twelve shapes.
#pragma once

#include <QImage>
#include <QRegion>
#include <QRgb>
#include <vector>

#include "controls/button_look.h"
#include "controls/button_properties.h"
#include "controls/shape_rims.h"

namespace velmora::controls {

// Insets of the rings the border uses.
inline constexpr int kOutlineInset = 0;
inline constexpr int kRimInset = 1;
inline constexpr int kFocusRingInset = 4;
inline constexpr int kGlowFirstInset = 2;

// Draws ring 0 in `draw_color` and the style's rings. Shapes above 11 draw nothing.
void paint_border(QImage& image, const ButtonProperties& props, const ButtonLook& look, OleColor draw_color);

// Helpers shared by the other layers.
void paint_region(QImage& image, const QRegion& region, QRgb color);
void paint_pixels(QImage& image, const std::vector<QPoint>& pixels, QRgb color);

}  // namespace velmora::controls
