// A headless stand-in for the window's upload dialogs, and the outcome of each post.
#include "app/batch/batch_album.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>

#include "upload/picasa_upload.h"
#include "upload/text_search.h"
#include "upload/upload_view.h"

namespace velmora::app {
namespace {

// Plays the user of the window's upload: a message becomes the reason of what failed, a captcha
// cannot be answered, and the album chooser takes the album of the given title.
class HeadlessAlbumView : public upload::UploadView {
 public:
  HeadlessAlbumView(BatchView& progress, std::string album) : progress_(progress), album_(std::move(album)) {}

  void SetStatus(const std::string& text) override {
    if (text == "Uploading..." && !uploading_) progress_.SetStatus(text), uploading_ = true;
  }
  void SetFile(const std::string& text) override {
    if (text.starts_with("File: ")) {
      current_ = text.substr(6);
      progress_.SetProgressValue(++posted_);
      progress_.SetFile("Uploading: " + current_);
    } else if (text == "OK") {
      arrived_.push_back(current_);
    }
  }
  void SetProgressRange(int minimum, int maximum) override { progress_.SetProgressRange(minimum, maximum + 1); }
  void SetProgressValue(int) override {}  // counted as each post starts
  void SetProcessLogStatus(const std::string&) override {}
  void Yield() override {}
  upload::MessageAnswer ShowMessage(const std::string& text, upload::MessageIcon, upload::MessageButtons) override {
    // The window's message box shows a line each for the refusal, the status and the answer.
    std::string line, part;
    std::string unix_text = text;
    std::erase(unix_text, '\r');
    std::istringstream lines(unix_text);
    while (std::getline(lines, part)) {
      part = upload::TrimBlanks(part);
      if (!part.empty()) line += (line.empty() ? "" : ": ") + part;
    }
    if (reason_.empty()) reason_ = line;
    return upload::MessageAnswer::kNo;
  }
  void ShowSessionLog(const std::string&) override {}
  void ShowSettingsDialog(int) override {}
  void ShowCaptchaPrompt(const std::string&) override {
    reason_ = "the service asks for a captcha; sign in once in the window first";
  }
  bool CaptchaPromptShowing() override { return false; }
  std::string CaptchaPromptAnswer() override { return {}; }
  void ShowAlbumChooser(const std::vector<upload::Album>& albums) override {
    std::string titles;
    for (const upload::Album& album : albums) {
      if (album.title == album_ || (album_.empty() && albums.size() == 1)) choice_ = album.id;
      titles += (titles.empty() ? "" : ", ") + album.title;
    }
    if (choice_.empty())
      reason_ = "no album titled '" + album_ + "'; give one with --album (the account has: " + titles + ")";
  }
  bool AlbumChooserShowing() override { return false; }
  std::string AlbumChooserChoice() override { return choice_; }
  void ShowPleaseWait(bool) override {}
  void OpenUrl(const std::string&) override {}
  void CloseMainWindow() override {}

  bool Arrived(const std::string& name) const { return std::ranges::find(arrived_, name) != arrived_.end(); }
  const std::string& current() const { return current_; }
  const std::string& reason() const { return reason_; }

 private:
  BatchView& progress_;
  std::string album_, choice_, current_, reason_;
  std::vector<std::string> arrived_;
  bool uploading_ = false;
  int posted_ = 0;
};

// The service the album upload talks to. VELMORA_ALBUM_SERVICE ("host https-port http-port
// ca-file") points it at another, as the tests do with a server of their own.
upload::ServiceHosts AlbumService() {
  upload::ServiceHosts hosts = upload::DefaultServiceHosts();
  if (const char* service = std::getenv("VELMORA_ALBUM_SERVICE")) {
    std::istringstream in(service);
    in >> hosts.AccountHost >> hosts.AccountHttpsPort >> hosts.AccountHttpPort >> hosts.ExtraCaFile;
    hosts.AlbumHost = hosts.AccountHost, hosts.AlbumPort = hosts.AccountHttpPort;
  }
  return hosts;
}

}  // namespace

std::string CheckAlbumSettings(const engine::Settings& settings) {
  if (!upload::TrimBlanks(settings.PicasaUsername).empty()) return {};
  return "--upload album needs a web-album account in the job's settings (Program Settings, Picasa tab, in the window)";
}

bool UploadWrittenFilesToAlbum(const engine::AppState& state, const std::string& album, BatchView& view,
                               std::FILE* err) {
  HeadlessAlbumView headless(view, album);
  upload::UploadState upload;
  upload::UploadPicasa(state, upload, headless, AlbumService());
  const std::int32_t total = state.WrittenFiles.UpperBound();
  std::int32_t arrived = 0;
  bool posting = !headless.current().empty();
  if (!posting && total > 0)
    std::fprintf(err, "velmora-batch: warning: cannot upload to the web album: %s\n",
                 headless.reason().empty() ? "the service refused" : headless.reason().c_str());
  for (std::int32_t i = 0; i < total; ++i) {
    const std::string& file = state.WrittenFiles[i];
    const std::string name = upload::FileNameOfPath(file);
    if (headless.Arrived(name)) {
      ++arrived;
    } else if (posting && name == headless.current()) {
      std::fprintf(err, "velmora-batch: warning: not uploaded: %s: %s\n", file.c_str(), headless.reason().c_str());
    } else {
      std::fprintf(err, "velmora-batch: warning: not uploaded: %s%s\n", file.c_str(),
                   posting ? ": not sent after the refusal above" : "");
    }
  }
  view.SetStatus(std::to_string(arrived) + " of " + std::to_string(total) + " file(s) uploaded.");
  return arrived == total;
}

}  // namespace velmora::app
