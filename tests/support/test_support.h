// Shared test fixtures: a temporary folder per test, a RunView that records what a run shows,
// and a reader that reports what an image file really holds.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "engine/run_view.h"

struct FIBITMAP;

namespace velmora::testing {

// A fresh folder under the system temp folder, removed with its contents when the object goes.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }
  // The folder as a string with a trailing separator, the form output folders take.
  std::string slash() const { return path_.string() + "/"; }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// What a file read back through FreeImage holds.
struct ImageFacts {
  bool readable = false;
  int format = -1;  // FreeImage format number detected from the content
  unsigned width = 0, height = 0, bpp = 0;
  int image_type = 0;  // FREE_IMAGE_TYPE
  int pages = 0;
};
ImageFacts ReadImageFacts(const std::string& path);

// Mean absolute difference of the red, green and blue samples of two pages at 8 bits; 1e9 when their sizes differ.
double MeanDifference(FIBITMAP* a, FIBITMAP* b);
// The page's ICC profile as bytes; empty when it has none.
std::string ColourProfileOf(FIBITMAP* dib);
// Runs libheif's own encoder (heif-enc) in `folder`: one HEIF file `out` of the images `sources` (names separated by
// spaces); the extension picks HEVC or AV1.
bool HeifEnc(const std::filesystem::path& folder, const std::string& sources, const std::string& out,
             const std::string& options = "-q 95");

// A RunView that keeps everything it is told.
// Records what a run shows; `Base` is the view interface it stands for (a preview view adds the
// source box to the run's outputs).
template <typename Base = engine::RunView>
class RecordingViewOf : public Base {
 public:
  std::vector<std::string> statuses, files, wait_labels, opened_folders, failures;
  int progress_min = 0, progress_max = 0, progress_value = -1;
  int frame_width = 400, frame_height = 300;
  bool wait_shown = false;
  int yields = 0;
  imaging::DisplayPicture picture;
  int picture_top = 0, picture_left = 0, pictures_shown = 0;

  void SetStatus(const std::string& text) override { statuses.push_back(text); }
  void SetFile(const std::string& text) override { files.push_back(text); }
  void SetProgressRange(int minimum, int maximum) override {
    progress_min = minimum;
    progress_max = maximum;
  }
  void SetProgressValue(int value) override { progress_value = value; }
  void ShowWait(bool shown) override { wait_shown = shown; }
  void SetWaitLabel(const std::string& text) override { wait_labels.push_back(text); }
  void PreviewFrameSize(int& width, int& height) override {
    width = frame_width;
    height = frame_height;
  }
  void ShowPreview(const imaging::DisplayPicture& shown, int top, int left) override {
    picture = shown;
    picture_top = top;
    picture_left = left;
    ++pictures_shown;
  }
  void OpenFolder(const std::string& folder) override { opened_folders.push_back(folder); }
  void Yield() override { ++yields; }
  void LogFailure(const std::string& message) override { failures.push_back(message); }

  std::string LastStatus() const { return statuses.empty() ? "" : statuses.back(); }
  std::string LastFile() const { return files.empty() ? "" : files.back(); }
};
using RecordingView = RecordingViewOf<>;

std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& content);
// Every file under `folder`, by its path relative to it, with its bytes; none when it is missing.
std::map<std::string, std::string> ReadFolderFiles(const std::filesystem::path& folder);

}  // namespace velmora::testing
