// The marks drawn over the finished skinned button: the focus mark (a checker of dots over the
// bare face, or a frame round the caption for style 4) and the drop-down chevrons.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <optional>

#include "controls/button_look.h"
#include "controls/button_properties.h"

namespace velmora::controls {

// Colour of the caption frame that marks the focus of style 4.
inline constexpr OleColor kStyle4FocusFrame = 0xCC9999;

// Draws the focus mark when `FocusRect` and the focus are both there. `caption_box` is the box
// the caption took, empty when there is none.
void paint_focus_mark(QImage& image, const ButtonProperties& props, const ButtonLook& look, const QRect& caption_box);

// Origin of the drop-down mark, or nothing for `DropDown` 0 and unknown values.
std::optional<QPoint> drop_down_origin(int drop_down, QSize surface);

void paint_drop_down(QImage& image, int drop_down);

// A one-pixel line that covers its first point and stops short of its last.
void draw_line_open_end(QImage& image, QPoint from, QPoint to, QRgb color);

}  // namespace velmora::controls
