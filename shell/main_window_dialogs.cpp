// Opening the four dialogs: one instance each, made on first use, owned by the window and never
// blocking it.
#include "shell/about_dialog.h"
#include "shell/format_dialog.h"
#include "shell/main_window.h"
#include "shell/new_operation_dialog.h"
#include "shell/settings_dialog.h"
#include "shell/upload_bridge.h"

namespace velmora::shell {

void MainWindow::ShowSettingsDialog(int tab) {
  if (!settings_dialog_) settings_dialog_ = new SettingsDialog(this, state_.settings);
  settings_dialog_->Open(tab);
}

void MainWindow::ShowFormatDialog() {
  if (!format_dialog_) {
    format_dialog_ = new FormatDialog(
        this, state_,
        [this] {
          // The text of the selected row of the output format list.
          const int index = fixed_.FormatCombo1;
          const auto& names = OutputFormatNames();
          return index >= 0 && index < static_cast<int>(names.size()) ? names[static_cast<std::size_t>(index)]
                                                                      : std::string();
        },
        [this] { activateWindow(); });
  }
  format_dialog_->Open();
}

void MainWindow::ShowNewOperationDialog() {
  if (!new_operation_dialog_) new_operation_dialog_ = new NewOperationDialog(this);
  new_operation_dialog_->Open();
}

void MainWindow::ShowAboutDialog() {
  if (!about_dialog_) {
    about_dialog_ = new AboutDialog(this, services_, [this] { uploads_->CheckUpdates(); });
  }
  about_dialog_->Open();
}

}  // namespace velmora::shell
