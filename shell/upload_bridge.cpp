// The uploads' view on the window.
#include "shell/upload_bridge.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThread>

#include "shell/main_window.h"
#include "shell/upload_windows.h"
#include "shell/wait_window.h"
#include "upload/ftp_upload.h"
#include "upload/picasa_upload.h"
#include "upload/update_check.h"

namespace velmora::shell {

UploadBridge::UploadBridge(MainWindow* window) : QObject(window), window_(window) {}
UploadBridge::~UploadBridge() = default;

void UploadBridge::Picasa() {
  upload::Button6Click(window_->state(), upload_, *this);
}

void UploadBridge::Ftp() {
  upload::Button7Click(window_->state(), upload_, *this);
}

void UploadBridge::CheckUpdates() {
  upload::CheckUpdates(*this);
}

void UploadBridge::SetStatus(const std::string& text) {
  window_->SetStatus(text);
}
void UploadBridge::SetFile(const std::string& text) {
  window_->SetFile(text);
}
void UploadBridge::SetProgressRange(int minimum, int maximum) {
  window_->SetProgressRange(minimum, maximum);
}
void UploadBridge::SetProgressValue(int value) {
  window_->SetProgressValue(value);
}

ProcessLogWindow* UploadBridge::ProcessLog() {
  if (!process_log_) {
    // Loading the window clears the cancel flag; its "Stop" ends the transfer.
    process_log_ = new ProcessLogWindow(window_);
    upload_.UploadCancelled = false;
    connect(process_log_, &ProcessLogWindow::stopClicked, this, [this] {
      upload::StopFtpUpload(upload_);
      process_log_->deleteLater();
      process_log_ = nullptr;
      window_->activateWindow();
    });
  }
  return process_log_;
}

void UploadBridge::SetProcessLogStatus(const std::string& text) {
  ProcessLog()->lblStatus()->setText(QString::fromStdString(text));
}

void UploadBridge::Yield() {
  QCoreApplication::processEvents();
  // While a command waits for one of its windows, the loop doesn't spin the processor.
  if (CaptchaPromptShowing() || AlbumChooserShowing()) QThread::msleep(5);
}

upload::MessageAnswer UploadBridge::ShowMessage(const std::string& text, upload::MessageIcon icon,
                                                upload::MessageButtons buttons) {
  QMessageBox box(window_);
  box.setWindowTitle(QCoreApplication::applicationName());
  box.setText(QString::fromStdString(text));
  switch (icon) {
    case upload::MessageIcon::kCritical: box.setIcon(QMessageBox::Critical); break;
    case upload::MessageIcon::kExclamation: box.setIcon(QMessageBox::Warning); break;
    case upload::MessageIcon::kInformation: box.setIcon(QMessageBox::Information); break;
    case upload::MessageIcon::kNone: break;
  }
  if (buttons == upload::MessageButtons::kYesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? upload::MessageAnswer::kYes : upload::MessageAnswer::kNo;
  }
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
  return upload::MessageAnswer::kOk;
}

void UploadBridge::ShowSessionLog(const std::string& log) {
  if (!log_) log_ = new SessionLogWindow(window_);
  log_->Open(log);
}

void UploadBridge::ShowSettingsDialog(int tab) {
  window_->ShowSettingsDialog(tab);
}

void UploadBridge::ShowCaptchaPrompt(const std::string& image_path) {
  if (!captcha_) captcha_ = new CaptchaPrompt(window_);
  captcha_->Open(image_path);
}

bool UploadBridge::CaptchaPromptShowing() {
  return captcha_ && captcha_->Showed();
}

std::string UploadBridge::CaptchaPromptAnswer() {
  return captcha_ ? captcha_->ExitString() : std::string();
}

void UploadBridge::ShowAlbumChooser(const std::vector<upload::Album>& albums) {
  if (!albums_) albums_ = new AlbumChooser(window_);
  albums_->Open(albums);
}

bool UploadBridge::AlbumChooserShowing() {
  return albums_ && albums_->Showed();
}

std::string UploadBridge::AlbumChooserChoice() {
  return albums_ ? albums_->ExitString() : std::string();
}

void UploadBridge::ShowPleaseWait(bool shown) {
  if (!wait_) wait_ = new WaitWindow(window_);
  if (shown)
    wait_->Open();
  else
    wait_->Close();
}

void UploadBridge::OpenUrl(const std::string& url) {
  window_->services().OpenUrl(url);
}

void UploadBridge::CloseMainWindow() {
  window_->close();
}

}  // namespace velmora::shell
