// Drawing of the fallback file-type icons.
#include "shell/file_type_icon.h"

#include <QPainter>
#include <QPixmap>

namespace velmora::shell {

QIcon FileTypeIcon(const QString& suffix) {
  QPixmap pixmap(16, 16);
  pixmap.fill(Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  // The page with a folded corner.
  QPolygonF page;
  page << QPointF(2.5, 0.5) << QPointF(10.5, 0.5) << QPointF(13.5, 3.5) << QPointF(13.5, 15.5) << QPointF(2.5, 15.5);
  p.setPen(QColor(120, 128, 140));
  p.setBrush(Qt::white);
  p.drawPolygon(page);
  p.drawLine(QPointF(10.5, 0.5), QPointF(10.5, 3.5));
  p.drawLine(QPointF(10.5, 3.5), QPointF(13.5, 3.5));
  // The band, coloured by the extension.
  const QString text = suffix.left(3).toUpper();
  const int hue = static_cast<int>(qHash(suffix.toLower()) % 360);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor::fromHsv(hue, 170, 200));
  p.drawRect(QRectF(0, 7, 16, 7));
  QFont font = p.font();
  font.setPixelSize(6);
  font.setBold(true);
  p.setFont(font);
  p.setPen(Qt::white);
  p.drawText(QRectF(0, 7, 16, 7), Qt::AlignCenter, text.isEmpty() ? QStringLiteral("?") : text);
  return QIcon(pixmap);
}

}  // namespace velmora::shell
