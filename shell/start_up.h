// The program's start (Main) and the order in which state is built: the profile from disk, the
// program state, then the window, shown on the first step with a preview made at once.
#pragma once

#include <functional>
#include <memory>

#include "engine/app_state.h"
#include "shell/main_window.h"
#include "shell/shell_services.h"

namespace velmora::shell {

// Everything of Main after the application object: data folders, the last profile, the window
// (made by the first caption change), RefreshProfile, the first step, the size, the newest
// operation in view, PreviewNow2, and Timer2 running.
std::unique_ptr<MainWindow> StartUp(engine::AppState& state, ShellServices& services,
                                    std::function<void()> end_process);

// The velmora program.
int Main(int argc, char** argv);

}  // namespace velmora::shell
