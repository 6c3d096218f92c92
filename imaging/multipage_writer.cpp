// Appending pages to a multipage file that stays open until another file is named.
#include "imaging/multipage_writer.h"

#include "imaging/export_depth.h"
#include "imaging/image_files.h"

namespace velmora::imaging {

MultipageWriter::~MultipageWriter() {
  std::lock_guard lock(mutex_);
  FlushLocked();
}

bool MultipageWriter::Append(const std::string& path, FIBITMAP* dib, int flags) {
  if (!dib || path.empty()) return false;
  std::lock_guard lock(mutex_);
  if (open_ && path != path_) FlushLocked();
  const FREE_IMAGE_FORMAT format = FreeImage_GetFIFFromFilename(path.c_str());
  if (!IsMultipageFormat(format) || !FreeImage_FIFSupportsWriting(format)) return false;
  ExportPage page;
  if (!PrepareForExport(dib, format, page)) return false;
  if (!open_) {
    open_ = WritableMultiBitmap(FreeImage_OpenMultiBitmap(format, path.c_str(), TRUE, FALSE, TRUE, 0));
    if (!open_) return false;
    path_ = path;
    pages_ = 0;
  }
  const int before = FreeImage_GetPageCount(open_.get());
  FreeImage_AppendPage(open_.get(), page.dib);
  if (FreeImage_GetPageCount(open_.get()) != before + 1) return false;
  ++pages_;
  open_.get_deleter().flags = flags;
  return true;
}

bool MultipageWriter::Flush() {
  std::lock_guard lock(mutex_);
  return FlushLocked();
}

void MultipageWriter::FlushIfOpen(const std::string& path) {
  std::lock_guard lock(mutex_);
  if (open_ && path == path_) FlushLocked();
}

bool MultipageWriter::FlushLocked() {
  if (!open_) return true;
  FIMULTIBITMAP* multi = open_.release();
  const bool closed = FreeImage_CloseMultiBitmap(multi, open_.get_deleter().flags) != FALSE;
  open_.get_deleter().flags = 0;
  const bool written = closed && CountImagePages(path_) == pages_;
  path_.clear();
  pages_ = 0;
  return written;
}

}  // namespace velmora::imaging
