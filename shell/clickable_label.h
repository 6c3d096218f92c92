// A label that reports a left click: the header's pictures and the about box's links use it
// in place of the system's clickable picture boxes.
#pragma once

#include <QLabel>

namespace velmora::shell {

class ClickableLabel : public QLabel {
  Q_OBJECT
 public:
  explicit ClickableLabel(const QString& name, QWidget* parent = nullptr);

 signals:
  void clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace velmora::shell
