#include "imaging/text/face_cache.h"

namespace velmora::imaging::text {
namespace {

// What fontconfig is asked for when the face it matched can't be opened by FreeType.
constexpr const char* kFallbackFamily = "sans-serif";

}  // namespace

FaceCache::FaceCache() {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) == 0) library_.reset(library);
}

FT_Face FaceCache::Open(const FontLocation& location) {
  const auto key = std::make_pair(location.file, location.index);
  if (auto it = faces_.find(key); it != faces_.end()) return it->second.get();

  FT_Face face = nullptr;
  if (FT_New_Face(library_.get(), location.file.c_str(), location.index, &face) != 0) {
    return nullptr;
  }
  FtFacePtr owned(face);
  if (!FT_IS_SCALABLE(face)) return nullptr;  // bitmap-only faces can't be sized or rotated freely
  faces_.emplace(key, std::move(owned));
  return face;
}

bool FaceCache::Acquire(const std::string& family, bool bold, bool italic, StyledFace& styled) {
  if (!library_) return false;
  const auto key = std::make_tuple(family, bold, italic);
  if (auto it = resolved_.find(key); it != resolved_.end()) {
    styled = it->second;
    return true;
  }

  FontLocation location;
  FT_Face face = nullptr;
  if (FindFont(family, bold, italic, location)) face = Open(location);
  if (face == nullptr && FindFont(kFallbackFamily, bold, italic, location)) face = Open(location);
  if (face == nullptr) return false;

  styled.face = face;
  styled.embolden = bold && !location.has_bold;
  styled.oblique = italic && !location.has_italic;
  resolved_.emplace(key, styled);
  return true;
}

FaceCache& ThreadFaceCache() {
  thread_local FaceCache cache;
  return cache;
}

}  // namespace velmora::imaging::text
