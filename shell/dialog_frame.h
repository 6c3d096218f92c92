// What the four small windows share: a fixed-size owned dialog without minimise or maximise box,
// shown without blocking its owner, centred on it, and brought forward when opened again.
#pragma once

#include <QDialog>
#include <QPushButton>

namespace velmora::shell {

// Buttons are 1100 by 350 twips.
inline constexpr int kDialogButtonWidth = 73;
inline constexpr int kDialogButtonHeight = 23;

class DialogFrame : public QDialog {
  Q_OBJECT
 public:
  // `width` and `height` are the client size in pixels.
  DialogFrame(QWidget* owner, const QString& name, const QString& caption, int width, int height);

 protected:
  // Shows the dialog without blocking the owner, centred on it the first time, and in front.
  void ShowOwned();
  QPushButton* MakeButton(const QString& name, const QString& text, int left, int top, int width = kDialogButtonWidth);

 private:
  bool placed_ = false;
};

}  // namespace velmora::shell
