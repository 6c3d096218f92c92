// The FTP upload command and its button.
#include "upload/ftp_upload.h"

#include "upload/ftp_text.h"
#include "upload/text_search.h"

namespace velmora::upload {
namespace {

constexpr int kPollMs = 100;

void SetProgressBar(UploadView& view, int maximum) {
  if (maximum >= 0) view.SetProgressRange(0, maximum);
  view.SetProgressValue(0);
}

// Sends the files one after the other; each transfer runs while the window is polled.
void SendFiles(const engine::AppState& state, UploadState& upload, UploadView& view, FtpClient& ftp) {
  const engine::WrittenFileList& files = state.WrittenFiles;
  for (std::int32_t i = 0; i < files.UpperBound(); ++i) {
    const std::string& local = files[i];
    ftp.AsyncPutFileStart(local, FtpRemotePath(state.settings.FtpPath, local));
    view.SetProgressValue(i);
    view.SetFile(FileNameOfPath(local));
    while (!ftp.AsyncFinished()) {
      ftp.SleepMs(kPollMs);
      view.Yield();
      if (upload.UploadCancelled) ftp.AsyncAbort();
    }
  }
}

void Run(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  // A shared handle keeps this session alive even if a nested upload replaces cFTP meanwhile.
  auto ftp = std::make_shared<FtpClient>(hosts.ExtraCaFile);
  upload.cFTP = ftp;
  ftp->AsyncAbort();
  ftp->Disconnect();
  view.SetStatus("Connecting...");
  view.SetFile("");
  SetProgressBar(view, state.WrittenFiles.UpperBound() - 1);
  upload.UploadCancelled = false;
  ftp->OnBeginUploadFile = [&view](const std::string&) { view.SetProcessLogStatus("Uploading..."); };
  ftp->OnEndUploadFile = [&view](const std::string&, std::int64_t) { view.SetProcessLogStatus("Upload complete."); };

  view.Yield();
  if (!ftp->Connect(FtpConnectionOf(state.settings))) {
    view.ShowMessage(MsgErr(ftp->LastErrorXml()), MessageIcon::kExclamation, MessageButtons::kOk);
    view.SetStatus("Failed");
    view.SetFile("");
    ftp->Disconnect();
  } else {
    if (!ftp->SetBinaryMode())
      view.ShowMessage(MsgErr(ftp->LastErrorXml()), MessageIcon::kExclamation, MessageButtons::kOk);
    view.SetStatus("Uploading...");
    SendFiles(state, upload, view, *ftp);
    view.SetStatus("Upload complete");
    view.SetFile(std::to_string(state.WrittenFiles.UpperBound()) + " file(s) uploaded");
    ftp->Disconnect();
    view.ShowSessionLog(ftp->SessionLog());
  }
  ftp->OnBeginUploadFile = nullptr;
  ftp->OnEndUploadFile = nullptr;
}

}  // namespace

FtpConnection FtpConnectionOf(const engine::Settings& settings) {
  FtpConnection connection;
  connection.ConnectTimeoutSeconds = 5;
  connection.KeepSessionLog = true;
  connection.Hostname = CheckFTP(settings.FtpHost);
  connection.Username = settings.FtpLogin;
  connection.Password = settings.FtpPassword;
  connection.Port = FtpPortValue(settings.FtpPort);
  connection.Secure = settings.FtpSecure != 0;
  connection.Passive = settings.FtpPassive == 1;
  return connection;
}

void Button7Click(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  if (TrimBlanks(state.settings.FtpHost).empty()) {
    view.ShowSettingsDialog(kFtpSettingsTab);
    return;
  }
  UploadFtp(state, upload, view, hosts);
}

void UploadFtp(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  try {
    Run(state, upload, view, hosts);
  } catch (...) {
    // Out of memory and the like: the upload ends where it stood, the program goes on.
    view.SetStatus("Failed");
  }
}

void StopFtpUpload(UploadState& upload) {
  if (upload.cFTP) upload.cFTP->Disconnect();
  upload.UploadCancelled = true;
}

}  // namespace velmora::upload
