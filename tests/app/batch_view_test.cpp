// What the batch prints for the run's status calls, as plain lines and as a progress bar.
#include "app/batch/batch_view.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::app {
namespace {

// A stream in memory whose text can be read back.
class CapturedStream {
 public:
  CapturedStream() : file_(std::tmpfile()) {}
  ~CapturedStream() { std::fclose(file_); }
  std::FILE* get() const { return file_; }
  std::string Text() const {
    std::fflush(file_);
    std::rewind(file_);
    std::string text;
    char buffer[256];
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, file_)) > 0) text.append(buffer, count);
    return text;
  }

 private:
  std::FILE* file_;
};

// The calls a run of two sources with one skip makes, in the run's order.
void PlayRun(BatchView& view) {
  view.SetProgressRange(0, 2);
  view.SetProgressValue(0);
  view.SetStatus("Processing...");
  view.SetFile("");
  view.SetProgressValue(1);
  view.SetFile("Current file: a.jpg");
  view.LogFailure("cannot read /x/a.jpg");
  view.SetProgressValue(2);
  view.SetFile("Current file: b.png");
  view.OpenFolder("/out/");
  view.SetStatus("Completed.");
  view.SetFile("2 file(s) processed. 1 file(s) skipped.");
}

TEST(BatchView, PlainLinesOnePerSourceThenTheClosingLines) {
  CapturedStream out;
  BatchView view(out.get(), false, false);
  PlayRun(view);
  EXPECT_EQ(out.Text(),
            "[1/2] Current file: a.jpg\n[2/2] Current file: b.png\nCompleted.\n"
            "2 file(s) processed. 1 file(s) skipped.\n");
  EXPECT_EQ(view.failures(), std::vector<std::string>{"cannot read /x/a.jpg"});
}

TEST(BatchView, OnATerminalTheBarRewritesItselfAndIsClearedAtTheEnd) {
  CapturedStream out;
  BatchView view(out.get(), true, false);
  PlayRun(view);
  EXPECT_EQ(out.Text(), "\r" + ProgressBarLine(1, 2, "Current file: a.jpg", 79) + "\x1b[K" + "\r" +
                            ProgressBarLine(2, 2, "Current file: b.png", 79) + "\x1b[K" +
                            "\r\x1b[KCompleted.\n2 file(s) processed. 1 file(s) skipped.\n");
}

TEST(BatchView, QuietPrintsNothingButStillKeepsTheFailures) {
  CapturedStream out;
  BatchView view(out.get(), false, true);
  PlayRun(view);
  EXPECT_EQ(out.Text(), "");
  EXPECT_EQ(view.failures().size(), 1u);
}

TEST(ProgressBar, FillsInProportionAndFitsTheWidth) {
  EXPECT_EQ(ProgressBarLine(0, 4, "f", 0), "[------------------------] 0/4  f");
  EXPECT_EQ(ProgressBarLine(1, 4, "f", 0), "[######------------------] 1/4  f");
  EXPECT_EQ(ProgressBarLine(4, 4, "f", 0), "[########################] 4/4  f");
  EXPECT_EQ(ProgressBarLine(3, 4, "Current file: a-long-name.jpg", 40).size(), 40u);
  EXPECT_EQ(ProgressBarLine(1, 0, "f", 0), "[------------------------] 1/0  f");
}

}  // namespace
}  // namespace velmora::app
