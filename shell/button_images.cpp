// 16 by 16 button pictures painted with QPainter.
#include "shell/button_images.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace velmora::shell {
namespace {

constexpr int kSize = 16;

QPixmap Blank() {
  QPixmap pixmap(kSize, kSize);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

void Picture(QPainter& p) {
  p.setPen(QColor(70, 90, 120));
  p.setBrush(QColor(200, 225, 250));
  p.drawRect(1, 2, 11, 9);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(60, 150, 60));
  p.drawPolygon(QPolygon({QPoint(2, 11), QPoint(6, 6), QPoint(9, 9), QPoint(12, 11)}));
  p.setBrush(QColor(240, 200, 40));
  p.drawEllipse(QPoint(9, 5), 1, 1);
}

void Folder(QPainter& p) {
  p.setPen(QColor(150, 110, 20));
  p.setBrush(QColor(250, 215, 100));
  p.drawRect(1, 4, 12, 9);
  p.drawRect(1, 3, 5, 1);
}

void Plus(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(30, 150, 40));
  p.drawEllipse(QRect(8, 8, 8, 8));
  p.setBrush(Qt::white);
  p.drawRect(9, 11, 6, 2);
  p.drawRect(11, 9, 2, 6);
}

void Minus(QPainter& p) {
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(200, 40, 40));
  p.drawEllipse(QRect(8, 8, 8, 8));
  p.setBrush(Qt::white);
  p.drawRect(9, 11, 6, 2);
}

void Cross(QPainter& p, const QRect& box) {
  p.setPen(QPen(QColor(200, 40, 40), 2.2, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(box.topLeft(), box.bottomRight());
  p.drawLine(box.topRight(), box.bottomLeft());
}

void Arrow(QPainter& p, const QColor& color) {
  p.setPen(Qt::NoPen);
  p.setBrush(color);
  p.drawPolygon(QPolygon(
      {QPoint(8, 1), QPoint(14, 7), QPoint(10, 7), QPoint(10, 14), QPoint(6, 14), QPoint(6, 7), QPoint(2, 7)}));
}

}  // namespace

QIcon FirstStripImage(int number) {
  QPixmap pixmap = Blank();
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  switch (number) {
    case 1:
      Picture(p);
      Plus(p);
      break;  // "Add Images"
    case 2:
      Folder(p);
      Plus(p);
      break;                                     // "Add Folder"
    case 3: Cross(p, QRect(4, 4, 8, 8)); break;  // "Remove", and the remove button of an entry
    case 4:
      Picture(p);
      Minus(p);
      break;   // "Remove All"
    case 5: {  // "Add Operation"
      p.setPen(QColor(70, 90, 120));
      p.setBrush(QColor(235, 235, 245));
      p.drawRect(1, 1, 11, 12);
      p.drawLine(3, 4, 10, 4);
      p.drawLine(3, 7, 10, 7);
      Plus(p);
      break;
    }
    default: break;
  }
  return QIcon(pixmap);
}

QIcon SecondStripImage(int number) {
  QPixmap pixmap = Blank();
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  switch (number) {
    case 1: Folder(p); break;  // "Open folder"
    case 2:                    // "Upload to Picasa"
      p.setPen(QColor(40, 80, 160));
      p.setBrush(QColor(120, 170, 240));
      p.drawEllipse(QRect(1, 1, 13, 13));
      p.drawLine(1, 8, 14, 8);
      p.drawEllipse(QRect(5, 1, 5, 13));
      break;
    case 3: Arrow(p, QColor(40, 120, 200)); break;  // "Upload to FTP"
    default: break;
  }
  return QIcon(pixmap);
}

}  // namespace velmora::shell
