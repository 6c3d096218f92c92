// The update check.
#include "upload/update_check.h"

#include "upload/http_client.h"
#include "upload/version_text.h"

#ifndef VELMORA_VERSION_MAJOR
#define VELMORA_VERSION_MAJOR 0
#endif
#ifndef VELMORA_VERSION_MINOR
#define VELMORA_VERSION_MINOR 0
#endif

namespace velmora::upload {
namespace {

constexpr long kTimeoutMs = 30000;

UpdateOutcome Run(UploadView& view, int major, int minor, const ServiceHosts& hosts) {
  view.ShowPleaseWait(true);
  view.Yield();
  std::string version_file;
  {
    HttpClient http(hosts.ExtraCaFile);
    http.SetTimeoutMs(kTimeoutMs);
    version_file =
        http.QuickGetStr(BaseUrl("http", hosts.MakerHost, hosts.MakerPort) + "/!velmora-current-version.txt");
  }
  const std::optional<double> remote = RemoteVersionOf(version_file);
  view.ShowPleaseWait(false);
  if (!remote) {
    view.ShowMessage("Failed to check for updates", MessageIcon::kExclamation, MessageButtons::kOk);
    return UpdateOutcome::kFailed;
  }
  if (*remote > LocalVersionNumber(major, minor)) {
    const MessageAnswer answer = view.ShowMessage("New version is available. Upgrade from official website?",
                                                  MessageIcon::kInformation, MessageButtons::kYesNo);
    if (answer == MessageAnswer::kYes) {
      view.OpenUrl(BaseUrl("http", hosts.MakerHost, hosts.MakerPort) + "/VelmoraSetup.zip");
      view.CloseMainWindow();
    }
    return UpdateOutcome::kNewVersion;
  }
  view.ShowMessage("No updates available", MessageIcon::kInformation, MessageButtons::kOk);
  return UpdateOutcome::kCurrent;
}

}  // namespace

UpdateOutcome CheckUpdates(UploadView& view, int major, int minor, const ServiceHosts& hosts) {
  try {
    return Run(view, major, minor, hosts);
  } catch (...) {
    view.ShowPleaseWait(false);
    return UpdateOutcome::kFailed;
  }
}

UpdateOutcome CheckUpdates(UploadView& view, const ServiceHosts& hosts) {
  return CheckUpdates(view, VELMORA_VERSION_MAJOR, VELMORA_VERSION_MINOR, hosts);
}

}  // namespace velmora::upload
