// Shared test fixtures.
#include "tests/support/test_support.h"

#include <FreeImage.h>

#include <unistd.h>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace velmora::testing {

TempFolder::TempFolder() {
  static std::atomic<int> counter{0};
  std::random_device seed;
  path_ = std::filesystem::temp_directory_path() / ("velmora-test-" + std::to_string(::getpid()) + "-" +
                                                    std::to_string(counter++) + "-" + std::to_string(seed() % 100000));
  std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

double MeanDifference(FIBITMAP* a, FIBITMAP* b) {
  FIBITMAP* a8 = FreeImage_ConvertTo24Bits(a);
  FIBITMAP* b8 = FreeImage_ConvertTo24Bits(b);
  const unsigned width = FreeImage_GetWidth(a8), height = FreeImage_GetHeight(a8);
  const bool same = width > 0 && height > 0 && width == FreeImage_GetWidth(b8) && height == FreeImage_GetHeight(b8);
  double sum = 0;
  for (unsigned y = 0; same && y < height; ++y) {
    const BYTE *pa = FreeImage_GetScanLine(a8, int(y)), *pb = FreeImage_GetScanLine(b8, int(y));
    for (unsigned i = 0; i < width * 3; ++i) sum += std::abs(pa[i] - pb[i]);
  }
  FreeImage_Unload(a8), FreeImage_Unload(b8);
  return same ? sum / (3.0 * width * height) : 1e9;
}

std::string ColourProfileOf(FIBITMAP* dib) {
  const FIICCPROFILE* profile = FreeImage_GetICCProfile(dib);
  return profile->size > 0 ? std::string(static_cast<const char*>(profile->data), std::size_t(profile->size)) : "";
}

bool HeifEnc(const std::filesystem::path& folder, const std::string& sources, const std::string& out,
             const std::string& options) {
  const std::string command = "cd '" + folder.string() + "' && heif-enc " + options + " -o " + out + " " + sources;
  return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

ImageFacts ReadImageFacts(const std::string& path) {
  ImageFacts facts;
  const FREE_IMAGE_FORMAT format = FreeImage_GetFileType(path.c_str(), 0);
  facts.format = format;
  if (format == FIF_UNKNOWN) return facts;
  if (format == FIF_GIF || format == FIF_TIFF || format == FIF_ICO) {
    if (FIMULTIBITMAP* multi = FreeImage_OpenMultiBitmap(format, path.c_str(), FALSE, TRUE, TRUE)) {
      facts.pages = FreeImage_GetPageCount(multi);
      FreeImage_CloseMultiBitmap(multi);
    }
  } else {
    facts.pages = 1;
  }
  FIBITMAP* dib = FreeImage_Load(format, path.c_str(), format == FIF_GIF ? GIF_LOAD256 : 0);
  if (!dib) return facts;
  facts.readable = true;
  facts.width = FreeImage_GetWidth(dib);
  facts.height = FreeImage_GetHeight(dib);
  facts.bpp = FreeImage_GetBPP(dib);
  facts.image_type = FreeImage_GetImageType(dib);
  FreeImage_Unload(dib);
  return facts;
}

std::string ReadWholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream buffer;
  buffer << in.rdbuf();
  return buffer.str();
}

void WriteWholeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
}

std::map<std::string, std::string> ReadFolderFiles(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  std::error_code error;
  for (std::filesystem::recursive_directory_iterator it(folder, error), end; it != end; ++it)
    if (it->is_regular_file())
      files[std::filesystem::relative(it->path(), folder).string()] = ReadWholeFile(it->path().string());
  return files;
}

}  // namespace velmora::testing
