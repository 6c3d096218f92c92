// ImagingLibrary's file operations: loading, page counts, multipage loading, saving, appending.
#include "imaging/image_files.h"
#include "imaging/imaging_library.h"
#include "imaging/library_state.h"
#include "imaging/multipage_writer.h"

namespace velmora::imaging {

void ImagingLibrary::FreeImage_Load(const std::string& path, Handle& out, int format, int flags, CallResult& result) {
  Report(result, [&] {
    out = 0;
    out = state_->images.Add(LoadImageFile(path, format, flags));
    return out != 0;
  });
}

void ImagingLibrary::CountPages(const std::string& path, std::int32_t& count, CallResult& result) {
  Report(result, [&] {
    count = 0;
    count = CountImagePages(path);
    return count > 0;
  });
}

void ImagingLibrary::LoadAllPages(const std::string& path, std::vector<Handle>& pages, std::int32_t& unused,
                                  CallResult& result) {
  Report(result, [&] {
    pages.clear();
    unused = 0;
    std::vector<Bitmap> loaded = LoadImagePages(path);
    std::vector<Handle> handles;
    handles.reserve(loaded.size());
    for (Bitmap& page : loaded) {
      if (const Handle handle = state_->images.Add(std::move(page))) handles.push_back(handle);
    }
    pages = std::move(handles);
    unused = static_cast<std::int32_t>(pages.size());
    return !pages.empty();
  });
}

void ImagingLibrary::FreeImage_Save(Handle image, const std::string& path, int format, int flags, int /*fixed*/,
                                    CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    if (!dib) return false;
    // A multipage file still open at this path is finished first, so the later write wins.
    state_->appender.FlushIfOpen(path);
    return SaveImageFile(dib, path, format, flags);
  });
}

void ImagingLibrary::AppendPageToFile(const std::string& path, Handle image, int /*fixed1*/, int flags, int /*fixed2*/,
                                      CallResult& result) {
  Report(result, [&] {
    FIBITMAP* dib = state_->images.Find(image);
    return dib && state_->appender.Append(path, dib, flags);
  });
}

void ImagingLibrary::WriteMultipageFile(const std::string& path, const std::vector<Handle>& pages, int flags,
                                        CallResult& result) {
  Report(result, [&] {
    MultipageWriter writer;
    bool appended = false;
    for (const Handle page : pages) {
      FIBITMAP* dib = state_->images.Find(page);
      appended = (dib && writer.Append(path, dib, flags)) || appended;
    }
    return writer.Flush() && appended;
  });
}

void ImagingLibrary::FlushAppendedPages() {
  try {
    state_->appender.Flush();
  } catch (...) {
    // Nothing to report through: the file simply stays unwritten.
  }
}

}  // namespace velmora::imaging
