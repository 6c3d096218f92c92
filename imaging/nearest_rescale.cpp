// Nearest-neighbour resizing by exact pixel copies.
#include "imaging/nearest_rescale.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace velmora::imaging {
namespace {

// The source index whose pixel covers the centre of output index `i`, counted from the top or left.
unsigned SourceIndex(unsigned i, unsigned source_size, unsigned output_size) {
  return static_cast<unsigned>((2 * std::uint64_t{i} + 1) * source_size / (2 * std::uint64_t{output_size}));
}

unsigned ReadBits(const BYTE* line, unsigned x, unsigned bpp) {
  if (bpp == 1) return (line[x >> 3] >> (7 - (x & 7))) & 1u;
  return (x & 1) ? line[x >> 1] & 0x0Fu : line[x >> 1] >> 4;
}

void WriteBits(BYTE* line, unsigned x, unsigned bpp, unsigned value) {
  if (bpp == 1) {
    const BYTE bit = static_cast<BYTE>(0x80u >> (x & 7));
    line[x >> 3] = value ? (line[x >> 3] | bit) : (line[x >> 3] & ~bit);
    return;
  }
  BYTE& target = line[x >> 1];
  target = (x & 1) ? static_cast<BYTE>((target & 0xF0) | value) : static_cast<BYTE>((target & 0x0F) | (value << 4));
}

// Palette, transparency, background colour and resolution: what belongs to the bitmap besides pixels.
void CopyBitmapProperties(FIBITMAP* from, FIBITMAP* to) {
  if (RGBQUAD* palette = FreeImage_GetPalette(from)) {
    if (RGBQUAD* target = FreeImage_GetPalette(to))
      std::memcpy(target, palette, FreeImage_GetColorsUsed(from) * sizeof(RGBQUAD));
  }
  if (FreeImage_GetTransparencyCount(from) > 0)
    FreeImage_SetTransparencyTable(to, FreeImage_GetTransparencyTable(from),
                                   static_cast<int>(FreeImage_GetTransparencyCount(from)));
  FreeImage_SetTransparent(to, FreeImage_IsTransparent(from));
  RGBQUAD background;
  if (FreeImage_GetBackgroundColor(from, &background)) FreeImage_SetBackgroundColor(to, &background);
  FreeImage_SetDotsPerMeterX(to, FreeImage_GetDotsPerMeterX(from));
  FreeImage_SetDotsPerMeterY(to, FreeImage_GetDotsPerMeterY(from));
  FreeImage_CloneMetadata(to, from);
}

}  // namespace

Bitmap RescaleNearest(FIBITMAP* dib, unsigned width, unsigned height) {
  if (!dib || width == 0 || height == 0) return nullptr;
  const unsigned source_width = FreeImage_GetWidth(dib), source_height = FreeImage_GetHeight(dib);
  const unsigned bpp = FreeImage_GetBPP(dib);
  if (source_width == 0 || source_height == 0 || bpp == 0) return nullptr;
  Bitmap out(FreeImage_AllocateT(FreeImage_GetImageType(dib), static_cast<int>(width), static_cast<int>(height),
                                 static_cast<int>(bpp), FreeImage_GetRedMask(dib), FreeImage_GetGreenMask(dib),
                                 FreeImage_GetBlueMask(dib)));
  if (!out) return nullptr;
  CopyBitmapProperties(dib, out.get());

  std::vector<unsigned> columns(width);
  for (unsigned x = 0; x < width; ++x) columns[x] = SourceIndex(x, source_width, width);
  const unsigned bytes = bpp / 8;
  for (unsigned y = 0; y < height; ++y) {
    // Scan lines run bottom-up; rows are matched from the top, the way the picture is seen.
    const unsigned source_row = SourceIndex(y, source_height, height);
    const BYTE* from = FreeImage_GetScanLine(dib, static_cast<int>(source_height - 1 - source_row));
    BYTE* to = FreeImage_GetScanLine(out.get(), static_cast<int>(height - 1 - y));
    if (bpp < 8) {
      for (unsigned x = 0; x < width; ++x) WriteBits(to, x, bpp, ReadBits(from, columns[x], bpp));
    } else {
      for (unsigned x = 0; x < width; ++x) std::memcpy(to + x * bytes, from + columns[x] * bytes, bytes);
    }
  }
  return out;
}

}  // namespace velmora::imaging
