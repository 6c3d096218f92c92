// Owning wrappers for the FreeType, HarfBuzz and fontconfig objects the text module holds.
// Each handle is a unique_ptr whose deleter calls the library's own release function.
#pragma once

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include "imaging/owned_by.h"

namespace velmora::imaging::text {

using FtLibraryPtr = OwnedBy<FT_LibraryRec_, FT_Done_FreeType>;
using FtFacePtr = OwnedBy<FT_FaceRec_, FT_Done_Face>;
using HbFontPtr = OwnedBy<hb_font_t, hb_font_destroy>;
using HbBufferPtr = OwnedBy<hb_buffer_t, hb_buffer_destroy>;
using FcPatternPtr = OwnedBy<FcPattern, FcPatternDestroy>;

}  // namespace velmora::imaging::text
