// velmora-make-samples FOLDER: writes the bundled sample images into FOLDER.
#include <cstdio>
#include <filesystem>

#include "imaging/tiff_messages.h"
#include "scripts/sample_images.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: velmora-make-samples FOLDER\n");
    return 2;
  }
  velmora::imaging::SilenceTiffMessages();
  std::error_code error;
  std::filesystem::create_directories(argv[1], error);
  const auto written = velmora::samples::WriteSampleSet(argv[1]);
  for (const auto& path : written) std::printf("%s\n", path.c_str());
  return written.size() == 8 ? 0 : 1;
}
