#include "controls/button_marks.h"

#include <array>
#include <cstdlib>

#include "controls/shape_geometry.h"

namespace velmora::controls {
namespace {

// Black dots on every pixel of the sweep that shows the bare face.
void dot_sweep(QImage& image, int start, QRgb bare, bool transparent_face) {
  const QRgb black = qRgb(0, 0, 0);
  for (int x = start; x <= image.width() - start; x += 2) {
    for (int y = start; y <= image.height() - start; y += 2) {
      if (x >= image.width() || y >= image.height()) continue;
      const QRgb pixel = image.pixel(x, y);
      if (pixel == bare || (transparent_face && qAlpha(pixel) == 0)) image.setPixel(x, y, black);
    }
  }
}

// The frame of a small rounded rectangle: its edges without the four corner pixels.
void rounded_frame(QImage& image, const QRect& rect, QRgb color) {
  auto put = [&image, color](int x, int y) {
    if (image.rect().contains(x, y)) image.setPixel(x, y, color);
  };
  for (int x = rect.left() + 1; x < rect.right(); ++x) {
    put(x, rect.top());
    put(x, rect.bottom());
  }
  for (int y = rect.top() + 1; y < rect.bottom(); ++y) {
    put(rect.left(), y);
    put(rect.right(), y);
  }
}

struct Chevron {
  QPoint a, b, c;
};

constexpr std::array<Chevron, 4> kChevrons = {{
    {{6, 5}, {9, 8}, {13, 4}},
    {{7, 5}, {9, 7}, {12, 4}},
    {{6, 9}, {9, 12}, {13, 8}},
    {{7, 9}, {9, 11}, {12, 8}},
}};

}  // namespace

void paint_focus_mark(QImage& image, const ButtonProperties& props, const ButtonLook& look, const QRect& caption_box) {
  if (!focus_shown(props, look)) return;
  const int style = props.ButtonStyle;
  if (style == 4) {
    if (!caption_box.isEmpty()) {
      rounded_frame(image, caption_box.adjusted(-2, -2, 2, 2), to_rgb(kStyle4FocusFrame));
    }
    return;
  }
  if (style == 6 || style == 7) return;
  const QRgb bare = to_rgb(surface_back_color(props, look));
  const bool transparent_face = props.ButtonStyleColors == 0;
  dot_sweep(image, 3, bare, transparent_face);
  dot_sweep(image, 2, bare, transparent_face);
}

std::optional<QPoint> drop_down_origin(int drop_down, QSize surface) {
  const int y = round_half_even(surface.height() / 2.0 - 8);
  if (drop_down == 1) return QPoint(2, y);
  if (drop_down == 2) return QPoint(surface.width() - 21, y);
  return std::nullopt;
}

void paint_drop_down(QImage& image, int drop_down) {
  const std::optional<QPoint> origin = drop_down_origin(drop_down, image.size());
  if (!origin) return;
  const QRgb black = qRgb(0, 0, 0);
  for (const Chevron& chevron : kChevrons) {
    draw_line_open_end(image, *origin + chevron.a, *origin + chevron.b, black);
    draw_line_open_end(image, *origin + chevron.b, *origin + chevron.c, black);
  }
}

void draw_line_open_end(QImage& image, QPoint from, QPoint to, QRgb color) {
  const int dx = std::abs(to.x() - from.x());
  const int dy = -std::abs(to.y() - from.y());
  const int sx = from.x() < to.x() ? 1 : -1;
  const int sy = from.y() < to.y() ? 1 : -1;
  int error = dx + dy;
  QPoint p = from;
  while (p != to) {
    if (image.rect().contains(p)) image.setPixel(p, color);
    const int twice = 2 * error;
    if (twice >= dy) {
      error += dy;
      p.rx() += sx;
    }
    if (twice <= dx) {
      error += dx;
      p.ry() += sy;
    }
  }
}

}  // namespace velmora::controls
