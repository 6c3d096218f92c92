// Sending a batch run's files by FTP and reporting each one that did not arrive.
#include "app/batch/batch_upload.h"

#include "upload/ftp_batch.h"
#include "upload/text_search.h"

namespace velmora::app {

std::string CheckUploadSettings(const engine::Settings& settings) {
  if (!upload::TrimBlanks(settings.FtpHost).empty()) return {};
  return "--upload ftp needs an FTP server in the job's settings (Program Settings, FTP tab, in the window)";
}

bool UploadWrittenFiles(const engine::AppState& state, BatchView& view, std::FILE* err) {
  std::vector<std::string> files;
  for (std::int32_t i = 0; i < state.WrittenFiles.UpperBound(); ++i) files.push_back(state.WrittenFiles[i]);
  view.SetStatus("Uploading...");
  view.SetProgressRange(0, static_cast<int>(files.size()));
  const upload::FtpBatchResult result = upload::UploadFilesByFtp(state.settings, files, [&](std::size_t index) {
    view.SetProgressValue(static_cast<int>(index) + 1);
    view.SetFile("Uploading: " + upload::FileNameOfPath(files[index]));
  });
  std::size_t arrived = 0;
  if (!result.connect_error.empty()) {
    std::fprintf(err, "velmora-batch: warning: cannot upload to %s: %s\n", state.settings.FtpHost.c_str(),
                 result.connect_error.c_str());
    for (const std::string& file : files) std::fprintf(err, "velmora-batch: warning: not uploaded: %s\n", file.c_str());
  }
  for (const upload::FtpFileOutcome& outcome : result.files) {
    if (outcome.arrived) {
      ++arrived;
    } else {
      std::fprintf(err, "velmora-batch: warning: not uploaded: %s: %s\n", outcome.path.c_str(), outcome.reason.c_str());
    }
  }
  view.SetStatus(std::to_string(arrived) + " of " + std::to_string(files.size()) + " file(s) uploaded.");
  return arrived == files.size();
}

}  // namespace velmora::app
