// In-memory encoding through FreeImage's I/O calls, and plain file writing.
#include "imaging/encoded_image.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "imaging/export_depth.h"
#include "imaging/heif/heif_files.h"
#include "imaging/imaging_library.h"
#include "imaging/plain_png.h"

namespace velmora::imaging {
namespace {

// A growing byte buffer behind FreeImage's I/O calls. Unlike FreeImage's own memory streams it
// fills a gap left by a seek past the end with zeros, as a file would: libtiff skips a padding
// byte before each directory, and a memory stream would leave whatever its buffer held there.
struct ByteSink {
  std::vector<std::uint8_t>& bytes;
  std::size_t position = 0;
};

unsigned DLL_CALLCONV SinkWrite(void* buffer, unsigned size, unsigned count, fi_handle handle) {
  auto* sink = static_cast<ByteSink*>(handle);
  const std::size_t length = static_cast<std::size_t>(size) * count;
  if (sink->bytes.size() < sink->position + length) sink->bytes.resize(sink->position + length);
  std::memcpy(sink->bytes.data() + sink->position, buffer, length);
  sink->position += length;
  return count;
}

unsigned DLL_CALLCONV SinkRead(void* buffer, unsigned size, unsigned count, fi_handle handle) {
  auto* sink = static_cast<ByteSink*>(handle);
  const std::size_t available = sink->position < sink->bytes.size() ? sink->bytes.size() - sink->position : 0;
  const std::size_t items = size == 0 ? 0 : std::min<std::size_t>(count, available / size);
  std::memcpy(buffer, sink->bytes.data() + sink->position, items * size);
  sink->position += items * size;
  return static_cast<unsigned>(items);
}

int DLL_CALLCONV SinkSeek(fi_handle handle, long offset, int origin) {
  auto* sink = static_cast<ByteSink*>(handle);
  const long base = origin == SEEK_SET   ? 0
                    : origin == SEEK_CUR ? static_cast<long>(sink->position)
                                         : static_cast<long>(sink->bytes.size());
  if (base + offset < 0) return -1;
  sink->position = static_cast<std::size_t>(base + offset);
  return 0;
}

long DLL_CALLCONV SinkTell(fi_handle handle) {
  return static_cast<long>(static_cast<ByteSink*>(handle)->position);
}

bool EncodeOnce(FREE_IMAGE_FORMAT format, FIBITMAP* dib, int flags, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  ByteSink sink{bytes};
  FreeImageIO io{SinkRead, SinkWrite, SinkSeek, SinkTell};
  if (!FreeImage_SaveToHandle(format, dib, &io, &sink, flags) || bytes.empty()) {
    bytes.clear();
    return false;
  }
  return true;
}

// Flags the encoder refuses are dropped rather than encoding nothing.
bool EncodeWithFallback(FREE_IMAGE_FORMAT format, FIBITMAP* dib, int flags, std::vector<std::uint8_t>& bytes) {
  return EncodeOnce(format, dib, flags, bytes) || (flags != 0 && EncodeOnce(format, dib, 0, bytes));
}

}  // namespace

bool EncodeToMemory(FIBITMAP* dib, int format, int flags, std::vector<std::uint8_t>& bytes, bool keep_colour_profile) {
  bytes.clear();
  if (format == kFormatAvif) return EncodeAvif(dib, flags, bytes);
  if (!dib || format < 0 || format >= FreeImage_GetFIFCount()) return false;
  const auto target = static_cast<FREE_IMAGE_FORMAT>(format);
  if (!FreeImage_FIFSupportsWriting(target)) return false;
  ExportPage page;
  if (!PrepareForExport(dib, target, page, keep_colour_profile)) return false;
  if (target == FIF_PNG && flags == 0 && EncodePlainPng(page.dib, bytes)) return true;
  if (EncodeWithFallback(target, page.dib, flags, bytes)) return true;
  // A colour profile the encoder refuses (libpng checks it against the pixels) costs the profile,
  // not the page.
  const FIICCPROFILE* profile = FreeImage_GetICCProfile(page.dib);
  if (!profile || profile->size <= 0) return false;
  const Bitmap plain(FreeImage_Clone(page.dib));
  if (!plain) return false;
  FreeImage_DestroyICCProfile(plain.get());
  return EncodeWithFallback(target, plain.get(), flags, bytes);
}

bool WriteBytesToFile(const std::vector<std::uint8_t>& bytes, const std::string& path) {
  if (bytes.empty() || path.empty()) return false;
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const bool closed = std::fclose(file) == 0;
  if (written && closed) return true;
  std::remove(path.c_str());
  return false;
}

}  // namespace velmora::imaging
