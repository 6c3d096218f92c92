// "Program Settings" (Form3): the sixteen settings the user can change, on four tabs
// ("Conversion", "Connection", "Picasa", "FTP"), copied from the settings on every opening and
// back on OK.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTabBar>

#include "engine/app_state.h"
#include "shell/dialog_frame.h"
#include "shell/panels/select_all_edit.h"
#include "shell/settings_form.h"

namespace velmora::shell {

class SettingsDialog : public DialogFrame {
  Q_OBJECT
 public:
  SettingsDialog(QWidget* owner, engine::Settings& settings);

  // Runs the opening steps and shows the dialog on tab `tab` (1 to 4).
  void Open(int tab = 1);
  // The controls' state, and setting it as the opening steps do.
  SettingsForm Form() const;
  void SetForm(const SettingsForm& form);

  QTabBar* TabStrip1() const { return tabs_; }
  QWidget* Page(int tab) const { return pages_[tab - 1]; }
  QPushButton* Command1() const { return ok_; }

 private:
  void SelectTab(int index);
  void ApplyProxyRule();
  void Ok();

  engine::Settings& settings_;
  QTabBar* tabs_;
  QWidget* pages_[4];
  QCheckBox *Check2_, *Check6_, *Check14_, *Check15_, *Check16_, *Check4_, *Check1_, *Check3_;
  QComboBox* Combo1_;
  SelectAllEdit *Text7_, *Text8_, *Text1_, *Text2_, *Text5_, *Text9_, *Text4_, *Text3_, *Text6_;
  QLabel *Label7_, *Label8_;
  QPushButton *ok_, *cancel_;
};

}  // namespace velmora::shell
