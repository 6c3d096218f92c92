#include "controls/button_caption.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/button_layout.h"
#include "controls/gradient_fill.h"

namespace velmora::controls {
namespace {

void text_at(QPainter& painter, const QFontMetrics& metrics, QPoint top_left, const QString& text, OleColor color) {
  painter.setPen(to_qcolor(color));
  painter.drawText(QPoint(top_left.x(), top_left.y() + metrics.ascent()), text);
}

bool disabled_without_emboss(int style) {
  return style == 4 || style == 6 || style == 7 || style == 8;
}

}  // namespace

QSize caption_extent(const QString& text, const QFont& font, const QImage& surface) {
  const QFontMetrics metrics(font, &surface);
  return {metrics.horizontalAdvance(text), metrics.height()};
}

void recolor_gradient(QImage& image, const QRect& box, QRgb color, QRgb start, QRgb end, bool horizontal) {
  const QRect area = box & image.rect();
  const int span = std::max(1, (horizontal ? box.width() : box.height()) - 1);
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (image.pixel(x, y) != color) continue;
      const double t = horizontal ? double(x - box.left()) / span : double(y - box.top()) / span;
      image.setPixel(x, y, mix_rgb(start, end, t));
    }
  }
}

QRect paint_caption(QImage& image, const ButtonProperties& props, const ButtonLook& look) {
  if (props.Caption.isEmpty()) return {};
  QFont font = props.Font;
  const bool gradient = props.CaptionStyle == 1 || props.CaptionStyle == 2;
  // A gradient caption recolours exact pixels, so its glyphs are drawn without smoothing.
  if (gradient) font.setStyleStrategy(QFont::NoAntialias);
  const QSize extent = caption_extent(props.Caption, font, image);
  QPoint at = place_item(props.CaptionAlignment, image.size(), extent, kCaptionMargin);
  QPainter painter(&image);
  painter.setFont(font);
  const QFontMetrics metrics(font, &image);
  if (!look.enabled) {
    if (!disabled_without_emboss(props.ButtonStyle)) {
      text_at(painter, metrics, at + QPoint(1, 1), props.Caption, kSys3DHighlight);
    }
    text_at(painter, metrics, at, props.Caption, kSysButtonShadow);
    return QRect(at, extent);
  }
  if (look.pressed) at += QPoint(1, 1);
  switch (props.CaptionEffect) {
    case effect::kShadowUpLeft: text_at(painter, metrics, at + QPoint(-1, -1), props.Caption, props.EffectColor); break;
    case effect::kShadowDownRight:
      text_at(painter, metrics, at + QPoint(1, 1), props.Caption, props.EffectColor);
      break;
    case effect::kOutline:
      for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
          text_at(painter, metrics, at + QPoint(dx, dy), props.Caption, props.EffectColor);
        }
      }
      break;
    default: break;
  }
  const OleColor color = state_fore_color(props, look);
  text_at(painter, metrics, at, props.Caption, color);
  painter.end();
  const QRect box(at, extent);
  if (gradient) {
    const QRgb plain = to_rgb(props.ForeColor);
    const QRgb state = to_rgb(color);
    if (props.CaptionStyle == 1) {
      recolor_gradient(image, box, state, state, plain, true);
    } else {
      recolor_gradient(image, box, state, plain, state, false);
    }
  }
  return box;
}

}  // namespace velmora::controls
