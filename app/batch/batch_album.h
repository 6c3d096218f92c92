// "--upload album": the files a batch run wrote, posted to a web album of the job's account with
// the window's sign-in, album and post code; the album is the one --album names.
#pragma once

#include <cstdio>
#include <string>

#include "app/batch/batch_view.h"
#include "engine/app_state.h"

namespace velmora::app {

// Empty when the job's settings name a web-album account; else why there is nothing to post to.
std::string CheckAlbumSettings(const engine::Settings& settings);

// Posts the run's written files to the album titled `album` (any album when the account has only
// one, if `album` is empty), showing progress on `view`; each file that did not arrive is named on
// `err`. True when every file arrived.
bool UploadWrittenFilesToAlbum(const engine::AppState& state, const std::string& album, BatchView& view,
                               std::FILE* err);

}  // namespace velmora::app
