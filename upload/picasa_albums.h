// The user's album list: fetching the album feed with the sign-in token, offering the albums
// in the chooser window, and turning the chosen album into the path photos are posted to.
#pragma once

#include <string>

#include "engine/app_state.h"
#include "upload/http_client.h"
#include "upload/service_hosts.h"
#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::upload {

// The value of the "Authorization" header of the album requests.
std::string AuthorizationOf(const std::string& auth_token);

// Reads the feed into upload.Albums, waits for the user's choice and gives the album's post
// path; "" when the feed is refused or no album is chosen, after the message of the case.
std::string ChooseAlbumPath(HttpClient& http, const std::string& auth_token, const engine::AppState& state,
                            UploadState& upload, UploadView& view, const ServiceHosts& hosts);

}  // namespace velmora::upload
