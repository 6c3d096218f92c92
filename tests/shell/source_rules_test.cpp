// Size text, open-dialog pieces, icon keys, the removal walk and the folder loop.
#include <gtest/gtest.h>

#include "shell/source_rules.h"

namespace velmora::shell {
namespace {

TEST(FormatFileSize, BytesAndThreeSignificantDigits) {
  EXPECT_EQ(FormatFileSize(0), "0 bytes");
  EXPECT_EQ(FormatFileSize(532), "532 bytes");
  EXPECT_EQ(FormatFileSize(1024), "1.00 KB");
  EXPECT_EQ(FormatFileSize(1536), "1.50 KB");
  EXPECT_EQ(FormatFileSize(12345), "12.0 KB");
  EXPECT_EQ(FormatFileSize(123456), "120 KB");
  EXPECT_EQ(FormatFileSize(1290000), "1.23 MB");
  EXPECT_EQ(FormatFileSize(1289748), "1.22 MB");  // 1.2299... cut, not rounded
  EXPECT_EQ(FormatFileSize(5ull * 1024 * 1024 * 1024), "5.00 GB");
}

// One file is one piece; several give the folder, then the names; the root loses its separator
// and is joined with one.
TEST(ChosenFilePieces, OneFileOrTheFolderThenTheNames) {
  EXPECT_EQ(ChosenFilePieces({"/a/b/x.jpg"}), (std::vector<std::string>{"/a/b/x.jpg"}));
  EXPECT_EQ(PathsFromPieces({"/a/b/x.jpg"}), (std::vector<std::string>{"/a/b/x.jpg"}));
  const auto pieces = ChosenFilePieces({"/a/b/x.jpg", "/a/b/y.png"});
  EXPECT_EQ(pieces, (std::vector<std::string>{"/a/b", "x.jpg", "y.png"}));
  // The folder is tried as a file too; the rule of adding one item drops it.
  EXPECT_EQ(PathsFromPieces(pieces), (std::vector<std::string>{"/a/b", "/a/b/x.jpg", "/a/b/y.png"}));
  const auto root = ChosenFilePieces({"/x.jpg", "/y.jpg"});
  EXPECT_EQ(root.front(), "/");
  EXPECT_EQ(PathsFromPieces(root), (std::vector<std::string>{"/x.jpg", "/y.jpg"}));
}

TEST(IconKey, OneKeyPerTypeNameButOwnNamesForShortcutsAndPrograms) {
  EXPECT_EQ(IconKey("PNG Image", "a.png", FileIconClass::kOrdinary), "png image");
  EXPECT_EQ(IconKey("PNG Image", "b.png", FileIconClass::kOrdinary), "png image");
  EXPECT_EQ(IconKey("Link", "photo.lnk", FileIconClass::kShortcut), "photo.lnk");
  EXPECT_EQ(IconKey("Program", "setup.exe", FileIconClass::kProgram), "setup.exe");
  EXPECT_EQ(IconKey("Program", "tool", FileIconClass::kOtherProgram), "DOSExeIcon");
}

// Separate selections are all removed; removing everything selects nothing.
TEST(RemoveWalk, SeparateSelectionsAreAllRemoved) {
  const RemoveResult result = RemoveWalk({"a", "b", "c", "d"}, {true, false, true, false}, 0);
  EXPECT_EQ(std::tuple(result.rows, result.select), std::tuple(std::vector<std::string>{"b", "d"}, 0));
  const RemoveResult none = RemoveWalk({"a"}, {true}, 0);
  EXPECT_EQ(std::tuple(none.rows.size(), none.select), std::tuple(std::size_t{0}, -1));
}

TEST(AddScannedNames, SkipsIndexZeroAndEmptyNamesAndYieldsEveryHundred) {
  std::vector<std::string> result(1);
  for (int i = 0; i < 250; ++i) result.push_back(i == 7 ? "" : "f" + std::to_string(i));
  std::vector<std::string> added;
  int yields = 0;
  AddScannedNames(
      result, [&](const std::string& name) { added.push_back(name); }, [&] { ++yields; });
  EXPECT_EQ(added.size(), 249u);
  EXPECT_EQ(added.front(), "f0");
  EXPECT_EQ(yields, 2);
}

}  // namespace
}  // namespace velmora::shell
