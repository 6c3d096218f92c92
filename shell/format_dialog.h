// "Format Settings" (Form8): the colour depth, quality, multipage and compression rows of the
// output format chosen in the main window, restored from the profile on every opening.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <functional>

#include "engine/app_state.h"
#include "shell/dialog_frame.h"
#include "shell/format_form.h"

namespace velmora::shell {

class FormatDialog : public DialogFrame {
  Q_OBJECT
 public:
  // `format_name` gives the selected text of the output format list at each opening; `closed`
  // runs whenever the dialog closes (the main window takes the focus back).
  FormatDialog(QWidget* owner, engine::AppState& state, std::function<std::string()> format_name,
               std::function<void()> closed);

  void Open();
  // The controls as plain values.
  FormatForm Form() const;

  QComboBox* ColorDepthCombo1() const { return depth_; }
  QComboBox* MultipageCombo1() const { return multipage_; }
  QComboBox* CompressionCombo1() const { return compression_; }
  QComboBox* CompressionCombo2() const { return level_; }
  QSlider* QualitySlider1() const { return quality_; }
  QLineEdit* QualityText1() const { return quality_text_; }
  QLineEdit* ColorsText1() const { return colors_; }
  QPushButton* Command1() const { return ok_; }
  QPushButton* Command2() const { return cancel_; }

 protected:
  void done(int result) override;

 private:
  void Show(const FormatForm& form);
  void Ok();

  engine::AppState& state_;
  std::function<std::string()> format_name_;
  std::function<void()> closed_;
  QLabel *depth_label_, *depth_bpp_, *colors_label_, *quality_label_, *multipage_label_, *compression_label_,
      *level_label_;
  QComboBox *depth_, *multipage_, *compression_, *level_;
  QLineEdit *colors_, *quality_text_;
  QSlider* quality_;
  QPushButton *ok_, *cancel_;
};

}  // namespace velmora::shell
