// The one multipage file (GIF, TIFF, ICO) that pages are appended to, kept open between calls.
// It is written when another path is named, at Flush, or when the writer goes.
#pragma once

#include <mutex>
#include <string>

#include "imaging/bitmap.h"

namespace velmora::imaging {

class MultipageWriter {
 public:
  MultipageWriter() = default;
  ~MultipageWriter();
  MultipageWriter(const MultipageWriter&) = delete;
  MultipageWriter& operator=(const MultipageWriter&) = delete;

  // Adds a copy of `dib`, converted to what the format takes, as the next page of the file at
  // `path` (format from its name). The first call for a path starts a new file in place of any
  // old one; `flags` of the last call are the ones the file is written with.
  bool Append(const std::string& path, FIBITMAP* dib, int flags);
  // Writes and closes the open file, if any. False when writing failed, which is told by reading
  // the file back: FreeImage reports success even when the disk filled up under it.
  bool Flush();
  // Flushes only when the open file is the one at `path`.
  void FlushIfOpen(const std::string& path);

 private:
  bool FlushLocked();

  std::mutex mutex_;
  WritableMultiBitmap open_;
  std::string path_;
  int pages_ = 0;  // appended to the open file
};

}  // namespace velmora::imaging
