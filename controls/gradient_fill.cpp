#include "controls/gradient_fill.h"

#include <QPainter>
#include <algorithm>

#include "controls/shape_geometry.h"

namespace velmora::controls {

QRgb mix_rgb(QRgb a, QRgb b, double t) {
  auto channel = [t](int x, int y) { return round_half_even(x + (y - x) * t); };
  return qRgb(channel(qRed(a), qRed(b)), channel(qGreen(a), qGreen(b)), channel(qBlue(a), qBlue(b)));
}

void fill_gradient(QImage& image, GradientAxis axis, int from, int to, QRgb first, QRgb second) {
  if (from == to) return;
  const bool vertical = axis == GradientAxis::Vertical;
  const int extent = vertical ? image.height() : image.width();
  const int low = std::max(std::min(from, to), 0);
  const int high = std::min(std::max(from, to), extent);
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  for (int i = low; i < high; ++i) {
    const double t = std::clamp((i + 0.5 - from) / double(to - from), 0.0, 1.0);
    const QColor color = QColor::fromRgb(mix_rgb(first, second, t));
    if (vertical) {
      painter.fillRect(QRect(0, i, image.width(), 1), color);
    } else {
      painter.fillRect(QRect(i, 0, 1, image.height()), color);
    }
  }
}

}  // namespace velmora::controls
