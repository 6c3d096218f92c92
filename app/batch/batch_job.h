// The job of a batch run: the profile loaded the way the window loads it, the command line's
// overrides on top, and an output folder that is known to be usable before the run starts.
#pragma once

#include <string>

#include "app/batch/batch_options.h"
#include "engine/app_state.h"

namespace velmora::app {

// Why --profile can't be used ("" when it can): the path must name an existing file.
std::string CheckProfilePath(const std::string& path);

// Builds the data folders and loads the job into `state`: the --profile file over the defaults of
// a new profile, else the last profile, else "default.profile", else the defaults of a new
// profile. Writes no file: never settings.ini, never a profile. Returns a one-line notice when
// it did not find the profile it looked for first ("" otherwise).
std::string LoadBatchJob(engine::AppState& state, const BatchOptions& options);

// Puts --output-folder, --format and --template into the job. An output folder gets its
// trailing '/', as the window gives it.
void ApplyOverrides(engine::AppState& state, const BatchOptions& options);

// Makes sure the output folder exists, creating it when the job's "Always Create Output Folder"
// is on or the folder came from --output-folder. Returns why it can't be used, or "".
std::string PrepareOutputFolder(engine::AppState& state, bool from_command_line);

}  // namespace velmora::app
