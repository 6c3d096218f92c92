// Loading and checking the job of a batch run.
#include "app/batch/batch_job.h"

#include <sys/stat.h>
#include <unistd.h>

#include "settings/data_folders.h"
#include "settings/profile_file.h"
#include "settings/session.h"

namespace velmora::app {
namespace {

bool IsFolder(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::string WithTrailingSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder;
}

}  // namespace

std::string CheckProfilePath(const std::string& path) {
  if (!settings::FileExists(path)) return "profile not found: " + path;
  if (IsFolder(path)) return "profile is a folder, not a file: " + path;
  return {};
}

std::string LoadBatchJob(engine::AppState& state, const BatchOptions& options) {
  settings::PrepareDataFolders(state);
  if (options.profile) {
    settings::NewProfile(state);
    settings::LoadProfile(state, *options.profile);
    state.CurrentProfile = *options.profile;
    return {};
  }
  // The profile the window would open, read only: where the window would reset a missing last
  // profile's place to the defaults, the batch reads "default.profile" or, failing that, takes
  // the defaults in memory.
  settings::LoadLastProfileName(state);
  const std::string last = state.CurrentProfile;
  const std::string fallback = settings::DefaultProfilePath(state);
  if (!last.empty() && settings::FileExists(last)) {
    settings::LoadProfile(state, last);
    return {};
  }
  const std::string missing = last.empty() ? std::string() : "the last profile " + last + " is missing; ";
  if (settings::FileExists(fallback)) {
    settings::LoadProfile(state, fallback);
    state.CurrentProfile = fallback;
    return missing.empty() ? std::string() : missing + "using " + fallback;
  }
  settings::NewProfile(state);
  return missing + "no profile found; using the settings of a new profile";
}

void ApplyOverrides(engine::AppState& state, const BatchOptions& options) {
  if (options.output_folder) state.output.OutputFolder = *options.output_folder;
  if (options.output_format) state.output.OutputFormat = *options.output_format;
  if (options.name_template) state.output.NameTemplate = *options.name_template;
  state.output.OutputFolder = WithTrailingSlash(state.output.OutputFolder);
}

std::string PrepareOutputFolder(engine::AppState& state, bool from_command_line) {
  const std::string& folder = state.output.OutputFolder;
  if (folder.empty()) return "the job names no output folder; give one with --output-folder";
  if (!IsFolder(folder)) {
    if (settings::FileExists(folder.substr(0, folder.size() - 1))) return "output folder is not a folder: " + folder;
    if (state.settings.AlwaysCreateOutputFolder == engine::kFalse && !from_command_line)
      return "output folder does not exist and the job's \"Always Create Output Folder\" is off: " + folder;
    settings::MakePath(folder);
    if (!IsFolder(folder)) return "cannot create output folder: " + folder;
  }
  if (::access(folder.c_str(), W_OK | X_OK) != 0) return "cannot write into output folder: " + folder;
  return {};
}

}  // namespace velmora::app
