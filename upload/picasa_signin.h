// Signing in to the web-album service with the account's password form, answering captcha
// challenges through the captcha window, to get the token the album requests carry.
#pragma once

#include <string>

#include "engine/app_state.h"
#include "upload/http_client.h"
#include "upload/service_hosts.h"
#include "upload/upload_view.h"

namespace velmora::upload {

// The form fields of one sign-in round: five, or seven once a captcha has been answered.
std::vector<NameValue> SignInFields(const engine::Settings& settings, const std::string& captcha_token,
                                    const std::string& captcha_answer);

// Posts the sign-in form with `http` (whose cookies the later requests keep) until the service
// accepts or refuses. The token on success; "" when the sign-in ended, after its message if it
// has one. A captcha image is saved as "googlecaptcha.jpg" in the data folder and left there.
std::string SignInToAlbums(HttpClient& http, const engine::AppState& state, UploadView& view,
                           const ServiceHosts& hosts);

}  // namespace velmora::upload
