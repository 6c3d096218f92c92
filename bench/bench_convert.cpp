// velmora-bench-convert: converts generated 12-megapixel JPEGs through a resize, text watermark,
// JPEG chain with the real engine and reports images per second.
//   velmora-bench-convert [--images N] [--width W] [--height H] [--folder DIR]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "engine/go_process.h"
#include "imaging/allocator_tuning.h"
#include "scripts/sample_images.h"

namespace {

// Counts nothing and shows nothing: the benchmark measures the run alone.
class SilentView : public velmora::engine::RunView {
 public:
  int failures = 0;
  void SetStatus(const std::string&) override {}
  void SetFile(const std::string&) override {}
  void SetProgressRange(int, int) override {}
  void SetProgressValue(int) override {}
  void ShowWait(bool) override {}
  void SetWaitLabel(const std::string&) override {}
  void PreviewFrameSize(int& w, int& h) override { w = h = 0; }
  void ShowPreview(const velmora::imaging::DisplayPicture&, int, int) override {}
  void OpenFolder(const std::string&) override {}
  void Yield() override {}
  void LogFailure(const std::string& message) override {
    ++failures;
    std::fprintf(stderr, "warning: %s\n", message.c_str());
  }
};

}  // namespace

int main(int argc, char** argv) {
  // Set VELMORA_BENCH_DEFAULT_MALLOC to measure with the allocator's defaults.
  if (!std::getenv("VELMORA_BENCH_DEFAULT_MALLOC")) velmora::imaging::KeepLargeBuffersForReuse();
  int images = 8, width = 4000, height = 3000;
  std::string folder = (std::filesystem::temp_directory_path() / "velmora-bench").string();
  for (int i = 1; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--images"))
      images = std::atoi(argv[i + 1]);
    else if (!std::strcmp(argv[i], "--width"))
      width = std::atoi(argv[i + 1]);
    else if (!std::strcmp(argv[i], "--height"))
      height = std::atoi(argv[i + 1]);
    else if (!std::strcmp(argv[i], "--folder"))
      folder = argv[i + 1];
  }
  namespace fs = std::filesystem;
  const fs::path sources = fs::path(folder) / "sources", output = fs::path(folder) / "output";
  fs::create_directories(sources);
  fs::remove_all(output);

  velmora::engine::SourceList list;
  for (int i = 0; i < images; ++i) {
    const std::string path =
        (sources / ("photo" + std::to_string(i) + "_" + std::to_string(width) + "x" + std::to_string(height) + ".jpg"))
            .string();
    if (!fs::exists(path) && !velmora::samples::WritePhotoJpeg(path, width, height, 90, 100 + i)) {
      std::fprintf(stderr, "cannot write %s\n", path.c_str());
      return 1;
    }
    list.rows.push_back(path);
  }

  using namespace velmora::engine;
  AppState state;
  state.settings.AlwaysCreateOutputFolder = kTrue;
  state.settings.IfOutputFileExists = 1;
  state.output.OutputFolder = output.string() + "/";
  state.output.OpenTargetFolder = kFalse;
  Block text = NewBlock(kWatermark, 0);
  text.WatermarkSource = "(c) Velmora";
  text.WatermarkFont = "16777215|False|False|False|DejaVu Sans|36|True";
  text.HAlign = 1;
  text.VAlign = 1;
  text.HOffset = 20;
  text.VOffset = 20;
  state.blocks = Blocks({NewBlock(kResize), text});

  SilentView view;
  const auto start = std::chrono::steady_clock::now();
  GoProcess2(state, list, view);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("%d images of %dx%d: resize 50%% + text watermark + JPEG q90\n", images, width, height);
  std::printf("%.2f s, %.3f images/s\n", seconds, images / seconds);
  return view.failures == 0 ? 0 : 1;
}
