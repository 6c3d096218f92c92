// What the window asks of the desktop: file and folder choosers, the font chooser, message boxes,
// opening folders and addresses, the image viewer. One interface, so tests answer without a screen.
#pragma once

#include <string>
#include <vector>

#include "shell/font_style.h"

class QWidget;

namespace velmora::shell {

class ShellServices : public FontChooser {
 public:
  // "Add Images": title "Choose file...", several files, the source filters. Empty on cancel.
  virtual std::vector<std::string> ChooseSourceFiles(QWidget* owner) = 0;
  // The folder browser of "Add Folder" and "Browse..."; empty on cancel.
  virtual std::string ChooseFolder(QWidget* owner) = 0;
  // The profile dialog of both load and save: title "Choose file", "Velmora Profiles", any name
  // may be typed, no overwrite question. Empty on cancel.
  virtual std::string ChooseProfile(QWidget* owner, const std::string& folder) = 0;
  // The image of an image watermark: title "Open file". Empty on cancel.
  virtual std::string ChooseWatermarkImage(QWidget* owner) = 0;
  // An information box with an OK button.
  virtual void Inform(QWidget* owner, const std::string& text) = 0;
  // Asks the desktop to open a folder, or an address such as "mailto:...".
  virtual void OpenFolder(const std::string& folder) = 0;
  virtual void OpenUrl(const std::string& url) = 0;
  // Starts the image viewer on one path without waiting for it.
  virtual void LaunchViewer(const std::string& path) = 0;
};

}  // namespace velmora::shell
