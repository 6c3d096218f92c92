// The per-user data folder (`AppDataFolder`) with its Profiles, Output and Temp folders, the
// settings.ini path, and the small file routines that settings and profiles rest on.
#pragma once

#include <string>

#include "engine/app_state.h"
#include "engine/paths.h"

namespace velmora::settings {

// Creates every folder along a path up to its last '/'; failures, existing folders included, pass
// unnoticed. Shared with the run's naming code.
using engine::MakePath;
// The text behind the last '/'; the whole string if there is none.
using engine::FileNameOfPath;

// The user's documents folder: XDG_DOCUMENTS_DIR from $XDG_CONFIG_HOME/user-dirs.dirs, else
// $HOME/Documents. No trailing '/'. Empty when no home folder is known.
std::string GetDocumentsFolder();

// True if anything of that name is there; a folder counts.
bool FileExists(const std::string& path);

// The first start-up steps: sets AppDataFolder (documents folder + "/Velmora") and SettingsFile,
// makes the data folder and its "Profiles", "Output" and "Temp" folders, and probes settings.ini
// without creating it.
void PrepareDataFolders(engine::AppState& state);

// AppDataFolder + "/Profiles/default.profile".
std::string DefaultProfilePath(const engine::AppState& state);

}  // namespace velmora::settings
