#include "controls/button_picture.h"

#include <QPainter>

#include "controls/button_layout.h"
#include "controls/shape_geometry.h"

namespace velmora::controls {

QPoint picture_position(const ButtonProperties& props, QSize surface) {
  return place_item(props.PictureAlignment, surface, props.Picture.size(), kPictureMargin);
}

int gray_level(QRgb color) {
  return round_half_even(0.299 * qRed(color) + 0.587 * qGreen(color) + 0.114 * qBlue(color));
}

void gray_box(QImage& image, const QRect& box, QRgb keep) {
  const QRect area = box & image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      if (pixel == keep) continue;
      const int g = gray_level(pixel);
      image.setPixel(x, y, qRgba(g, g, g, qAlpha(pixel)));
    }
  }
}

void paint_picture(QImage& image, const ButtonProperties& props, const ButtonLook& look) {
  if (props.Picture.isNull()) return;
  const QPoint at = picture_position(props, image.size());
  const QRect box(at, props.Picture.size());
  QPainter painter(&image);
  if (!look.enabled) {
    painter.drawImage(at, props.Picture);
    painter.end();
    gray_box(image, box, to_rgb(props.BackColor));
    return;
  }
  if (look.pressed) {
    painter.drawImage(at + QPoint(1, 1), props.Picture);
    return;
  }
  painter.drawImage(at, props.Picture);
  if (look.hover) {
    if (props.ButtonStyle == 5) {
      painter.drawImage(at - QPoint(1, 1), props.Picture);
      painter.drawImage(at, props.Picture);
    }
    return;
  }
  painter.end();
  if (props.PictureGray) gray_box(image, box, to_rgb(props.BackColor));
}

}  // namespace velmora::controls
