// The Timer2 pass: when it starts a worker, and which marks it keeps, clears or loses.
#include <gtest/gtest.h>

#include <tuple>

#include "preview/preview_pass.h"

namespace velmora::preview {
namespace {

class FakeHost : public PreviewHost {
 public:
  bool run_page = false;
  int starts = 0, event_runs = 0;
  engine::PreviewFlags* flags = nullptr;
  bool PreviewPaneVisible() override { return true; }  // hidden: the window's tests
  bool RunPageVisible() override { return run_page; }
  void ProcessEvents() override { ++event_runs; }
  std::string SelectedSourceText() override { return "/a.jpg"; }
  void StartPreviewThread() override { ++starts, flags->ThreadRunning = engine::kTrue; }
};

// Passes in a row, the forced mark left set by an earlier refused pass (the hidden pane is left to
// the window's tests, which show it again).
TEST(PreviewPass, TheMarksDecideWhetherAWorkerStarts) {
  engine::PreviewFlags flags;
  PreviewPassState pass;
  FakeHost host;
  host.flags = &flags;
  auto marks = [&] { return std::pair(flags.PreviewDirty != engine::kFalse, flags.PreviewForced != engine::kFalse); };
  flags.PreviewForced = engine::kTrue;
  Timer2_Timer(flags, pass, host);  // no dirty mark: nothing at all
  EXPECT_EQ(std::tuple(host.starts, host.event_runs, marks()), std::tuple(0, 0, std::pair(false, true)));
  flags.PreviewDirty = engine::kTrue;
  host.run_page = true;
  Timer2_Timer(flags, pass, host);  // the run page: the mark is dropped
  EXPECT_EQ(std::tuple(host.starts, host.event_runs, marks()), std::tuple(0, 0, std::pair(false, true)));
  flags.PreviewDirty = engine::kTrue;
  host.run_page = false;
  Timer2_Timer(flags, pass, host);  // one worker, both marks cleared
  EXPECT_EQ(std::tuple(host.starts, marks(), pass.LastPreviewFile), std::tuple(1, std::pair(false, false), "/a.jpg"));
  EXPECT_EQ(std::tuple(pass.thread_priority, pass.thread_timeout), std::tuple(2, 5000));
  flags.PreviewDirty = engine::kTrue;
  pass.LastPreviewFile = "/b.jpg";
  Timer2_Timer(flags, pass, host);  // an edit while the worker runs: no second one, the edit lost
  EXPECT_EQ(std::tuple(host.starts, marks(), pass.LastPreviewFile), std::tuple(1, std::pair(false, true), "/b.jpg"));
  flags.PreviewDirty = engine::kTrue, flags.ThreadRunning = engine::kFalse;
  pass.LastPreviewFile = "/a.jpg";
  Timer2_Timer(flags, pass, host);  // an edit of the chain, the same source: a worker all the same
  EXPECT_EQ(std::tuple(host.starts, marks()), std::tuple(2, std::pair(false, false)));
}

}  // namespace
}  // namespace velmora::preview
