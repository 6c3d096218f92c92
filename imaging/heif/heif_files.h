// HEIC/HEIF and AVIF files through libheif: telling them by their content, reading their top-level
// images as pages, and encoding a page as AVIF. FreeImage reads neither format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// True when the file starts as a HEIF container (HEIC, HEIF or AVIF) that libheif can read.
bool IsHeifFile(const std::string& path);

// For a file IsHeifFile takes: the top-level images of the file; 0 when it cannot be read.
int CountHeifPages(const std::string& path);

// Each top-level image as a page, the primary one first; only that one when `first_only`. Pages of
// 8 bits per channel come as 24- or 32-bit bitmaps, deeper ones as 16 bits per channel (RGB16 or
// RGBA16). The container's rotation and mirroring are applied, as every viewer does; the ICC
// profile and the EXIF block travel with the page. An image that cannot be decoded is left out.
std::vector<Bitmap> LoadHeifPages(const std::string& path, bool first_only);

// Encodes the page as AVIF with the AV1 encoder: 8 bits per channel with the alpha channel when
// some pixel is not opaque, or 10 bits per channel (kAvifTenBitsFlag) without alpha; the page's ICC
// profile and EXIF block go with it.
bool EncodeAvif(FIBITMAP* dib, int flags, std::vector<std::uint8_t>& bytes);

}  // namespace velmora::imaging
