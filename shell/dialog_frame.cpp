// The shared dialog frame.
#include "shell/dialog_frame.h"

namespace velmora::shell {

DialogFrame::DialogFrame(QWidget* owner, const QString& name, const QString& caption, int width, int height)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                         Qt::MSWindowsFixedSizeDialogHint) {
  setObjectName(name);
  setWindowTitle(caption);
  setModal(false);
  setFixedSize(width, height);
}

void DialogFrame::ShowOwned() {
  if (!isVisible() && parentWidget()) {
    const QRect owner = parentWidget()->frameGeometry();
    move(owner.center() - QPoint(width() / 2, height() / 2));
  }
  placed_ = true;
  show();
  raise();
  activateWindow();
}

QPushButton* DialogFrame::MakeButton(const QString& name, const QString& text, int left, int top, int width) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  button->setGeometry(left, top, width, kDialogButtonHeight);
  return button;
}

}  // namespace velmora::shell
