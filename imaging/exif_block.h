// The EXIF block beside a page's pixels, and the camera orientation it records: reading it,
// turning a page upright, and marking the block so no viewer turns the page again.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// The orientation tag (1-8) of a TIFF-structured EXIF block (byte order mark first); 1 when the
// block has none or cannot be read.
int TiffOrientation(const std::vector<std::uint8_t>& tiff);

// Sets the orientation tag of the block's first directory, where it has one.
void SetTiffOrientation(std::vector<std::uint8_t>& tiff, int orientation);

// The page's raw EXIF block without its "Exif\0\0" mark; empty when it has none.
std::vector<std::uint8_t> RawExifOf(FIBITMAP* dib);

// Stores a TIFF-structured block as the page's raw EXIF block, which the JPEG and WebP writers
// put into the file.
void AttachRawExif(FIBITMAP* dib, const std::vector<std::uint8_t>& tiff);

// The camera orientation recorded with the page, 1 to 8; 1 when none is.
int CameraOrientation(FIBITMAP* dib);

// The orientation tag (1-8) of page `page` of a TIFF file, from the file's own directories, which
// FreeImage does not pass on; 1 when the page has none or the file cannot be read.
int TiffFileOrientation(const std::string& path, int page);

// Turns and mirrors the page so that it shows upright by `orientation` (0: the one the page
// records), keeping its metadata and colour profile, and records orientation 1. A page upright
// already is left alone. False when a step failed.
bool TurnUpright(Bitmap& page, int orientation = 0);

}  // namespace velmora::imaging
