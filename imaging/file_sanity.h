// Checks made before FreeImage reads a file, for the damage that makes its readers hang, crash or
// allocate without end: truncated ICO directories and OpenEXR headers, GIF frames off the screen.
#pragma once

#include <cstdint>
#include <string>

#include "imaging/bitmap.h"

namespace velmora::imaging {

// False when a file of `format` is cut short or malformed in a way its FreeImage reader does not
// survive; true for formats that need no check.
bool SafeToRead(FREE_IMAGE_FORMAT format, const std::string& path);

// True when every frame of a GIF lies within its logical screen, the condition for composing the
// frames as shown (GIF_PLAYBACK) without writing outside the screen.
bool GifFramesFitScreen(const std::string& path);

// The most pixels a page may have. A header claiming more is damage, and reading on would
// allocate gigabytes.
inline constexpr std::uint64_t kMostPlausiblePixels = std::uint64_t{1} << 28;

// False for a page header claiming more than kMostPlausiblePixels.
bool PixelCountIsPlausible(FIBITMAP* header);

}  // namespace velmora::imaging
