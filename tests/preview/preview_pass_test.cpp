// The Timer2 pass: when it starts a worker, and which marks it keeps, clears or loses.
#include <gtest/gtest.h>

#include "preview/preview_pass.h"

namespace velmora::preview {
namespace {

class FakeHost : public PreviewHost {
 public:
  bool pane = true, run_page = false;
  std::string selected = "/a.jpg";
  int starts = 0, event_runs = 0;
  engine::PreviewFlags* flags = nullptr;
  bool PreviewPaneVisible() override { return pane; }
  bool RunPageVisible() override { return run_page; }
  void ProcessEvents() override { ++event_runs; }
  std::string SelectedSourceText() override { return selected; }
  void StartPreviewThread() override {
    ++starts;
    flags->ThreadRunning = engine::kTrue;
  }
};

class PreviewPassTest : public ::testing::Test {
 protected:
  void SetUp() override { host.flags = &flags; }
  void Pass() { Timer2_Timer(flags, pass, host); }
  engine::PreviewFlags flags;
  PreviewPassState pass;
  FakeHost host;
};

TEST_F(PreviewPassTest, NothingHappensWithoutTheDirtyMark) {
  flags.PreviewForced = engine::kTrue;
  Pass();
  EXPECT_EQ(host.starts, 0);
  EXPECT_EQ(host.event_runs, 0);
  EXPECT_NE(flags.PreviewForced, engine::kFalse);
}

TEST_F(PreviewPassTest, ADirtyMarkStartsOneWorkerAndClearsBothMarks) {
  flags.PreviewDirty = engine::kTrue;
  Pass();
  EXPECT_EQ(host.starts, 1);
  EXPECT_EQ(pass.LastPreviewFile, "/a.jpg");
  EXPECT_EQ(flags.PreviewDirty, engine::kFalse);
  EXPECT_EQ(flags.PreviewForced, engine::kFalse);
  EXPECT_EQ(pass.thread_priority, 2);
  EXPECT_EQ(pass.thread_timeout, 5000);
}

TEST_F(PreviewPassTest, AnEditDuringARunningPreviewLeavesNoMark) {
  flags.PreviewDirty = engine::kTrue;
  Pass();
  ASSERT_NE(flags.ThreadRunning, engine::kFalse);
  flags.PreviewDirty = engine::kTrue;  // an edit while the worker runs
  host.selected = "/b.jpg";
  Pass();
  EXPECT_EQ(host.starts, 1);
  EXPECT_EQ(flags.PreviewDirty, engine::kFalse);
  EXPECT_NE(flags.PreviewForced, engine::kFalse);  // left set by the refused pass
  EXPECT_EQ(pass.LastPreviewFile, "/a.jpg");
  flags.ThreadRunning = engine::kFalse;
  Pass();  // no mark: nothing until the next edit
  EXPECT_EQ(host.starts, 1);
}

}  // namespace
}  // namespace velmora::preview
