// The operation list's commands, the watermark's "Style..." and "Browse...", the file-name
// menu, the output folder browser and the profile menu.
#include <QCoreApplication>

#include "settings/profile_file.h"
#include "shell/main_window.h"

namespace velmora::shell {

namespace {
const char* const kFileNameTokens[] = {"{Title}", "_{SourceType}", ".{OutputType}", "_{Counter}"};
}  // namespace

void MainWindow::lblProcess_Click(std::int16_t kind) {
  entries_.lblProcess_Click(kind, state_.preview);
}

void MainWindow::StructRemove_Click(int index) {
  entries_.StructRemove_Click(index, state_.preview);
}

void MainWindow::RemoveAllOperationsCommand() {
  for (int index = 1; index <= entries_.UpperBound(); ++index) {
    const OperationEntry* entry = entries_.Entry(index);
    if (!entry || IsFixedEntry(entry->controls.tag)) continue;
    StructRemove_Click(index);
    QCoreApplication::processEvents();
  }
}

void MainWindow::ElemCommandWatermark_Click(int index) {
  OperationEntry* entry = entries_.Entry(index);
  if (!entry || entry->controls.tag != engine::kWatermark) return;
  PanelControls& controls = entry->controls;
  if (controls.ElemCombo1 == 1) {
    const std::string path = services_.ChooseWatermarkImage(this);
    if (!path.empty()) controls.ElemTextWatermark = path.substr(0, path.find('\0'));
  } else {
    controls.ElemTextWatermarkTag = StyleButtonFlow(controls.ElemTextWatermarkTag, state_.font, services_);
  }
  state_.preview.PreviewDirty = engine::kTrue;
  entries_.NotifyChanged(index);
}

void MainWindow::AppendFileNameToken(int item) {
  if (item < 0 || item > 3) return;
  fixed_.FileNameText1 += kFileNameTokens[item];
  if (FixedPanel* panel = operationList()->Fixed(kFileNameEntry)) panel->Load();
}

void MainWindow::BrowseOutputFolder() {
  const std::string folder = services_.ChooseFolder(this);
  if (folder.empty()) return;
  fixed_.SaveToText1 = folder;
  state_.preview.PreviewDirty = engine::kTrue;
  if (FixedPanel* panel = operationList()->Fixed(kSaveToEntry)) panel->Load();
}

void MainWindow::NewProfileCommand() {
  settings::NewProfile(state_, [this](const std::string& caption) { SetCaption(caption); });
  entries_.RemoveAllOperations();
  RefreshProfile();
  operationList()->RelayOperationList();
}

void MainWindow::LoadProfileCommand() {
  const std::string path = services_.ChooseProfile(this, state_.AppDataFolder + "/Profiles");
  if (path.empty()) return;
  state_.CurrentProfile = path.substr(0, path.find('\0'));
  settings::LoadProfile(state_, state_.CurrentProfile, [this](const std::string& caption) { SetCaption(caption); });
  // The loaded chain goes behind the operations already listed.
  RefreshProfile();
}

void MainWindow::SaveProfileCommand() {
  const std::string chosen = services_.ChooseProfile(this, state_.AppDataFolder + "/Profiles");
  if (chosen.empty()) return;
  state_.CurrentProfile = settings::ProfileSaveName(chosen);
  ApplyProfile();
  settings::SaveProfile(state_, state_.CurrentProfile, [this](const std::string& caption) { SetCaption(caption); });
}

}  // namespace velmora::shell
