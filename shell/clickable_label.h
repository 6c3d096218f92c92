// A label that reports a left click, for the pictures and links of the windows.
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
