// Main and the start-up order.
#include "shell/start_up.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <fstream>

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
  // What is left after Qt took its own options: files and folders to open, as "Open with" gives.
  std::vector<std::string> sources;
  const QStringList arguments = QApplication::arguments();
  for (qsizetype i = 1; i < arguments.size(); ++i) sources.push_back(arguments[i].toStdString());
  window->AddCommandLineSources(sources);
  // A hook for the package check: the source list as the window holds it after the start.
  if (const char* report = std::getenv("VELMORA_REPORT_SOURCES")) {
    std::ofstream out(report);
    for (const std::string& row : window->lwSrc()->Rows().rows) out << row << '\n';
  }
  return application.exec();
}

}  // namespace velmora::shell
