// The preview without the window: PreviewNow2 over a recording view (the source box, the preview run
// and the fit of the boxes) and the Timer2 pass over a host that records the workers it starts.
#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "engine/paths.h"
#include "preview/preview_now.h"
#include "preview/preview_pass.h"
#include "preview/viewer_target.h"
#include "scripts/sample_images.h"
#include "tests/support/test_support.h"

namespace velmora::preview {
namespace {

// The shared recording view with the source box's calls; both boxes of the window's design size.
class RecordingPreviewView : public testing::RecordingViewOf<PreviewView> {
 public:
  RecordingPreviewView() { frame_width = 215, frame_height = 191; }
  int original_shown = 0, no_original = 0, cleared = 0, original_top = 0, original_left = 0;
  imaging::DisplayPicture original;
  void OriginalFrameSize(int& width, int& height) override { width = 215, height = 191; }
  void ShowOriginal(const imaging::DisplayPicture& picture, int top, int left) override {
    original = picture, original_top = top, original_left = left, ++original_shown;
  }
  void ShowNoOriginal() override { ++no_original; }
  void ClearBoth() override { ++cleared; }
};

// Larger pictures wider than tall take the box's width, taller ones its height, squares the
// width (clipped at top and bottom); one wider than tall, narrower than the box but higher, is
// enlarged to the box's width; the rest keep their size (a fit of 0 by 0).
TEST(FitSourceBox, TheRuleOfTheBoxes) {
  constexpr int kFits[][4] = {{100, 100, 0, 0},    {215, 191, 0, 0},    {200, 200, 0, 0},    {300, 300, 215, 215},
                              {400, 100, 215, 54}, {100, 400, 48, 191}, {210, 200, 215, 205}};
  for (const auto& [width, height, fit_width, fit_height] : kFits) {
    const BoxFit fit = FitSourceBox(width, height, 215, 191);
    EXPECT_EQ((std::array{int(fit.rescale), fit.rescale * fit.width, fit.rescale * fit.height}),
              (std::array{int(fit_width != 0), fit_width, fit_height}))
        << width << " x " << height;
  }
}

// No selected row clears both boxes. An unreadable source shows "No Image" above and the run
// still goes on; a source that FreeImage crashes on is read only by a worker process, which dies
// in its place. A readable one is shown centred in the upper box (95.5 - 50 and 107.5 - 50 to the
// even neighbour; a square larger than the box clipped at top and bottom) and converted into the
// preview file shown in the lower one, in this process and in a worker process alike.
TEST(PreviewNow, TheSelectedSourceIsShownAndConvertedIntoThePreviewFile) {
  testing::TempFolder data;
  engine::AppState state;
  state.AppDataFolder = data.path().string(), state.output.OutputFolder = data.slash();
  engine::MakePath(state.AppDataFolder + "/Temp/");
  const std::string broken = data.file("broken.jpg"), small = data.file("small.jpg"), large = data.file("large.jpg");
  testing::WriteWholeFile(broken, "not really a picture");
  ASSERT_TRUE(samples::WritePhotoJpeg(small, 100, 100) && samples::WritePhotoJpeg(large, 430, 430));
  state.blocks = engine::Blocks({engine::NewBlock(engine::kMirror)});
  state.output.OutputFormat = 3;  // PNG, in spite of the file's name
  const std::string sources[] = {broken, "", VELMORA_SOURCE_DIR "/tests/fuzz/corpus/crafted/psd_huge_dims.psd", small,
                                 large};
  // The source (-1: no rows), the selected row, whether a worker reads it, and what the boxes
  // show: cleared, or a picture's side (0: "No Image") and place in the upper box.
  constexpr int kCases[][7] = {{-1, 0, 0, 1, 0, 0, 0},   {0, -1, 0, 1, 0, 0, 0},    {0, 1, 0, 1, 0, 0, 0},
                               {1, 0, 0, 1, 0, 0, 0},    {0, 0, 0, 0, 0, 0, 0},     {0, 0, 1, 0, 0, 0, 0},
                               {2, 0, 1, 0, 0, 0, 0},    {3, 0, 0, 0, 100, 46, 58}, {4, 0, 0, 0, 215, -12, 0},
                               {4, 0, 1, 0, 215, -12, 0}};
  std::vector<std::vector<std::uint8_t>> pixels;
  for (const auto& [source, selected, worker, cleared, side, top, left] : kCases) {
    SCOPED_TRACE(::testing::Message() << source << " " << selected << " " << worker);
    const std::vector<std::string> rows(source >= 0, source >= 0 ? sources[source] : "");
    RecordingPreviewView view;
    PreviewNow2(state, engine::SourceList{rows, selected}, view,
                engine::WorkerLimits{worker ? VELMORA_BINARY_DIR "/app/velmora-worker" : ""});
    EXPECT_EQ(std::tuple(view.cleared, view.no_original, view.original_shown, view.pictures_shown, view.LastStatus()),
              std::tuple(cleared, int(!cleared && !side), int(side > 0), int(side > 0), cleared ? "" : "Completed."));
    if (!side) continue;
    EXPECT_EQ(
        std::tuple(view.original.width, view.original.height, view.original_top, view.original_left, view.picture.width,
                   view.picture.height, view.wait_shown, view.wait_labels.front() + view.wait_labels.back()),
        std::tuple(side, side, top, left, side, side, false, "0%100%"));
    EXPECT_EQ(testing::ReadImageFacts(PreviewFilePath(state)).format, 13);  // PNG
    EXPECT_EQ(state.WrittenFiles.Entries(), std::vector<std::string>{PreviewFilePath(state)});
    EXPECT_EQ(state.preview.PreviewMode, engine::kFalse);
    pixels.insert(pixels.end(), {view.original.rgba, view.picture.rgba});
  }
  EXPECT_TRUE(pixels[2] == pixels[4] && pixels[3] == pixels[5]);
}

// The window as the pass sees it: its preview marks and the pass's own members.
class FakeHost : public PreviewHost {
 public:
  engine::PreviewFlags flags;
  PreviewPassState pass;
  bool run_page = false;
  int starts = 0, event_runs = 0;
  bool PreviewPaneVisible() override { return true; }  // hidden: the window's tests
  bool RunPageVisible() override { return run_page; }
  void ProcessEvents() override { ++event_runs; }
  std::string SelectedSourceText() override { return "/a.jpg"; }
  void StartPreviewThread() override { ++starts, flags.ThreadRunning = engine::kTrue; }
};

// Passes in a row, the forced mark left set by an earlier refused pass (the hidden pane is left to the window's
// tests, which show it again). Before each pass: the dirty mark, the run page shown, a worker running, the last
// source; after it: the workers started, whether events ran, the forced mark, the last source.
TEST(PreviewPass, TheMarksDecideWhetherAWorkerStarts) {
  FakeHost host;
  host.flags.PreviewForced = engine::kTrue;
  const std::tuple<bool, bool, bool, const char*, int, bool, const char*> kPasses[] = {
      {false, false, false, "", 0, true, ""},             // no dirty mark: nothing at all
      {true, true, false, "", 0, true, ""},               // the run page: the mark is dropped
      {true, false, false, "", 1, false, "/a.jpg"},       // one worker, both marks cleared
      {true, false, true, "/b.jpg", 1, true, "/b.jpg"},   // an edit while it runs: no second one, the edit lost
      {true, false, false, "/a.jpg", 2, false, "/a.jpg"}  // an edit of the chain, the same source: a worker
  };
  for (const auto& [dirty, run_page, running, last, starts, forced, last_after] : kPasses) {
    host.flags.PreviewDirty = dirty ? engine::kTrue : engine::kFalse;
    host.flags.ThreadRunning = running ? engine::kTrue : engine::kFalse;
    host.run_page = run_page, host.pass.LastPreviewFile = last;
    Timer2_Timer(host.flags, host.pass, host);
    EXPECT_EQ(std::tuple(host.starts, host.event_runs > 0, host.flags.PreviewDirty,
                         host.flags.PreviewForced != engine::kFalse, host.pass.LastPreviewFile),
              std::tuple(starts, starts > 0, engine::kFalse, forced, last_after))
        << last << " " << starts;
  }
  EXPECT_EQ(std::tuple(host.pass.thread_priority, host.pass.thread_timeout), std::tuple(2, 5000));
}

}  // namespace
}  // namespace velmora::preview
