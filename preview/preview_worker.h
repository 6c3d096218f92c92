// The preview's thread object (pThread): runs one job on a new thread and reports, on the
// window's thread, when the thread exists and when it has finished. One thread at a time.
#pragma once

#include <QObject>
#include <QThread>
#include <functional>

namespace velmora::preview {

class PreviewWorker : public QObject {
  Q_OBJECT
 public:
  explicit PreviewWorker(QObject* parent = nullptr);
  // Waits for a running job: the job works on its own copy of the state, never on the window.
  ~PreviewWorker() override;

  // Creates the thread for `job` (OnThreadCreateSuccess is raised at once) and starts it.
  // Refused while a thread exists.
  bool CreateAndStart(std::function<void()> job);
  bool Running() const { return thread_ != nullptr; }
  // Blocks until the running job has ended and raises OnThreadFinish for it.
  void Wait();

 signals:
  void OnThreadCreateSuccess();
  void OnThreadFinish();

 private:
  void Finished(QThread* thread);

  QThread* thread_ = nullptr;
};

}  // namespace velmora::preview
