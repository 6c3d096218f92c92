// Owning wrappers for the FreeType, HarfBuzz and fontconfig objects the text module holds.
// Each handle is a unique_ptr whose deleter calls the library's own release function.
#pragma once

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include <memory>

namespace velmora::imaging::text {

struct FtLibraryDeleter {
  void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FtFaceDeleter {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};
struct HbFontDeleter {
  void operator()(hb_font_t* font) const { hb_font_destroy(font); }
};
struct HbBufferDeleter {
  void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
};
struct FcPatternDeleter {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

using FtLibraryPtr = std::unique_ptr<FT_LibraryRec_, FtLibraryDeleter>;
using FtFacePtr = std::unique_ptr<FT_FaceRec_, FtFaceDeleter>;
using HbFontPtr = std::unique_ptr<hb_font_t, HbFontDeleter>;
using HbBufferPtr = std::unique_ptr<hb_buffer_t, HbBufferDeleter>;
using FcPatternPtr = std::unique_ptr<FcPattern, FcPatternDeleter>;

}  // namespace velmora::imaging::text
