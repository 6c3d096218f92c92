// Main and the start-up order.
#include "shell/start_up.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include "settings/data_folders.h"
#include "settings/session.h"
#include "shell/qt_shell_services.h"

namespace velmora::shell {

std::unique_ptr<MainWindow> StartUp(engine::AppState& state, ShellServices& services,
                                    std::function<void()> end_process) {
  std::unique_ptr<MainWindow> window;
  // The window is made on the first caption change, inside the profile load.
  auto caption = [&](const std::string& text) {
    if (!window) window = std::make_unique<MainWindow>(state, services, end_process);
    window->SetCaption(text);
  };
  settings::PrepareDataFolders(state);
  settings::LoadLastProfileName(state);
  settings::LoadStartProfile(state, caption);
  if (!window) caption(settings::UpdateCaption(state));

  window->RefreshProfile();
  window->show();
  window->wizard().WizardStep = 0;
  window->wizard().PreviewShown = true;
  window->UpdateWizard();
  window->resize(window->width(), kMinimumWindowHeight);
  window->Form_Resize();
  window->operationList()->ScrollToEnd();
  window->PreviewNow2();
  window->Timer2()->start();
  return window;
}

int Main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Velmora");
  engine::AppState state;
  QtShellServices services;
  std::unique_ptr<MainWindow> window = StartUp(state, services, [] {
    // Closing the window ends the process at once: no run or preview gets to finish.
    std::fflush(nullptr);
    std::_Exit(0);
  });
  services.SetFontOwner(window.get());
  return application.exec();
}

}  // namespace velmora::shell
