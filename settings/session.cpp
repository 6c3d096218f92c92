// Start-up and exit order for the settings file and the current profile.
#include "settings/session.h"

#include "settings/data_folders.h"
#include "settings/ini_file.h"

namespace velmora::settings {
namespace {
constexpr const char* kMainSection = "Main";
constexpr const char* kLastProfileKey = "LastProfile";
}  // namespace

void LoadLastProfileName(engine::AppState& state) {
  state.CurrentProfile = ReadIni(kMainSection, kLastProfileKey, state.SettingsFile);
}

void SaveLastProfileName(const engine::AppState& state) {
  WriteIni(kMainSection, kLastProfileKey, state.CurrentProfile, state.SettingsFile);
}

void LoadStartProfile(engine::AppState& state, const CaptionSink& caption) {
  if (state.CurrentProfile.empty()) state.CurrentProfile = DefaultProfilePath(state);
  if (!FileExists(state.CurrentProfile)) {
    // A vanished last profile also lands here: "default.profile" is then reset to the defaults.
    NewProfile(state, caption);
    state.CurrentProfile = DefaultProfilePath(state);
    SaveProfile(state, state.CurrentProfile, caption);
  }
  LoadProfile(state, state.CurrentProfile, caption);
}

void SaveCurrentProfile(const engine::AppState& state) {
  SaveProfile(state, state.CurrentProfile);
}

void StartUp(engine::AppState& state, const CaptionSink& caption) {
  PrepareDataFolders(state);
  LoadLastProfileName(state);
  LoadStartProfile(state, caption);
}

void SaveAtExit(engine::AppState& state, const std::function<void(engine::AppState&)>& apply_profile) {
  SaveLastProfileName(state);
  if (apply_profile) apply_profile(state);
  SaveCurrentProfile(state);
}

}  // namespace velmora::settings
