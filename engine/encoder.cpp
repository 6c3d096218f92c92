// Output format table, depth conversion and save flags.
#include "engine/encoder.h"

#include <array>

namespace velmora::engine {
namespace {

using imaging::CallResult;
using imaging::Handle;
using imaging::ImagingLibrary;

enum Format : std::int16_t {
  kBmp = 0,
  kJpeg = 1,
  kGif = 2,
  kPng = 3,
  kTga = 4,
  kTiff = 5,
  kExr = 6,
  kWebp = 7,
  kAvif = 8
};

// One entry of a format's depth list.
enum class Depth { k32, k24, k16_555, k16_565, kIndexed8, kIndexed4, kMono, kCmyk, kTenBits };

const std::array<Depth, 7> kBmpDepths{Depth::k32,       Depth::k24,       Depth::k16_555, Depth::k16_565,
                                      Depth::kIndexed8, Depth::kIndexed4, Depth::kMono};
const std::array<Depth, 3> kJpegDepths{Depth::k32, Depth::k24, Depth::kIndexed8};
const std::array<Depth, 5> kPngDepths{Depth::k32, Depth::k24, Depth::kIndexed8, Depth::kIndexed4, Depth::kMono};
const std::array<Depth, 5> kTgaDepths{Depth::k32, Depth::k24, Depth::k16_555, Depth::k16_565, Depth::kIndexed8};
const std::array<Depth, 6> kTiffDepths{Depth::k32,       Depth::k24,   Depth::kIndexed8,
                                       Depth::kIndexed4, Depth::kMono, Depth::kCmyk};
const std::array<Depth, 2> kWebpDepths{Depth::k32, Depth::k24};
const std::array<Depth, 3> kAvifDepths{Depth::k32, Depth::k24, Depth::kTenBits};

template <std::size_t N>
bool Pick(const std::array<Depth, N>& list, std::int16_t index, Depth& depth) {
  if (index < 0 || static_cast<std::size_t>(index) >= N) return false;
  depth = list[static_cast<std::size_t>(index)];
  return true;
}

bool DepthFor(const OutputChoices& output, Depth& depth) {
  switch (output.OutputFormat) {
    case kBmp: return Pick(kBmpDepths, output.ColorDepth, depth);
    case kJpeg: return Pick(kJpegDepths, output.ColorDepth, depth);
    case kPng: return Pick(kPngDepths, output.ColorDepth, depth);
    case kTga: return Pick(kTgaDepths, output.ColorDepth, depth);
    case kTiff: return Pick(kTiffDepths, output.ColorDepth, depth);
    case kWebp: return Pick(kWebpDepths, output.ColorDepth, depth);
    case kAvif: return Pick(kAvifDepths, output.ColorDepth, depth);
    default: return false;  // GIF and EXR have no list
  }
}

// TIFF compression list: the back end's TIFF save flags; the eighth row ("JPEG") adds nothing.
constexpr std::array<std::int32_t, 8> kTiffCompressionFlags{0x0800, 0x0100, 0x0200, 0x0400, 0x1000, 0x2000, 0x4000, 0};
// WebP's second compression row asks the back end's writer for lossless coding.
constexpr std::int32_t kWebpLossless = 0x100;

// JPEG, WebP and AVIF take the quality as the flags; 0 would mean the writer's default, so it
// goes out as 1.
std::int32_t QualityFlags(const OutputChoices& output) {
  return output.Quality == 0 ? 1 : output.Quality;
}

// Only ordinary bitmaps have 24 bits a pixel.
bool Is24Bits(ImagingLibrary& lib, Handle page) {
  std::uint32_t bpp = 0;
  lib.FreeImage_GetBPP(page, bpp);
  return bpp == 24;
}

// "32 bits" for JPEG and PNG: the JPEG encoder takes 24 bits, which it would make from a 32-bit
// page on a copy, and the PNG encoder writes a page whose alpha is opaque throughout as 24-bit
// RGB. A 24-bit page is therefore written as its 32-bit conversion would be once it loses the
// colour profile and background colour that the conversion drops.
void To32BitsAsWritten(ImagingLibrary& lib, Handle& page, std::int16_t format) {
  CallResult result = 0;
  if (Is24Bits(lib, page) && (format == kJpeg || format == kPng))
    lib.DropProfileAndBackground(page, result);
  else if (format == kJpeg)
    lib.FreeImage_ConvertTo24Bits(page, page, result);
  else
    lib.FreeImage_ConvertTo32Bits(page, page, result);
}

}  // namespace

OutputTarget OutputTargetFor(std::int16_t output_format) {
  switch (output_format) {
    case kBmp: return {"bmp", imaging::kFormatBmp};
    case kJpeg: return {"jpg", imaging::kFormatJpeg};
    case kGif: return {"gif", imaging::kFormatGif};
    case kPng: return {"png", imaging::kFormatPng};
    case kTga: return {"tga", imaging::kFormatTga};
    case kTiff: return {"tif", imaging::kFormatTiff};
    case kExr: return {"exr", imaging::kFormatExr};
    case kWebp: return {"webp", imaging::kFormatWebp};
    case kAvif: return {"avif", imaging::kFormatAvif};
    default: return {};
  }
}

void ConvertDepth(ImagingLibrary& lib, Handle& page, const OutputChoices& output) {
  Depth depth;
  if (!DepthFor(output, depth)) return;
  CallResult result = 0;
  switch (depth) {
    case Depth::k32: To32BitsAsWritten(lib, page, output.OutputFormat); break;
    case Depth::k24:
      // The conversion of a 24-bit page would only be a copy of it.
      if (!Is24Bits(lib, page)) lib.FreeImage_ConvertTo24Bits(page, page, result);
      break;
    case Depth::k16_555: lib.ConvertTo16Bits(page, page, false, result); break;
    case Depth::k16_565: lib.ConvertTo16Bits(page, page, true, result); break;
    case Depth::kIndexed8: lib.ConvertToIndexed8(page, page, 4, result); break;
    case Depth::kIndexed4: lib.ConvertToIndexed4(page, page, 4, result); break;
    case Depth::kMono: lib.ConvertToMono(page, page, 2, 128, result); break;
    case Depth::kCmyk: break;     // no conversion; the flags ask the TIFF writer for CMYK
    case Depth::kTenBits: break;  // the AVIF writer takes any depth; the flags ask for 10 bits
  }
}

std::int32_t NextSaveFlags(std::int32_t flags, const OutputChoices& output) {
  switch (output.OutputFormat) {
    case kJpeg: return QualityFlags(output);
    case kWebp: return QualityFlags(output) | (output.CompressionIndex == 1 ? kWebpLossless : 0);
    case kAvif: return QualityFlags(output) | (output.ColorDepth == 2 ? imaging::kAvifTenBitsFlag : 0);
    case kGif: return 0;
    case kTiff: {
      if (output.ColorDepth == 5) flags = 1;  // CMYK
      const std::int16_t index = output.CompressionIndex;
      if (index >= 0 && static_cast<std::size_t>(index) < kTiffCompressionFlags.size())
        flags |= kTiffCompressionFlags[static_cast<std::size_t>(index)];
      return flags;
    }
    case kExr: return 0;  // the compression list is shown but EXR always goes out with flags 0
    default: return flags;
  }
}

bool WritesMultipageFile(const OutputChoices& output) {
  return (output.OutputFormat == kGif || output.OutputFormat == kTiff) && output.MultipageMode == 1;
}

}  // namespace velmora::engine
