// Encoding a page as AVIF through libheif's AV1 encoder.
#include <libheif/heif.h>

#include <algorithm>

#include "imaging/exif_block.h"
#include "imaging/heif/heif_files.h"
#include "imaging/heif/heif_handles.h"
#include "imaging/imaging_library.h"
#include "imaging/standard_bitmap.h"

namespace velmora::imaging {
namespace {

bool Ok(const heif_error& error) {
  return error.code == heif_error_Ok;
}

// The page as 24/32-bit or as 16 bits per channel, whichever keeps what the output needs.
Bitmap Normalised(FIBITMAP* dib, bool ten_bits, bool alpha) {
  if (ten_bits) return Bitmap(alpha ? FreeImage_ConvertToRGBA16(dib) : FreeImage_ConvertToRGB16(dib));
  return Bitmap(alpha ? FreeImage_ConvertTo32Bits(dib) : FreeImage_ConvertTo24Bits(dib));
}

// True when the page has alpha and some pixel is not fully opaque: like libwebp, the writer leaves
// out an alpha plane that says nothing.
bool NeedsAlphaPlane(FIBITMAP* dib) {
  if (!HasAlpha(dib)) return false;
  const bool wide = FreeImage_GetImageType(dib) == FIT_RGBA16;
  if (!wide && !IsBitmapOfDepth(dib, 32)) return true;  // a palette's transparency, float alpha
  const unsigned width = FreeImage_GetWidth(dib), height = FreeImage_GetHeight(dib);
  for (unsigned y = 0; y < height; ++y) {
    const BYTE* row = FreeImage_GetScanLine(dib, static_cast<int>(y));
    for (unsigned x = 0; x < width; ++x) {
      const bool opaque =
          wide ? reinterpret_cast<const FIRGBA16*>(row)[x].alpha == 0xFFFF : row[x * 4 + FI_RGBA_ALPHA] == 0xFF;
      if (!opaque) return true;
    }
  }
  return false;
}

// Narrows a 16-bit sample to 10 bits, rounded.
std::uint16_t Narrow(std::uint16_t sample) {
  return static_cast<std::uint16_t>((std::uint32_t{sample} * 1023u + 32767u) / 65535u);
}

// 8 bits: interleaved RGB(A). 10 bits: one plane a channel, as libheif's AV1 path wants it (an
// interleaved 10-bit image makes libaom abort on its chroma layout).
HeifImage FromBitmap(FIBITMAP* page, bool ten_bits, bool alpha) {
  const int width = static_cast<int>(FreeImage_GetWidth(page));
  const int height = static_cast<int>(FreeImage_GetHeight(page));
  const heif_chroma chroma =
      ten_bits ? heif_chroma_444 : (alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB);
  heif_image* raw = nullptr;
  if (!Ok(heif_image_create(width, height, heif_colorspace_RGB, chroma, &raw))) return nullptr;
  HeifImage image(raw);
  const int channels = alpha ? 4 : 3;
  if (!ten_bits) {
    if (!Ok(heif_image_add_plane(raw, heif_channel_interleaved, width, height, 8))) return nullptr;
    int stride = 0;
    std::uint8_t* plane = heif_image_get_plane(raw, heif_channel_interleaved, &stride);
    if (!plane) return nullptr;
    for (int y = 0; y < height; ++y) {
      const BYTE* from = FreeImage_GetScanLine(page, height - 1 - y);
      std::uint8_t* to = plane + static_cast<std::ptrdiff_t>(y) * stride;
      for (int x = 0; x < width; ++x) {
        const BYTE* p = from + static_cast<std::ptrdiff_t>(x) * channels;
        std::uint8_t* q = to + static_cast<std::ptrdiff_t>(x) * channels;
        q[0] = p[FI_RGBA_RED];
        q[1] = p[FI_RGBA_GREEN];
        q[2] = p[FI_RGBA_BLUE];
        if (alpha) q[3] = p[FI_RGBA_ALPHA];
      }
    }
    return image;
  }
  const heif_channel planes[] = {heif_channel_R, heif_channel_G, heif_channel_B, heif_channel_Alpha};
  for (int c = 0; c < channels; ++c) {
    if (!Ok(heif_image_add_plane(raw, planes[c], width, height, 10))) return nullptr;
    int stride = 0;
    std::uint8_t* plane = heif_image_get_plane(raw, planes[c], &stride);
    if (!plane) return nullptr;
    for (int y = 0; y < height; ++y) {
      // RGB16 and RGBA16 pixels keep red first.
      const auto* from = reinterpret_cast<const std::uint16_t*>(FreeImage_GetScanLine(page, height - 1 - y));
      auto* to = reinterpret_cast<std::uint16_t*>(plane + static_cast<std::ptrdiff_t>(y) * stride);
      for (int x = 0; x < width; ++x) to[x] = Narrow(from[static_cast<std::ptrdiff_t>(x) * channels + c]);
    }
  }
  return image;
}

heif_error Append(heif_context*, const void* data, std::size_t size, void* target) {
  auto* bytes = static_cast<std::vector<std::uint8_t>*>(target);
  const auto* first = static_cast<const std::uint8_t*>(data);
  bytes->insert(bytes->end(), first, first + size);
  return heif_error{heif_error_Ok, heif_suberror_Unspecified, "ok"};
}

}  // namespace

bool EncodeAvif(FIBITMAP* dib, int flags, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  if (FreeImage_GetWidth(dib) == 0 || FreeImage_GetHeight(dib) == 0) return false;  // also for no page at all
  const bool ten_bits = (flags & kAvifTenBitsFlag) != 0;
  // Like "24", the 10-bit choice has no alpha: libaom cannot code the alpha plane at that depth.
  const bool alpha = !ten_bits && NeedsAlphaPlane(dib);
  const Bitmap page = Normalised(dib, ten_bits, alpha);
  if (!page) return false;
  const HeifImage image = FromBitmap(page.get(), ten_bits, alpha);
  if (!image) return false;
  const FIICCPROFILE* profile = FreeImage_GetICCProfile(dib);
  if (profile && profile->data && profile->size > 0)
    heif_image_set_raw_color_profile(image.get(), "prof", profile->data, static_cast<std::size_t>(profile->size));

  const HeifContext context(heif_context_alloc());
  heif_encoder* raw_encoder = nullptr;
  if (!context || !Ok(heif_context_get_encoder_for_format(context.get(), heif_compression_AV1, &raw_encoder)))
    return false;
  const HeifEncoder encoder(raw_encoder);
  const int quality = std::clamp(flags & 0xFF, 1, 100);
  if (!Ok(heif_encoder_set_lossy_quality(raw_encoder, quality))) return false;
  // libheif 1.15 codes deeper AV1 in the professional profile, which libaom takes at 10 bits only
  // as 4:2:2; any other layout trips an assertion inside libaom.
  if (ten_bits && !Ok(heif_encoder_set_parameter_string(raw_encoder, "chroma", "422"))) return false;
  heif_image_handle* raw_handle = nullptr;
  if (!Ok(heif_context_encode_image(context.get(), image.get(), raw_encoder, nullptr, &raw_handle))) return false;
  const HeifImageHandle handle(raw_handle);
  if (const std::vector<std::uint8_t> exif = RawExifOf(dib); !exif.empty())
    heif_context_add_exif_metadata(context.get(), raw_handle, exif.data(), static_cast<int>(exif.size()));

  heif_writer writer{1, &Append};
  if (!Ok(heif_context_write(context.get(), &writer, &bytes))) {
    bytes.clear();
    return false;
  }
  return !bytes.empty();
}

}  // namespace velmora::imaging
