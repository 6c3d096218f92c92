// What start-up and exit do with the data folder, settings.ini and the current profile: which
// profile comes back at start, and what is saved at exit.
#pragma once

#include <functional>

#include "engine/app_state.h"
#include "settings/profile_file.h"

namespace velmora::settings {

// [Main] "LastProfile" of SettingsFile into CurrentProfile (empty when there is none).
void LoadLastProfileName(engine::AppState& state);
// CurrentProfile into [Main] "LastProfile" of SettingsFile; this creates settings.ini.
void SaveLastProfileName(const engine::AppState& state);

// Loads CurrentProfile, falling back to "default.profile" when it is empty. When the profile is
// not there, the new-profile defaults are saved to "default.profile" first (over that file, even
// if it exists) and then read back.
void LoadStartProfile(engine::AppState& state, const CaptionSink& caption = {});

// Saves to CurrentProfile, whatever it is: an unsaved profile (empty path) writes nothing.
void SaveCurrentProfile(const engine::AppState& state);

// Start-up in order: data folders, settings.ini probe, last profile name, start profile.
void StartUp(engine::AppState& state, const CaptionSink& caption = {});

// Exit in order: the last profile name, then `apply_profile` (the window moving its state into
// `state`; may be empty), then the current profile.
void SaveAtExit(engine::AppState& state, const std::function<void(engine::AppState&)>& apply_profile = {});

}  // namespace velmora::settings
