// PreviewNow2 over a recording view: the source box, the preview run and the fit of the boxes.
#include <gtest/gtest.h>

#include "engine/paths.h"
#include "preview/preview_now.h"
#include "preview/viewer_target.h"
#include "scripts/sample_images.h"
#include "tests/support/test_support.h"

namespace velmora::preview {
namespace {

// The shared recording view for the run's outputs, with counters for the source box, and boxes
// of the window's design size.
class RecordingPreviewView : public testing::RecordingViewOf<PreviewView> {
 public:
  RecordingPreviewView() {
    frame_width = 215;
    frame_height = 191;
  }
  int original_shown = 0, no_original = 0, cleared = 0;
  imaging::DisplayPicture original;
  int original_top = 0, original_left = 0;
  void OriginalFrameSize(int& width, int& height) override {
    width = 215;
    height = 191;
  }
  void ShowOriginal(const imaging::DisplayPicture& picture, int top, int left) override {
    original = picture;
    original_top = top;
    original_left = left;
    ++original_shown;
  }
  void ShowNoOriginal() override { ++no_original; }
  void ClearBoth() override { ++cleared; }
};

class PreviewNowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    state.AppDataFolder = data.path().string();
    engine::MakePath(state.AppDataFolder + "/Temp/");
    state.output.OutputFolder = data.slash();
  }
  testing::TempFolder data;
  engine::AppState state;
  RecordingPreviewView view;
};

const std::string kWorker = VELMORA_BINARY_DIR "/app/velmora-worker";

TEST(FitSourceBox, TheRuleOfTheBoxes) {
  EXPECT_FALSE(FitSourceBox(100, 100, 215, 191).rescale);
  EXPECT_FALSE(FitSourceBox(215, 191, 215, 191).rescale);  // exactly the box
  const BoxFit square = FitSourceBox(300, 300, 215, 191);
  EXPECT_TRUE(square.rescale);
  EXPECT_EQ(square.width, 215);
  EXPECT_EQ(square.height, 215);  // clipped at top and bottom
  const BoxFit wide = FitSourceBox(400, 100, 215, 191);
  EXPECT_EQ(wide.width, 215);
  EXPECT_EQ(wide.height, 54);
  const BoxFit tall = FitSourceBox(100, 400, 215, 191);
  EXPECT_EQ(tall.width, 48);
  EXPECT_EQ(tall.height, 191);
  // Wider than tall, narrower than the box but higher: line 4 enlarges it to the box's width.
  const BoxFit line4 = FitSourceBox(210, 200, 215, 191);
  EXPECT_EQ(line4.width, 215);
  EXPECT_EQ(line4.height, 205);
  // A square higher than the box but not wider matches no line.
  EXPECT_FALSE(FitSourceBox(200, 200, 215, 191).rescale);
}

TEST(CentreInBox, PicturesStandInTheMiddle) {
  int top = 0, left = 0;
  CentreInBox(100, 100, 215, 191, top, left);
  EXPECT_EQ(top, 46);   // 95.5 - 50 = 45.5, to the even neighbour
  EXPECT_EQ(left, 58);  // 107.5 - 50 = 57.5
  CentreInBox(215, 215, 215, 191, top, left);
  EXPECT_EQ(top, -12);
  EXPECT_EQ(left, 0);
}

TEST_F(PreviewNowTest, AnEmptyListClearsBothBoxes) {
  PreviewNow2(state, engine::SourceList{}, view);
  EXPECT_EQ(view.cleared, 1);
  EXPECT_EQ(view.pictures_shown, 0);
  EXPECT_EQ(state.preview.PreviewMode, engine::kFalse);
}

TEST_F(PreviewNowTest, TheSelectedImageIsShownAndConvertedIntoThePreviewFile) {
  const std::string source = data.file("photo.jpg");
  ASSERT_TRUE(samples::WritePhotoJpeg(source, 100, 100));
  engine::Block mirror = engine::NewBlock(engine::kMirror);
  state.blocks = engine::Blocks({mirror});
  state.output.OutputFormat = 3;  // PNG, in spite of the file's name
  PreviewNow2(state, engine::SourceList{{source}, 0}, view);

  EXPECT_EQ(view.original_shown, 1);
  EXPECT_EQ(view.original.width, 100u);
  EXPECT_EQ(view.original_top, 46);
  EXPECT_EQ(view.original_left, 58);
  EXPECT_EQ(view.pictures_shown, 1);
  EXPECT_EQ(view.picture.width, 100u);
  EXPECT_EQ(view.wait_labels.front(), "0%");
  EXPECT_EQ(view.wait_labels.back(), "100%");
  EXPECT_FALSE(view.wait_shown);
  const testing::ImageFacts facts = testing::ReadImageFacts(PreviewFilePath(state));
  EXPECT_TRUE(facts.readable);
  EXPECT_EQ(facts.format, 13);  // PNG
  EXPECT_EQ(state.WrittenFiles.UpperBound(), 1);
  EXPECT_EQ(state.WrittenFiles[0], PreviewFilePath(state));
  EXPECT_EQ(state.preview.PreviewMode, engine::kFalse);
  EXPECT_EQ(view.LastStatus(), "Completed.");
}

// In this process and in a worker process alike.
TEST_F(PreviewNowTest, ALargeImageIsFittedInBothBoxes) {
  const std::string source = data.file("wide.jpg");
  ASSERT_TRUE(samples::WritePhotoJpeg(source, 860, 430));
  std::vector<std::vector<std::uint8_t>> pixels;
  for (const engine::WorkerLimits& workers : {engine::WorkerLimits{}, engine::WorkerLimits{kWorker}}) {
    RecordingPreviewView view;
    PreviewNow2(state, engine::SourceList{{source}, 0}, view, workers);
    EXPECT_EQ(view.original.width, 215u);
    EXPECT_EQ(view.original.height, 108u);
    EXPECT_EQ(view.picture.width, 215u);
    EXPECT_EQ(view.picture.height, 108u);
    pixels.push_back(view.original.rgba);
    pixels.push_back(view.picture.rgba);
  }
  EXPECT_TRUE(pixels[0] == pixels[2] && pixels[1] == pixels[3]);
}

// A source that FreeImage crashes on is read only by a worker process, which dies in its place.
TEST_F(PreviewNowTest, AnUnreadableOrCrashingSourceShowsNoImageAboveAndStillRuns) {
  const std::string broken = data.file("broken.jpg");
  testing::WriteWholeFile(broken, "not really a picture");
  const std::string crashing = VELMORA_SOURCE_DIR "/tests/fuzz/corpus/crafted/psd_huge_dims.psd";
  const std::pair<std::string, engine::WorkerLimits> cases[] = {
      {broken, {}}, {broken, {kWorker}}, {crashing, {kWorker}}};
  for (const auto& [source, workers] : cases) {
    SCOPED_TRACE(source);
    RecordingPreviewView view;
    PreviewNow2(state, engine::SourceList{{source}, 0}, view, workers);
    EXPECT_EQ(view.no_original, 1);
    EXPECT_EQ(view.original_shown, 0);
    EXPECT_EQ(view.pictures_shown, 0);
    EXPECT_EQ(view.LastStatus(), "Completed.");
  }
}

}  // namespace
}  // namespace velmora::preview
