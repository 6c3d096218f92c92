// A run on several workers, threads or worker processes, writes the same files, byte for byte, as
// a run on one thread, and shows the same texts: names, collision policies, multi-page sources
// and the index all settle in row order.
#include <gtest/gtest.h>

#include <map>

#include "scripts/sample_images.h"
#include "tests/engine/run_fixture.h"

namespace velmora::engine {
namespace {

using FolderBytes = std::map<std::string, std::string>;
const std::string kWorkerProgram = VELMORA_BINARY_DIR "/app/velmora-worker";

// What a run leaves: its files, and the texts it showed and kept (written files, statuses, file
// lines, percent labels, failures, the font state at the end).
struct RunOutcome {
  FolderBytes files;
  std::vector<std::vector<std::string>> texts;
  std::string font;
};

class ParallelRun : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    samples_ = new testing::TempFolder;
    rows_ = samples::WriteSampleSet(samples_->path().string());
    testing::WriteWholeFile(samples_->file("broken.png"), "not an image");
    samples::WritePhotoJpeg(samples_->file("mark.jpg"), 10, 6);
    // Every sample twice, so that later rows collide with the names of earlier ones.
    const std::vector<std::string> once = rows_;
    rows_.insert(rows_.end(), once.begin(), once.end());
    rows_.insert(rows_.begin() + 3, samples_->file("broken.png"));
  }
  static void TearDownTestSuite() { delete samples_; }

  struct Config {
    std::int16_t policy, format, multipage;
    std::vector<Block> chain;  // empty: watermarks of every kind, some borrowing from the page before
  };

  static AppState Job(const std::string& folder, const Config& config) {
    AppState state = MakeJob(folder);
    state.settings.IfOutputFileExists = config.policy;
    state.settings.GenerateHtmlIndex = kTrue;
    state.output.OutputFormat = config.format;
    state.output.MultipageMode = config.multipage;
    state.output.NameTemplate = "{title}.{outputtype}";
    Block text = NewBlock(kWatermark, 0);
    text.WatermarkSource = "Velmora";
    text.WatermarkFont = "255|False|False|False|DejaVu Sans|10|True";
    Block second_text = NewBlock(kWatermark, 0);
    second_text.WatermarkSource = "again";
    second_text.WatermarkFont = "16711680|True";  // inherits the rest from the page before
    second_text.VAlign = 1;
    Block image = NewBlock(kWatermark, 1);
    image.WatermarkSource = samples_->file("mark.jpg");
    Block missing_image = NewBlock(kWatermark, 1);
    missing_image.WatermarkSource = samples_->file("missing.jpg");  // pastes the page before's mark
    missing_image.HAlign = 1;
    state.blocks = config.chain.empty()
                       ? Blocks({NewBlock(kResize), second_text, text, missing_image, image, NewBlock(kEffect)})
                       : Blocks(config.chain);
    return state;
  }

  RunOutcome RunWith(const RunOptions& options, const Config& config) {
    testing::TempFolder out;
    // Files from an earlier run, for the collision policies to meet.
    for (const char* name : {"harbour.jpg", "harbour.tif", "badge.jpg"}) testing::WriteWholeFile(out.file(name), "old");
    AppState state = Job(out.slash(), config);
    testing::RecordingView view;
    GoProcess2(state, SourceList{rows_, -1}, view, options);
    std::vector<std::string> written = state.WrittenFiles.Entries();
    for (std::string& path : written) path = std::filesystem::relative(path, out.path()).string();
    return {testing::ReadFolderFiles(out.path()),
            {written, view.statuses, view.files, view.wait_labels, view.failures},
            FormatWatermarkFont(state.font)};
  }

  static testing::TempFolder* samples_;
  static std::vector<std::string> rows_;
};
testing::TempFolder* ParallelRun::samples_ = nullptr;
std::vector<std::string> ParallelRun::rows_;

TEST_F(ParallelRun, EveryPolicyPageModeAndPageStateMatchesOneThread) {
  Block reuse = NewBlock(kResize), unaligned = NewBlock(kWatermark, 1), right = unaligned;
  reuse.Units = 7;  // an unknown unit: the size the page before computed
  unaligned.WatermarkSource = right.WatermarkSource = samples_->file("mark.jpg");
  unaligned.HAlign = 5;  // an unknown alignment: where the page before's mark went
  right.HAlign = 1;
  // Auto-rename into JPEG page files, overwrite into multipage TIFF files, skip into animated GIFs;
  // then two chains that carry state from page to page.
  const Config configs[] = {{2, 1, 0, {}},
                            {1, 5, 1, {}},
                            {0, 2, 1, {}},
                            {1, 1, 0, {reuse, NewBlock(kResize)}},
                            {1, 1, 0, {unaligned, NewBlock(kResize), right}}};
  for (const Config& config : configs) {
    const RunOutcome one = RunWith(RunOptions{1, {}}, config);
    ASSERT_GT(one.files.size(), rows_.size() / 2);
    for (const RunOptions& options : {RunOptions{4, {}}, RunOptions{3, {kWorkerProgram, 300, 0}}}) {
      SCOPED_TRACE(std::to_string(&config - configs) + (options.workers.program.empty() ? " threads" : " processes"));
      const RunOutcome many = RunWith(options, config);
      EXPECT_EQ(one.texts, many.texts);
      EXPECT_EQ(one.font, many.font);
      EXPECT_TRUE(one.files == many.files);
    }
  }
}

}  // namespace
}  // namespace velmora::engine
