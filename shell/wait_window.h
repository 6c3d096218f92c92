// The small "please wait..." window (frmWait) shown, not modal, during long adds and the update
// check; closing it gives the focus back to its owner.
#pragma once

#include <QWidget>

namespace velmora::shell {

class WaitWindow : public QWidget {
  Q_OBJECT
 public:
  explicit WaitWindow(QWidget* owner);
  // Shows the window centred on its owner and lets it paint.
  void Open();
  void Close();
};

}  // namespace velmora::shell
