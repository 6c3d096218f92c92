// Click on a label.
#include "shell/clickable_label.h"

#include <QMouseEvent>

namespace velmora::shell {

ClickableLabel::ClickableLabel(const QString& name, QWidget* parent) : QLabel(parent) {
  setObjectName(name);
  setCursor(Qt::PointingHandCursor);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
  QLabel::mouseReleaseEvent(event);
}

}  // namespace velmora::shell
