// The preview's pacemaker: the Timer2 pass with its dirty and forced flags, the single-worker
// guard and the lost-mark rule, written against a small host interface that tests can play.
#pragma once

#include <string>

#include "engine/app_state.h"

namespace velmora::preview {

// The interval of Timer2.
inline constexpr int kTimer2IntervalMs = 2000;

// What the pass asks of the window.
class PreviewHost {
 public:
  virtual ~PreviewHost() = default;
  virtual bool PreviewPaneVisible() = 0;  // frPreview
  virtual bool RunPageVisible() = 0;      // fr3
  virtual void ProcessEvents() = 0;
  // The text of the selected source row; empty when none is selected.
  virtual std::string SelectedSourceText() = 0;
  // Creates the worker that runs ApplyProfile and PreviewNow2, and starts it. ThreadRunning is
  // set once the thread exists and cleared when it has finished.
  virtual void StartPreviewThread() = 0;
};

// The pass's own members of the main window.
struct PreviewPassState {
  std::string LastPreviewFile;
  // Two values written at each thread start that nothing reads.
  int thread_priority = 0;
  int thread_timeout = 0;
};

// One pass: a tick of Timer2 or a direct call after an edit that wants the preview at once.
void Timer2_Timer(engine::PreviewFlags& flags, PreviewPassState& pass, PreviewHost& host);

}  // namespace velmora::preview
