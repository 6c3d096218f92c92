// Keeps the FreeType faces a thread has opened, so a run doesn't reopen a font file per page.
// A FreeType face must never be used by two threads at once: each thread owns its own cache.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "imaging/text/font_handles.h"
#include "imaging/text/font_lookup.h"

namespace velmora::imaging::text {

// A face ready to draw with, plus the styles that must be made up because the file lacks them.
struct StyledFace {
  FT_Face face = nullptr;  // owned by the cache that handed it out
  bool embolden = false;   // bold was asked for but the face is regular
  bool oblique = false;    // italic was asked for but the face is upright
};

class FaceCache {
 public:
  FaceCache();
  FaceCache(const FaceCache&) = delete;
  FaceCache& operator=(const FaceCache&) = delete;

  // The face that fontconfig picks for the name and style. When that file can't be opened, the
  // default sans face stands in. False only when no usable font exists at all.
  bool Acquire(const std::string& family, bool bold, bool italic, StyledFace& styled);

 private:
  FT_Face Open(const FontLocation& location);

  // Declared first so that it is released last, after every face made from it.
  FtLibraryPtr library_;
  std::map<std::pair<std::string, int>, FtFacePtr> faces_;              // by (file, face index)
  std::map<std::tuple<std::string, bool, bool>, StyledFace> resolved_;  // by (name, bold, italic)
};

// The calling thread's cache; it lives until the thread ends.
FaceCache& ThreadFaceCache();

}  // namespace velmora::imaging::text
