// The desktop services of the window made with Qt: QFileDialog for files and folders, QFontDialog
// followed by QColorDialog for a watermark's style, QDesktopServices for folders and addresses.
#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "shell/shell_services.h"

namespace velmora::shell {

class QtShellServices : public ShellServices {
 public:
  std::vector<std::string> ChooseSourceFiles(QWidget* owner) override;
  std::string ChooseFolder(QWidget* owner) override;
  std::string ChooseProfile(QWidget* owner, const std::string& folder) override;
  std::string ChooseWatermarkImage(QWidget* owner) override;
  void Inform(QWidget* owner, const std::string& text) override;
  void OpenFolder(const std::string& folder) override;
  void OpenUrl(const std::string& url) override;
  void LaunchViewer(const std::string& path) override;
  std::optional<FontAnswer> ChooseFont(const FontRequest& request) override;

  // The window the font chooser belongs to.
  void SetFontOwner(QWidget* owner) { font_owner_ = owner; }

 private:
  QWidget* font_owner_ = nullptr;
};

// "Name (pattern;pattern)" filters in a Qt file dialog's form.
QString QtFilterList(const std::vector<std::pair<std::string, std::string>>& filters);

}  // namespace velmora::shell
