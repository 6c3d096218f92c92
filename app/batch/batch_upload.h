// "--upload ftp": the files a batch run wrote, sent to the FTP server of the job's settings when
// the run ends, with a warning for each file that did not arrive.
#pragma once

#include <cstdio>
#include <string>

#include "app/batch/batch_view.h"
#include "engine/app_state.h"

namespace velmora::app {

// Empty when the job's settings name an FTP server; else why there is nothing to upload to.
std::string CheckUploadSettings(const engine::Settings& settings);

// Uploads the run's written files, showing progress on `view`; each file that did not arrive is
// named on `err`. True when every file arrived.
bool UploadWrittenFiles(const engine::AppState& state, BatchView& view, std::FILE* err);

}  // namespace velmora::app
