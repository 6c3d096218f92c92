// Reading HEIF containers (HEIC, AVIF) into FreeImage bitmaps.
#include <libheif/heif.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>

#include "imaging/exif_block.h"
#include "imaging/file_sanity.h"
#include "imaging/heif/heif_files.h"
#include "imaging/heif/heif_handles.h"

namespace velmora::imaging {
namespace {

// Enough of the file's start for the `ftyp` box and its brands.
constexpr int kSniffBytes = 64;

// The caller has told the file by its content (IsHeifFile); libheif refuses anything else.
HeifContext OpenContext(const std::string& path) {
  HeifContext context(heif_context_alloc());
  if (!context) return nullptr;
  if (heif_context_read_from_file(context.get(), path.c_str(), nullptr).code != heif_error_Ok) return nullptr;
  return context;
}

std::vector<heif_item_id> TopLevelImages(heif_context* context, bool first_only) {
  heif_item_id primary = 0;
  if (heif_context_get_primary_image_ID(context, &primary).code != heif_error_Ok) return {};
  std::vector<heif_item_id> ids{primary};
  if (first_only) return ids;
  const int count = heif_context_get_number_of_top_level_images(context);
  std::vector<heif_item_id> all(static_cast<std::size_t>(std::max(count, 0)));
  heif_context_get_list_of_top_level_image_IDs(context, all.data(), count);
  for (const heif_item_id id : all) {
    if (id != primary) ids.push_back(id);
  }
  return ids;
}

// Widens a sample of `bits` to 16 bits, the full range onto the full range, rounded.
std::uint16_t Widen(std::uint16_t sample, int bits) {
  const std::uint32_t top = (1u << bits) - 1;
  return static_cast<std::uint16_t>((std::min<std::uint32_t>(sample, top) * 65535u + top / 2) / top);
}

// Copies interleaved RGB(A) rows, top row first, into a bitmap whose rows run bottom up.
Bitmap ToBitmap(const heif_image* image, int width, int height, bool alpha, int bits) {
  int stride = 0;
  const std::uint8_t* plane = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
  if (!plane) return nullptr;
  const int channels = alpha ? 4 : 3;
  const bool deep = bits > 8;
  Bitmap dib(deep ? FreeImage_AllocateT(alpha ? FIT_RGBA16 : FIT_RGB16, width, height)
                  : FreeImage_Allocate(width, height, alpha ? 32 : 24));
  if (!dib) return nullptr;
  for (int y = 0; y < height; ++y) {
    const std::uint8_t* from = plane + static_cast<std::ptrdiff_t>(y) * stride;
    BYTE* to = FreeImage_GetScanLine(dib.get(), height - 1 - y);
    for (int x = 0; x < width; ++x) {
      if (deep) {
        auto* pixel = reinterpret_cast<std::uint16_t*>(to) + static_cast<std::ptrdiff_t>(x) * channels;
        for (int c = 0; c < channels; ++c) {
          std::uint16_t sample = 0;
          std::memcpy(&sample, from + (static_cast<std::ptrdiff_t>(x) * channels + c) * 2, 2);
          pixel[c] = Widen(sample, bits);  // RGB16 keeps red first
        }
      } else {
        const std::uint8_t* p = from + static_cast<std::ptrdiff_t>(x) * channels;
        BYTE* q = to + static_cast<std::ptrdiff_t>(x) * channels;
        q[FI_RGBA_RED] = p[0];
        q[FI_RGBA_GREEN] = p[1];
        q[FI_RGBA_BLUE] = p[2];
        if (alpha) q[FI_RGBA_ALPHA] = p[3];
      }
    }
  }
  return dib;
}

void AttachColourProfile(const heif_image_handle* handle, FIBITMAP* dib) {
  const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle);
  if (size == 0) return;
  std::vector<std::uint8_t> profile(size);
  if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok) return;
  FreeImage_CreateICCProfile(dib, profile.data(), static_cast<long>(size));
}

// A HEIF EXIF item starts with the offset of the TIFF header behind a 4-byte field.
void AttachExif(const heif_image_handle* handle, FIBITMAP* dib) {
  heif_item_id id = 0;
  if (heif_image_handle_get_list_of_metadata_block_IDs(handle, "Exif", &id, 1) != 1) return;
  const std::size_t size = heif_image_handle_get_metadata_size(handle, id);
  if (size < 4) return;
  std::vector<std::uint8_t> item(size);
  if (heif_image_handle_get_metadata(handle, id, item.data()).code != heif_error_Ok) return;
  const std::size_t offset =
      (std::size_t{item[0]} << 24 | std::size_t{item[1]} << 16 | std::size_t{item[2]} << 8 | item[3]);
  if (offset > size - 4) return;
  std::vector<std::uint8_t> tiff(item.begin() + 4 + static_cast<std::ptrdiff_t>(offset), item.end());
  // The pixels come out turned as the container says, so the tag must not turn them again.
  SetTiffOrientation(tiff, 1);
  AttachRawExif(dib, tiff);
}

bool PlausibleSize(const heif_image_handle* handle) {
  const int width = heif_image_handle_get_width(handle), height = heif_image_handle_get_height(handle);
  return width > 0 && height > 0 && std::uint64_t(width) * std::uint64_t(height) <= kMostPlausiblePixels;
}

Bitmap DecodeImage(heif_context* context, heif_item_id id) {
  heif_image_handle* raw_handle = nullptr;
  if (heif_context_get_image_handle(context, id, &raw_handle).code != heif_error_Ok) return nullptr;
  const HeifImageHandle handle(raw_handle);
  if (!PlausibleSize(raw_handle)) return nullptr;
  const bool alpha = heif_image_handle_has_alpha_channel(raw_handle) != 0;
  const int bits = std::clamp(heif_image_handle_get_luma_bits_per_pixel(raw_handle), 8, 16);
  const heif_chroma chroma = bits > 8
                                 ? (alpha ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RRGGBB_LE)
                                 : (alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB);
  heif_image* raw_image = nullptr;
  if (heif_decode_image(raw_handle, &raw_image, heif_colorspace_RGB, chroma, nullptr).code != heif_error_Ok)
    return nullptr;
  const HeifImage image(raw_image);
  const int decoded_bits = bits > 8 ? heif_image_get_bits_per_pixel_range(raw_image, heif_channel_interleaved) : 8;
  Bitmap dib = ToBitmap(raw_image, heif_image_get_width(raw_image, heif_channel_interleaved),
                        heif_image_get_height(raw_image, heif_channel_interleaved), alpha, decoded_bits);
  if (!dib) return nullptr;
  AttachColourProfile(raw_handle, dib.get());
  AttachExif(raw_handle, dib.get());
  return dib;
}

}  // namespace

bool IsHeifFile(const std::string& path) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) return false;
  std::uint8_t start[kSniffBytes];
  const std::size_t length = std::fread(start, 1, sizeof start, file.get());
  if (length < 12) return false;
  return heif_check_filetype(start, static_cast<int>(length)) == heif_filetype_yes_supported;
}

int CountHeifPages(const std::string& path) {
  const HeifContext context = OpenContext(path);
  if (!context) return 0;
  // As with formats whose header FreeImage reads alone, the primary image's header must read and
  // claim a plausible size; its pixels are decoded once, when the pages are loaded.
  heif_image_handle* primary = nullptr;
  if (heif_context_get_primary_image_handle(context.get(), &primary).code != heif_error_Ok) return 0;
  const HeifImageHandle handle(primary);
  if (!PlausibleSize(primary)) return 0;
  return std::max(0, heif_context_get_number_of_top_level_images(context.get()));
}

std::vector<Bitmap> LoadHeifPages(const std::string& path, bool first_only) {
  std::vector<Bitmap> pages;
  const HeifContext context = OpenContext(path);
  if (!context) return pages;
  for (const heif_item_id id : TopLevelImages(context.get(), first_only)) {
    if (Bitmap page = DecodeImage(context.get(), id)) pages.push_back(std::move(page));
  }
  return pages;
}

}  // namespace velmora::imaging
