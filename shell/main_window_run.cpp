// The run page: "Start!" runs the conversion with this window as its view, and the buttons for
// the finished files.
#include <QCoreApplication>

#include "engine/go_process.h"
#include "preview/picture_image.h"
#include "shell/main_window.h"
#include "shell/upload_bridge.h"

namespace velmora::shell {

void MainWindow::RunConversion() {
  // A preview still running finishes first: the two never work at the same time.
  WaitForPreview();
  ApplyProfile();
  QCoreApplication::processEvents();
  run_log_.clear();
  fr3_->lblStatus()->setToolTip(QString());
  running_ = true;
  engine::GoProcess2(state_, lwSrc()->Rows(), *this, engine::RunOptions{0, workers_});
  running_ = false;
}

void MainWindow::SetStatus(const std::string& text) {
  fr3_->lblStatus()->setText(QString::fromStdString(text));
}

void MainWindow::SetFile(const std::string& text) {
  fr3_->lblFile()->setText(QString::fromStdString(text));
}

void MainWindow::SetProgressRange(int minimum, int maximum) {
  if (maximum >= minimum) fr3_->pb1()->setRange(minimum, maximum);
}

void MainWindow::SetProgressValue(int value) {
  fr3_->pb1()->setValue(value);
}

void MainWindow::ShowWait(bool shown) {
  frPreview_->ShowWait(shown);
}

void MainWindow::SetWaitLabel(const std::string& text) {
  frPreview_->SetWaitLabel(QString::fromStdString(text));
}

void MainWindow::PreviewFrameSize(int& width, int& height) {
  const QSize inner = frPreview_->prwFon()->innerSize();
  width = inner.width();
  height = inner.height();
}

void MainWindow::ShowPreview(const imaging::DisplayPicture& picture, int top, int left) {
  frPreview_->ShowResult(preview::ToQImage(picture), top, left);
}

void MainWindow::OpenFolder(const std::string& folder) {
  services_.OpenFolder(folder);
}

void MainWindow::Yield() {
  QCoreApplication::processEvents();
}

void MainWindow::LogFailure(const std::string& message) {
  // Skipped steps don't stop the run; the status line's tip lists them.
  run_log_.push_back(message);
  QStringList lines;
  for (const std::string& line : run_log_) lines << QString::fromStdString(line);
  fr3_->lblStatus()->setToolTip(lines.join('\n'));
}

void MainWindow::OpenOutputFolder() {
  services_.OpenFolder(state_.output.OutputFolder);
}

void MainWindow::UploadToPicasa() {
  uploads_->Picasa();
}

void MainWindow::UploadToFtp() {
  uploads_->Ftp();
}

UploadBridge* MainWindow::uploads() const {
  return uploads_;
}

}  // namespace velmora::shell
