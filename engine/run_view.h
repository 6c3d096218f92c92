// What a conversion run reads from and writes to its surroundings: the source rows, the status
// lines, the progress bar, the preview outputs and the event-loop hook. The window, the batch
// command and the tests each implement RunView their own way.
#pragma once

#include <string>
#include <vector>

#include "imaging/imaging_library.h"

namespace velmora::engine {

// The rows of the source list (each row's text is a full path) and the selected row, or -1.
struct SourceList {
  std::vector<std::string> rows;
  int selected = -1;
};

class RunView {
 public:
  virtual ~RunView() = default;

  virtual void SetStatus(const std::string& text) = 0;          // lblStatus
  virtual void SetFile(const std::string& text) = 0;            // lblFile
  virtual void SetProgressRange(int minimum, int maximum) = 0;  // pb1
  virtual void SetProgressValue(int value) = 0;
  virtual void ShowWait(bool shown) = 0;                   // prwFonWait
  virtual void SetWaitLabel(const std::string& text) = 0;  // PrwFonWaitLabel
  // Inner size of the preview frame (prwFon) in pixels.
  virtual void PreviewFrameSize(int& width, int& height) = 0;
  // Shows the preview picture (prw) at the given place in the frame and hides "No Image" (nim).
  virtual void ShowPreview(const imaging::DisplayPicture& picture, int top, int left) = 0;
  // Asks the desktop to open a folder at the end of a run.
  virtual void OpenFolder(const std::string& folder) = 0;
  // Lets the event loop run.
  virtual void Yield() = 0;
  // A step that failed and was skipped; the run goes on regardless.
  virtual void LogFailure(const std::string& message) = 0;
};

// How the failure of a file that could not be written starts: "cannot write <path>".
inline constexpr const char* kCannotWrite = "cannot write ";

}  // namespace velmora::engine
