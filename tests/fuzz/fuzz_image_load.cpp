// The work a velmora-worker does on one source: load every page, turn it upright, a chain, the
// depth conversion and the encoding, on a file of any content. The last byte picks the file's
// extension, which steers the icon rule and the format guess for files whose content says nothing,
// the output format, and whether photos are turned upright with their colour profiles kept.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>

#include "engine/run_job.h"
#include "engine/source_work.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const char* const kExtensions[] = {".jpg", ".png", ".tif", ".gif",  ".bmp", ".ico",
                                            ".tga", ".psd", ".exr", ".heic", ".webp"};
  if (size < 1) return 0;
  const std::uint8_t pick = data[size - 1];
  std::string path =
      "/tmp/velmora-fuzz-image-" + std::to_string(::getpid()) + kExtensions[pick % std::size(kExtensions)];
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data, 1, size, file);
  std::fclose(file);

  using namespace velmora::engine;
  AppState state;
  state.output.OutputFormat = static_cast<std::int16_t>(pick % 9);
  state.settings.RotateByCameraOrientation = state.settings.KeepColourProfiles = (pick & 1) ? kTrue : kFalse;
  state.blocks = Blocks({NewBlock(kResize), NewBlock(kRotate)});
  velmora::imaging::ImagingLibrary lib;
  const RunJob job = MakeRunJob(state, lib);
  ChainState chain = ChainStateForRow(job, 0);
  TransformSource(job, lib, path, 0, chain);
  std::remove(path.c_str());
  return 0;
}
