// Path routines: the odd cases of title, extension and folder.
#include <gtest/gtest.h>

#include <fstream>

#include "engine/file_replace.h"
#include "engine/paths.h"
#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

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
