// The Timer2 pass, step by step.
#include "preview/preview_pass.h"

namespace velmora::preview {

void Timer2_Timer(engine::PreviewFlags& flags, PreviewPassState& pass, PreviewHost& host) {
  if (flags.PreviewDirty == engine::kFalse) return;
  // With the pane hidden the mark stays, so that showing the pane catches up.
  if (!host.PreviewPaneVisible()) return;
  // On the run page the mark is dropped: no preview there, and WrittenFiles stays as the run left it.
  if (host.RunPageVisible()) {
    flags.PreviewDirty = engine::kFalse;
    return;
  }
  flags.PreviewForced = engine::kTrue;
  host.ProcessEvents();
  const std::string selected = host.SelectedSourceText();
  if (selected != pass.LastPreviewFile || flags.PreviewForced != engine::kFalse) {
    flags.PreviewDirty = engine::kFalse;
    pass.thread_priority = 2;
    pass.thread_timeout = 5000;
    host.ProcessEvents();
    // One worker at a time; the mark was cleared above, so an edit made meanwhile is lost.
    if (flags.ThreadRunning != engine::kFalse) return;
    host.StartPreviewThread();
    host.ProcessEvents();
    pass.LastPreviewFile = host.SelectedSourceText();
  } else {
    pass.LastPreviewFile = selected;
  }
  flags.PreviewForced = engine::kFalse;
  flags.PreviewDirty = engine::kFalse;
}

}  // namespace velmora::preview
