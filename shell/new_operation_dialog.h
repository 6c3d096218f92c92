// "New Operation" (Form9): a list of the eight operations, each row with its picture, title and
// description; OK or a double click adds the chosen one to the chain and refreshes the preview.
#pragma once

#include <QListWidget>
#include <QTimer>

#include "shell/dialog_frame.h"

namespace velmora::shell {

class MainWindow;

class NewOperationDialog : public DialogFrame {
  Q_OBJECT
 public:
  explicit NewOperationDialog(MainWindow* window);

  void Open();
  // The selected row from 1, 0 when none is selected.
  int SelectedRow() const;
  // OK is enabled only while a row is selected (Timer1 keeps it so every 200 ms).
  void Timer1_Timer();
  // OK and the double click: adds the row's operation, closes, and asks for a preview now.
  void Accept();

  QListWidget* lw1() const { return list_; }
  QPushButton* Command1() const { return ok_; }
  QPushButton* Command2() const { return cancel_; }

 protected:
  void done(int result) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  MainWindow* window_;
  QListWidget* list_;
  QPushButton *ok_, *cancel_;
  QTimer* timer_;
};

}  // namespace velmora::shell
