// Loading, saving and resetting profiles.
#include "settings/profile_file.h"

#include "engine/number_text.h"
#include "settings/data_folders.h"
#include "settings/ini_file.h"
#include "settings/profile_layout.h"
#include "settings/profile_values.h"

namespace velmora::settings {
namespace {

void Announce(const engine::AppState& state, const CaptionSink& caption) {
  if (caption) caption(UpdateCaption(state));
}

}  // namespace

std::string UpdateCaption(const engine::AppState& state) {
  if (state.CurrentProfile.empty()) return "Velmora - [Untitled]";
  return "Velmora - [" + FileNameOfPath(state.CurrentProfile) + "]";
}

void LoadProfile(engine::AppState& state, const std::string& path, const CaptionSink& caption) {
  const IniDocument document = LoadIniDocument(path);

  // A profile written before a key existed reads that key as off, not as the previous profile's.
  state.settings.RotateByCameraOrientation = state.settings.KeepColourProfiles = engine::kFalse;
  SectionReader settings(document, kSettingsSection);
  VisitSettingsKeys(settings, state.settings);
  SectionReader profile(document, kProfileSection);
  VisitProfileKeys(profile, state.output);

  // The chain is made afresh from "ProcessTotal"; a value that can't give a chain leaves the old
  // one standing, and the block keys are then read into it.
  const auto total = engine::ReadInt32(document.Get(kProfileSection, kProcessTotalKey));
  if (total && *total >= 0 && *total <= kMaxProcessTotal) state.blocks.Resize(*total);

  for (std::int32_t n = 0; n < state.blocks.UpperBound(); ++n) {
    SectionReader block(document, BlockSection(n));
    VisitBlockKeys(block, state.blocks[n]);
  }
  Announce(state, caption);
}

bool SaveProfile(const engine::AppState& state, const std::string& path, const CaptionSink& caption) {
  IniDocument document;
  bool stored = false;
  if (!path.empty() && LoadIniDocumentForEdit(path, document)) {
    SectionWriter settings(document, kSettingsSection);
    VisitSettingsKeys(settings, state.settings);
    SectionWriter profile(document, kProfileSection);
    VisitProfileKeys(profile, state.output);
    profile.Int32(kProcessTotalKey, state.blocks.UpperBound());

    for (std::int32_t n = 0; n < state.blocks.UpperBound(); ++n) {
      SectionWriter block(document, BlockSection(n));
      VisitBlockKeys(block, state.blocks[n]);
    }
    // All keys go to the file in one write, with the same effect as one write per key.
    stored = StoreIniDocument(document, path);
  }
  Announce(state, caption);
  return stored;
}

void NewProfile(engine::AppState& state, const CaptionSink& caption) {
  state.CurrentProfile.clear();
  state.output.OpenTargetFolder = engine::kTrue;
  state.output.OutputFolder = state.AppDataFolder + "/Output/";
  state.output.NameTemplate = "{Title}_{Counter}.{OutputType}";
  state.output.OutputFormat = 1;
  state.output.Quality = 90;
  state.output.ColorDepth = 0;
  state.settings.IfOutputFileExists = 1;
  state.settings.AlwaysCreateOutputFolder = engine::kTrue;
  state.settings.RotateByCameraOrientation = state.settings.KeepColourProfiles = engine::kTrue;
  state.blocks = engine::Blocks();
  Announce(state, caption);
}

std::string ProfileSaveName(const std::string& chosen) {
  std::string name = chosen.substr(0, chosen.find('\0'));
  constexpr std::string_view kExtension = ".profile";
  const bool has_extension =
      name.size() >= kExtension.size() &&
      engine::EqualsIgnoreCase(std::string_view(name).substr(name.size() - kExtension.size()), kExtension);
  if (!has_extension) name += kExtension;
  return name;
}

}  // namespace velmora::settings
