// The "Upload to FTP" command: sends every file of the last run to the folder of the settings,
// one after another, keeping the window live, and shows the session log at the end.
#pragma once

#include "engine/app_state.h"
#include "upload/ftp_client.h"
#include "upload/service_hosts.h"
#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::upload {

// The session settings of `settings`: server, port, account, TLS and passive mode.
FtpConnection FtpConnectionOf(const engine::Settings& settings);

// The button: opens the settings dialog on its FTP tab when no server is set, else uploads.
void Button7Click(const engine::AppState& state, UploadState& upload, UploadView& view,
                  const ServiceHosts& hosts = DefaultServiceHosts());

// The upload itself. `hosts` gives only the certificate authority to trust for secure FTP.
void UploadFtp(const engine::AppState& state, UploadState& upload, UploadView& view,
               const ServiceHosts& hosts = DefaultServiceHosts());

// "Stop" of the process log window: closes the session and marks the upload cancelled.
void StopFtpUpload(UploadState& upload);

}  // namespace velmora::upload
