// velmora-bench-photos FOLDER JPEGS OTHERS [WIDTH HEIGHT]: writes JPEGS photo-like JPEG files and
// OTHERS each of PNG and TIFF, 4000 x 3000 unless told, skipping files that are already there.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "imaging/tiff_messages.h"
#include "scripts/sample_images.h"

int main(int argc, char** argv) {
  if (argc != 4 && argc != 6) {
    std::fprintf(stderr, "usage: velmora-bench-photos FOLDER JPEGS OTHERS [WIDTH HEIGHT]\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const int jpegs = std::atoi(argv[2]), others = std::atoi(argv[3]);
  const int width = argc == 6 ? std::atoi(argv[4]) : 4000, height = argc == 6 ? std::atoi(argv[5]) : 3000;
  velmora::imaging::SilenceTiffMessages();
  std::filesystem::create_directories(folder);
  auto write = [&](const std::string& name, unsigned seed) {
    const std::string path = (folder / name).string();
    if (std::filesystem::exists(path)) return true;
    const bool written = velmora::samples::WritePhoto(path, width, height, seed);
    if (!written) std::fprintf(stderr, "cannot write %s\n", path.c_str());
    return written;
  };
  char name[64];
  for (int i = 0; i < jpegs; ++i) {
    std::snprintf(name, sizeof name, "photo%03d.jpg", i);
    if (!write(name, 100 + i)) return 1;
  }
  for (int i = 0; i < others; ++i) {
    std::snprintf(name, sizeof name, "drawing%03d.png", i);
    if (!write(name, 500 + i)) return 1;
    std::snprintf(name, sizeof name, "scan%03d.tif", i);
    if (!write(name, 700 + i)) return 1;
  }
  return 0;
}
