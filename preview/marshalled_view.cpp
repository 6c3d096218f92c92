// Signals out of the preview run.
#include "preview/marshalled_view.h"

#include "preview/picture_image.h"
#include "preview/preview_pane.h"

namespace velmora::preview {

void PreviewSignals::ConnectTo(PreviewPane* pane) {
  connect(this, &PreviewSignals::waitShown, pane, &PreviewPane::ShowWait);
  connect(this, &PreviewSignals::waitLabel, pane, &PreviewPane::SetWaitLabel);
  connect(this, &PreviewSignals::result, pane, &PreviewPane::ShowResult);
  connect(this, &PreviewSignals::original, pane, &PreviewPane::ShowOriginal);
  connect(this, &PreviewSignals::noOriginal, pane, &PreviewPane::ShowNoOriginal);
  connect(this, &PreviewSignals::clearBoth, pane, &PreviewPane::ClearBoth);
}

void MarshalledPreviewView::SetStatus(const std::string& text) {
  emit sink_->status(QString::fromStdString(text));
}
void MarshalledPreviewView::SetFile(const std::string& text) {
  emit sink_->file(QString::fromStdString(text));
}
void MarshalledPreviewView::ShowWait(bool shown) {
  emit sink_->waitShown(shown);
}
void MarshalledPreviewView::SetWaitLabel(const std::string& text) {
  emit sink_->waitLabel(QString::fromStdString(text));
}

void MarshalledPreviewView::PreviewFrameSize(int& width, int& height) {
  width = result_box_.width();
  height = result_box_.height();
}

void MarshalledPreviewView::ShowPreview(const imaging::DisplayPicture& picture, int top, int left) {
  emit sink_->result(ToQImage(picture), top, left);
}

void MarshalledPreviewView::LogFailure(const std::string& message) {
  emit sink_->failure(QString::fromStdString(message));
}

void MarshalledPreviewView::OriginalFrameSize(int& width, int& height) {
  width = original_box_.width();
  height = original_box_.height();
}

void MarshalledPreviewView::ShowOriginal(const imaging::DisplayPicture& picture, int top, int left) {
  emit sink_->original(ToQImage(picture), top, left);
}

void MarshalledPreviewView::ShowNoOriginal() {
  emit sink_->noOriginal();
}
void MarshalledPreviewView::ClearBoth() {
  emit sink_->clearBoth();
}

}  // namespace velmora::preview
