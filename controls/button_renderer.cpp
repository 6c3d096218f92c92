#include "controls/button_renderer.h"

#include <QPainter>

#include "controls/button_border.h"
#include "controls/button_caption.h"
#include "controls/button_face.h"
#include "controls/button_marks.h"
#include "controls/button_picture.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {

ButtonFrame paint_button(const ButtonProperties& props, const ButtonLook& look, QSize size) {
  ButtonFrame frame;
  frame.image = paint_face(props, look, size);
  paint_picture(frame.image, props, look);
  frame.caption_box = paint_caption(frame.image, props, look);
  paint_border(frame.image, props, look, state_border_color(props, look));
  paint_focus_mark(frame.image, props, look, frame.caption_box);
  paint_drop_down(frame.image, props.DropDown);
  frame.clip = shape_clip_region(props.ButtonShape, size.width(), size.height());
  if (frame.clip) {
    QPainter painter(&frame.image);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setClipRegion(QRegion(frame.image.rect()) - *frame.clip);
    painter.fillRect(frame.image.rect(), Qt::transparent);
  }
  return frame;
}

ButtonFrame redraw_button(ButtonProperties& props, const ButtonState& state, QSize size) {
  apply_style_borders(props, props.Enabled);
  return paint_button(props, make_look(state, props.Enabled), size);
}

}  // namespace velmora::controls
