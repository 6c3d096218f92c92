// BMP files with the newer info headers (the 52 and 56 byte forms, V4 and V5), as ImageMagick,
// GIMP and many Windows programs write them. FreeImage reads only the classic 40-byte header, so
// such a file is rewritten in memory into the classic form before FreeImage decodes it.
#pragma once

#include <optional>
#include <string>

namespace velmora::imaging {

// Rewrites the bytes of a BMP file with a newer info header into the classic form: a 40-byte
// header, the bit masks of a 16-bit file after it, the colour table and the pixels. 32-bit pixels
// are repacked as blue, green, red, alpha whatever their masks; without an alpha mask they become
// opaque. False, with `bytes` untouched, for a classic file or one too damaged to rewrite.
bool RewriteToClassicBmp(std::string& bytes);

// The whole file at `path` in classic form; empty when it needs no rewrite or cannot be read.
std::optional<std::string> ClassicBmpFile(const std::string& path);

}  // namespace velmora::imaging
