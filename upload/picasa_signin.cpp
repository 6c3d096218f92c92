// The sign-in rounds and the captcha step.
#include "upload/picasa_signin.h"

#include "upload/picasa_text.h"
#include "upload/text_search.h"

namespace velmora::upload {
namespace {

const char kRefused[] = "Failed to login to Google Picasa. Check Username/Password and try again.";

// Shows the captcha of a challenge and waits for the window to close. True with the answer in
// `answer` (and the token in `token` when the challenge carries one); false when the user gave
// no answer.
bool AnswerCaptcha(const std::string& body, const engine::AppState& state, UploadView& view, const ServiceHosts& hosts,
                   std::string& token, std::string& answer) {
  const std::string image_path = state.AppDataFolder + "/googlecaptcha.jpg";
  HttpClient image_client(hosts.ExtraCaFile);
  image_client.Download(BaseUrl("http", hosts.AccountHost, hosts.AccountHttpPort) + "/accounts/" + CaptchaPathOf(body),
                        image_path);
  view.ShowCaptchaPrompt(image_path);
  CaptchaTokenOf(body, token);
  while (view.CaptchaPromptShowing()) view.Yield();
  answer = view.CaptchaPromptAnswer();
  return !answer.empty();
}

}  // namespace

std::vector<NameValue> SignInFields(const engine::Settings& settings, const std::string& captcha_token,
                                    const std::string& captcha_answer) {
  std::vector<NameValue> fields = {{"Email", settings.PicasaUsername},
                                   {"Passwd", settings.PicasaPassword},
                                   {"service", "lh2"},
                                   {"source", "BrondaleVelmora"},
                                   {"accountType", "HOSTED_OR_GOOGLE"}};
  if (!captcha_token.empty() && !captcha_answer.empty()) {
    fields.emplace_back("logintoken", captcha_token);
    fields.emplace_back("logincaptcha", captcha_answer);
  }
  return fields;
}

std::string SignInToAlbums(HttpClient& http, const engine::AppState& state, UploadView& view,
                           const ServiceHosts& hosts) {
  const std::string url = BaseUrl("https", hosts.AccountHost, hosts.AccountHttpsPort) + "/accounts/ClientLogin";
  std::string captcha_token, captcha_answer;
  while (true) {
    const std::vector<NameValue> fields = SignInFields(state.settings, captcha_token, captcha_answer);
    http.KeepCookiesInMemory();
    const HttpResponse response = http.PostUrlEncoded(url, fields);
    if (response.status == 403 && ContainsIgnoreCase(response.body, "CaptchaUrl=")) {
      if (!AnswerCaptcha(response.body, state, view, hosts, captcha_token, captcha_answer)) return {};
      continue;
    }
    if (response.status != 200 && response.status != 201) {
      view.ShowMessage(RefusalText(kRefused, response.status, response.BodyOrError()), MessageIcon::kCritical,
                       MessageButtons::kOk);
      return {};
    }
    const std::string token = AuthTokenOf(response.body);
    if (token.empty()) view.ShowMessage("Failed to login to Google Picasa", MessageIcon::kNone, MessageButtons::kOk);
    return token;
  }
}

}  // namespace velmora::upload
