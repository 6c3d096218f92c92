// The imaging back end: one object per run that owns every image it hands out.
// Operations report through a trailing CallResult (0 on failure) and leave in/out handles unchanged on failure.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velmora::imaging {

// Opaque image handle; 0 means no image. Only the ImagingLibrary that made it can resolve it.
using Handle = std::uint32_t;
// 0 when an operation failed, non-zero when it worked.
using CallResult = std::int16_t;

// FreeImage format numbers used by the system.
enum FormatNumber : int {
  kFormatUnknown = -1,
  kFormatBmp = 0,
  kFormatIco = 1,
  kFormatJpeg = 2,
  kFormatPng = 13,
  kFormatTga = 17,
  kFormatTiff = 18,
  kFormatGif = 25,
  kFormatExr = 29,
  kFormatWebp = 35,
  kFormatAvif = 1000,  // written through libheif; no FreeImage number
};

// AVIF save flags: the quality (1-100) in the low byte, and this bit for 10 bits per channel.
inline constexpr int kAvifTenBitsFlag = 0x400;

// A picture a window can show: 8-bit RGBA rows, top row first, no padding.
struct DisplayPicture {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::vector<std::uint8_t> rgba;
};

// A page encoded in an output format, ready to be written as a file.
struct EncodedImage {
  std::vector<std::uint8_t> bytes;
};

// Everything DrawWatermarkText receives, in the order of its arguments.
struct TextDrawRequest {
  std::string text;
  std::int32_t top = 0, left = 0, bottom = 0, right = 0;
  std::int32_t horizontal_anchor = 3;  // 3 left, 4 right, 0 centre
  std::int32_t vertical_anchor = 1;    // 1 top, 2 bottom, 0 centre
  bool fixed_flag1 = true;
  std::int32_t fixed2 = 0, fixed3 = 0;
  std::string face;
  std::int32_t size_points = 12;
  bool bold = false, italic = false, underline = false, strikeout = false;
  bool fixed_flag4 = true;
  std::int32_t color = 0;  // 0x00BBGGRR
  std::int32_t angle_degrees = 0;
  std::int32_t fixed5 = 5;
  float points_per_pixel = 0.75f;
};

class ImagingLibrary {
 public:
  ImagingLibrary();
  ~ImagingLibrary();
  ImagingLibrary(const ImagingLibrary&) = delete;
  ImagingLibrary& operator=(const ImagingLibrary&) = delete;

  // Files.
  void FreeImage_Load(const std::string& path, Handle& out, int format, int flags, CallResult& result);
  void CountPages(const std::string& path, std::int32_t& count, CallResult& result);
  void LoadAllPages(const std::string& path, std::vector<Handle>& pages, std::int32_t& unused, CallResult& result);
  // Converts inside the save to the nearest depth the format takes; the caller's page is untouched.
  void FreeImage_Save(Handle image, const std::string& path, int format, int flags, int fixed, CallResult& result);
  // Adds a page to the multipage file at `path` (format from the name). The file is written when a
  // call names another path, at FlushAppendedPages, or when the object goes.
  void AppendPageToFile(const std::string& path, Handle image, int fixed1, int flags, int fixed2, CallResult& result);
  void FlushAppendedPages();
  // Writes `pages` as one multipage file at `path`, as appending them one by one and flushing
  // would, without touching the open file of AppendPageToFile: safe on any thread. Fails when no
  // page could be added or writing failed.
  void WriteMultipageFile(const std::string& path, const std::vector<Handle>& pages, int flags, CallResult& result);
  // The two halves of FreeImage_Save, so that encoding can run on other threads than writing:
  // the page encoded (after the same depth conversion) into memory, and those bytes written to
  // `path`. Nothing is written when the bytes are empty.
  void EncodeImage(Handle image, int format, int flags, EncodedImage& encoded, CallResult& result);
  // Whether encoding keeps a page's colour profile through the conversion its format needs.
  void KeepColourProfiles(bool keep);
  void WriteEncodedImage(const EncodedImage& encoded, const std::string& path, CallResult& result);

  // Queries; a 0 or unknown handle gives 0.
  void FreeImage_GetWidth(Handle image, std::uint32_t& width);
  void FreeImage_GetHeight(Handle image, std::uint32_t& height);
  void FreeImage_GetBPP(Handle image, std::uint32_t& bpp);

  // Creation and metadata.
  void FreeImage_Allocate(Handle& out, std::int32_t width, std::int32_t height, std::int32_t bpp,
                          std::uint32_t red_mask, std::uint32_t green_mask, std::uint32_t blue_mask,
                          CallResult& result);
  void CopyMetadata(Handle source, Handle destination, CallResult& result);
  // Gives the destination the source's ICC colour profile; a source without one changes nothing.
  void CopyColourProfile(Handle source, Handle destination, CallResult& result);
  // Takes the page's ICC colour profile and background colour away, as FreeImage's depth
  // conversions do.
  void DropProfileAndBackground(Handle image, CallResult& result);
  // Turns and mirrors the page as its camera orientation asks (its EXIF block, or for a TIFF file
  // the orientation tag of page `page_index` of `source`), and records it as upright. A page with
  // no orientation, or orientation 1, stays as it is.
  void TurnUpright(Handle image, const std::string& source, int page_index, CallResult& result);
  void MakeDisplayPicture(Handle image, DisplayPicture& picture, CallResult& result);

  // Depth conversions: `out` receives the converted image (it may be the same variable as `image`).
  void FreeImage_ConvertTo32Bits(Handle image, Handle& out, CallResult& result);
  void FreeImage_ConvertTo24Bits(Handle image, Handle& out, CallResult& result);
  void ConvertTo16Bits(Handle image, Handle& out, bool as565, CallResult& result);
  void ConvertToIndexed8(Handle image, Handle& out, std::int32_t mode, CallResult& result);
  void ConvertToIndexed4(Handle image, Handle& out, std::int32_t mode, CallResult& result);
  void ConvertToMono(Handle image, Handle& out, std::int32_t mode, std::int32_t threshold, CallResult& result);

  // Transforms, in place on `image`. Rescale filter 1 is bilinear, 2 nearest neighbour.
  void FreeImage_Rescale(Handle& image, std::int32_t width, std::int32_t height, std::int32_t filter,
                         CallResult& result);
  void RotateRightAngle(Handle& image, std::int32_t angle, CallResult& result);
  void RotateFree(Handle& image, double angle, double x_origin, double y_origin, std::int32_t mask, CallResult& result);
  // Mode 1 flips left-right, mode 2 top-bottom.
  void FlipImage(Handle& image, std::int32_t mode, CallResult& result);
  void FreeImage_AdjustBrightness(Handle& image, std::int32_t value, CallResult& result);
  void FreeImage_AdjustContrast(Handle& image, std::int32_t value, CallResult& result);
  void FreeImage_AdjustGamma(Handle& image, double gamma, CallResult& result);

  // Effects.
  void EffectBlur(Handle& image, std::int32_t strong, CallResult& result);
  void EffectDistort(Handle& image, CallResult& result);
  void EffectEmboss(Handle& image, std::int32_t strong, std::int32_t direction, CallResult& result);
  void EffectEtch(Handle& image, std::int32_t strong, std::int32_t direction, CallResult& result);
  void EffectGrayscale(Handle& image, CallResult& result);
  void EffectInvert(Handle& image, CallResult& result);
  void EffectMosaic(Handle& image, std::uint8_t size, CallResult& result);
  void EffectMotion(Handle& image, std::int32_t strong, CallResult& result);
  void EffectSharpen(Handle& image, std::int32_t strong, CallResult& result);

  // Compositing. Pixels of the watermark equal to `transparent_color` (0x00BBGGRR) are left out;
  // whatever falls outside the page is clipped.
  void PasteWatermark(Handle& image, Handle watermark, std::int32_t left, std::int32_t top,
                      std::int32_t transparent_color, CallResult& result);
  void DrawWatermarkText(Handle& image, const TextDrawRequest& request, CallResult& result);

  // Frees one image before the object goes (a page once it is saved). Unknown handles are ignored.
  void Release(Handle image);
  // Number of images the object holds now; for tests and memory checks.
  std::size_t LiveImageCount() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace velmora::imaging
