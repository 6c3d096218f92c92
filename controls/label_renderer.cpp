#include "controls/label_renderer.h"

#include <QFontMetrics>

#include "controls/label_text.h"

namespace velmora::controls {
namespace {

// A sunken frame two pixels wide: shadow over highlight outside, dark shadow over face inside.
void paint_sunken_border(QPainter& painter, QSize size) {
  const QRect outer(0, 0, size.width(), size.height());
  const QRect inner = outer.adjusted(1, 1, -1, -1);
  auto frame = [&painter](const QRect& r, OleColor upper_left, OleColor lower_right) {
    painter.setPen(to_qcolor(upper_left));
    painter.drawLine(r.topLeft(), r.topRight());
    painter.drawLine(r.topLeft(), r.bottomLeft());
    painter.setPen(to_qcolor(lower_right));
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    painter.drawLine(r.topRight(), r.bottomRight());
  };
  frame(outer, kSysButtonShadow, kSys3DHighlight);
  frame(inner, kSys3DDarkShadow, kSysButtonFace);
}

}  // namespace

QRect label_text_rect(const LabelProperties& props, QSize size) {
  const int inset = props.BorderStyle == kBorderFixedSingle ? kLabelBorderWidth : 0;
  return QRect(QPoint(0, 0), size).adjusted(inset, inset, -inset, -inset);
}

QString label_display_text(const LabelProperties& props, int width) {
  if (!props.PathEllipsis || props.WordWrap) return props.Caption;
  const QFontMetrics metrics(props.Font);
  const bool mnemonic = props.UseMnemonic;
  return elide_path(props.Caption, width, [&metrics, mnemonic](const QString& text) {
    QString shown = text;
    if (mnemonic) shown.remove(QLatin1Char('&'));
    return metrics.horizontalAdvance(shown);
  });
}

void paint_label(QPainter& painter, const LabelProperties& props, QSize size) {
  painter.save();
  if (props.BackStyle == kBackOpaque) {
    painter.fillRect(QRect(QPoint(0, 0), size), to_qcolor(props.BackColor));
  }
  if (props.BorderStyle == kBorderFixedSingle) paint_sunken_border(painter, size);
  const QRect rect = label_text_rect(props, size);
  const std::uint32_t flags = label_text_flags(props);
  painter.setLayoutDirection(props.RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  painter.setFont(props.Font);
  painter.setPen(to_qcolor(props.ForeColor));
  painter.drawText(rect, qt_text_flags(flags), label_display_text(props, rect.width()));
  painter.restore();
}

QImage render_label(const LabelProperties& props, QSize size) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  paint_label(painter, props, size);
  return image;
}

}  // namespace velmora::controls
