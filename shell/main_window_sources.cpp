// The source list's commands: "Add Images", "Add Folder", drops, "Remove", "Remove All", and the
// hint's timer.
#include <QCoreApplication>
#include <filesystem>

#include "engine/source_scan.h"
#include "shell/main_window.h"
#include "shell/source_rules.h"
#include "shell/wait_window.h"

namespace velmora::shell {

namespace {
// After an add: the last row is selected when none is, the list takes the focus, and the preview
// is asked for at once.
void SelectLastIfNone(SourceListWidget* list) {
  if (list->topLevelItemCount() > 0 && !list->currentItem())
    list->setCurrentItem(list->topLevelItem(list->topLevelItemCount() - 1));
}
}  // namespace

void MainWindow::AddImages() {
  const std::vector<std::string> pieces = ChosenFilePieces(services_.ChooseSourceFiles(this));
  if (!pieces.empty()) {
    const std::vector<std::string> paths = PathsFromPieces(pieces);
    std::size_t next = 0;
    // A single piece, or a first piece that is no root, is tried as a file on its own.
    if (pieces.front().empty() || pieces.front().back() != '/') {
      if (!paths.empty()) lwSrc()->AddItem(paths[next]);
      ++next;
    }
    if (next < paths.size()) {
      WaitWindow wait(this);
      wait.Open();
      for (; next < paths.size(); ++next) lwSrc()->AddItem(paths[next]);
      wait.Close();
    }
  }
  FinishAdding();
}

void MainWindow::FinishAdding() {
  SelectLastIfNone(lwSrc());
  lwSrc()->setFocus();
  state_.preview.PreviewDirty = engine::kTrue;
  Timer2_Timer();
}

void MainWindow::AddFolderContents(const std::string& folder) {
  WaitWindow wait(this);
  wait.Open();
  std::vector<std::string> result(1);
  engine::ScanFolder(folder, engine::kAllImageFilePatterns, result);
  AddScannedNames(
      result,
      [this](const std::string& name) {
        if (!lwSrc()->GetFileIcon(name).isEmpty()) lwSrc()->AddItem(name);
      },
      [] { QCoreApplication::processEvents(); });
  wait.Close();
}

void MainWindow::AddFolder() {
  const std::string folder = services_.ChooseFolder(this);
  if (!folder.empty()) AddFolderContents(folder);
  if (lwSrc()->topLevelItemCount() > 0) {
    SelectLastIfNone(lwSrc());
    // Inside the branch of a list with items this never holds, so an empty scan ends silently.
    if (lwSrc()->topLevelItemCount() == 0) services_.Inform(this, "No files found!");
  }
  lwSrc()->setFocus();
  state_.preview.PreviewDirty = engine::kTrue;
  Timer2_Timer();
}

void MainWindow::AddCommandLineSources(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  for (const std::string& given : paths) {
    std::error_code error;
    const std::string path = std::filesystem::absolute(given, error).lexically_normal().string();
    if (error) continue;
    if (std::filesystem::is_directory(path, error))
      AddFolderContents(path);
    else
      lwSrc()->AddItem(path);
  }
  FinishAdding();
}

void MainWindow::DropFiles(const std::vector<std::string>& paths) {
  // Any non-empty file is taken; a dropped folder has no length and is passed over.
  for (const std::string& path : paths) lwSrc()->AddItem(path);
}

void MainWindow::RemoveSelected() {
  SourceListWidget* list = lwSrc();
  const int noted = list->currentItem() ? list->indexOfTopLevelItem(list->currentItem()) : -1;
  std::vector<std::string> rows;
  std::vector<bool> selected;
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    rows.push_back(list->topLevelItem(i)->text(0).toStdString());
    selected.push_back(list->topLevelItem(i)->isSelected());
  }
  const RemoveResult result = RemoveWalk(rows, selected, noted);
  list->SetRows(result.rows, result.select);
  // Only the forced mark: without the dirty one the pass ends at once and the old picture stays.
  state_.preview.PreviewForced = engine::kTrue;
  Timer2_Timer();
}

void MainWindow::RemoveAllSources() {
  lwSrc()->RemoveAll();
  state_.preview.PreviewDirty = engine::kTrue;
  state_.preview.PreviewForced = engine::kTrue;
  Timer2_Timer();
}

void MainWindow::SourceItemClicked() {
  state_.preview.PreviewDirty = engine::kTrue;
  Timer2_Timer();
}

void MainWindow::Timer1_Timer() {
  fr1_->Picture4()->setVisible(lwSrc()->topLevelItemCount() == 0);
}

}  // namespace velmora::shell
