// The common frame of an operation's panel: the entry it edits, rows of a label at the left and
// controls at the right, and the reload of every control from the entry's values.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QWidget>

#include "engine/app_state.h"
#include "shell/operation_entries.h"
#include "shell/panels/select_all_edit.h"

namespace velmora::shell {

class OperationPanel : public QWidget {
  Q_OBJECT
 public:
  OperationPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);

  // Sets every control from the entry's values without running a handler.
  virtual void Load() = 0;
  OperationEntry* entry() const { return entry_; }

 signals:
  // The entry changed in a way its frame shows (its caption).
  void changed();
  // ElemCommandWatermark was clicked ("Style..." or "Browse...").
  void commandClicked();

 protected:
  PanelControls& c() { return entry_->controls; }
  engine::PreviewFlags& flags() { return *flags_; }
  // After a handler: the controls follow the values and the frame hears of it.
  void Edited();

  // Row helpers: a label in the left column and a widget (or a row of them) in the right one.
  QLabel* AddLabel(int row, const QString& name, const QString& text);
  void AddControl(int row, QWidget* control);
  QWidget* RowOf(std::initializer_list<QWidget*> widgets);
  QComboBox* MakeCombo(const QString& name, int which);
  SelectAllEdit* MakeText(const QString& name, bool enabled = true);
  QSlider* MakeSlider(const QString& name, int which);

  // Sets a widget's state without raising its signals.
  static void SetCombo(QComboBox* combo, int index);
  static void SetText(QLineEdit* edit, const std::string& text);
  static void SetSlider(QSlider* slider, int value);

  QGridLayout* grid_;

 private:
  OperationEntry* entry_;
  engine::PreviewFlags* flags_;
};

// The panel of an operation kind (0 to 6); null for other tags.
OperationPanel* MakeOperationPanel(OperationEntry* entry, engine::PreviewFlags* flags, QWidget* parent);

}  // namespace velmora::shell
