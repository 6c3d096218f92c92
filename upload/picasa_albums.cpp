// Album feed, chooser and album path.
#include "upload/picasa_albums.h"

#include "upload/picasa_text.h"

namespace velmora::upload {

std::string AuthorizationOf(const std::string& auth_token) {
  return "GoogleLogin auth=" + auth_token;
}

std::string ChooseAlbumPath(HttpClient& http, const std::string& auth_token, const engine::AppState& state,
                            UploadState& upload, UploadView& view, const ServiceHosts& hosts) {
  HttpRequest request;
  request.UseGet();
  request.path = "/data/feed/api/user/" + state.settings.PicasaUsername;
  request.AddHeader("Authorization", AuthorizationOf(auth_token));
  const HttpResponse response = http.SynchronousRequest(hosts.AlbumHost, hosts.AlbumPort, false, request);
  if (response.status != 200 && response.status != 201) {
    view.ShowMessage(RefusalText("Failed to receive list of albums", response.status, response.BodyOrError()),
                     MessageIcon::kCritical, MessageButtons::kOk);
    return {};
  }

  std::vector<Album> albums = AlbumsOfFeed(response.body);
  upload.Albums = albums;
  upload.Albums.emplace_back();
  view.ShowAlbumChooser(albums);
  while (view.AlbumChooserShowing()) view.Yield();

  const std::string path = AlbumPathOf(view.AlbumChooserChoice(), hosts.AlbumHost);
  if (path.empty())
    view.ShowMessage("Please choose Google Picasa album", MessageIcon::kInformation, MessageButtons::kOk);
  return path;
}

}  // namespace velmora::upload
