// Save-time conversion to the nearest depth or pixel type the output format accepts.
#include "imaging/export_depth.h"

#include <span>

#include "imaging/standard_bitmap.h"

namespace velmora::imaging {
namespace {

bool TakesBitmapDepth(FREE_IMAGE_FORMAT format, FIBITMAP* dib) {
  const unsigned bpp = FreeImage_GetBPP(dib);
  if (!FreeImage_FIFSupportsExportBPP(format, static_cast<int>(bpp))) return false;
  if (format == FIF_JPEG) {
    // The JPEG encoder claims 32 bits but refuses them, and writes any 8-bit page as grey levels.
    if (bpp == 32) return false;
    if (bpp == 8) return FreeImage_GetColorType(dib) == FIC_MINISBLACK;
  }
  // The TGA encoder writes 16-bit words as they are, and TGA knows only 5:5:5.
  if (format == FIF_TARGA && bpp == 16) return FreeImage_GetGreenMask(dib) == FI16_555_GREEN_MASK;
  return true;
}

// True for a palette of grey levels only, in whatever order (FreeImage calls a 4-bit grey ramp
// a palette).
bool HasGreyPalette(FIBITMAP* dib) {
  const RGBQUAD* palette = FreeImage_GetPalette(dib);
  if (!palette) return false;
  for (unsigned i = 0; i < FreeImage_GetColorsUsed(dib); ++i) {
    if (palette[i].rgbRed != palette[i].rgbGreen || palette[i].rgbGreen != palette[i].rgbBlue) return false;
  }
  return true;
}

// A float page for EXR: RGBA when the page has alpha, RGB otherwise.
Bitmap ToExrFloat(FIBITMAP* dib) {
  if (HasAlpha(dib)) return Bitmap(FreeImage_ConvertToRGBAF(dib));
  return Bitmap(FreeImage_ConvertToRGBF(dib));
}

// A Wu quantisation to 256 colours of a true-colour copy (the quantiser takes 24 bits).
Bitmap QuantizeTo8(FIBITMAP* dib) {
  if (FreeImage_GetBPP(dib) <= 8) return Bitmap(FreeImage_ConvertTo8Bits(dib));
  Bitmap rgb(IsBitmapOfDepth(dib, 24) ? FreeImage_Clone(dib) : FreeImage_ConvertTo24Bits(dib));
  if (!rgb) return nullptr;
  return Bitmap(FreeImage_ColorQuantize(rgb.get(), FIQ_WUQUANT));
}

Bitmap ConvertBitmapTo(FIBITMAP* dib, unsigned bpp) {
  switch (bpp) {
    case 1: return Bitmap(FreeImage_Threshold(dib, 128));
    case 4: return Bitmap(FreeImage_ConvertTo4Bits(dib));
    case 8:
      // Grey pages become plain 8-bit grey; colour pages get a palette of their own colours.
      if (HasGreyPalette(dib)) return Bitmap(FreeImage_ConvertToGreyscale(dib));
      return QuantizeTo8(dib);
    case 16:
      // 5:5:5, the layout every 16-bit writer takes.
      return Bitmap(FreeImage_ConvertTo16Bits555(dib));
    case 24: return Bitmap(FreeImage_ConvertTo24Bits(dib));
    case 32: return Bitmap(FreeImage_ConvertTo32Bits(dib));
    default: return nullptr;
  }
}

// Depths to try for a bitmap of depth `bpp`, nearest first: up before down, so that nothing is
// lost where the format allows, and alpha kept where it can be.
std::span<const unsigned> DepthsNearest(unsigned bpp, bool alpha) {
  static constexpr unsigned kFromLow[] = {8, 24, 32};
  static constexpr unsigned kFromAlpha8[] = {32, 24};
  static constexpr unsigned kFrom16[] = {16, 24, 32, 8};  // 16 first: 5:6:5 to 5:5:5
  static constexpr unsigned kFrom24[] = {32, 8};
  static constexpr unsigned kFrom32[] = {24, 8};
  if (bpp <= 8) return alpha && bpp == 8 ? std::span<const unsigned>(kFromAlpha8) : kFromLow;
  if (bpp == 16) return kFrom16;
  if (bpp == 24) return kFrom24;
  return kFrom32;
}

Bitmap ToTakenBitmapDepth(FIBITMAP* dib, FREE_IMAGE_FORMAT format) {
  for (const unsigned bpp : DepthsNearest(FreeImage_GetBPP(dib), HasAlpha(dib))) {
    if (!FreeImage_FIFSupportsExportBPP(format, static_cast<int>(bpp))) continue;
    Bitmap converted = ConvertBitmapTo(dib, bpp);
    if (converted && TakesBitmapDepth(format, converted.get())) return converted;
  }
  return nullptr;
}

}  // namespace

bool FormatTakesPage(FREE_IMAGE_FORMAT format, FIBITMAP* dib) {
  const FREE_IMAGE_TYPE type = FreeImage_GetImageType(dib);
  if (!FreeImage_FIFSupportsExportType(format, type)) return false;
  return type != FIT_BITMAP || TakesBitmapDepth(format, dib);
}

bool PrepareForExport(FIBITMAP* dib, FREE_IMAGE_FORMAT format, ExportPage& page, bool keep_colour_profile) {
  page = ExportPage{};
  if (!dib) return false;
  if (FormatTakesPage(format, dib)) {
    page.dib = dib;
    return true;
  }
  Bitmap work;
  FIBITMAP* current = dib;
  if (!FreeImage_FIFSupportsExportType(format, FreeImage_GetImageType(dib))) {
    if (FreeImage_FIFSupportsExportType(format, FIT_BITMAP)) {
      work = ToStandardBitmap(dib);
    } else if (FreeImage_FIFSupportsExportType(format, FIT_RGBF)) {
      work = ToExrFloat(dib);
    }
    if (!work) return false;
    current = work.get();
  }
  if (!FormatTakesPage(format, current)) {
    if (FreeImage_GetImageType(current) != FIT_BITMAP) return false;
    work = ToTakenBitmapDepth(current, format);
    if (!work) return false;
  }
  FreeImage_CloneMetadata(work.get(), dib);
  if (keep_colour_profile) CloneColourProfile(work.get(), dib);
  page.converted = std::move(work);
  page.dib = page.converted.get();
  return true;
}

}  // namespace velmora::imaging
