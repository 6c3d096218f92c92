// Image file reading and writing over FreeImage.
#include "imaging/image_files.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "imaging/bmp_headers.h"
#include "imaging/encoded_image.h"
#include "imaging/export_depth.h"
#include "imaging/file_sanity.h"
#include "imaging/heif/heif_files.h"
#include "imaging/imaging_library.h"
#include "imaging/owned_by.h"
#include "imaging/png_colour_profile.h"

namespace velmora::imaging {
namespace {

// FreeImage is handed only files that exist and hold something.
bool IsNonEmptyFile(const std::string& path) {
  std::error_code error;
  if (path.empty() || !std::filesystem::is_regular_file(path, error)) return false;
  const auto size = std::filesystem::file_size(path, error);
  return !error && size > 0;
}

bool ExistsAsFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

int PageLoadFlags(FREE_IMAGE_FORMAT format, const std::string& path) {
  // Frames are composed as shown only when they fit the screen; otherwise each comes as stored.
  if (format == FIF_GIF) return GifFramesFitScreen(path) ? GIF_PLAYBACK : 0;
  if (format == FIF_ICO) return ICO_MAKEALPHA;
  return 0;
}

// `load(flags)` gives a FreeImage bitmap; the header first, where the format allows, so that a
// damaged size is caught before the allocation.
template <typename Load>
Bitmap ReadChecked(FREE_IMAGE_FORMAT format, int flags, Load load) {
  const bool header_only = (flags & FIF_LOAD_NOPIXELS) != 0;
  if (!header_only && FreeImage_FIFSupportsNoPixels(format)) {
    Bitmap header(load(flags | FIF_LOAD_NOPIXELS));
    if (!header || !PixelCountIsPlausible(header.get())) return nullptr;
  }
  return Bitmap(load(flags));
}

void AttachPngColourProfile(const std::string& path, FIBITMAP* page) {
  const FIICCPROFILE* held = FreeImage_GetICCProfile(page);
  if (held && held->size > 0) return;
  std::vector<std::uint8_t> profile = ReadPngColourProfile(path);
  if (!profile.empty()) FreeImage_CreateICCProfile(page, profile.data(), static_cast<long>(profile.size()));
}

// Every read goes through these two, which keep away files FreeImage would not survive.
Bitmap Read(FREE_IMAGE_FORMAT format, const std::string& path, int flags) {
  if (!SafeToRead(format, path)) return nullptr;
  if (format == FIF_BMP) {
    if (std::optional<std::string> classic = ClassicBmpFile(path)) {
      OwnedBy<FIMEMORY, FreeImage_CloseMemory> memory(
          FreeImage_OpenMemory(reinterpret_cast<BYTE*>(classic->data()), static_cast<DWORD>(classic->size())));
      if (!memory) return nullptr;
      return ReadChecked(format, flags, [&](int load_flags) {
        FreeImage_SeekMemory(memory.get(), 0, SEEK_SET);
        return FreeImage_LoadFromMemory(format, memory.get(), load_flags);
      });
    }
  }
  Bitmap page =
      ReadChecked(format, flags, [&](int load_flags) { return FreeImage_Load(format, path.c_str(), load_flags); });
  if (page && format == FIF_PNG && (flags & FIF_LOAD_NOPIXELS) == 0) AttachPngColourProfile(path, page.get());
  return page;
}

ReadOnlyMultiBitmap OpenForReading(FREE_IMAGE_FORMAT format, const std::string& path, int flags) {
  if (!SafeToRead(format, path)) return nullptr;
  return ReadOnlyMultiBitmap(FreeImage_OpenMultiBitmap(format, path.c_str(), FALSE, TRUE, TRUE, flags));
}

}  // namespace

FREE_IMAGE_FORMAT DetectReadableFormat(const std::string& path) {
  if (!IsNonEmptyFile(path)) return FIF_UNKNOWN;
  FREE_IMAGE_FORMAT format = FreeImage_GetFileType(path.c_str(), 0);
  if (format == FIF_UNKNOWN) format = FreeImage_GetFIFFromFilename(path.c_str());
  if (format == FIF_UNKNOWN || !FreeImage_FIFSupportsReading(format)) return FIF_UNKNOWN;
  return format;
}

bool IsMultipageFormat(FREE_IMAGE_FORMAT format) {
  return format == FIF_GIF || format == FIF_TIFF || format == FIF_ICO;
}

Bitmap LoadImageFile(const std::string& path, int format, int flags) {
  if (!IsNonEmptyFile(path)) return nullptr;
  const FREE_IMAGE_FORMAT detected = DetectReadableFormat(path);
  if (detected == FIF_UNKNOWN && IsHeifFile(path)) {
    std::vector<Bitmap> first = LoadHeifPages(path, true);
    return first.empty() ? nullptr : std::move(first.front());
  }
  if (format >= 0) {
    const auto wanted = static_cast<FREE_IMAGE_FORMAT>(format);
    if (format < FreeImage_GetFIFCount() && FreeImage_FIFSupportsReading(wanted)) {
      if (Bitmap loaded = Read(wanted, path, flags)) return loaded;
    }
    // A file named after one format but holding another (an ".ico" that is a PNG) is read as what
    // it holds, without flags meant for the other format.
    if (detected == FIF_UNKNOWN || detected == wanted) return nullptr;
    return Read(detected, path, 0);
  }
  if (detected == FIF_UNKNOWN) return nullptr;
  return Read(detected, path, flags);
}

int CountImagePages(const std::string& path) {
  const FREE_IMAGE_FORMAT format = DetectReadableFormat(path);
  if (format == FIF_UNKNOWN) return IsHeifFile(path) ? CountHeifPages(path) : 0;
  // The first image must read: a multipage header alone may promise pages that are not there.
  // Where the format allows, its header is enough.
  const int flags = FreeImage_FIFSupportsNoPixels(format) ? FIF_LOAD_NOPIXELS : 0;
  if (!Read(format, path, flags)) return 0;
  if (!IsMultipageFormat(format)) return 1;
  ReadOnlyMultiBitmap multi = OpenForReading(format, path, 0);
  return multi ? std::max(0, FreeImage_GetPageCount(multi.get())) : 0;
}

std::vector<Bitmap> LoadImagePages(const std::string& path) {
  std::vector<Bitmap> pages;
  const FREE_IMAGE_FORMAT format = DetectReadableFormat(path);
  if (format == FIF_UNKNOWN) {
    if (IsHeifFile(path)) pages = LoadHeifPages(path, false);
    return pages;
  }
  if (!IsMultipageFormat(format)) {
    if (Bitmap single = Read(format, path, 0)) pages.push_back(std::move(single));
    return pages;
  }
  ReadOnlyMultiBitmap multi = OpenForReading(format, path, PageLoadFlags(format, path));
  if (!multi) return pages;
  const int count = FreeImage_GetPageCount(multi.get());
  for (int index = 0; index < count; ++index) {
    FIBITMAP* locked = FreeImage_LockPage(multi.get(), index);
    if (!locked) continue;
    Bitmap copy(FreeImage_Clone(locked));
    FreeImage_UnlockPage(multi.get(), locked, FALSE);
    if (copy) pages.push_back(std::move(copy));
  }
  return pages;
}

bool SaveImageFile(FIBITMAP* dib, const std::string& path, int format, int flags) {
  if (!dib || path.empty()) return false;
  // AVIF has no FreeImage writer; PNG with flags 0 has a faster writer of our own.
  if (format == kFormatAvif || (format == kFormatPng && flags == 0)) {
    std::vector<std::uint8_t> bytes;
    return EncodeToMemory(dib, format, flags, bytes) && WriteBytesToFile(bytes, path);
  }
  const FREE_IMAGE_FORMAT target =
      format >= 0 ? static_cast<FREE_IMAGE_FORMAT>(format) : FreeImage_GetFIFFromFilename(path.c_str());
  if (target < 0 || target >= FreeImage_GetFIFCount() || !FreeImage_FIFSupportsWriting(target)) return false;
  ExportPage page;
  if (!PrepareForExport(dib, target, page)) return false;
  const bool existed = ExistsAsFile(path);
  bool saved = FreeImage_Save(target, page.dib, path.c_str(), flags) != FALSE;
  if (!saved && flags != 0) saved = FreeImage_Save(target, page.dib, path.c_str(), 0) != FALSE;
  if (!saved && !existed) {
    // The encoder opens the file before it fails: leave no broken file behind.
    std::error_code ignored;
    if (ExistsAsFile(path)) std::filesystem::remove(path, ignored);
  }
  return saved;
}

}  // namespace velmora::imaging
