// The skinned button's redraw routine: the whole control painted from nothing, in a fixed order
// (face, picture, caption, outline, focus mark, drop-down mark), with the window region it sets.
#pragma once

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <optional>

#include "controls/button_look.h"
#include "controls/button_properties.h"

namespace velmora::controls {

struct ButtonFrame {
  QImage image;                 // pixels outside the region are transparent
  std::optional<QRegion> clip;  // the window region; nothing for an unclipped window
  QRect caption_box;            // where the caption went, empty without one
};

// Paints properties that already carry the style's border colours. With a `look.scale` above 1
// the image has that many device pixels to a pixel of `size` (and says so in its device pixel
// ratio): the shape, the caption and the picture are drawn at that resolution, lines stay one
// device pixel. The clip and the caption box are in pixels of `size`.
ButtonFrame paint_button(const ButtonProperties& props, const ButtonLook& look, QSize size);

// The whole redraw as the control runs it: writes the style's border colours into the
// properties, then paints with `Enabled` and the state flags at `scale` device pixels to a pixel.
// The size should already follow `button_surface_size`.
ButtonFrame redraw_button(ButtonProperties& props, const ButtonState& state, QSize size, double scale = 1.0);

}  // namespace velmora::controls
