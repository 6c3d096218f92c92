// The "Upload to Picasa" command: sign-in, album choice and one photo post per file of the
// last run, all over one HTTP client so that the service's cookies carry through.
#pragma once

#include "engine/app_state.h"
#include "upload/service_hosts.h"
#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::upload {

// The button: opens the settings dialog on its Picasa tab when no user name is set; else
// uploads, and shows "Failed" when that does not succeed.
void Button6Click(const engine::AppState& state, UploadState& upload, UploadView& view,
                  const ServiceHosts& hosts = DefaultServiceHosts());

// True when every file was posted.
bool UploadPicasa(const engine::AppState& state, UploadState& upload, UploadView& view,
                  const ServiceHosts& hosts = DefaultServiceHosts());

}  // namespace velmora::upload
