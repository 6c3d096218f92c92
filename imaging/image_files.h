// Reading and writing image files through FreeImage: format detection, single and multipage
// loading, and saving with the save-time depth conversion. No function here throws on bad files.
#pragma once

#include <string>
#include <vector>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// The format of a readable file: by content first, by the file name when the content says nothing.
// FIF_UNKNOWN for a missing, empty or unreadable file.
FREE_IMAGE_FORMAT DetectReadableFormat(const std::string& path);

// GIF, TIFF and ICO: the formats FreeImage reads and writes as several pages.
bool IsMultipageFormat(FREE_IMAGE_FORMAT format);

// One image; `format` -1 detects it. A file that is not in the given format is read by its content.
Bitmap LoadImageFile(const std::string& path, int format, int flags);

// Pages of a file: the multipage count for GIF, TIFF and ICO, 1 for any other readable file, 0 for
// a file that cannot be read.
int CountImagePages(const std::string& path);

// Every page as a bitmap of its own: animated GIF frames composed as they are shown, icons with
// their alpha. A single-image file gives one page; an unreadable one none.
std::vector<Bitmap> LoadImagePages(const std::string& path);

// Writes `dib` after converting a copy to what the format takes. `format` -1 takes the format from
// the file name. Flags the encoder refuses are dropped rather than writing nothing.
bool SaveImageFile(FIBITMAP* dib, const std::string& path, int format, int flags);

}  // namespace velmora::imaging
