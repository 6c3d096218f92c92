// Uploading the files of a batch run by FTP: the window's session code, one file after another,
// with what became of each file.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "engine/app_state.h"
#include "upload/service_hosts.h"

namespace velmora::upload {

struct FtpFileOutcome {
  std::string path;
  bool arrived = false;
  std::string reason;  // why it did not arrive
};

struct FtpBatchResult {
  std::string connect_error;  // non-empty when no session could be had; no file was sent then
  std::vector<FtpFileOutcome> files;
};

// Sends `files` to the server, folder and account of `settings`. A file arrived when the server
// took all of its bytes. `starting` is told each file's index before it is sent.
FtpBatchResult UploadFilesByFtp(const engine::Settings& settings, const std::vector<std::string>& files,
                                const std::function<void(std::size_t index)>& starting,
                                const ServiceHosts& hosts = DefaultServiceHosts());

}  // namespace velmora::upload
