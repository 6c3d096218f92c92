// The preview's side of the window: the Timer2 pass, the worker's job on a copy of the state,
// the start-up preview, the pane's buttons and the clicks that open the viewer.
#include <QCoreApplication>

#include "preview/preview_now.h"
#include "preview/viewer_target.h"
#include "shell/main_window.h"

namespace velmora::shell {

void MainWindow::Timer2_Timer() {
  preview::Timer2_Timer(state_.preview, pass_, *this);
}

bool MainWindow::PreviewPaneVisible() {
  return !frPreview_->isHidden();
}

bool MainWindow::RunPageVisible() {
  return !fr3_->isHidden();
}

void MainWindow::ProcessEvents() {
  QCoreApplication::processEvents();
}

std::string MainWindow::SelectedSourceText() {
  return lwSrc()->SelectedText();
}

void MainWindow::StartPreviewThread() {
  // The worker gets copies of everything it reads: the state, the panels' values, the rows and
  // the box sizes. What it shows comes back through queued signals.
  auto job_state = std::make_shared<engine::AppState>(state_);
  const OperationEntries job_entries = entries_;
  const FixedControls job_fixed = fixed_;
  const engine::SourceList sources = lwSrc()->Rows();
  const QSize source_box = frPreview_->prwFon2()->innerSize();
  const QSize result_box = frPreview_->prwFon()->innerSize();
  preview::PreviewSignals* sink = preview_signals_;
  const engine::WorkerLimits workers = workers_;
  preview_state_ = job_state;
  worker_->CreateAndStart([job_state, job_entries, job_fixed, sources, sink, source_box, result_box, workers] {
    // MT: ApplyProfile, then PreviewNow2.
    shell::ApplyProfile(job_entries, job_fixed, *job_state);
    preview::MarshalledPreviewView view(sink, source_box, result_box);
    preview::PreviewNow2(*job_state, sources, view, workers);
  });
}

void MainWindow::FinishPreview() {
  state_.preview.ThreadRunning = engine::kFalse;
  // The preview's run empties the list of written files as any run does, but not behind the back
  // of a conversion or the run page, whose list the uploads read.
  if (preview_state_ && !running_ && !RunPageVisible()) {
    state_.WrittenFiles = preview_state_->WrittenFiles;
    state_.SkipCounter = preview_state_->SkipCounter;
    state_.font = preview_state_->font;
  }
  preview_state_.reset();
}

void MainWindow::WaitForPreview() {
  worker_->Wait();
}

void MainWindow::PreviewNow2() {
  preview::MarshalledPreviewView view(preview_signals_, frPreview_->prwFon2()->innerSize(),
                                      frPreview_->prwFon()->innerSize());
  preview::PreviewNow2(state_, lwSrc()->Rows(), view, workers_);
}

void MainWindow::ShowPreviewPane(bool shown) {
  wizard_.PreviewShown = shown;
  UpdateWizard();
  Form_Resize();
  if (shown) {
    state_.preview.PreviewDirty = engine::kTrue;
    Timer2_Timer();
  }
}

void MainWindow::PreviewResultClicked() {
  if (auto target = preview::ResultClickTarget(state_, lwSrc()->Rows())) services_.LaunchViewer(*target);
}

void MainWindow::PreviewSourceClicked() {
  if (auto target = preview::SourceClickTarget(lwSrc()->Rows())) services_.LaunchViewer(*target);
}

}  // namespace velmora::shell
