// Hand-written profiles with odd values load as the reading rules say: rounding half to even,
// booleans and too-large numbers that keep the old value, cut strings, a missing file.
#include <gtest/gtest.h>

#include "settings/profile_file.h"
#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

using engine::AppState;
using engine::kFalse;
using engine::kTrue;
using testing::TempFolder;
using testing::WriteWholeFile;

// Loads `text` as a profile over `state`.
void LoadText(AppState& state, const std::string& text) {
  TempFolder temp;
  WriteWholeFile(temp.file("hand.profile"), text);
  LoadProfile(state, temp.file("hand.profile"));
}

std::int16_t QualityAfter(const std::string& value, std::int16_t before = 55) {
  AppState state;
  state.output.Quality = before;
  LoadText(state, "[Profile]\n7=" + value + "\n");
  return state.output.Quality;
}

TEST(ProfileReading, NumbersRoundHalvesToTheEvenNeighbour) {
  EXPECT_EQ(QualityAfter("90.5"), 90);
  EXPECT_EQ(QualityAfter("91.5"), 92);
  EXPECT_EQ(QualityAfter("-2.5"), -2);
  EXPECT_EQ(QualityAfter("80.51"), 81);
}

TEST(ProfileReading, TheNumberAtTheStartOfTheTextCounts) {
  EXPECT_EQ(QualityAfter("abc"), 0);
  EXPECT_EQ(QualityAfter(""), 0);
  EXPECT_EQ(QualityAfter("75%"), 75);
  EXPECT_EQ(QualityAfter("1 2 3"), 123);
  EXPECT_EQ(QualityAfter("True"), 0);
}

TEST(ProfileReading, A16BitKeyThatOverflowsKeepsTheOldValue) {
  EXPECT_EQ(QualityAfter("70000", 55), 55);
  EXPECT_EQ(QualityAfter("-32769", 55), 55);
  EXPECT_EQ(QualityAfter("32767", 55), 32767);
}

TEST(ProfileReading, A32BitBlockKeyThatOverflowsStaysAsTheNewBlockHadIt) {
  AppState state;
  LoadText(state, "[Profile]\nProcessTotal=1\n[Block_0]\n5=3000000000\n1=-2147483648\n6=0\n");
  ASSERT_EQ(state.blocks.UpperBound(), 1);
  EXPECT_EQ(state.blocks[0].Width, 0);
  EXPECT_EQ(state.blocks[0].Height, -2147483647 - 1);
}

TEST(ProfileReading, MissingIntegersBecomeZeroButMissingBooleansKeepTheirValue) {
  AppState state;
  state.settings.AlwaysCreateOutputFolder = kTrue;
  state.settings.IfOutputFileExists = 2;
  state.settings.FtpHost = "old host";
  state.output.OpenTargetFolder = kTrue;
  LoadText(state, "[Settings]\n2=someone\n");
  EXPECT_EQ(state.settings.AlwaysCreateOutputFolder, kTrue);
  EXPECT_EQ(state.settings.IfOutputFileExists, 0);
  EXPECT_EQ(state.settings.FtpHost, "");
  EXPECT_EQ(state.settings.FtpLogin, "someone");
  EXPECT_EQ(state.output.OpenTargetFolder, kTrue);
}

TEST(ProfileReading, BooleansReadWordsAndNumbersAndKeepTheValueOnAnythingElse) {
  AppState state;
  state.settings.AlwaysCreateOutputFolder = kTrue;  // 1: empty
  state.settings.GenerateHtmlIndex = kTrue;         // 7: "maybe"
  state.settings.ReservedFlag9 = kFalse;            // 9: "1"
  state.settings.StopOnError = kTrue;               // 14: "0"
  state.settings.UseProxy = kFalse;                 // 15: "true"
  state.settings.FtpSecure = kTrue;                 // 17: "FALSE"
  state.output.OpenTargetFolder = kFalse;           // [Profile] 9: "-7"
  LoadText(state, "[Settings]\n1=\n7=maybe\n9=1\n14=0\n15=true\n17=FALSE\n[Profile]\n9=-7\n");
  EXPECT_EQ(state.settings.AlwaysCreateOutputFolder, kTrue);
  EXPECT_EQ(state.settings.GenerateHtmlIndex, kTrue);
  EXPECT_EQ(state.settings.ReservedFlag9, kTrue);
  EXPECT_EQ(state.settings.StopOnError, kFalse);
  EXPECT_EQ(state.settings.UseProxy, kTrue);
  EXPECT_EQ(state.settings.FtpSecure, kFalse);
  EXPECT_EQ(state.output.OpenTargetFolder, kTrue);
}

TEST(ProfileReading, BlockBooleansThatCannotBeReadStayFalse) {
  AppState state;
  LoadText(state, "[Profile]\nProcessTotal=3\n[Block_0]\n2=maybe\n[Block_1]\n2=\n[Block_2]\n2=1\n");
  ASSERT_EQ(state.blocks.UpperBound(), 3);
  EXPECT_EQ(state.blocks[0].KeepProportions, kFalse);
  EXPECT_EQ(state.blocks[1].KeepProportions, kFalse);
  EXPECT_EQ(state.blocks[2].KeepProportions, kTrue);
}

TEST(ProfileReading, LongStringsComeBackCut) {
  AppState state;
  LoadText(state, "[Profile]\nProcessTotal=1\n[Block_0]\n6=3\n14=" + std::string(400, 'T') + "\n");
  EXPECT_EQ(state.blocks[0].WatermarkSource, std::string(254, 'T'));
}

TEST(ProfileReading, SectionAndKeyNamesMatchInAnyCase) {
  AppState state;
  LoadText(state, "[PROFILE]\nprocesstotal=1\n7=42\n[block_0]\n6=6\n21=250\n");
  EXPECT_EQ(state.output.Quality, 42);
  ASSERT_EQ(state.blocks.UpperBound(), 1);
  EXPECT_EQ(state.blocks[0].Kind, engine::kGamma);
  EXPECT_EQ(state.blocks[0].GammaValue, 250);
}

TEST(ProfileReading, AKindOutsideTheSevenStillLoads) {
  AppState state;
  LoadText(state, "[Profile]\nProcessTotal=1\n[Block_0]\n6=42\n");
  EXPECT_EQ(state.blocks[0].Kind, 42);
}

TEST(ProfileReading, TheChainIsMadeAfreshFromProcessTotal) {
  AppState state;
  state.blocks.Append(engine::NewBlock(engine::kRotate));
  state.blocks.Append(engine::NewBlock(engine::kRotate));
  LoadText(state, "[Profile]\nProcessTotal=1\n[Block_0]\n6=2\n[Block_1]\n6=5\n");
  ASSERT_EQ(state.blocks.UpperBound(), 1);
  EXPECT_EQ(state.blocks[0].Kind, engine::kMirror);
  EXPECT_EQ(state.blocks[0].Angle, 0);
  EXPECT_EQ(state.blocks[1], engine::Block{});  // the spare stays blank

  LoadText(state, "[Profile]\n");
  EXPECT_EQ(state.blocks.UpperBound(), 0);
}

TEST(ProfileReading, AProcessTotalThatCannotMakeAChainLeavesTheOldOne) {
  for (const char* total : {"-1", "99999999999", "100001"}) {
    AppState state;
    engine::Block rotate = engine::NewBlock(engine::kRotate);
    rotate.KeepProportions = kTrue;
    state.blocks.Append(rotate);
    LoadText(state, std::string("[Profile]\nProcessTotal=") + total + "\n[Block_0]\n7=180\n");
    ASSERT_EQ(state.blocks.UpperBound(), 1) << total;
    EXPECT_EQ(state.blocks[0].Angle, 180) << total;              // read into the old block
    EXPECT_EQ(state.blocks[0].KeepProportions, kTrue) << total;  // a missing boolean keeps it
    EXPECT_EQ(state.blocks[0].Kind, engine::kResize) << total;   // a missing integer gives 0
  }
}

TEST(ProfileReading, AMissingFileReadsAsAllKeysMissing) {
  TempFolder temp;
  AppState state;
  state.settings.FtpHost = "host";
  state.settings.UseProxy = kTrue;
  state.output.Quality = 90;
  state.blocks.Append(engine::NewBlock(engine::kEffect));
  LoadProfile(state, temp.file("absent.profile"));
  EXPECT_EQ(state.settings.FtpHost, "");
  EXPECT_EQ(state.settings.UseProxy, kTrue);
  EXPECT_EQ(state.output.Quality, 0);
  EXPECT_EQ(state.blocks.UpperBound(), 0);
}

TEST(ProfileReading, WindowsLineEndsAndBlanksAroundNamesAndValuesAreFine) {
  AppState state;
  LoadText(state, "[ Profile ]\r\n 8 = {Title}.{OutputType} \r\n10=\"/with spaces/ \"\r\n");
  EXPECT_EQ(state.output.NameTemplate, "{Title}.{OutputType}");
  EXPECT_EQ(state.output.OutputFolder, "/with spaces/ ");
}

}  // namespace
}  // namespace velmora::settings
