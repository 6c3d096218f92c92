// In-memory encoding through FreeImage's memory streams, and plain file writing.
#include "imaging/encoded_image.h"

#include <cstdio>
#include <memory>

#include "imaging/export_depth.h"

namespace velmora::imaging {
namespace {

struct MemoryCloser {
  void operator()(FIMEMORY* memory) const { FreeImage_CloseMemory(memory); }
};

bool EncodeOnce(FREE_IMAGE_FORMAT format, FIBITMAP* dib, int flags, std::vector<std::uint8_t>& bytes) {
  std::unique_ptr<FIMEMORY, MemoryCloser> memory(FreeImage_OpenMemory());
  if (!memory || !FreeImage_SaveToMemory(format, dib, memory.get(), flags)) return false;
  BYTE* data = nullptr;
  DWORD size = 0;
  if (!FreeImage_AcquireMemory(memory.get(), &data, &size) || size == 0) return false;
  bytes.assign(data, data + size);
  return true;
}

}  // namespace

bool EncodeToMemory(FIBITMAP* dib, int format, int flags, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  if (!dib || format < 0 || format >= FreeImage_GetFIFCount()) return false;
  const auto target = static_cast<FREE_IMAGE_FORMAT>(format);
  if (!FreeImage_FIFSupportsWriting(target)) return false;
  ExportPage page;
  if (!PrepareForExport(dib, target, page)) return false;
  if (EncodeOnce(target, page.dib, flags, bytes)) return true;
  return flags != 0 && EncodeOnce(target, page.dib, 0, bytes);
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
