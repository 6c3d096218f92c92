// Encoding a page into memory in an output format, and writing encoded bytes to a file: the two
// halves of a save, so that the encoding can happen away from the thread that writes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// Encodes `dib` after converting a copy to what `format` takes; flags the encoder refuses are
// dropped rather than encoding nothing, and a colour profile the encoder refuses is left out.
// False (and `bytes` empty) when nothing could be encoded. With `keep_colour_profile` the page's
// profile survives the conversion to what the format takes.
bool EncodeToMemory(FIBITMAP* dib, int format, int flags, std::vector<std::uint8_t>& bytes,
                    bool keep_colour_profile = false);

// Writes `bytes` as the whole file at `path`. A write that fails leaves no partial file behind.
bool WriteBytesToFile(const std::vector<std::uint8_t>& bytes, const std::string& path);

}  // namespace velmora::imaging
