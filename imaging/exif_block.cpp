// EXIF orientation: reading and patching the tag in the TIFF structure, and the turns it asks for.
#include "imaging/exif_block.h"

#include <cstring>
#include <fstream>

namespace velmora::imaging {
namespace {

constexpr std::uint16_t kOrientationTag = 0x0112;
constexpr std::uint16_t kShortType = 3;
constexpr char kExifMark[] = "Exif\0\0";  // six bytes before the TIFF header in JPEG and WebP
constexpr std::size_t kExifMarkLength = 6;

// Reads and writes the numbers of a TIFF structure in its own byte order.
class TiffBytes {
 public:
  explicit TiffBytes(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {
    big_endian_ = bytes.size() >= 8 && bytes[0] == 'M' && bytes[1] == 'M';
    valid_ = bytes.size() >= 8 && (big_endian_ || (bytes[0] == 'I' && bytes[1] == 'I')) && U16(2) == 42;
  }

  // The offset of the orientation entry's value in the directory at `directory` (the first one
  // when 0), or 0.
  std::size_t OrientationValue(std::size_t directory = 0) const {
    if (!valid_) return 0;
    if (directory == 0) directory = U32(4);
    if (directory < 8 || directory + 2 > bytes_.size()) return 0;
    const std::size_t entries = U16(directory);
    for (std::size_t i = 0; i < entries; ++i) {
      const std::size_t entry = directory + 2 + i * 12;
      if (entry + 12 > bytes_.size()) return 0;
      if (U16(entry) == kOrientationTag && U16(entry + 2) == kShortType) return entry + 8;
    }
    return 0;
  }

  std::uint16_t U16(std::size_t at) const {
    return big_endian_ ? static_cast<std::uint16_t>(bytes_[at] << 8 | bytes_[at + 1])
                       : static_cast<std::uint16_t>(bytes_[at + 1] << 8 | bytes_[at]);
  }
  std::uint32_t U32(std::size_t at) const {
    const std::uint32_t high = U16(big_endian_ ? at : at + 2), low = U16(big_endian_ ? at + 2 : at);
    return high << 16 | low;
  }
  void SetU16(std::size_t at, std::uint16_t value) {
    bytes_[at + (big_endian_ ? 0 : 1)] = static_cast<std::uint8_t>(value >> 8);
    bytes_[at + (big_endian_ ? 1 : 0)] = static_cast<std::uint8_t>(value & 0xFF);
  }

 private:
  std::vector<std::uint8_t>& bytes_;
  bool big_endian_ = false;
  bool valid_ = false;
};

FITAG* MainOrientationTag(FIBITMAP* dib) {
  FITAG* tag = nullptr;
  FreeImage_GetMetadata(FIMD_EXIF_MAIN, dib, "Orientation", &tag);
  if (!tag || FreeImage_GetTagType(tag) != FIDT_SHORT || FreeImage_GetTagCount(tag) < 1) return nullptr;
  return tag;
}

void RecordUpright(FIBITMAP* dib) {
  if (FITAG* tag = MainOrientationTag(dib)) {
    FITAG* copy = FreeImage_CloneTag(tag);
    const WORD upright = 1;
    FreeImage_SetTagValue(copy, &upright);
    FreeImage_SetMetadata(FIMD_EXIF_MAIN, dib, "Orientation", copy);
    FreeImage_DeleteTag(copy);
  }
  std::vector<std::uint8_t> raw = RawExifOf(dib);
  if (!raw.empty()) {
    SetTiffOrientation(raw, 1);
    AttachRawExif(dib, raw);
  }
}

// One step of the turn: the new page takes the old one's metadata and colour profile.
bool Replace(Bitmap& page, FIBITMAP* turned) {
  if (!turned) return false;
  FreeImage_CloneMetadata(turned, page.get());
  CloneColourProfile(turned, page.get());
  page.reset(turned);
  return true;
}

// The orientation (1-8) the directory at `directory` of a TIFF structure records (the first
// directory when 0); 1 when it records none.
int OrientationIn(std::vector<std::uint8_t> tiff, std::size_t directory) {
  const TiffBytes reader(tiff);
  const std::size_t at = reader.OrientationValue(directory);
  const int value = at ? reader.U16(at) : 1;
  return value >= 1 && value <= 8 ? value : 1;
}

}  // namespace

int TiffOrientation(const std::vector<std::uint8_t>& tiff) {
  return OrientationIn(tiff, 0);
}

void SetTiffOrientation(std::vector<std::uint8_t>& tiff, int orientation) {
  TiffBytes writer(tiff);
  if (const std::size_t at = writer.OrientationValue()) writer.SetU16(at, static_cast<std::uint16_t>(orientation));
}

std::vector<std::uint8_t> RawExifOf(FIBITMAP* dib) {
  FITAG* tag = nullptr;
  FreeImage_GetMetadata(FIMD_EXIF_RAW, dib, "ExifRaw", &tag);
  if (!tag) return {};
  const auto* value = static_cast<const std::uint8_t*>(FreeImage_GetTagValue(tag));
  const std::size_t length = FreeImage_GetTagLength(tag);
  if (!value || length <= kExifMarkLength || std::memcmp(value, kExifMark, kExifMarkLength) != 0) return {};
  return std::vector<std::uint8_t>(value + kExifMarkLength, value + length);
}

void AttachRawExif(FIBITMAP* dib, const std::vector<std::uint8_t>& tiff) {
  std::vector<std::uint8_t> block(kExifMark, kExifMark + kExifMarkLength);
  block.insert(block.end(), tiff.begin(), tiff.end());
  FITAG* tag = FreeImage_CreateTag();
  if (!tag) return;
  FreeImage_SetTagKey(tag, "ExifRaw");
  FreeImage_SetTagLength(tag, static_cast<DWORD>(block.size()));
  FreeImage_SetTagCount(tag, static_cast<DWORD>(block.size()));
  FreeImage_SetTagType(tag, FIDT_BYTE);
  FreeImage_SetTagValue(tag, block.data());
  FreeImage_SetMetadata(FIMD_EXIF_RAW, dib, "ExifRaw", tag);
  FreeImage_DeleteTag(tag);
}

int CameraOrientation(FIBITMAP* dib) {
  if (!dib) return 1;
  if (FITAG* tag = MainOrientationTag(dib)) {
    const WORD value = *static_cast<const WORD*>(FreeImage_GetTagValue(tag));
    return value >= 1 && value <= 8 ? value : 1;
  }
  return TiffOrientation(RawExifOf(dib));
}

int TiffFileOrientation(const std::string& path, int page) {
  // Enough of the file for the header, or for one directory of at most this many entries.
  constexpr std::size_t kMostEntries = 4096;
  std::ifstream file(path, std::ios::binary);
  std::vector<std::uint8_t> bytes(8);
  if (!file.read(reinterpret_cast<char*>(bytes.data()), 8)) return 1;
  std::uint32_t directory = TiffBytes(bytes).U32(4);
  for (int index = 0; directory != 0 && index <= page; ++index) {
    // The header, for its byte order, and then the directory alone, at offset 8.
    std::vector<std::uint8_t> block = bytes;
    block.resize(10);
    if (!file.seekg(directory) || !file.read(reinterpret_cast<char*>(block.data()) + 8, 2)) return 1;
    const std::size_t entries = TiffBytes(block).U16(8);
    if (entries > kMostEntries) return 1;
    block.resize(block.size() + entries * 12 + 4);
    if (!file.read(reinterpret_cast<char*>(block.data()) + 10, static_cast<std::streamsize>(entries * 12 + 4)))
      return 1;
    if (index == page) return OrientationIn(std::move(block), 8);
    directory = TiffBytes(block).U32(10 + entries * 12);
  }
  return 1;
}

bool TurnUpright(Bitmap& page, int orientation) {
  if (orientation == 0) orientation = CameraOrientation(page.get());
  if (orientation == 1) return true;
  // Positive angles turn anticlockwise. Orientations 5 and 7 are a quarter turn and a mirror.
  const bool mirror = orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
  double angle = 0;
  if (orientation == 3 || orientation == 4) angle = 180;
  if (orientation == 5 || orientation == 6) angle = -90;
  if (orientation == 7 || orientation == 8) angle = 90;
  if (angle != 0 && !Replace(page, FreeImage_Rotate(page.get(), angle))) return false;
  if (mirror && !FreeImage_FlipHorizontal(page.get())) return false;
  RecordUpright(page.get());
  return true;
}

}  // namespace velmora::imaging
