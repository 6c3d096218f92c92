#include "controls/button_renderer.h"

#include <QPainter>

#include "controls/button_border.h"
#include "controls/button_caption.h"
#include "controls/button_face.h"
#include "controls/button_marks.h"
#include "controls/button_picture.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {

namespace {

// The properties as drawn at `scale`: the caption's font and the picture grown by it.
ButtonProperties scaled_properties(const ButtonProperties& props, double scale) {
  ButtonProperties scaled = props;
  if (props.Font.pointSizeF() > 0)
    scaled.Font.setPointSizeF(props.Font.pointSizeF() * scale);
  else if (props.Font.pixelSize() > 0)
    scaled.Font.setPixelSize(static_cast<int>(props.Font.pixelSize() * scale + 0.5));
  if (!props.Picture.isNull())
    scaled.Picture =
        props.Picture.scaled(props.Picture.size() * scale, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return scaled;
}

QRect unscaled(const QRect& box, double scale) {
  if (box.isEmpty()) return box;
  return QRect(static_cast<int>(box.x() / scale), static_cast<int>(box.y() / scale),
               static_cast<int>(box.width() / scale + 0.5), static_cast<int>(box.height() / scale + 0.5));
}

}  // namespace

ButtonFrame paint_button(const ButtonProperties& logical, const ButtonLook& look, QSize size) {
  const double scale = look.scale > 1.0 ? look.scale : 1.0;
  const ButtonProperties props = scale > 1.0 ? scaled_properties(logical, scale) : logical;
  const QSize device = scale > 1.0 ? (QSizeF(size) * scale).toSize() : size;
  ButtonFrame frame;
  frame.image = paint_face(props, look, device);
  paint_picture(frame.image, props, look);
  const QRect caption = paint_caption(frame.image, props, look);
  paint_border(frame.image, props, look, state_border_color(props, look));
  paint_focus_mark(frame.image, props, look, caption);
  frame.caption_box = unscaled(caption, scale);
  paint_drop_down(frame.image, props.DropDown);
  const auto drawn = shape_clip_region(props.ButtonShape, device.width(), device.height(), scaled_corner(scale));
  if (drawn) {
    QPainter painter(&frame.image);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setClipRegion(QRegion(frame.image.rect()) - *drawn);
    painter.fillRect(frame.image.rect(), Qt::transparent);
  }
  // The window region is in pixels of the control: at scale 1 the drawn one is that region.
  frame.clip = scale > 1.0 ? shape_clip_region(props.ButtonShape, size.width(), size.height()) : drawn;
  frame.image.setDevicePixelRatio(scale);
  return frame;
}

ButtonFrame redraw_button(ButtonProperties& props, const ButtonState& state, QSize size, double scale) {
  apply_style_borders(props, props.Enabled);
  ButtonLook look = make_look(state, props.Enabled);
  look.scale = scale;
  return paint_button(props, look, size);
}

}  // namespace velmora::controls
