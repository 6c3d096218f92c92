// Names on disk: collision policies against real files, multi-page sources and the index page.
#include <gtest/gtest.h>

#include "engine/html_index.h"
#include "scripts/sample_images.h"
#include "tests/engine/run_fixture.h"

namespace velmora::engine {
namespace {

class RunNaming : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(WriteSolidImage(src.file("pic.png"), 12, 10, 0xFF0000));
    state = MakeJob(out.slash());
    state.output.NameTemplate = "{title}.{outputtype}";
    state.output.OutputFormat = 3;  // PNG
  }
  testing::TempFolder src, out;
  AppState state;
};

TEST_F(RunNaming, SkipLeavesTheExistingFileAndCountsTheSource) {
  testing::WriteWholeFile(out.file("pic.png"), "keep me");
  state.settings.IfOutputFileExists = 0;
  state.settings.GenerateHtmlIndex = kTrue;
  const testing::RecordingView view = RunJob(state, {src.file("pic.png")});
  EXPECT_EQ(testing::ReadWholeFile(out.file("pic.png")), "keep me");
  EXPECT_EQ(state.SkipCounter, 1);
  EXPECT_EQ(state.WrittenFiles.UpperBound(), 0);
  EXPECT_EQ(view.LastFile(), "1 file(s) processed. 1 file(s) skipped.");
  const std::string index = testing::ReadWholeFile(out.file("index.html"));
  EXPECT_NE(index.find("<img src='' border=0"), std::string::npos);  // a cell with empty names
}

TEST_F(RunNaming, OverwriteKeepsOnlyTheLastSourceOfTheSameName) {
  std::filesystem::create_directories(src.path() / "other");
  ASSERT_TRUE(WriteSolidImage(src.file("other/pic.png"), 7, 5, 0x00FF00));
  testing::WriteWholeFile(out.file("pic.png"), "old");
  const testing::RecordingView view = RunJob(state, {src.file("pic.png"), src.file("other/pic.png")});
  EXPECT_EQ(testing::ReadImageFacts(out.file("pic.png")).width, 7u);
  EXPECT_EQ(view.LastFile(), "2 file(s) processed.");
  EXPECT_EQ(state.WrittenFiles.Entries(), (std::vector<std::string>{out.file("pic.png"), out.file("pic.png")}));
}

TEST_F(RunNaming, AutoChangeFindsFreeNamesAlsoForFilesOfThisRun) {
  testing::WriteWholeFile(out.file("pic.png"), "old");
  testing::WriteWholeFile(out.file("pic-001.png"), "old too");
  state.settings.IfOutputFileExists = 2;
  RunJob(state, {src.file("pic.png"), src.file("pic.png")});
  EXPECT_EQ(testing::ReadWholeFile(out.file("pic.png")), "old");
  EXPECT_EQ(testing::ReadWholeFile(out.file("pic-001.png")), "old too");
  EXPECT_TRUE(testing::ReadImageFacts(out.file("pic-002.png")).readable);
  EXPECT_TRUE(testing::ReadImageFacts(out.file("pic-003.png")).readable);
  EXPECT_EQ(state.WrittenFiles.Entries(), (std::vector<std::string>{out.file("pic-002.png"), out.file("pic-003.png")}));
}

TEST_F(RunNaming, MultipageSourcesRecordAPathPerPageAndTheIndexLagsBehind) {
  ASSERT_TRUE(samples::WriteMultipageTiff(src.file("scan.tif"), 30, 20, 3));
  state.output.OutputFormat = 5;
  state.output.MultipageMode = 1;  // one multipage file
  RunJob(state, {src.file("scan.tif")});
  EXPECT_EQ(state.WrittenFiles.Entries(), std::vector<std::string>(3, out.file("scan.tif")));
  EXPECT_EQ(testing::ReadImageFacts(out.file("scan.tif")).pages, 3);

  state.output.OutputFormat = 1;  // JPEG: a file per page
  state.settings.GenerateHtmlIndex = kTrue;
  RunJob(state, {src.file("scan.tif")});
  std::vector<std::string> pages;
  for (int p = 0; p < 3; ++p) pages.push_back(out.file("scan (page " + std::to_string(p) + ").jpg"));
  EXPECT_EQ(state.WrittenFiles.Entries(), pages);
  for (const auto& page : pages) EXPECT_EQ(testing::ReadImageFacts(page).format, FIF_JPEG);
  EXPECT_FALSE(std::filesystem::exists(out.file("scan.jpg")));
  // The index names each page by the name the previous page was saved under.
  HtmlIndex expected;
  for (const std::string& cell : {out.file("scan.jpg"), pages[0], pages[1]}) expected.AddCell(cell);
  EXPECT_EQ(testing::ReadWholeFile(out.file("index.html")), expected.Finish() + "\r\n");
}

TEST_F(RunNaming, AnimatedGifToGifInSeparateModeWritesOneFilePerFrame) {
  ASSERT_TRUE(samples::WriteAnimatedGif(src.file("anim.gif"), 16, 12, 4));
  state.output.OutputFormat = 2;
  RunJob(state, {src.file("anim.gif")});
  for (int p = 0; p < 4; ++p) {
    const testing::ImageFacts facts = testing::ReadImageFacts(out.file("anim (page " + std::to_string(p) + ").gif"));
    EXPECT_EQ(facts.format, FIF_GIF);
    EXPECT_EQ(facts.pages, 1);
  }
}

TEST_F(RunNaming, TheIndexIsWrittenAndTheFolderOpenedOnlyWhenAsked) {
  testing::WriteWholeFile(out.file("index.html"), "old index");
  testing::RecordingView view = RunJob(state, {src.file("pic.png")});
  EXPECT_EQ(testing::ReadWholeFile(out.file("index.html")), "old index");
  EXPECT_TRUE(view.opened_folders.empty());
  state.settings.GenerateHtmlIndex = kTrue;
  state.output.OpenTargetFolder = kTrue;
  view = RunJob(state, {src.file("pic.png")});
  EXPECT_NE(testing::ReadWholeFile(out.file("index.html")).find("<a href='pic.png'>pic.png</a>"), std::string::npos);
  EXPECT_EQ(view.opened_folders, std::vector<std::string>{out.slash()});
}

}  // namespace
}  // namespace velmora::engine
