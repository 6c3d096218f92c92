// The skinned button's face: the surface cleared, filled by `ButtonStyleColors` (none, solid or
// one of six gradients), then overwritten by the face of styles 5 to 8.
#pragma once

#include <QImage>
#include <QSize>

#include "controls/button_look.h"
#include "controls/button_properties.h"

namespace velmora::controls {

// A new surface of the given size with the face drawn. Fill mode 0 leaves it transparent.
QImage paint_face(const ButtonProperties& props, const ButtonLook& look, QSize size);

// Fill by `ButtonStyleColors` over an image already cleared.
void fill_face(QImage& image, int mode, const GradientPair& colors);

// The face overwrite of styles 5 to 8; nothing for other styles or when the fill mode is 0.
void overwrite_style_face(QImage& image, const ButtonProperties& props, const ButtonLook& look);

}  // namespace velmora::controls
