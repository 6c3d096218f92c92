// An UploadView that keeps everything the upload commands show and plays a scripted user:
// captcha answers and album choices are given while the commands let events run.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/test_support.h"
#include "upload/upload_view.h"

namespace velmora::testing {

class RecordingUploadView : public upload::UploadView {
 public:
  struct Message {
    std::string text;
    upload::MessageIcon icon;
    upload::MessageButtons buttons;
  };

  std::vector<std::string> statuses, files, process_log, session_logs, opened_urls, captcha_images;
  std::vector<Message> messages;
  std::vector<int> settings_tabs, progress_values;
  std::vector<std::vector<upload::Album>> chooser_lists;
  int progress_min = -99, progress_max = -99, yields = 0, wait_shows = 0;
  bool wait_shown = false, main_window_closed = false;
  upload::MessageAnswer yes_no_answer = upload::MessageAnswer::kNo;
  // What the user types at each captcha ("" is Cancel), and picks in each chooser turn
  // (a row index for "OK", -1 for "Cancel"); when the script runs out the user cancels.
  std::deque<std::string> captcha_script;
  std::deque<int> chooser_script;
  std::function<void()> on_yield;

  void SetStatus(const std::string& text) override { statuses.push_back(text); }
  void SetFile(const std::string& text) override { files.push_back(text); }
  void SetProgressRange(int minimum, int maximum) override {
    progress_min = minimum;
    progress_max = maximum;
  }
  void SetProgressValue(int value) override { progress_values.push_back(value); }
  void SetProcessLogStatus(const std::string& text) override { process_log.push_back(text); }
  upload::MessageAnswer ShowMessage(const std::string& text, upload::MessageIcon icon,
                                    upload::MessageButtons buttons) override {
    messages.push_back({text, icon, buttons});
    return buttons == upload::MessageButtons::kYesNo ? yes_no_answer : upload::MessageAnswer::kOk;
  }
  void ShowSessionLog(const std::string& log) override { session_logs.push_back(log); }
  void ShowSettingsDialog(int tab) override { settings_tabs.push_back(tab); }
  void ShowCaptchaPrompt(const std::string& image_path) override {
    captcha_images.push_back(ReadWholeFile(image_path));
    captcha_showing_ = true;
    captcha_answer_.clear();
  }
  bool CaptchaPromptShowing() override { return captcha_showing_; }
  std::string CaptchaPromptAnswer() override { return captcha_answer_; }
  void ShowAlbumChooser(const std::vector<upload::Album>& albums) override {
    chooser_lists.push_back(albums);
    chooser_showing_ = true;
    chooser_choice_.clear();
  }
  bool AlbumChooserShowing() override { return chooser_showing_; }
  std::string AlbumChooserChoice() override { return chooser_choice_; }
  void ShowPleaseWait(bool shown) override {
    wait_shown = shown;
    wait_shows += shown ? 1 : 0;
  }
  void OpenUrl(const std::string& url) override { opened_urls.push_back(url); }
  void CloseMainWindow() override { main_window_closed = true; }

  void Yield() override {
    ++yields;
    if (captcha_showing_) {
      captcha_answer_ = Next(captcha_script, std::string());
      captcha_showing_ = false;
    }
    if (chooser_showing_) {
      const int pick = Next(chooser_script, -1);
      const std::vector<upload::Album>& rows = chooser_lists.back();
      if (pick < 0) {
        chooser_showing_ = false;  // "Cancel"
      } else if (!rows.empty()) {
        chooser_choice_ = rows[static_cast<std::size_t>(pick)].id;
        chooser_showing_ = false;
      }  // "OK" on an empty list does nothing
    }
    if (on_yield) on_yield();
  }

  std::string LastStatus() const { return statuses.empty() ? "" : statuses.back(); }
  std::string LastFile() const { return files.empty() ? "" : files.back(); }

 private:
  template <typename T>
  static T Next(std::deque<T>& script, T otherwise) {
    if (script.empty()) return otherwise;
    T value = script.front();
    script.pop_front();
    return value;
  }

  bool captcha_showing_ = false, chooser_showing_ = false;
  std::string captcha_answer_, chooser_choice_;
};

}  // namespace velmora::testing
