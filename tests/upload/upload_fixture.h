// What the upload tests share: the servers of test_server.py on 127.0.0.1, stopped with the
// fixture, a certificate made once, a data folder with the files of the last run, and a window
// that writes down what it is shown.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "engine/app_state.h"
#include "tests/support/test_support.h"
#include "upload/service_hosts.h"
#include "upload/upload_state.h"
#include "upload/upload_view.h"

namespace velmora::testing {

// The folder of the test servers' certificate (cert.pem, made by the first server to use it).
inline std::string CertificateFolder() {
  static TempFolder folder;
  return folder.path().string();
}

// Whether `text` holds `part`; a failure shows the whole text.
inline ::testing::AssertionResult Has(const std::string& text, const std::string& part) {
  if (text.find(part) != std::string::npos) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "no \"" << part << "\" in:\n" << text;
}

// Writes each thing an upload shows as a line of `shown`: "status", "file", "range" and "at" for
// the bar, "log" for the process log, "message" with its icon (- X ! i) and "?" for a question,
// and so on. Plays the user: "Yes" if `yes`, the `captchas` in turn (none left is Cancel), the
// album of row `album_row` (-1 is Cancel), and `on_yield` whenever events may run.
class RecordingUploadView : public upload::UploadView {
 public:
  std::string shown, session_log;
  bool yes = false;
  std::vector<std::string> captchas;
  int album_row = -1;
  std::function<void()> on_yield;

  void SetStatus(const std::string& text) override { Show("status " + text); }
  void SetFile(const std::string& text) override { Show("file " + text); }
  void SetProgressRange(int from, int to) override { Show("range " + std::to_string(from) + " " + std::to_string(to)); }
  void SetProgressValue(int value) override { Show("at " + std::to_string(value)); }
  void SetProcessLogStatus(const std::string& text) override { Show("log " + text); }
  upload::MessageAnswer ShowMessage(const std::string& text, upload::MessageIcon icon,
                                    upload::MessageButtons buttons) override {
    const bool question = buttons == upload::MessageButtons::kYesNo;
    Show(std::string("message ") + "-X!i"[static_cast<int>(icon)] + (question ? "? " : " ") + text);
    if (!question) return upload::MessageAnswer::kOk;
    return yes ? upload::MessageAnswer::kYes : upload::MessageAnswer::kNo;
  }
  void ShowSessionLog(const std::string& log) override {
    session_log += log;
    Show("session log");
  }
  void ShowSettingsDialog(int tab) override { Show("settings tab " + std::to_string(tab)); }
  void ShowCaptchaPrompt(const std::string& image_path) override {
    Show("captcha " + ReadWholeFile(image_path));
    captcha_ = captchas_typed_ < captchas.size() ? captchas[captchas_typed_++] : "";
    captcha_open_ = true;
  }
  bool CaptchaPromptShowing() override { return captcha_open_; }
  std::string CaptchaPromptAnswer() override { return captcha_; }
  void ShowAlbumChooser(const std::vector<upload::Album>& albums) override {
    std::string titles;
    for (const upload::Album& album : albums) titles += " " + album.title;
    Show("albums" + titles);
    choice_ = album_row >= 0 && album_row < static_cast<int>(albums.size()) ? albums[album_row].id : "";
    chooser_open_ = true;
  }
  bool AlbumChooserShowing() override { return chooser_open_; }
  std::string AlbumChooserChoice() override { return choice_; }
  void ShowPleaseWait(bool shown_now) override { Show(shown_now ? "wait shown" : "wait hidden"); }
  void OpenUrl(const std::string& url) override { Show("open " + url); }
  void CloseMainWindow() override { Show("main window closed"); }
  void Yield() override {
    captcha_open_ = chooser_open_ = false;
    if (on_yield) on_yield();
  }

 private:
  void Show(const std::string& line) { shown += line + "\n"; }
  bool captcha_open_ = false, chooser_open_ = false;
  std::size_t captchas_typed_ = 0;
  std::string captcha_, choice_;
};

class UploadTest : public ::testing::Test {
 protected:
  UploadTest() {
    state.AppDataFolder = temp.path().string();
    std::filesystem::create_directories(temp.file("out"));
    std::filesystem::create_directories(temp.file("http/requests"));
    // The uploads go straight to their servers: every proxy libcurl would read leads nowhere.
    for (const char* name :
         {"http_proxy", "https_proxy", "HTTPS_PROXY", "ftp_proxy", "FTP_PROXY", "all_proxy", "ALL_PROXY"})
      ::setenv(name, "http://127.0.0.1:1", 1);
    ::unsetenv("no_proxy");
    ::unsetenv("NO_PROXY");
  }

  ~UploadTest() override {
    for (const auto& [out, pid] : servers_) {
      if (pid > 0) ::kill(pid, SIGKILL);
      ::pclose(out);
    }
  }

  // Runs tests/upload/test_server.py with `args` by the system's python, which has pyftpdlib, until
  // the test ends; the ports it listens on, plain and TLS.
  std::pair<int, int> Start(const std::string& args) {
    std::FILE* out = ::popen(
        ("exec /usr/bin/python3 " VELMORA_SOURCE_DIR "/tests/upload/test_server.py " + args + " 2>/dev/null").c_str(),
        "r");
    int pid = 0, port = 0, tls_port = 0;
    char line[64];
    if (out && std::fgets(line, sizeof line, out)) std::sscanf(line, "%d %d %d", &pid, &port, &tls_port);
    if (out) servers_.emplace_back(out, pid);
    if (!port) throw std::runtime_error("test_server.py did not start; it needs python3-pyftpdlib");
    return {port, tls_port};
  }
  // The HTTP server of temp/http, answering with the files given to Serve.
  std::pair<int, int> StartHttp() { return Start("http " + temp.file("http") + " " + CertificateFolder()); }
  void Serve(const std::string& name, const std::string& content) {
    WriteWholeFile(temp.file("http/" + name), content);
  }
  // The n-th request the HTTP server received (from 1), as test_server.py saves it; "" if none.
  std::string Request(int n) const { return ReadWholeFile(temp.file("http/requests/" + std::to_string(n))); }

  // A file of the last run with `size` bytes of every value, line breaks and NULs included.
  std::string AddWrittenFile(const std::string& name, std::size_t size) {
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>((i * 7919 + size) % 251);
    WriteWholeFile(temp.file("out/" + name), content);
    state.WrittenFiles.Append(temp.file("out/" + name));
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
