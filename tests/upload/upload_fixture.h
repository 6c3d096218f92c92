// What the upload tests share: the servers of test_server.py on 127.0.0.1, stopped with the fixture, a
// certificate made once, the files of the last run, and a window that writes down what it is shown.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <cstdio>
#include <functional>
#include <stdexcept>

#include "engine/app_state.h"
#include "tests/support/test_support.h"
#include "upload/service_hosts.h"
#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::testing {

// The folder of the test servers' certificate (cert.pem, made by the first server to use it).
inline const TempFolder kCertificates;
inline const std::string kCertificateFolder = kCertificates.path().string();

// Whether `text` holds `part`; a failure shows the whole text.
inline ::testing::AssertionResult Has(const std::string& text, const std::string& part) {
  if (text.find(part) != std::string::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "no \"" << part << "\" in:\n" << text;
}

// Writes each thing an upload shows as a line of `shown`: "status", "file", "range" and "at" for the bar, "log" for
// the process log, "message" with its icon (- X ! i) and "?" for a question, and so on. Plays a user who answers at
// once: "Yes" if `yes`, the `captchas` in turn (none left: Cancel), the album of row `album_row` (none there: Cancel).
class RecordingUploadView : public upload::UploadView {
 public:
  std::string shown, session_log, album_choice;
  bool yes = false;
  std::vector<std::string> captchas;
  std::size_t captchas_typed = 0, album_row = 1;
  std::function<void()> on_yield = [] {};  // runs in each Yield

  void Show(const std::string& line) { shown += line + "\n"; }
  void SetStatus(const std::string& text) override { Show("status " + text); }
  void SetFile(const std::string& text) override { Show("file " + text); }
  void SetProgressRange(int from, int to) override { Show("range " + std::to_string(from) + " " + std::to_string(to)); }
  void SetProgressValue(int value) override { Show("at " + std::to_string(value)); }
  void SetProcessLogStatus(const std::string& text) override { Show("log " + text); }
  upload::MessageAnswer ShowMessage(const std::string& text, upload::MessageIcon icon,
                                    upload::MessageButtons buttons) override {
    const bool question = buttons == upload::MessageButtons::kYesNo;
    Show(std::string("message ") + "-X!i"[static_cast<int>(icon)] + (question ? "? " : " ") + text);
    return !question ? upload::MessageAnswer::kOk : yes ? upload::MessageAnswer::kYes : upload::MessageAnswer::kNo;
  }
  void ShowSessionLog(const std::string& log) override { Show("session log"), session_log += log; }
  void ShowSettingsDialog(int tab) override { Show("settings tab " + std::to_string(tab)); }
  void ShowCaptchaPrompt(const std::string& image_path) override { Show("captcha " + ReadWholeFile(image_path)); }
  bool CaptchaPromptShowing() override { return false; }
  std::string CaptchaPromptAnswer() override {
    return captchas_typed < captchas.size() ? captchas[captchas_typed++] : "";
  }
  void ShowAlbumChooser(const std::vector<upload::Album>& albums) override {
    shown += "albums";
    for (const upload::Album& album : albums) shown += " " + album.title;
    Show("");
    album_choice = album_row < albums.size() ? albums[album_row].id : "";
  }
  bool AlbumChooserShowing() override { return false; }
  std::string AlbumChooserChoice() override { return album_choice; }
  void ShowPleaseWait(bool shown_now) override { Show(shown_now ? "wait shown" : "wait hidden"); }
  void OpenUrl(const std::string& url) override { Show("open " + url); }
  void CloseMainWindow() override { Show("main window closed"); }
  void Yield() override { on_yield(); }
};

class UploadTest : public ::testing::Test {
 protected:
  UploadTest() {
    state.AppDataFolder = temp.path().string();
    // The uploads go straight to their servers: the proxy libcurl would read first for each scheme leads nowhere.
    for (const char* env : {"http_proxy", "https_proxy", "ftp_proxy"}) ::setenv(env, "http://127.0.0.1:1", 1);
    ::unsetenv("no_proxy"), ::unsetenv("NO_PROXY");
  }
  ~UploadTest() override {
    for (const auto& [out, pid] : servers_) ::kill(pid, SIGKILL), ::pclose(out);
  }

  // Runs tests/upload/test_server.py with `args` by the system's python, which has pyftpdlib, until
  // the test ends; the ports it listens on, plain and TLS.
  std::pair<int, int> Start(const std::string& args) {
    const std::string command = "exec /usr/bin/python3 " VELMORA_SOURCE_DIR "/tests/upload/test_server.py " + args;
    std::FILE* out = ::popen((command + " 2>/dev/null").c_str(), "r");
    int pid = 0, port = 0, tls_port = 0;
    if (out && std::fscanf(out, "%d %d %d", &pid, &port, &tls_port) == 3 && pid > 0) servers_.emplace_back(out, pid);
    if (!port) throw std::runtime_error("test_server.py did not start; it needs python3-pyftpdlib");
    return {port, tls_port};
  }

  // A file of the last run with `size` bytes of every value, line breaks and NULs included.
  std::string AddWrittenFile(const std::string& name, std::size_t size) {
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>((i * 7919 + size) % 251);
    WriteWholeFile(temp.file(name), content), state.WrittenFiles.Append(temp.file(name));
    return content;
  }

  TempFolder temp;
  engine::AppState state;
  upload::UploadState upload;
  RecordingUploadView view;
  upload::ServiceHosts hosts;

 private:
  std::vector<std::pair<std::FILE*, int>> servers_;  // the output and the process of each
};

}  // namespace velmora::testing
