// What the uploads and the update check need of the window: the run page's status lines and
// progress bar, message boxes, the captcha and album windows, the logs, and the event-loop hook.
#pragma once

#include <string>
#include <vector>

#include "upload/album_types.h"

namespace velmora::upload {

enum class MessageIcon { kNone, kCritical, kExclamation, kInformation };
enum class MessageButtons { kOk, kYesNo };
enum class MessageAnswer { kOk, kYes, kNo };

// Tabs of the settings dialog that an upload opens when its account is not set.
inline constexpr int kPicasaSettingsTab = 3;
inline constexpr int kFtpSettingsTab = 4;

class UploadView {
 public:
  virtual ~UploadView() = default;

  // The run page: lblStatus, lblFile and pb1. A range whose maximum is below its minimum is one
  // the bar refuses; the window keeps its previous range then.
  virtual void SetStatus(const std::string& text) = 0;
  virtual void SetFile(const std::string& text) = 0;
  virtual void SetProgressRange(int minimum, int maximum) = 0;
  virtual void SetProgressValue(int value) = 0;

  // The status label of the hidden "Process log" window, written as each FTP transfer begins
  // and ends. Loading that window clears UploadState::UploadCancelled; its "Stop" button calls
  // StopFtpUpload.
  virtual void SetProcessLogStatus(const std::string& text) = 0;

  // Lets pending window events run, and returns.
  virtual void Yield() = 0;

  // A message box owned by the main window; the answer is kOk for a box with only "OK".
  virtual MessageAnswer ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) = 0;

  // The "Log" window with the FTP session log in its text box.
  virtual void ShowSessionLog(const std::string& log) = 0;

  // The settings dialog, not modal, on the given tab.
  virtual void ShowSettingsDialog(int tab) = 0;

  // "Enter Captcha Code", not modal, showing the image file. CaptchaPromptShowing stays true
  // until the window closes; CaptchaPromptAnswer is then the typed code, or "" after "Cancel".
  virtual void ShowCaptchaPrompt(const std::string& image_path) = 0;
  virtual bool CaptchaPromptShowing() = 0;
  virtual std::string CaptchaPromptAnswer() = 0;

  // "Choose Picasa Album", not modal, listing the titles in order with each id as the row's tag.
  // AlbumChooserShowing stays true until the window closes; AlbumChooserChoice is then the
  // chosen row's id, or "" after "Cancel".
  virtual void ShowAlbumChooser(const std::vector<Album>& albums) = 0;
  virtual bool AlbumChooserShowing() = 0;
  virtual std::string AlbumChooserChoice() = 0;

  // The small "please wait..." window during the update check.
  virtual void ShowPleaseWait(bool shown) = 0;
  // Hands a URL to the desktop to open.
  virtual void OpenUrl(const std::string& url) = 0;
  // Closes the main window, which ends the program.
  virtual void CloseMainWindow() = 0;
};

}  // namespace velmora::upload
