// The folder scan (order, patterns, cap) and the rule of adding one source.
#include "engine/source_scan.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;
using testing::WriteWholeFile;

void Touch(const TempFolder& root, const std::string& relative, const std::string& content = "x") {
  fs::create_directories((root.path() / relative).parent_path());
  WriteWholeFile(root.file(relative), content);
}

// The scan of `root` with `patterns`, paths relative to the root, without the leading element.
std::vector<std::string> Scan(const TempFolder& root, const std::string& patterns) {
  std::vector<std::string> found(1);
  ScanFolder(root.path().string(), patterns, found);
  EXPECT_EQ(found[0], "");
  std::vector<std::string> relative;
  for (std::size_t i = 1; i < found.size(); ++i) relative.push_back(found[i].substr(root.slash().size()));
  return relative;
}

TEST(MatchesPattern, WildcardsWithoutRegardToCase) {
  EXPECT_TRUE(MatchesPattern("PHOTO.JPG", "*.jpg"));
  EXPECT_TRUE(MatchesPattern("photo.jpg", "*.JPG"));
  EXPECT_FALSE(MatchesPattern("photo.jpg.txt", "*.jpg"));
  EXPECT_FALSE(MatchesPattern("x.tiff", "*.tif"));
  EXPECT_TRUE(MatchesPattern("a.png", "?.png"));
  EXPECT_FALSE(MatchesPattern("ab.png", "?.png"));
  EXPECT_TRUE(MatchesPattern("anything at all", "*"));
  EXPECT_TRUE(MatchesPattern("a.b.c.gif", "*.*.gif"));
  EXPECT_TRUE(MatchesPattern(".png", "*.png"));
  EXPECT_FALSE(MatchesPattern("png", "*.png"));
}

TEST(ScanFolder, FilesOfAFolderPatternByPatternThenItsSubfolders) {
  TempFolder root;
  for (const char* name : {"b.png", "A.JPG", "c.jpeg", "notes.txt", "x.tiff", "y.tif", "sub2/z.gif", "Sub1/q.bmp",
                           "Sub1/deeper/r.png", "Sub1/readme.md"})
    Touch(root, name);
  EXPECT_EQ(Scan(root, kAllImageFilePatterns),
            (std::vector<std::string>{"A.JPG", "c.jpeg", "b.png", "y.tif", "x.tiff", "Sub1/q.bmp", "Sub1/deeper/r.png",
                                      "sub2/z.gif"}));
}

TEST(ScanFolder, WithinAPatternNamesComeInNameOrderWithoutRegardToCase) {
  TempFolder root;
  for (const char* name : {"b2.png", "B1.png", "a.png", "B1.PNG"}) Touch(root, name);
  EXPECT_EQ(Scan(root, "*.png"), (std::vector<std::string>{"a.png", "B1.PNG", "B1.png", "b2.png"}));
}

TEST(ScanFolder, AFileThatTwoPatternsMatchComesTwice) {
  TempFolder root;
  Touch(root, "one.png");
  Touch(root, "two.txt");
  EXPECT_EQ(Scan(root, "*.PNG;*.png"), (std::vector<std::string>{"one.png", "one.png"}));
  EXPECT_EQ(Scan(root, "*.png;*"), (std::vector<std::string>{"one.png", "one.png", "two.txt"}));
}

TEST(ScanFolder, NoPatternMeansEveryFileAndEmptyPiecesMatchNothing) {
  TempFolder root;
  Touch(root, "a.txt");
  Touch(root, "sub/b");
  EXPECT_EQ(Scan(root, ""), (std::vector<std::string>{"a.txt", "sub/b"}));
  EXPECT_EQ(Scan(root, ";;*.txt;"), (std::vector<std::string>{"a.txt"}));
}

TEST(ScanFolder, LinksToFoldersAreNeitherFollowedNorListed) {
  TempFolder root;
  Touch(root, "real/a.png");
  fs::create_directory_symlink(root.path() / "real", root.path() / "loop");
  fs::create_directory_symlink(root.path(), root.path() / "real" / "back");
  EXPECT_EQ(Scan(root, "*"), (std::vector<std::string>{"real/a.png"}));
}

TEST(ScanFolder, NamesFromTheCapOnAreLostButTheArrayStillGrows) {
  TempFolder root;
  for (const char* name : {"a.png", "b.png", "c.png"}) Touch(root, name);
  std::vector<std::string> found(kScanNameLimit - 2, "earlier");
  ScanFolder(root.path().string(), "*.png", found);
  ASSERT_EQ(found.size(), kScanNameLimit + 1);
  EXPECT_EQ(found[kScanNameLimit - 2], root.slash() + "a.png");
  EXPECT_EQ(found[kScanNameLimit - 1], root.slash() + "b.png");
  EXPECT_EQ(found[kScanNameLimit], "");
}

TEST(ScanFolder, AMissingFolderAddsNothing) {
  TempFolder root;
  std::vector<std::string> found(1);
  ScanFolder(root.file("absent"), "*", found);
  EXPECT_EQ(found.size(), 1u);
}

TEST(SourceAdder, TakesNonEmptyFilesOnceAndMatchesLetterCase) {
  TempFolder root;
  Touch(root, "photo.jpg");
  Touch(root, "PHOTO.JPG");
  Touch(root, "empty.png", "");
  fs::create_directory(root.path() / "folder");
  SourceList list;
  list.rows.push_back(root.file("listed.png"));  // rows already there count as listed
  Touch(root, "listed.png");
  SourceAdder adder(list);
  EXPECT_TRUE(adder.Add(root.file("photo.jpg")));
  EXPECT_FALSE(adder.Add(root.file("photo.jpg")));
  EXPECT_TRUE(adder.Add(root.file("PHOTO.JPG")));
  EXPECT_FALSE(adder.Add(root.file("empty.png")));
  EXPECT_FALSE(adder.Add(root.file("folder")));
  EXPECT_FALSE(adder.Add(root.file("missing.png")));
  EXPECT_FALSE(adder.Add(root.file("listed.png")));
  EXPECT_EQ(list.rows,
            (std::vector<std::string>{root.file("listed.png"), root.file("photo.jpg"), root.file("PHOTO.JPG")}));
  EXPECT_TRUE(IsInList(list, root.file("PHOTO.JPG")));
  EXPECT_FALSE(IsInList(list, root.file("Photo.jpg")));
}

}  // namespace
}  // namespace velmora::engine
