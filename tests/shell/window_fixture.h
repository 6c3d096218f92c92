// What the window tests share: a QApplication on the offscreen platform, desktop services that
// answer from queues instead of dialogs, and a window started as the program starts it, with its
// data folder in a private home folder.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <array>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "scripts/sample_images.h"
#include "shell/main_window.h"
#include "shell/new_operation_dialog.h"
#include "shell/shell_services.h"
#include "shell/start_up.h"
#include "tests/support/qt_environment.h"
#include "tests/support/test_support.h"

namespace velmora::testing {

// Answers the window's dialogs from queues (an empty queue answers as a cancel) and records what
// the window asked the desktop to open.
class FakeServices : public shell::ShellServices {
 public:
  std::deque<std::vector<std::string>> source_files;
  std::deque<std::string> folders, profiles, watermark_images;
  std::deque<std::optional<shell::FontAnswer>> fonts;
  std::vector<shell::FontRequest> font_requests;
  std::vector<std::string> informed, opened_folders, opened_urls, viewed;

  std::vector<std::string> ChooseSourceFiles(QWidget*) override { return Take(source_files, {}); }
  std::string ChooseFolder(QWidget*) override { return Take(folders, {}); }
  std::string ChooseProfile(QWidget*, const std::string&) override { return Take(profiles, {}); }
  std::string ChooseWatermarkImage(QWidget*) override { return Take(watermark_images, {}); }
  void Inform(QWidget*, const std::string& text) override { informed.push_back(text); }
  void OpenFolder(const std::string& folder) override { opened_folders.push_back(folder); }
  void OpenUrl(const std::string& url) override { opened_urls.push_back(url); }
  void LaunchViewer(const std::string& path) override { viewed.push_back(path); }
  std::optional<shell::FontAnswer> ChooseFont(const shell::FontRequest& request) override {
    font_requests.push_back(request);
    return Take(fonts, std::optional<shell::FontAnswer>());
  }

 private:
  template <typename T>
  static T Take(std::deque<T>& queue, T empty) {
    if (queue.empty()) return empty;
    T value = queue.front();
    queue.pop_front();
    return value;
  }
};

// A private home folder (HOME and XDG_CONFIG_HOME) for the data folder of one test.
class PrivateHome {
 public:
  PrivateHome() {
    setenv("HOME", home_.path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (home_.path() / ".config").c_str(), 1);
  }
  const TempFolder& folder() const { return home_; }
  std::string DataFolder() const { return (home_.path() / "Documents" / "Velmora").string(); }

 private:
  TempFolder home_;
};

// A window started the way the program starts it.
class WindowTest : public ::testing::Test {
 protected:
  void SetUp() override { Start(); }

  void Start() {
    window.reset();
    state = std::make_unique<engine::AppState>();
    window = shell::StartUp(*state, services, [this] { ++process_ends; });
    window->Timer2()->stop();  // passes run when a test asks for them, never on a clock
  }

  // Adds files through "Add Images" as a user choosing them in the open dialog.
  void AddImages(const std::vector<std::string>& paths) {
    services.source_files.push_back(paths);
    QTest::mouseClick(window->fr1()->Button1(), Qt::LeftButton);
  }

  // Adds an operation through the "New Operation" dialog: the row (from 1) chosen, then OK.
  void AddOperation(int row) {
    QTest::mouseClick(window->fr2()->Button8(), Qt::LeftButton);
    auto* dialog = window->Form9();
    dialog->lw1()->setCurrentRow(row - 1);
    QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  }

  void Next() { QTest::mouseClick(window->Command2(), Qt::LeftButton); }
  void Back() { QTest::mouseClick(window->Command1(), Qt::LeftButton); }

  std::string Status() const { return window->fr3()->lblStatus()->text().toStdString(); }
  std::string FileLine() const { return window->fr3()->lblFile()->text().toStdString(); }
  // Which of the wizard's pages (sources, operations, run) are on view.
  std::array<bool, 3> Pages() const {
    return {!window->fr1()->isHidden(), !window->fr2()->isHidden(), !window->fr3()->isHidden()};
  }
  // The titles of the listed entries below the design element, top to bottom.
  std::vector<std::string> Captions() const {
    std::vector<std::string> titles;
    for (const int index : window->entries().Indices())
      if (index > 0) titles.push_back(window->operationList()->StructCaption(index)->title().toStdString());
    return titles;
  }
  // A control of the window by its name, for those the window holds once (the fixed entries').
  template <typename T = QWidget>
  T* Find(const char* name) const {
    return window->findChild<T*>(name);
  }
  std::string DefaultProfile() const { return home.DataFolder() + "/Profiles/default.profile"; }
  std::string Photo(const std::string& name, int width = 64, int height = 48) {
    const std::string path = work.file(name);
    EXPECT_TRUE(samples::WritePhotoJpeg(path, width, height));
    return path;
  }

  PrivateHome home;
  TempFolder work;
  FakeServices services;
  std::unique_ptr<engine::AppState> state;
  std::unique_ptr<shell::MainWindow> window;
  int process_ends = 0;
};

}  // namespace velmora::testing
