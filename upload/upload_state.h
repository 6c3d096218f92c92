// What the upload commands keep between calls: the cancel flag they test, the album list of
// the last feed and the FTP session of the last upload. The main window owns one.
#pragma once

#include <memory>
#include <vector>

#include "upload/album_types.h"
#include "upload/ftp_client.h"

namespace velmora::upload {

struct UploadState {
  bool UploadCancelled = false;
  // Albums of the last feed read, with one empty record at the end like WrittenFiles.
  std::vector<Album> Albums;
  // The session of the last FTP upload; kept so that "Stop" can reach it, replaced by the next.
  std::shared_ptr<FtpClient> cFTP;
};

}  // namespace velmora::upload
