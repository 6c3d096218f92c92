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
// the window's tests, which show it again). Before each pass: the dirty mark, the run page shown,
// a worker running, the last source; after it: the workers started, the forced mark, the last source.
TEST(PreviewPass, TheMarksDecideWhetherAWorkerStarts) {
  engine::PreviewFlags flags;
  PreviewPassState pass;
  FakeHost host;
  host.flags = &flags;
  flags.PreviewForced = engine::kTrue;
  const std::tuple<bool, bool, bool, const char*, int, bool, const char*> kPasses[] = {
      {false, false, false, "", 0, true, ""},             // no dirty mark: nothing at all
      {true, true, false, "", 0, true, ""},               // the run page: the mark is dropped
      {true, false, false, "", 1, false, "/a.jpg"},       // one worker, both marks cleared
      {true, false, true, "/b.jpg", 1, true, "/b.jpg"},   // an edit while it runs: no second one, the edit lost
      {true, false, false, "/a.jpg", 2, false, "/a.jpg"}  // an edit of the chain, the same source: a worker
  };
  for (const auto& [dirty, run_page, running, last, starts, forced, last_after] : kPasses) {
    flags.PreviewDirty = dirty ? engine::kTrue : engine::kFalse;
    flags.ThreadRunning = running ? engine::kTrue : engine::kFalse;
    host.run_page = run_page, pass.LastPreviewFile = last;
    Timer2_Timer(flags, pass, host);
    EXPECT_EQ(std::tuple(host.starts, flags.PreviewDirty, flags.PreviewForced != engine::kFalse, pass.LastPreviewFile),
              std::tuple(starts, engine::kFalse, forced, last_after))
        << last << " " << starts;
    EXPECT_EQ(host.event_runs > 0, host.starts > 0);  // a pass refused by its marks runs no events
  }
  EXPECT_EQ(std::tuple(pass.thread_priority, pass.thread_timeout), std::tuple(2, 5000));
}

}  // namespace
}  // namespace velmora::preview
