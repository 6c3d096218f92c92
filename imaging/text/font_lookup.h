// Finds the font file for a face name and style through fontconfig.
// Unknown or empty names give fontconfig's default face; the result says which styles are real.
#pragma once

#include <string>

namespace velmora::imaging::text {

struct FontLocation {
  std::string file;
  int index = 0;            // face index inside the file (collections hold several)
  bool has_bold = false;    // the face's own weight is semibold or heavier
  bool has_italic = false;  // the face is italic or oblique
};

// Best match for `family` with the weight and slant asked for. False only when fontconfig knows
// no font file at all. Safe to call from several threads.
bool FindFont(const std::string& family, bool bold, bool italic, FontLocation& found);

}  // namespace velmora::imaging::text
