// What a run shows and keeps: status lines, percent texts, counters and the list of written
// files, also when sources are unreadable or the output folder is missing.
#include <gtest/gtest.h>

#include "tests/engine/run_fixture.h"

namespace velmora::engine {
namespace {

TEST(RunStatus, EmptyListTerminatesAndTouchesNothing) {
  testing::TempFolder out;
  AppState state = MakeJob(out.slash());
  state.WrittenFiles.Append("/earlier/run.jpg");
  state.SkipCounter = 3;
  const testing::RecordingView view = RunJob(state, {});
  EXPECT_EQ(view.LastStatus(), "Terminated.");
  EXPECT_EQ(view.LastFile(), "No files to process.");
  EXPECT_EQ(state.WrittenFiles.Entries(), std::vector<std::string>{"/earlier/run.jpg"});
  EXPECT_EQ(state.SkipCounter, 3);
}

TEST(RunStatus, PercentTextsFollowTheOperationsAndAnEmptyChainJumpsFromTenToHundred) {
  testing::TempFolder src, out;
  ASSERT_TRUE(WriteSolidImage(src.file("red.png"), 40, 30, 0xFF0000));
  AppState state = MakeJob(out.slash());
  testing::RecordingView view = RunJob(state, {src.file("red.png")});
  EXPECT_EQ(view.wait_labels, (std::vector<std::string>{"10%", "100%"}));
  EXPECT_EQ(view.statuses, (std::vector<std::string>{"Processing...", "Completed."}));
  EXPECT_EQ(view.files, (std::vector<std::string>{"", "Current file: red.png", "1 file(s) processed."}));
  EXPECT_EQ(view.progress_max, 1);
  EXPECT_EQ(view.progress_value, 1);
  const testing::ImageFacts facts = testing::ReadImageFacts(out.file("red_000.jpg"));
  EXPECT_EQ(facts.format, FIF_JPEG);
  EXPECT_EQ(facts.width, 40u);
  EXPECT_EQ(facts.bpp, 24u);  // the default job asks for 32 bits; JPEG takes 24
  EXPECT_EQ(state.WrittenFiles.Entries(), std::vector<std::string>{out.file("red_000.jpg")});

  state.blocks = Blocks({NewBlock(kMirror), NewBlock(kGamma), NewBlock(kEffect)});
  view = RunJob(state, {src.file("red.png")});
  EXPECT_EQ(view.wait_labels, (std::vector<std::string>{"10%", "36%", "63%", "90%", "100%"}));
}

// Counted and given its counter end to end in tests/app; here the written files name it, the
// source is left as it was, and only it is logged: a text watermark and an unknown block log nothing.
TEST(RunStatus, UnreadableSourceCountsAsProcessedAndIsLogged) {
  testing::TempFolder src, out;
  testing::WriteWholeFile(src.file("broken.jpg"), "this is not an image");
  ASSERT_TRUE(WriteSolidImage(src.file("good.bmp"), 10, 10, 0x0000FF));
  AppState state = MakeJob(out.slash());
  Block text = NewBlock(kWatermark, 0), unknown = NewBlock(kResize);
  text.WatermarkSource = "Velmora";
  unknown.Kind = 42;
  state.blocks = Blocks({text, unknown});
  const testing::RecordingView view = RunJob(state, {src.file("broken.jpg"), src.file("good.bmp")});
  EXPECT_EQ(state.WrittenFiles.Entries(),
            (std::vector<std::string>{out.file("broken_000.jpg"), out.file("good_001.jpg")}));
  EXPECT_EQ(view.failures, std::vector<std::string>{"cannot read " + src.file("broken.jpg")});
  EXPECT_EQ(testing::ReadWholeFile(src.file("broken.jpg")), "this is not an image");
}

TEST(RunStatus, MissingOutputFolderFailsEverySaveQuietly) {
  testing::TempFolder src, out;
  ASSERT_TRUE(WriteSolidImage(src.file("a.png"), 10, 10, 0x0000FF));
  AppState state = MakeJob(out.slash() + "missing/");
  state.settings.AlwaysCreateOutputFolder = kFalse;
  const testing::RecordingView view = RunJob(state, {src.file("a.png")});
  EXPECT_EQ(view.LastFile(), "1 file(s) processed.");
  EXPECT_FALSE(std::filesystem::exists(out.file("missing")));
  EXPECT_EQ(state.WrittenFiles.UpperBound(), 1);  // the name is recorded whether the save worked or not
  EXPECT_FALSE(view.failures.empty());

  state.settings.AlwaysCreateOutputFolder = kTrue;
  RunJob(state, {src.file("a.png")});
  EXPECT_TRUE(testing::ReadImageFacts(out.file("missing/a_000.jpg")).readable);
}

// What the engine alone decides of a preview run (tests/preview starts it as the window does):
// only the preview file is written, the output folder left alone, the page centred; preview mode ends.
TEST(RunStatus, PreviewWritesOnlyThePreviewFileAndCentresThePage) {
  testing::TempFolder data, src, out;
  std::filesystem::create_directories(data.path() / "Temp");
  ASSERT_TRUE(WriteSolidImage(src.file("wide.png"), 800, 400, 0xFFFFFF));
  AppState state = MakeJob(out.slash());
  state.AppDataFolder = data.path().string();
  state.WrittenFiles.Append(out.file("from-real-run.jpg"));
  state.preview.PreviewMode = kTrue;
  testing::RecordingView view;
  GoProcess2(state, SourceList{{src.file("wide.png")}, 0}, view);
  EXPECT_EQ(state.WrittenFiles.Entries(), std::vector<std::string>{data.file("Temp/preview.dat")});
  EXPECT_EQ(view.picture_top, 50);  // 400 x 200 in 400 x 300
  EXPECT_EQ(view.picture_left, 0);
  EXPECT_EQ(view.LastFile(), "1 file(s) processed.");
  EXPECT_TRUE(std::filesystem::is_empty(out.path()));
  EXPECT_EQ(state.preview.PreviewMode, kFalse);
  EXPECT_FALSE(view.wait_shown);
}

TEST(RunMetadata, TagsAndResolutionSurviveOperationsThatReplaceThePage) {
  testing::TempFolder src, out;
  const std::string source = src.file("tagged.png");
  FIBITMAP* dib = FreeImage_Allocate(40, 30, 24);
  FreeImage_SetDotsPerMeterX(dib, 11811);  // 300 dpi
  FreeImage_SetMetadataKeyValue(FIMD_COMMENTS, dib, "Author", "Velmora tests");
  ASSERT_TRUE(FreeImage_Save(FIF_PNG, dib, source.c_str(), 0));
  FreeImage_Unload(dib);

  AppState state = MakeJob(out.slash());
  state.output.OutputFormat = 3;
  state.output.NameTemplate = "out.png";
  Block nearest = NewBlock(kResize), effect = NewBlock(kEffect);
  nearest.Method = 1;
  effect.EffectKind = 4;
  state.blocks = Blocks({nearest, NewBlock(kRotate), effect});  // each replaces the page
  RunJob(state, {source});

  FIBITMAP* result = FreeImage_Load(FIF_PNG, out.file("out.png").c_str());
  ASSERT_NE(result, nullptr);
  EXPECT_EQ(FreeImage_GetWidth(result), 15u);
  EXPECT_EQ(FreeImage_GetDotsPerMeterX(result), 11811u);
  FITAG* tag = nullptr;
  ASSERT_TRUE(FreeImage_GetMetadata(FIMD_COMMENTS, result, "Author", &tag));
  EXPECT_STREQ(static_cast<const char*>(FreeImage_GetTagValue(tag)), "Velmora tests");
  FreeImage_Unload(result);
}

}  // namespace
}  // namespace velmora::engine
