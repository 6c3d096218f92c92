// The web-album upload command and its button.
#include "upload/picasa_upload.h"

#include "upload/http_client.h"
#include "upload/picasa_albums.h"
#include "upload/picasa_signin.h"
#include "upload/picasa_text.h"
#include "upload/text_search.h"

namespace velmora::upload {
namespace {

// Posts the files one by one to the album; false at the first refusal, after its message.
bool PostPhotos(HttpClient& http, const std::string& auth_token, const std::string& album_path,
                const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  const engine::WrittenFileList& files = state.WrittenFiles;
  upload.UploadCancelled = false;
  if (files.UpperBound() - 1 >= 0) view.SetProgressRange(0, files.UpperBound() - 1);
  view.SetProgressValue(0);
  for (std::int32_t i = 0; i < files.UpperBound(); ++i) {
    if (upload.UploadCancelled) continue;
    const std::string& file = files[i];
    view.SetStatus("Uploading...");
    view.SetFile("File: " + FileNameOfPath(file));
    view.SetProgressValue(i);
    view.Yield();

    HttpRequest request;
    request.UsePost();
    request.path = album_path;
    request.AddHeader("Authorization", AuthorizationOf(auth_token));
    request.AddHeader("Content-Type", ContentTypeOfPath(file));
    request.AddHeader("Slug", FileNameOfPath(file));
    request.LoadBodyFromFile(file);
    const HttpResponse response = http.SynchronousRequest(hosts.AlbumHost, hosts.AlbumPort, false, request);
    if (response.status != 200 && response.status != 201) {
      view.ShowMessage(RefusalText("Failed to upload photo to Google Picasa", response.status, response.BodyOrError()),
                       MessageIcon::kCritical, MessageButtons::kOk);
      return false;
    }
    view.SetFile("OK");
    view.Yield();
  }
  view.SetStatus("Upload complete");
  view.SetFile(std::to_string(files.UpperBound()) + " file(s) uploaded");
  return true;
}

bool Run(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  view.SetFile("");
  view.SetStatus("Connecting...");
  view.Yield();
  HttpClient http(hosts.ExtraCaFile);
  const std::string auth_token = SignInToAlbums(http, state, view, hosts);
  if (auth_token.empty()) return false;
  const std::string album_path = ChooseAlbumPath(http, auth_token, state, upload, view, hosts);
  if (album_path.empty()) return false;
  return PostPhotos(http, auth_token, album_path, state, upload, view, hosts);
}

}  // namespace

void Button6Click(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  if (TrimBlanks(state.settings.PicasaUsername).empty()) {
    view.ShowSettingsDialog(kPicasaSettingsTab);
    return;
  }
  if (!UploadPicasa(state, upload, view, hosts)) {
    view.SetStatus("Failed");
    view.SetFile("");
  }
}

bool UploadPicasa(const engine::AppState& state, UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  try {
    return Run(state, upload, view, hosts);
  } catch (...) {
    return false;  // out of memory and the like: the command ends, the program goes on
  }
}

}  // namespace velmora::upload
