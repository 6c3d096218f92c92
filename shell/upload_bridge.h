// The run page's upload buttons and the about box's update check, joined to the upload
// commands: the window as the uploads' view (run page lines, message boxes, their windows).
#pragma once

#include <QObject>

#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::shell {

class MainWindow;
class AlbumChooser;
class CaptchaPrompt;
class SessionLogWindow;
class ProcessLogWindow;
class WaitWindow;

class UploadBridge : public QObject, public upload::UploadView {
  Q_OBJECT
 public:
  explicit UploadBridge(MainWindow* window);
  ~UploadBridge() override;

  void Picasa();        // Button6
  void Ftp();           // Button7
  void CheckUpdates();  // the about box's "Check for updates"

  upload::UploadState& state() { return upload_; }
  AlbumChooser* Form4() const { return albums_; }
  CaptchaPrompt* Form5() const { return captcha_; }
  SessionLogWindow* Form7() const { return log_; }
  ProcessLogWindow* Form6() const { return process_log_; }

  // upload::UploadView
  void SetStatus(const std::string& text) override;
  void SetFile(const std::string& text) override;
  void SetProgressRange(int minimum, int maximum) override;
  void SetProgressValue(int value) override;
  void SetProcessLogStatus(const std::string& text) override;
  void Yield() override;
  upload::MessageAnswer ShowMessage(const std::string& text, upload::MessageIcon icon,
                                    upload::MessageButtons buttons) override;
  void ShowSessionLog(const std::string& log) override;
  void ShowSettingsDialog(int tab) override;
  void ShowCaptchaPrompt(const std::string& image_path) override;
  bool CaptchaPromptShowing() override;
  std::string CaptchaPromptAnswer() override;
  void ShowAlbumChooser(const std::vector<upload::Album>& albums) override;
  bool AlbumChooserShowing() override;
  std::string AlbumChooserChoice() override;
  void ShowPleaseWait(bool shown) override;
  void OpenUrl(const std::string& url) override;
  void CloseMainWindow() override;

 private:
  ProcessLogWindow* ProcessLog();

  MainWindow* window_;
  upload::UploadState upload_;
  AlbumChooser* albums_ = nullptr;
  CaptchaPrompt* captcha_ = nullptr;
  SessionLogWindow* log_ = nullptr;
  ProcessLogWindow* process_log_ = nullptr;
  WaitWindow* wait_ = nullptr;
};

}  // namespace velmora::shell
