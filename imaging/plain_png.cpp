#include "imaging/plain_png.h"

#include <libdeflate.h>
#include <zlib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace velmora::imaging {
namespace {

// At level 6 libdeflate compresses filtered photo rows better than zlib at FreeImage's level and
// two to three times faster.
constexpr int kDeflateLevel = 6;
// Rows that deflate to more than this share of their size are mostly noise, where zlib's
// run-length strategy, which looks for no matches but repeated bytes, does better and fast.
constexpr double kNoisyShare = 0.4;
// Rows up to this size are also deflated as FreeImage's writer does (zlib, filtered strategy) and
// the smaller stream kept: cheap for them, and libdeflate is not smaller on every pattern.
constexpr std::size_t kAlwaysCompareSize = std::size_t{4} << 20;

enum Filter : std::uint8_t { kNone = 0, kSub = 1, kPaeth = 4 };

bool IsPlainTrueColour(FIBITMAP* dib) {
  if (FreeImage_GetImageType(dib) != FIT_BITMAP || !FreeImage_HasPixels(dib)) return false;
  const unsigned bpp = FreeImage_GetBPP(dib);
  if (bpp != 24 && bpp != 32) return false;
  const FIICCPROFILE* profile = FreeImage_GetICCProfile(dib);
  if (profile && profile->size > 0) return false;
  // FreeImage writes comments and XMP as text chunks.
  return FreeImage_GetMetadataCount(FIMD_COMMENTS, dib) == 0 && FreeImage_GetMetadataCount(FIMD_XMP, dib) == 0 &&
         !FreeImage_HasBackgroundColor(dib) && FreeImage_GetTransparencyCount(dib) == 0;
}

void PutU32(std::uint8_t* at, std::uint32_t value) {
  at[0] = static_cast<std::uint8_t>(value >> 24);
  at[1] = static_cast<std::uint8_t>(value >> 16);
  at[2] = static_cast<std::uint8_t>(value >> 8);
  at[3] = static_cast<std::uint8_t>(value);
}

// Appends a chunk whose `length` data bytes are already in place after room for the length and
// type; fills those and appends the CRC.
void CloseChunk(std::vector<std::uint8_t>& bytes, std::size_t start, const char* type, std::uint32_t length) {
  PutU32(bytes.data() + start, length);
  std::memcpy(bytes.data() + start + 4, type, 4);
  const std::uint32_t crc = libdeflate_crc32(0, bytes.data() + start + 4, length + 4);
  bytes.resize(start + 8 + length + 4);
  PutU32(bytes.data() + start + 8 + length, crc);
}

void AppendChunk(std::vector<std::uint8_t>& bytes, const char* type, const std::uint8_t* data, std::uint32_t length) {
  const std::size_t start = bytes.size();
  bytes.resize(start + 8 + length);
  if (length > 0) std::memcpy(bytes.data() + start + 8, data, length);
  CloseChunk(bytes, start, type, length);
}

// The byte's weight in libpng's filter choice: its distance from zero as a signed value.
inline unsigned Weight(std::uint8_t v) {
  return v < 128 ? v : 256u - v;
}

inline std::uint8_t Paeth(int a, int b, int c) {
  const int p = a + b - c;
  const int pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
  if (pa <= pb && pa <= pc) return static_cast<std::uint8_t>(a);
  return static_cast<std::uint8_t>(pb <= pc ? b : c);
}

// Writes the filter byte and the filtered row of `row` (above it `prior`, zeros for the first
// row) into `out`, with the filter of the smallest weight; the first of equals wins.
void FilterRow(const std::uint8_t* row, const std::uint8_t* prior, std::size_t length, unsigned channels,
               std::uint8_t* out, std::uint8_t* sub, std::uint8_t* paeth) {
  unsigned long none_sum = 0, sub_sum = 0, paeth_sum = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const int left = i >= channels ? row[i - channels] : 0;
    const int up_left = i >= channels ? prior[i - channels] : 0;
    sub[i] = static_cast<std::uint8_t>(row[i] - left);
    paeth[i] = static_cast<std::uint8_t>(row[i] - Paeth(left, prior[i], up_left));
    none_sum += Weight(row[i]);
    sub_sum += Weight(sub[i]);
    paeth_sum += Weight(paeth[i]);
  }
  const std::uint8_t* best = row;
  Filter filter = kNone;
  unsigned long best_sum = none_sum;
  if (sub_sum < best_sum) best = sub, filter = kSub, best_sum = sub_sum;
  if (paeth_sum < best_sum) best = paeth, filter = kPaeth;
  out[0] = filter;
  std::memcpy(out + 1, best, length);
}

// The page's rows top first, in PNG's channel order, each after its filter byte.
std::unique_ptr<std::uint8_t[]> FilteredRows(FIBITMAP* dib, unsigned channels, std::size_t& size) {
  const unsigned width = FreeImage_GetWidth(dib), height = FreeImage_GetHeight(dib);
  const unsigned source_channels = FreeImage_GetBPP(dib) / 8;
  const std::size_t length = static_cast<std::size_t>(width) * channels;
  size = (length + 1) * height;
  std::unique_ptr<std::uint8_t[]> filtered(new std::uint8_t[size]);
  std::unique_ptr<std::uint8_t[]> rows(new std::uint8_t[length * 4]());
  std::uint8_t *row = rows.get(), *prior = row + length, *sub = prior + length, *paeth = sub + length;
  for (unsigned y = 0; y < height; ++y) {
    const BYTE* source = FreeImage_GetScanLine(dib, static_cast<int>(height - 1 - y));
    for (unsigned x = 0; x < width; ++x, source += source_channels) {
      std::uint8_t* pixel = row + static_cast<std::size_t>(x) * channels;
      pixel[0] = source[FI_RGBA_RED];
      pixel[1] = source[FI_RGBA_GREEN];
      pixel[2] = source[FI_RGBA_BLUE];
      if (channels == 4) pixel[3] = source[FI_RGBA_ALPHA];
    }
    FilterRow(row, prior, length, channels, filtered.get() + (length + 1) * y, sub, paeth);
    std::swap(row, prior);
  }
  return filtered;
}

// Deflates `input` into `output` (room for `capacity` bytes) with zlib at level 6 and `strategy`;
// 0 when it does not fit.
std::size_t DeflateWithZlib(const std::uint8_t* input, std::size_t size, int strategy, std::uint8_t* output,
                            std::size_t capacity) {
  if (size > UINT32_MAX || capacity > UINT32_MAX) return 0;
  z_stream stream{};
  if (deflateInit2(&stream, 6, Z_DEFLATED, 15, 8, strategy) != Z_OK) return 0;
  stream.next_in = const_cast<std::uint8_t*>(input);
  stream.avail_in = static_cast<uInt>(size);
  stream.next_out = output;
  stream.avail_out = static_cast<uInt>(capacity);
  const bool done = deflate(&stream, Z_FINISH) == Z_STREAM_END;
  const std::size_t written = stream.total_out;
  deflateEnd(&stream);
  return done ? written : 0;
}

// Deflates the filtered rows into `output` (room for `capacity` bytes) as a zlib stream; the
// smaller of two ways for small or noisy rows. 0 on failure.
std::size_t Compress(const std::uint8_t* filtered, std::size_t size, std::uint8_t* output, std::size_t capacity) {
  libdeflate_compressor* compressor = libdeflate_alloc_compressor(kDeflateLevel);
  if (!compressor) return 0;
  const std::size_t compressed = libdeflate_zlib_compress(compressor, filtered, size, output, capacity);
  libdeflate_free_compressor(compressor);
  if (compressed == 0) return 0;
  const bool small = size <= kAlwaysCompareSize;
  if (!small && static_cast<double>(compressed) <= kNoisyShare * static_cast<double>(size)) return compressed;
  const int strategy = small ? Z_FILTERED : Z_RLE;
  std::vector<std::uint8_t> second(compressed);
  const std::size_t second_size = DeflateWithZlib(filtered, size, strategy, second.data(), second.size());
  if (second_size == 0 || second_size >= compressed) return compressed;
  std::memcpy(output, second.data(), second_size);
  return second_size;
}

// The tIME chunk's data from the page's Exif date ("2024:05:01 12:30:00"), as FreeImage's writer
// makes it: false when there is none or it is not a valid time.
bool ModificationTime(FIBITMAP* dib, std::uint8_t (&time)[7]) {
  FITAG* tag = nullptr;
  if (!FreeImage_GetMetadata(FIMD_EXIF_MAIN, dib, "DateTime", &tag) || !tag || FreeImage_GetTagLength(tag) == 0)
    return false;
  const std::string text(static_cast<const char*>(FreeImage_GetTagValue(tag)), FreeImage_GetTagLength(tag));
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (std::sscanf(text.c_str(), "%4d:%02d:%02d %2d:%02d:%02d", &year, &month, &day, &hour, &minute, &second) != 6)
    return false;
  // libpng drops a time outside these ranges.
  if (month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      second < 0 || second > 60)
    return false;
  const std::uint16_t year16 = static_cast<std::uint16_t>(year);
  const int fields[] = {year16 >> 8, year16 & 0xff, month, day, hour, minute, second};
  for (int i = 0; i < 7; ++i) time[i] = static_cast<std::uint8_t>(fields[i]);
  return true;
}

}  // namespace

bool EncodePlainPng(FIBITMAP* dib, std::vector<std::uint8_t>& bytes) {
  if (!dib || !IsPlainTrueColour(dib)) return false;
  // FreeImage calls a 32-bit page whose alpha is 255 throughout RGB, and writes it without alpha;
  // a page marked CMYK it does not write.
  const FREE_IMAGE_COLOR_TYPE colour_type = FreeImage_GetColorType(dib);
  if (colour_type != FIC_RGB && colour_type != FIC_RGBALPHA) return false;
  const unsigned channels = colour_type == FIC_RGBALPHA ? 4 : 3;
  std::size_t size = 0;
  const std::unique_ptr<std::uint8_t[]> filtered = FilteredRows(dib, channels, size);

  std::vector<std::uint8_t> out;
  static constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
  out.assign(kSignature, kSignature + sizeof kSignature);
  std::uint8_t header[13] = {};
  PutU32(header, FreeImage_GetWidth(dib));
  PutU32(header + 4, FreeImage_GetHeight(dib));
  header[8] = 8;                      // bits a channel
  header[9] = channels == 4 ? 6 : 2;  // RGBA or RGB
  AppendChunk(out, "IHDR", header, sizeof header);
  const unsigned x_dpm = FreeImage_GetDotsPerMeterX(dib), y_dpm = FreeImage_GetDotsPerMeterY(dib);
  if (x_dpm > 0 && y_dpm > 0) {
    std::uint8_t physical[9] = {};
    PutU32(physical, x_dpm);
    PutU32(physical + 4, y_dpm);
    physical[8] = 1;  // per metre
    AppendChunk(out, "pHYs", physical, sizeof physical);
  }
  std::uint8_t time[7];
  if (ModificationTime(dib, time)) AppendChunk(out, "tIME", time, sizeof time);
  const std::size_t start = out.size();
  // Stored blocks take 5 bytes a 64 KiB block more than their data, zlib's header and checksum 6.
  const std::size_t bound = size + size / 65535 * 5 + 64;
  out.resize(start + 8 + bound + 4);
  const std::size_t compressed = Compress(filtered.get(), size, out.data() + start + 8, bound);
  if (compressed == 0 || compressed > 0x7fffffff) return false;
  CloseChunk(out, start, "IDAT", static_cast<std::uint32_t>(compressed));
  AppendChunk(out, "IEND", nullptr, 0);
  bytes = std::move(out);
  return true;
}

}  // namespace velmora::imaging
