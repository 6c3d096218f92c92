// Drawing of an entry's caption frame.
#include "shell/caption_frame.h"

#include <QPainter>

namespace velmora::shell {
namespace {
constexpr int kTitleLeft = 12;
constexpr quint32 kCaptionBlue = 0x00C00000;  // red 0, green 0, blue 192 as 0x00BBGGRR
}  // namespace

CaptionFrame::CaptionFrame(const QString& title, QWidget* parent) : QFrame(parent) {
  setObjectName("StructCaption");
  label_ = new controls::TindraLabel(this, "StructCaptionLabel");
  QFont bold = label_->font();
  bold.setBold(true);
  label_->setFont(bold);
  label_->setBackStyle(0);  // transparent
  label_->setAutoSize(true);
  label_->setForeColor(kCaptionBlue);
  label_->move(kTitleLeft, 0);
  setTitle(title);
}

void CaptionFrame::setTitle(const QString& title) {
  label_->setCaption(title);
  update();
}

void CaptionFrame::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const int line = label_->height() / 2;
  const QRectF box(0.5, line + 0.5, width() - 1.0, height() - line - 1.0);
  p.setPen(QColor(0x9A, 0xA6, 0xB8));
  p.setBrush(QColor(0xFB, 0xFC, 0xFE));
  p.drawRoundedRect(box, 4, 4);
  // The border gives way to the title.
  p.fillRect(QRect(kTitleLeft - 3, line - 1, label_->width() + 6, 3), QColor(0xFB, 0xFC, 0xFE));
  p.fillRect(QRect(kTitleLeft - 3, 0, label_->width() + 6, line), palette().window());
}

}  // namespace velmora::shell
