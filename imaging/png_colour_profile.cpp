// Walking a PNG file's chunks up to the image data and inflating the iCCP chunk.
#include "imaging/png_colour_profile.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>

namespace velmora::imaging {
namespace {

constexpr std::array<std::uint8_t, 8> kPngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
// No real profile comes near this; a chunk that inflates past it is damage.
constexpr std::size_t kLargestProfile = std::size_t{16} << 20;

std::uint32_t BigEndian32(const std::uint8_t* p) {
  return std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8 | p[3];
}

std::vector<std::uint8_t> Inflate(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> out;
  z_stream stream{};
  if (inflateInit(&stream) != Z_OK) return out;
  stream.next_in = const_cast<Bytef*>(data);
  stream.avail_in = static_cast<uInt>(size);
  std::array<std::uint8_t, 16384> buffer{};
  int status = Z_OK;
  while (status == Z_OK && out.size() <= kLargestProfile) {
    stream.next_out = buffer.data();
    stream.avail_out = static_cast<uInt>(buffer.size());
    status = inflate(&stream, Z_NO_FLUSH);
    out.insert(out.end(), buffer.data(), buffer.data() + (buffer.size() - stream.avail_out));
  }
  inflateEnd(&stream);
  if (status != Z_STREAM_END || out.size() > kLargestProfile) out.clear();
  return out;
}

}  // namespace

std::vector<std::uint8_t> ReadPngColourProfile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<std::uint8_t, 8> signature{};
  if (!file.read(reinterpret_cast<char*>(signature.data()), signature.size()) || signature != kPngSignature) return {};
  std::array<std::uint8_t, 8> header{};
  while (file.read(reinterpret_cast<char*>(header.data()), header.size())) {
    const std::uint32_t length = BigEndian32(header.data());
    const std::string type(header.begin() + 4, header.end());
    if (type == "IDAT" || type == "IEND" || length > kLargestProfile) return {};
    if (type != "iCCP") {
      file.seekg(std::streamoff{length} + 4, std::ios::cur);  // the data and its CRC
      continue;
    }
    std::vector<std::uint8_t> chunk(length);
    if (!file.read(reinterpret_cast<char*>(chunk.data()), length)) return {};
    // A name of 1-79 characters, its terminating zero, the compression method (0), the stream.
    const auto name_end = std::find(chunk.begin(), chunk.end(), std::uint8_t{0});
    const std::size_t stream_start = static_cast<std::size_t>(name_end - chunk.begin()) + 2;
    if (name_end == chunk.end() || stream_start > chunk.size() || chunk[stream_start - 1] != 0) return {};
    return Inflate(chunk.data() + stream_start, chunk.size() - stream_start);
  }
  return {};
}

}  // namespace velmora::imaging
