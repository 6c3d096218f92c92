// The about box (Form2): version, maker, rights and library notices, the support address and
// the web site as links, "Close" and "Check for updates".
#pragma once

#include <functional>

#include "shell/clickable_label.h"
#include "shell/dialog_frame.h"
#include "shell/shell_services.h"

namespace velmora::shell {

// "Velmora " and the build's major, minor and revision numbers.
std::string AboutCaption();
inline constexpr const char* kSupportAddress = "support@brondale.com";
inline constexpr const char* kWebSiteText = "www.brondale.com";
inline constexpr const char* kProductPage = "http://www.brondale.com/velmora/";

class AboutDialog : public DialogFrame {
  Q_OBJECT
 public:
  // `check_updates` runs after "Check for updates" has closed the box; empty disables the button.
  AboutDialog(QWidget* owner, ShellServices& services, std::function<void()> check_updates);

  void Open();
  ClickableLabel* Label5() const { return mail_; }
  ClickableLabel* Label6() const { return site_; }
  QPushButton* Command1() const { return close_; }
  QPushButton* Command2() const { return updates_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ShellServices& services_;
  std::function<void()> check_updates_;
  ClickableLabel *mail_, *site_;
  QPushButton *close_, *updates_;
};

}  // namespace velmora::shell
