// The folder scan's patterns, order and cap, and the rule of adding one source. The scan of a
// whole tree (type order, subfolders, links) is also run end to end in tests/app/batch_run_test.
#include "engine/source_scan.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_support.h"

namespace velmora::engine {
namespace {

TEST(MatchesPattern, WildcardsWithoutRegardToCase) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"PHOTO.JPG", "*.jpg", true}, {"photo.jpg", "*.JPG", true},   {"photo.jpg.txt", "*.jpg", false},
      {"x.tiff", "*.tif", false},   {"a.png", "?.png", true},       {"ab.png", "?.png", false},
      {"any name", "*", true},      {"a.b.c.gif", "*.*.gif", true}, {".png", "*.png", true},
      {"png", "*.png", false}};
  for (const auto& [name, pattern, matches] : cases) EXPECT_EQ(MatchesPattern(name, pattern), matches) << name;
}

// Names whose order with letter case folded differs from their byte order.
TEST(ScanFolder, PatternByPatternInNameOrderThenSubfolders) {
  testing::TempFolder root;
  std::filesystem::create_directory(root.path() / "sub");
  for (const char* name : {"b2.png", "B1.png", "a.png", "B1.PNG", "t.txt", "sub/c.PNG"})
    testing::WriteWholeFile(root.file(name), "x");
  const std::vector<std::pair<const char*, std::vector<std::string>>> cases = {
      {"*.txt;*.png;*.TXT", {"t.txt", "a.png", "B1.PNG", "B1.png", "b2.png", "t.txt", "sub/c.PNG"}},
      {"", {"a.png", "B1.PNG", "B1.png", "b2.png", "t.txt", "sub/c.PNG"}},  // no pattern: every file
      {";;*.txt;", {"t.txt"}},                                              // empty pieces match nothing
  };
  for (const auto& [patterns, expected] : cases) {
    std::vector<std::string> found(1);
    ScanFolder(root.path().string(), patterns, found);
    std::vector<std::string> expected_paths{""};
    for (const std::string& name : expected) expected_paths.push_back(root.slash() + name);
    EXPECT_EQ(found, expected_paths) << patterns;
  }
  std::vector<std::string> found(1);
  ScanFolder(root.file("absent"), "*", found);
  EXPECT_EQ(found.size(), 1u);
}

TEST(ScanFolder, NamesFromTheCapOnAreLostButTheArrayStillGrows) {
  testing::TempFolder root;
  for (const char* name : {"a.png", "b.png", "c.png"}) testing::WriteWholeFile(root.file(name), "x");
  std::vector<std::string> found(kScanNameLimit - 2, "earlier");
  ScanFolder(root.path().string(), "*.png", found);
  ASSERT_EQ(found.size(), kScanNameLimit + 1);
  EXPECT_EQ(found[kScanNameLimit - 1], root.slash() + "b.png");
  EXPECT_EQ(found[kScanNameLimit], "");
}

TEST(SourceAdder, TakesNonEmptyFilesOnceAndMatchesLetterCase) {
  testing::TempFolder root;
  for (const char* name : {"photo.jpg", "PHOTO.JPG", "listed.png"}) testing::WriteWholeFile(root.file(name), "x");
  testing::WriteWholeFile(root.file("empty.png"), "");
  SourceList list{{root.file("listed.png")}, -1};  // rows already there count as listed
  SourceAdder adder(list);
  EXPECT_TRUE(adder.Add(root.file("photo.jpg")));
  EXPECT_TRUE(adder.Add(root.file("PHOTO.JPG")));
  for (const char* name : {"photo.jpg", "empty.png", "", "missing.png", "listed.png"})  // "": the folder
    EXPECT_FALSE(adder.Add(root.file(name))) << name;
  EXPECT_EQ(list.rows,
            (std::vector<std::string>{root.file("listed.png"), root.file("photo.jpg"), root.file("PHOTO.JPG")}));
  EXPECT_TRUE(IsInList(list, root.file("PHOTO.JPG")));
  EXPECT_FALSE(IsInList(list, root.file("Photo.jpg")));
}

}  // namespace
}  // namespace velmora::engine
