// The skinned button's caption: measured, placed by `CaptionAlignment`, drawn in the state's colour
// with its shadow or outline effect, grayed when disabled, and recoloured for a gradient caption.
#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

#include "controls/button_look.h"
#include "controls/button_properties.h"

namespace velmora::controls {

// Width and height of a one-line text in the font, on the given surface.
QSize caption_extent(const QString& text, const QFont& font, const QImage& surface);

// Draws the caption and returns the box the text took (moved by one pixel when pressed); an
// empty caption draws nothing and returns an empty box.
QRect paint_caption(QImage& image, const ButtonProperties& props, const ButtonLook& look);

// Recolours every pixel of the box that has exactly `color`, from `start` to `end` along x
// (horizontal) or along y.
void recolor_gradient(QImage& image, const QRect& box, QRgb color, QRgb start, QRgb end, bool horizontal);

}  // namespace velmora::controls
