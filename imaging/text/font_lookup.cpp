#include "imaging/text/font_lookup.h"

#include <mutex>

#include "imaging/text/font_handles.h"

namespace velmora::imaging::text {
namespace {

// fontconfig's default configuration is shared by the whole process; matching is serialised here
// so that its lazy loading and caches are never raced, whatever the library version does itself.
std::mutex& FontconfigMutex() {
  static std::mutex mutex;
  return mutex;
}

FcPatternPtr MakeQuery(const std::string& family, bool bold, bool italic) {
  FcPatternPtr query(FcPatternCreate());
  if (!query) return nullptr;
  if (!family.empty()) {
    FcPatternAddString(query.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  }
  FcPatternAddInteger(query.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(query.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(query.get(), FC_SCALABLE, FcTrue);
  return query;
}

}  // namespace

bool FindFont(const std::string& family, bool bold, bool italic, FontLocation& found) {
  std::lock_guard lock(FontconfigMutex());
  FcPatternPtr query = MakeQuery(family, bold, italic);
  if (!query) return false;
  if (!FcConfigSubstitute(nullptr, query.get(), FcMatchPattern)) return false;
  FcDefaultSubstitute(query.get());

  FcResult result = FcResultNoMatch;
  FcPatternPtr match(FcFontMatch(nullptr, query.get(), &result));
  if (!match) return false;

  FcChar8* file = nullptr;
  if (FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch || file == nullptr) {
    return false;
  }
  int index = 0;
  FcPatternGetInteger(match.get(), FC_INDEX, 0, &index);
  int weight = FC_WEIGHT_REGULAR;
  FcPatternGetInteger(match.get(), FC_WEIGHT, 0, &weight);
  int slant = FC_SLANT_ROMAN;
  FcPatternGetInteger(match.get(), FC_SLANT, 0, &slant);

  // When the file lacks a style, fontconfig's synthetic rules report the style anyway and flag
  // it as made up: emboldening for bold, a shear matrix for italic.
  FcBool embolden = FcFalse;
  FcPatternGetBool(match.get(), FC_EMBOLDEN, 0, &embolden);
  FcMatrix* matrix = nullptr;
  const bool sheared =
      FcPatternGetMatrix(match.get(), FC_MATRIX, 0, &matrix) == FcResultMatch && matrix != nullptr && matrix->xy != 0;

  found.file = reinterpret_cast<const char*>(file);
  found.index = index;
  found.has_bold = weight >= FC_WEIGHT_DEMIBOLD && !embolden;
  found.has_italic = slant != FC_SLANT_ROMAN && !sheared;
  return true;
}

}  // namespace velmora::imaging::text
