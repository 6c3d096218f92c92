// How a batch run shows itself: a progress bar with the current file on a terminal, one line per
// source otherwise, the run's closing status lines, and the failures it logged.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "engine/run_view.h"

namespace velmora::app {

class BatchView : public engine::RunView {
 public:
  // `terminal`: draw a bar that rewrites itself; otherwise print plain lines. `quiet`: print nothing.
  BatchView(std::FILE* out, bool terminal, bool quiet) : out_(out), terminal_(terminal), quiet_(quiet) {}

  void SetStatus(const std::string& text) override;
  void SetFile(const std::string& text) override;
  void SetProgressRange(int minimum, int maximum) override { maximum_ = maximum - minimum; }
  void SetProgressValue(int value) override { value_ = value; }
  // No preview and no event loop here.
  void ShowWait(bool) override {}
  void SetWaitLabel(const std::string&) override {}
  void PreviewFrameSize(int& width, int& height) override { width = height = 0; }
  void ShowPreview(const imaging::DisplayPicture&, int, int) override {}
  // Opening a folder is a desktop action; a headless run leaves it out.
  void OpenFolder(const std::string&) override {}
  void Yield() override {}
  void LogFailure(const std::string& message) override { failures_.push_back(message); }

  const std::vector<std::string>& failures() const { return failures_; }

 private:
  // While converting or uploading, file names move the bar instead of printing lines.
  bool Processing() const { return status_ == "Processing..." || status_ == "Uploading..."; }
  void ShowProgress(const std::string& file_text);
  void ClearBar();
  void PrintLine(const std::string& text);

  std::FILE* out_;
  bool terminal_;
  bool quiet_;
  std::string status_;
  int maximum_ = 0;
  int value_ = 0;
  bool bar_shown_ = false;
  std::vector<std::string> failures_;
};

// The progress bar line: "[#####-----]  3/10  Current file: name", cut to `width` characters.
std::string ProgressBarLine(int value, int maximum, const std::string& file_text, int width);

}  // namespace velmora::app
