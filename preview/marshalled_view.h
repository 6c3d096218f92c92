// The preview run's outputs as Qt signals, so that a run on the worker thread reaches the pane
// only through queued calls on the window's thread. The box sizes are read before the run.
#pragma once

#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>

#include "preview/preview_now.h"

namespace velmora::preview {

class PreviewPane;

// Lives on the window's thread; emitting from the worker queues the call.
class PreviewSignals : public QObject {
  Q_OBJECT
 public:
  explicit PreviewSignals(QObject* parent = nullptr) : QObject(parent) {}

  // Connects the picture and overlay signals to the pane; the status lines are the window's.
  void ConnectTo(PreviewPane* pane);

 signals:
  void status(const QString& text);
  void file(const QString& text);
  void waitShown(bool shown);
  void waitLabel(const QString& text);
  void result(const QImage& image, int top, int left);
  void original(const QImage& image, int top, int left);
  void noOriginal();
  void clearBoth();
  void failure(const QString& message);
};

class MarshalledPreviewView : public PreviewView {
 public:
  MarshalledPreviewView(PreviewSignals* sink, QSize original_box, QSize result_box)
      : sink_(sink), original_box_(original_box), result_box_(result_box) {}

  void SetStatus(const std::string& text) override;
  void SetFile(const std::string& text) override;
  void SetProgressRange(int, int) override {}  // a preview leaves the progress bar alone
  void SetProgressValue(int) override {}
  void ShowWait(bool shown) override;
  void SetWaitLabel(const std::string& text) override;
  void PreviewFrameSize(int& width, int& height) override;
  void ShowPreview(const imaging::DisplayPicture& picture, int top, int left) override;
  void OpenFolder(const std::string&) override {}  // a preview never opens the folder
  void Yield() override {}                         // the window's thread keeps running on its own
  void LogFailure(const std::string& message) override;

  void OriginalFrameSize(int& width, int& height) override;
  void ShowOriginal(const imaging::DisplayPicture& picture, int top, int left) override;
  void ShowNoOriginal() override;
  void ClearBoth() override;

 private:
  PreviewSignals* sink_;
  QSize original_box_, result_box_;
};

}  // namespace velmora::preview
