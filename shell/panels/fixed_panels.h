// The panels of the three fixed entries: "Convert to" (fr2convert), "Save to" (fr2save) and
// "File name" (fr2filename). They edit the window's FixedControls, not a Block.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "engine/app_state.h"
#include "shell/panels/select_all_edit.h"
#include "shell/profile_binding.h"

namespace velmora::shell {

class FixedPanel : public QWidget {
  Q_OBJECT
 public:
  FixedPanel(FixedControls* fixed, engine::PreviewFlags* flags, QWidget* parent);
  virtual void Load() = 0;

 signals:
  void commandClicked();  // "Settings...", "Browse..." or the file-name menu button

 protected:
  FixedControls& fixed() { return *fixed_; }
  engine::PreviewFlags& flags() { return *flags_; }
  static void SetText(QLineEdit* edit, const std::string& text);

 private:
  FixedControls* fixed_;
  engine::PreviewFlags* flags_;
};

// fr2convert: "Output format:", FormatCombo1, FormatCommand1 "Settings...".
class ConvertPanel : public FixedPanel {
  Q_OBJECT
 public:
  ConvertPanel(FixedControls* fixed, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;
  QComboBox* FormatCombo1() const { return FormatCombo1_; }

 private:
  QComboBox* FormatCombo1_;
};

// fr2save: SaveToText1, SaveToCommand5 "Browse...", Check1.
class SavePanel : public FixedPanel {
  Q_OBJECT
 public:
  SavePanel(FixedControls* fixed, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;

 private:
  SelectAllEdit* SaveToText1_;
  QCheckBox* Check1_;
};

// fr2filename: "Output file name template:", FileNameText1, FileNameCommand1.
class FileNamePanel : public FixedPanel {
  Q_OBJECT
 public:
  FileNamePanel(FixedControls* fixed, engine::PreviewFlags* flags, QWidget* parent);
  void Load() override;
  QPushButton* FileNameCommand1() const { return FileNameCommand1_; }

 private:
  SelectAllEdit* FileNameText1_;
  QPushButton* FileNameCommand1_;
};

// The panel of a fixed entry's tag (101 to 103).
FixedPanel* MakeFixedPanel(std::int16_t tag, FixedControls* fixed, engine::PreviewFlags* flags, QWidget* parent);

}  // namespace velmora::shell
