// Painting of the new-operation pictures: a small photo and a sign of what the operation does.
#include "shell/operation_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace velmora::shell {
namespace {

// A small landscape photo in `r`.
void Photo(QPainter& p, const QRectF& r, bool grey = false) {
  QLinearGradient sky(r.topLeft(), r.bottomLeft());
  sky.setColorAt(0, grey ? QColor(200, 200, 200) : QColor(120, 180, 240));
  sky.setColorAt(1, grey ? QColor(235, 235, 235) : QColor(210, 235, 255));
  p.setPen(QPen(QColor(60, 70, 90), 1));
  p.setBrush(sky);
  p.drawRect(r);
  QPainterPath hills;
  hills.moveTo(r.left(), r.bottom());
  hills.lineTo(r.left() + r.width() * 0.35, r.top() + r.height() * 0.45);
  hills.lineTo(r.left() + r.width() * 0.55, r.top() + r.height() * 0.7);
  hills.lineTo(r.left() + r.width() * 0.75, r.top() + r.height() * 0.5);
  hills.lineTo(r.right(), r.bottom());
  hills.closeSubpath();
  p.setPen(Qt::NoPen);
  p.setBrush(grey ? QColor(130, 130, 130) : QColor(70, 150, 80));
  p.drawPath(hills);
  p.setBrush(grey ? QColor(170, 170, 170) : QColor(250, 210, 60));
  p.drawEllipse(QPointF(r.left() + r.width() * 0.78, r.top() + r.height() * 0.28), r.height() * 0.12,
                r.height() * 0.12);
}

void ArrowHead(QPainter& p, QPointF tip, double angle) {
  const double a = 0.5, len = 6;
  QPolygonF head;
  head << tip << QPointF(tip.x() - len * std::cos(angle - a), tip.y() - len * std::sin(angle - a))
       << QPointF(tip.x() - len * std::cos(angle + a), tip.y() - len * std::sin(angle + a));
  p.drawPolygon(head);
}

}  // namespace

QPixmap OperationIcon(int index) {
  QPixmap pixmap(kOperationIconWidth, kOperationIconHeight);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor accent(68, 135, 236);
  switch (index) {
    case 0:  // Resize: a small photo growing into a large frame
      p.setPen(QPen(QColor(120, 130, 150), 1, Qt::DashLine));
      p.setBrush(Qt::NoBrush);
      p.drawRect(QRectF(6.5, 4.5, 62, 48));
      Photo(p, QRectF(6.5, 26.5, 30, 26));
      p.setPen(QPen(accent, 2.5));
      p.setBrush(accent);
      p.drawLine(QPointF(40, 22), QPointF(60, 10));
      ArrowHead(p, QPointF(62, 9), -0.54);
      break;
    case 1: {  // Rotate: a tilted photo and a turning arrow
      p.save();
      p.translate(38, 30);
      p.rotate(-15);
      Photo(p, QRectF(-20, -14, 40, 28));
      p.restore();
      p.setPen(QPen(accent, 2.5));
      p.setBrush(Qt::NoBrush);
      p.drawArc(QRectF(8, 3, 60, 50), 30 * 16, 120 * 16);
      p.setBrush(accent);
      ArrowHead(p, QPointF(14.5, 16), 2.4);
      break;
    }
    case 2:  // Mirror: a photo and its reflection across a dashed axis
      Photo(p, QRectF(4.5, 12.5, 30, 32));
      p.save();
      p.translate(72, 0);
      p.scale(-1, 1);
      Photo(p, QRectF(4.5, 12.5, 30, 32));
      p.restore();
      p.setPen(QPen(accent, 2, Qt::DashLine));
      p.drawLine(QPointF(38, 4), QPointF(38, 53));
      break;
    case 3: {  // Text watermark
      Photo(p, QRectF(4.5, 6.5, 66, 46));
      QFont font(QStringLiteral("Arial"), 15, QFont::Bold);
      p.setFont(font);
      p.setPen(QColor(255, 255, 255, 230));
      p.drawText(QRectF(4, 14, 66, 30), Qt::AlignCenter, QStringLiteral("Abc"));
      break;
    }
    case 4:  // Image watermark: a logo pasted in the corner
      Photo(p, QRectF(4.5, 6.5, 66, 46));
      p.setPen(QPen(Qt::white, 1.5));
      p.setBrush(accent);
      p.drawRoundedRect(QRectF(44, 32, 22, 16), 3, 3);
      p.setBrush(Qt::white);
      p.drawEllipse(QPointF(55, 40), 4, 4);
      break;
    case 5: {  // Effects: half sharp, half greyed, with sparkles
      Photo(p, QRectF(4.5, 6.5, 66, 46));
      p.setClipRect(QRectF(38, 0, 40, 57));
      Photo(p, QRectF(4.5, 6.5, 66, 46), true);
      p.setClipping(false);
      p.setPen(Qt::NoPen);
      p.setBrush(QColor(255, 240, 120));
      for (QPointF c : {QPointF(20, 14), QPointF(58, 20), QPointF(30, 44)}) {
        QPolygonF star;
        for (int k = 0; k < 8; ++k) {
          const double r = k % 2 ? 2.0 : 6.0, a = k * M_PI / 4;
          star << QPointF(c.x() + r * std::cos(a), c.y() + r * std::sin(a));
        }
        p.drawPolygon(star);
      }
      break;
    }
    case 6: {  // Brightness/Contrast: a photo, half of it brighter, and a sun
      Photo(p, QRectF(4.5, 6.5, 66, 46));
      p.fillRect(QRectF(38, 7, 32, 45), QColor(255, 255, 255, 110));
      p.setPen(QPen(QColor(240, 170, 20), 2));
      p.setBrush(QColor(255, 210, 60));
      p.drawEllipse(QPointF(54, 22), 7, 7);
      for (int k = 0; k < 8; ++k) {
        const double a = k * M_PI / 4;
        p.drawLine(QPointF(54 + 10 * std::cos(a), 22 + 10 * std::sin(a)),
                   QPointF(54 + 13 * std::cos(a), 22 + 13 * std::sin(a)));
      }
      break;
    }
    case 7: {  // Gamma: a tone curve on a grid
      p.setPen(QPen(QColor(60, 70, 90), 1));
      p.setBrush(Qt::white);
      p.drawRect(QRectF(10.5, 4.5, 54, 48));
      p.setPen(QPen(QColor(210, 215, 225), 1));
      for (int k = 1; k < 4; ++k) {
        p.drawLine(QPointF(10.5 + k * 13.5, 5), QPointF(10.5 + k * 13.5, 52));
        p.drawLine(QPointF(11, 4.5 + k * 12), QPointF(64, 4.5 + k * 12));
      }
      QPainterPath curve;
      curve.moveTo(10.5, 52.5);
      for (int k = 1; k <= 20; ++k) {
        const double x = k / 20.0, y = std::pow(x, 0.45);
        curve.lineTo(10.5 + 54 * x, 52.5 - 48 * y);
      }
      p.setPen(QPen(accent, 2.5));
      p.setBrush(Qt::NoBrush);
      p.drawPath(curve);
      break;
    }
    default: break;
  }
  return pixmap;
}

}  // namespace velmora::shell
