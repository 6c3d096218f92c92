// Structural checks of ICO directories and OpenEXR headers before FreeImage reads them.
#include "imaging/file_sanity.h"

#include <cstdint>
#include <fstream>

namespace velmora::imaging {
namespace {

// Little-endian reads from a file, each failing once the file runs out.
class ByteReader {
 public:
  explicit ByteReader(const std::string& path) : in_(path, std::ios::binary) {
    in_.seekg(0, std::ios::end);
    size_ = in_ ? static_cast<std::uint64_t>(in_.tellg()) : 0;
    in_.seekg(0);
  }
  std::uint64_t size() const { return size_; }
  bool Seek(std::uint64_t offset) { return offset <= size_ && in_.seekg(static_cast<std::streamoff>(offset)); }
  bool Skip(std::uint64_t count) {
    if (!in_) return false;
    const auto here = static_cast<std::uint64_t>(in_.tellg());
    return count <= size_ - here && Seek(here + count);
  }
  bool U8(std::uint8_t& value) {
    char c;
    if (!in_.get(c)) return false;
    value = static_cast<std::uint8_t>(c);
    return true;
  }
  bool Peek(std::uint8_t& value) {
    const auto c = in_.peek();
    if (c == std::char_traits<char>::eof()) return false;
    value = static_cast<std::uint8_t>(c);
    return true;
  }
  bool U16(std::uint16_t& value) { return Little(value, 2); }
  bool U32(std::uint32_t& value) { return Little(value, 4); }
  // A zero-terminated string of at most `limit` characters; `length` gets its length.
  bool Text(std::size_t limit, std::size_t& length) {
    length = 0;
    for (std::uint8_t c = 1; U8(c);) {
      if (c == 0) return true;
      if (++length > limit) return false;
    }
    return false;
  }

 private:
  template <typename T>
  bool Little(T& value, int bytes) {
    value = 0;
    for (int i = 0; i < bytes; ++i) {
      std::uint8_t b;
      if (!U8(b)) return false;
      value |= static_cast<T>(T{b} << (8 * i));
    }
    return true;
  }

  std::ifstream in_;
  std::uint64_t size_ = 0;
};

// The icon directory and each image's header must be in the file, with sizes an icon can have.
bool IcoLooksWhole(ByteReader& file) {
  std::uint16_t reserved = 0, type = 0, count = 0;
  if (!file.U16(reserved) || !file.U16(type) || !file.U16(count)) return false;
  if (reserved != 0 || (type != 1 && type != 2) || count == 0) return false;
  constexpr std::uint64_t kDirectoryStart = 6, kEntrySize = 16, kBitmapHeader = 40;
  if (file.size() < kDirectoryStart + kEntrySize * count) return false;
  for (std::uint16_t entry = 0; entry < count; ++entry) {
    std::uint32_t offset = 0;
    if (!file.Seek(kDirectoryStart + kEntrySize * entry + 12) || !file.U32(offset)) return false;
    if (std::uint64_t{offset} + kBitmapHeader > file.size()) return false;
    std::uint32_t header_size = 0, width = 0, height = 0;
    if (!file.Seek(offset) || !file.U32(header_size)) return false;
    if (header_size == 0x474E5089) continue;  // "\x89PNG": a PNG image, checked by its own reader
    if (!file.U32(width) || !file.U32(height)) return false;
    // Heights count the mask too; 4096 is far beyond any real icon.
    const auto signed_height = static_cast<std::int32_t>(height);
    if (width == 0 || width > 4096 || signed_height == 0 || signed_height > 8192 || signed_height < -8192) return false;
  }
  return true;
}

// One header: attributes (name, type, size, value) up to an empty name, all within the file.
bool ExrHeaderLooksWhole(ByteReader& file, std::size_t name_limit) {
  for (;;) {
    std::size_t name = 0, type = 0;
    if (!file.Text(name_limit, name)) return false;
    if (name == 0) return true;
    std::uint32_t size = 0;
    if (!file.Text(name_limit, type) || type == 0 || !file.U32(size) || !file.Skip(size)) return false;
  }
}

// Every header must be whole, and something (the offset tables) must follow them.
bool ExrLooksWhole(ByteReader& file) {
  std::uint32_t magic = 0, version = 0;
  if (!file.U32(magic) || !file.U32(version) || magic != 20000630) return false;
  const std::size_t name_limit = (version & 0x400) ? 255 : 31;
  const bool multipart = version & 0x1000;
  for (;;) {
    if (!ExrHeaderLooksWhole(file, name_limit)) return false;
    if (!multipart) break;
    // In a multipart file an empty header (a lone zero) closes the list.
    std::uint8_t next = 0;
    if (!file.Peek(next)) return false;
    if (next == 0) {
      file.U8(next);
      break;
    }
  }
  std::uint8_t rest = 0;
  return file.Peek(rest);
}

// Skips data sub-blocks up to and including the empty one that ends them.
bool SkipSubBlocks(ByteReader& file) {
  for (std::uint8_t size = 1; file.U8(size);) {
    if (size == 0) return true;
    if (!file.Skip(size)) return false;
  }
  return false;
}

}  // namespace

bool GifFramesFitScreen(const std::string& path) {
  ByteReader file(path);
  std::uint16_t screen_width = 0, screen_height = 0;
  std::uint8_t packed = 0;
  if (!file.Seek(6) || !file.U16(screen_width) || !file.U16(screen_height) || !file.U8(packed) || !file.Skip(2))
    return false;
  if ((packed & 0x80) && !file.Skip(3u << ((packed & 7) + 1))) return false;
  for (std::uint8_t block = 0; file.U8(block);) {
    if (block == 0x3B) return true;  // trailer
    if (block == 0x21) {             // extension: label, then sub-blocks
      if (!file.Skip(1) || !SkipSubBlocks(file)) return false;
      continue;
    }
    if (block != 0x2C) return true;  // the reader stops here too
    std::uint16_t left = 0, top = 0, width = 0, height = 0;
    if (!file.U16(left) || !file.U16(top) || !file.U16(width) || !file.U16(height) || !file.U8(packed)) return false;
    if (left + width > screen_width || top + height > screen_height) return false;
    if ((packed & 0x80) && !file.Skip(3u << ((packed & 7) + 1))) return false;
    if (!file.Skip(1) || !SkipSubBlocks(file)) return false;  // LZW code size, image data
  }
  return true;  // a file cut short after whole frames: the frames there fit
}

bool PixelCountIsPlausible(FIBITMAP* header) {
  return std::uint64_t{FreeImage_GetWidth(header)} * FreeImage_GetHeight(header) <= kMostPlausiblePixels;
}

bool SafeToRead(FREE_IMAGE_FORMAT format, const std::string& path) {
  if (format != FIF_ICO && format != FIF_EXR) return true;
  ByteReader file(path);
  if (file.size() == 0) return false;
  return format == FIF_ICO ? IcoLooksWhole(file) : ExrLooksWhole(file);
}

}  // namespace velmora::imaging
