// One QThread per preview job.
#include "preview/preview_worker.h"

namespace velmora::preview {

PreviewWorker::PreviewWorker(QObject* parent) : QObject(parent) {}

PreviewWorker::~PreviewWorker() {
  if (thread_) {
    thread_->wait();
    delete thread_;
  }
}

bool PreviewWorker::CreateAndStart(std::function<void()> job) {
  if (thread_) return false;
  QThread* thread = QThread::create(std::move(job));
  thread_ = thread;
  // `finished` comes from the worker's side; the connection delivers it on this object's thread.
  connect(
      thread, &QThread::finished, this, [this, thread] { Finished(thread); }, Qt::QueuedConnection);
  emit OnThreadCreateSuccess();
  thread->start();
  return true;
}

void PreviewWorker::Wait() {
  if (!thread_) return;
  QThread* thread = thread_;
  thread->wait();
  Finished(thread);
}

void PreviewWorker::Finished(QThread* thread) {
  if (thread != thread_) return;  // already reported by Wait
  thread_ = nullptr;
  thread->deleteLater();
  emit OnThreadFinish();
}

}  // namespace velmora::preview
