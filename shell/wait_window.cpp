// frmWait.
#include "shell/wait_window.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace velmora::shell {

WaitWindow::WaitWindow(QWidget* owner) : QWidget(owner, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setObjectName("frmWait");
  auto* layout = new QVBoxLayout(this);
  auto* label = new QLabel("please wait...", this);
  label->setObjectName("Label1");
  label->setAlignment(Qt::AlignCenter);
  layout->addWidget(label);
  setFixedSize(200, 60);
}

void WaitWindow::Open() {
  if (QWidget* owner = parentWidget()) move(owner->geometry().center() - rect().center());
  show();
  QCoreApplication::processEvents();
}

void WaitWindow::Close() {
  hide();
  if (QWidget* owner = parentWidget()) owner->activateWindow();
}

}  // namespace velmora::shell
