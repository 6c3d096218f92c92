// One FTP session for the files of a batch run, and the outcome of each transfer.
#include "upload/ftp_batch.h"

#include <filesystem>

#include "upload/ftp_client.h"
#include "upload/ftp_text.h"
#include "upload/ftp_upload.h"

namespace velmora::upload {
namespace {

constexpr int kPollMs = 100;

// The server's words for the last failure, with the account's password never among them.
std::string Reason(const FtpClient& ftp, const engine::Settings& settings) {
  std::string reason = MsgErr(ftp.LastErrorXml());
  if (reason.empty()) reason = "the server did not take it";
  for (std::size_t at; !settings.FtpPassword.empty() && (at = reason.find(settings.FtpPassword)) != std::string::npos;)
    reason.replace(at, settings.FtpPassword.size(), "****");
  return reason;
}

}  // namespace

FtpBatchResult UploadFilesByFtp(const engine::Settings& settings, const std::vector<std::string>& files,
                                const std::function<void(std::size_t index)>& starting, const ServiceHosts& hosts) {
  FtpBatchResult result;
  FtpClient ftp(hosts.ExtraCaFile);
  std::string current;
  std::int64_t sent = -1;
  ftp.OnEndUploadFile = [&](const std::string& path, std::int64_t bytes) {
    if (path == current) sent = bytes;
  };
  if (!ftp.Connect(FtpConnectionOf(settings)) || !ftp.SetBinaryMode()) {
    result.connect_error = Reason(ftp, settings);
    return result;
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (starting) starting(i);
    FtpFileOutcome outcome;
    outcome.path = files[i];
    current = files[i];
    sent = -1;
    std::error_code error;
    const auto size = std::filesystem::file_size(files[i], error);
    if (error) {
      outcome.reason = "it cannot be read here";
    } else if (!ftp.AsyncPutFileStart(files[i], FtpRemotePath(settings.FtpPath, files[i]))) {
      outcome.reason = Reason(ftp, settings);
    } else {
      while (!ftp.AsyncFinished()) ftp.SleepMs(kPollMs);
      if (sent < 0)
        outcome.reason = Reason(ftp, settings);
      else if (static_cast<std::uintmax_t>(sent) != size)
        outcome.reason = "the server took " + std::to_string(sent) + " of its " + std::to_string(size) + " bytes";
      else
        outcome.arrived = true;
    }
    result.files.push_back(std::move(outcome));
  }
  ftp.Disconnect();
  return result;
}

}  // namespace velmora::upload
