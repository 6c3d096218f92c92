// Profile files: load, save and new profile over the program state, the main window's caption
// rule, and the name a typed save name becomes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/app_state.h"

namespace velmora::settings {

// Receives the caption at each point where the main window's caption would change.
using CaptionSink = std::function<void(const std::string& caption)>;

// Longest chain a profile can ask for: a larger "ProcessTotal", like a negative one or one that
// is no number, can't be made, so the chain in memory stays as it was.
inline constexpr std::int32_t kMaxProcessTotal = 100000;

// "Velmora - [Untitled]" for an unsaved profile, else "Velmora - [<file name>]".
std::string UpdateCaption(const engine::AppState& state);

// Fills the settings, the output choices and the chain from `path`, key by key. A missing file
// reads as all keys missing. Does not touch CurrentProfile.
void LoadProfile(engine::AppState& state, const std::string& path, const CaptionSink& caption = {});

// Writes the settings, the output choices and the chain over the keys of `path`. Nothing else in
// the file is removed, [Block_n] sections behind a shorter chain included. An empty path writes
// nothing. Returns false if the file could not be written.
bool SaveProfile(const engine::AppState& state, const std::string& path, const CaptionSink& caption = {});

// The defaults of a new profile; settings and output choices that a new profile keeps stay as
// they are. Empties CurrentProfile and the chain.
void NewProfile(engine::AppState& state, const CaptionSink& caption = {});

// The path a save goes to for the name the user typed: cut at the first NUL, with ".profile"
// added unless the name already ends in it (in any letter case).
std::string ProfileSaveName(const std::string& chosen);

}  // namespace velmora::settings
