// Output names and the path routines under them: template tokens, the auto-change rule, the odd
// cases of title, extension and folder, temporary names, and folders made on the way.
#include <gtest/gtest.h>

#include "engine/file_replace.h"
#include "engine/naming.h"
#include "engine/paths.h"
#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

TEST(ExpandTemplate, ReplacesTokensWithoutRegardToCase) {
  EXPECT_EQ(ExpandTemplate("/out/", "{TITLE}.{OutPutType}", "/src/a.b.c.png", "jpg", 0), "/out/a.b.c.jpg");
  EXPECT_EQ(ExpandTemplate("/out/", "{Title}_{Counter}.{OutputType}", "/src/pic.png", "tif", 4), "/out/pic_004.tif");
  EXPECT_EQ(ExpandTemplate("/out/", "{title}{title}-{unknown}", "/src/p.gif", "png", 0), "/out/pp-{unknown}");
  EXPECT_EQ(ExpandTemplate("", "{counter}", "x.png", "png", 999), "999");  // at least three digits
  EXPECT_EQ(ExpandTemplate("", "{counter}", "x.png", "png", 1000), "1000");
  // The source type of a dotless file is its whole path.
  EXPECT_EQ(ExpandTemplate("/o/", "{title}|{sourcetype}", "/x/readme", "png", 0), "/o/readme|/x/readme");
}

TEST(ExpandTemplate, LaterTokensApplyToTextBroughtInByEarlierOnes) {
  // A source named "{counter}.png" brings a token that the counter step then replaces.
  EXPECT_EQ(ExpandTemplate("/o/", "{title}.{outputtype}", "/s/{Counter}.png", "jpg", 7), "/o/007.jpg");
  // Tokens in the output folder are replaced too.
  EXPECT_EQ(ExpandTemplate("/o/{title}/", "x", "/s/pic.png", "jpg", 0), "/o/pic/x");
}

TEST(AutoChangedName, StopsAtTheThousandthCandidateAndUsesADotlessNameAsExtension) {
  EXPECT_EQ(AutoChangedName("/o/pic.jpg", [](const std::string&) { return true; }), "/o/pic-1000.jpg");
  EXPECT_EQ(AutoChangedName("/o/pic", [](const std::string& path) { return path == "/o/pic"; }), "/o/pic-001.pic");
}

TEST(OutputPolicy, UnknownPolicyLeavesTheNameAndTheFile) {
  std::string path = "/o/pic.jpg";
  const auto unexpected = [](const std::string&) { ADD_FAILURE() << "removed"; };
  EXPECT_EQ(ApplyOutputPolicy(
                7, path, [](const std::string&) { return true; }, unexpected, [] {}),
            Collision::kWrite);
  EXPECT_EQ(path, "/o/pic.jpg");
}

TEST(TitleOfName, StripsOneExtensionButNeverLooksAtTheLastCharacter) {
  EXPECT_EQ(TitleOfName("a.b.c.png"), "a.b.c");
  EXPECT_EQ(TitleOfName("a.b."), "a");
  EXPECT_EQ(TitleOfName("abc."), "abc.");
  EXPECT_EQ(TitleOfName(".ini"), "");
  EXPECT_EQ(TitleOfName("readme"), "readme");
  EXPECT_EQ(TitleOfName(""), "");
  EXPECT_EQ(TitleOfName("/x.y/readme"), "/x");  // a dot in a folder cuts the folder
}

TEST(ExtensionOfPath, ScansPastSeparatorsAndReturnsWholeStringWithoutDot) {
  EXPECT_EQ(ExtensionOfPath("a.b.c.png"), "png");
  EXPECT_EQ(ExtensionOfPath("/x/a.b/file"), "b/file");
  EXPECT_EQ(ExtensionOfPath("/x/readme"), "/x/readme");
  EXPECT_EQ(ExtensionOfPath("pic."), "");
}

TEST(FolderOfPath, KeepsTrailingSeparatorAndDropsDriveWhenAsked) {
  EXPECT_EQ(FolderOfPath("/out/sub/pic.jpg", true), "/out/sub/");
  EXPECT_EQ(FolderOfPath("C:/out/pic.jpg", false), "out/");
  EXPECT_EQ(FolderOfPath("pic.jpg", true), "pic.jpg");
  EXPECT_EQ(FileNameOfPath("/out/sub/pic.jpg"), "pic.jpg");
  EXPECT_EQ(FileNameOfPath("pic.jpg"), "pic.jpg");
}

TEST(OutputFileExists, CountsHiddenFilesButNotFoldersOrEmptyNames) {
  testing::TempFolder temp;
  testing::WriteWholeFile(temp.file(".hidden.jpg"), "x");
  EXPECT_TRUE(OutputFileExists(temp.file(".hidden.jpg")));
  EXPECT_FALSE(OutputFileExists(temp.path().string()));
  EXPECT_FALSE(OutputFileExists(""));
  EXPECT_FALSE(OutputFileExists(temp.file("missing.jpg")));
}

TEST(TemporaryNameFor, StaysInTheFolderKeepsTheExtensionAndFitsTheNameLimit) {
  for (const std::string& name : {std::string("a.jpg"), std::string(252, 'x') + ".tif"}) {
    const std::string temporary = TemporaryNameFor("/out/" + name);
    EXPECT_EQ(temporary.rfind("/out/.velmora-", 0), 0u) << temporary;
    EXPECT_EQ(temporary.substr(temporary.size() - 4), name.substr(name.size() - 4));
    EXPECT_LE(temporary.size() - 5, 255u);
  }
  EXPECT_NE(TemporaryNameFor("/out/a.jpg"), TemporaryNameFor("/out/a.jpg"));
}

TEST(MakePath, CreatesEveryFolderUpToTheLastSeparatorOnly) {
  testing::TempFolder temp;
  MakePath(temp.slash() + "a/b/c/name");
  EXPECT_TRUE(std::filesystem::is_directory(temp.path() / "a/b/c"));
  EXPECT_FALSE(std::filesystem::exists(temp.path() / "a/b/c/name"));
  MakePath(temp.slash() + "a/b/");  // existing folders pass unnoticed
  EXPECT_TRUE(std::filesystem::is_directory(temp.path() / "a/b"));
}

}  // namespace
}  // namespace velmora::engine
