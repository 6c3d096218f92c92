// The skinned button's picture: placed by `PictureAlignment`, moved when pressed, doubled for the
// hover of style 5, and grayed in the normal state with `PictureGray` and always when disabled.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

#include "controls/button_look.h"
#include "controls/button_properties.h"

namespace velmora::controls {

// Top-left corner of the picture in the normal state.
QPoint picture_position(const ButtonProperties& props, QSize surface);

// Draws the picture, if any.
void paint_picture(QImage& image, const ButtonProperties& props, const ButtonLook& look);

// Gray level of a colour: its luminance, rounded.
int gray_level(QRgb color);

// Rewrites every pixel of the box that differs from `keep` as its gray, keeping its alpha.
void gray_box(QImage& image, const QRect& box, QRgb keep);

}  // namespace velmora::controls
