// The whole of velmora-batch as a function: arguments in, messages on the two streams, exit code
// out. Everything the user got wrong is reported before any image is written.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/batch/batch_options.h"
#include "app/batch/batch_view.h"
#include "engine/app_state.h"
#include "engine/go_process.h"

namespace velmora::app {

// Runs the command with the arguments after the program name. The progress bar is drawn when
// `out` is a terminal.
int RunBatch(const std::vector<std::string>& arguments, std::FILE* out, std::FILE* err);

// Writes "velmora-batch: <message>" (and the hint to --help for a usage error); returns `code`.
int FailBatch(std::FILE* err, int code, const std::string& message);

// What a run settles before converting anything: the profile, the sources (the command line's,
// then those of --sources-from), the job with the command line's overrides, a usable output
// folder, the upload settings. kExitOk, or the exit code after the reason on `err`.
int PrepareBatchRun(const BatchOptions& options, engine::AppState& state, engine::SourceList& sources, std::FILE* err);

// The workers of a run; nothing (after the reason on `err`) without the worker program.
std::optional<engine::RunOptions> BatchRunOptions(const BatchOptions& options, std::FILE* err);

// Prints the run's failures as warnings; kExitNotWritten when an output could not be written.
int ReportFailures(const BatchView& view, std::FILE* err);

}  // namespace velmora::app
