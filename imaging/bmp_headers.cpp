// Rewriting newer BMP info headers into the classic 40-byte form.
#include "imaging/bmp_headers.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace velmora::imaging {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kClassicHeaderSize = 40;
constexpr std::uint32_t kRgb = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6;
// Larger pixel areas are damage (the same bound as every other reader here).
constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 28;

std::uint32_t Read32(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

std::uint16_t Read16(const std::string& bytes, std::size_t at) {
  return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[at]) |
                                    (static_cast<unsigned char>(bytes[at + 1]) << 8));
}

void Put32(std::string& out, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

void Put16(std::string& out, std::uint16_t value) {
  out.push_back(static_cast<char>(value & 0xFF));
  out.push_back(static_cast<char>(value >> 8));
}

// One colour channel of a 32-bit pixel, scaled to 8 bits.
class Channel {
 public:
  explicit Channel(std::uint32_t mask)
      : mask_(mask), shift_(mask ? std::countr_zero(mask) : 0), bits_(mask ? std::bit_width(mask >> shift_) : 0) {}
  bool present() const { return mask_ != 0; }
  std::uint8_t Of(std::uint32_t pixel) const {
    if (!mask_) return 0;
    const std::uint32_t value = (pixel & mask_) >> shift_;
    if (bits_ >= 8) return static_cast<std::uint8_t>(value >> (bits_ - 8));
    const std::uint32_t most = (std::uint32_t{1} << bits_) - 1;
    return static_cast<std::uint8_t>((value * 255 + most / 2) / most);
  }

 private:
  std::uint32_t mask_;
  int shift_, bits_;
};

// 32-bit pixels as blue, green, red, alpha bytes; opaque when there is no alpha channel.
std::string RepackPixels32(const std::string& pixels, std::uint32_t red, std::uint32_t green, std::uint32_t blue,
                           std::uint32_t alpha) {
  const Channel r(red), g(green), b(blue), a(alpha);
  std::string out(pixels.size(), '\0');
  for (std::size_t at = 0; at + 4 <= pixels.size(); at += 4) {
    const std::uint32_t pixel = Read32(pixels, at);
    out[at] = static_cast<char>(b.Of(pixel));
    out[at + 1] = static_cast<char>(g.Of(pixel));
    out[at + 2] = static_cast<char>(r.Of(pixel));
    out[at + 3] = static_cast<char>(a.present() ? a.Of(pixel) : 0xFF);
  }
  return out;
}

// The info header sizes of the forms after the classic one: V2, V3, V4 and V5.
bool IsNewerInfoHeader(std::uint32_t size) {
  return size == 52 || size == 56 || size == 108 || size == 124;
}

}  // namespace

bool RewriteToClassicBmp(std::string& bytes) {
  if (bytes.size() < kFileHeaderSize + 56 || bytes[0] != 'B' || bytes[1] != 'M') return false;
  const std::uint32_t header_size = Read32(bytes, kFileHeaderSize);
  if (!IsNewerInfoHeader(header_size)) return false;
  const std::size_t info = kFileHeaderSize;
  const std::size_t pixel_offset = Read32(bytes, 10);
  const std::size_t table_offset = info + header_size;
  if (bytes.size() < table_offset || pixel_offset < table_offset || pixel_offset > bytes.size()) return false;

  const auto width = static_cast<std::int32_t>(Read32(bytes, info + 4));
  const auto height = static_cast<std::int32_t>(Read32(bytes, info + 8));
  const std::uint16_t bit_count = Read16(bytes, info + 14);
  std::uint32_t compression = Read32(bytes, info + 16);
  const std::uint64_t rows = static_cast<std::uint64_t>(std::llabs(static_cast<long long>(height)));
  if (width <= 0 || rows == 0 || static_cast<std::uint64_t>(width) * rows > kMostPixels) return false;
  std::uint32_t red = Read32(bytes, info + 40), green = Read32(bytes, info + 44), blue = Read32(bytes, info + 48);
  const std::uint32_t alpha = header_size >= 56 ? Read32(bytes, info + 52) : 0;

  const bool masked = compression == kBitFields || compression == kAlphaBitFields;
  if (masked && bit_count != 16 && bit_count != 32) return false;
  if (!masked && compression != kRgb && compression != kRle8 && compression != kRle4) return false;
  if (bit_count == 32 && !masked) red = 0xFF0000, green = 0xFF00, blue = 0xFF;

  // The colour table: as many entries as the header says, or all of a palette image's, as far as
  // the file holds them before the pixels.
  std::uint64_t colours = Read32(bytes, info + 32);
  if (colours == 0 && bit_count <= 8) colours = std::uint64_t{1} << bit_count;
  const std::size_t table_bytes =
      static_cast<std::size_t>(std::min<std::uint64_t>(colours * 4, pixel_offset - table_offset));

  std::string pixels = bytes.substr(pixel_offset);
  std::string masks;
  if (bit_count == 32) {
    pixels = RepackPixels32(pixels, red, green, blue, alpha);
    compression = kRgb;
  } else if (masked) {
    Put32(masks, red);
    Put32(masks, green);
    Put32(masks, blue);
    compression = kBitFields;
  }

  std::string out;
  const std::size_t new_pixel_offset = kFileHeaderSize + kClassicHeaderSize + masks.size() + table_bytes;
  out.reserve(new_pixel_offset + pixels.size());
  out += "BM";
  Put32(out, static_cast<std::uint32_t>(new_pixel_offset + pixels.size()));
  Put32(out, 0);
  Put32(out, static_cast<std::uint32_t>(new_pixel_offset));
  Put32(out, kClassicHeaderSize);
  Put32(out, static_cast<std::uint32_t>(width));
  Put32(out, static_cast<std::uint32_t>(height));
  Put16(out, 1);
  Put16(out, bit_count);
  Put32(out, compression);
  out.append(bytes, info + 20, 12);  // image size and resolution
  Put32(out, static_cast<std::uint32_t>(table_bytes / 4));
  Put32(out, Read32(bytes, info + 36));
  out += masks;
  out.append(bytes, table_offset, table_bytes);
  out += pixels;
  bytes = std::move(out);
  return true;
}

std::optional<std::string> ClassicBmpFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  // The header size first: a file of any other form is left to FreeImage without being read here.
  std::string start(kFileHeaderSize + 4, '\0');
  if (!file.read(start.data(), static_cast<std::streamsize>(start.size())) ||
      !IsNewerInfoHeader(Read32(start, kFileHeaderSize)))
    return std::nullopt;
  std::string bytes = start + std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (!RewriteToClassicBmp(bytes)) return std::nullopt;
  return bytes;
}

}  // namespace velmora::imaging
