// Face lookup by name and style through fontconfig.
#include <gtest/gtest.h>

#include <filesystem>

#include "imaging/text/font_lookup.h"

namespace velmora::imaging::text {
namespace {

TEST(TextFontLookup, ArialResolvesToItsMetricCompatibleFace) {
  FontLocation found;
  ASSERT_TRUE(FindFont("Arial", false, false, found));
  EXPECT_NE(found.file.find("LiberationSans-Regular"), std::string::npos) << found.file;
  EXPECT_FALSE(found.has_bold);
  EXPECT_FALSE(found.has_italic);
}

TEST(TextFontLookup, BoldAndItalicPickTheStyledFiles) {
  FontLocation found;
  ASSERT_TRUE(FindFont("Arial", true, true, found));
  EXPECT_NE(found.file.find("LiberationSans-BoldItalic"), std::string::npos) << found.file;
  EXPECT_TRUE(found.has_bold);
  EXPECT_TRUE(found.has_italic);
}

TEST(TextFontLookup, UnknownAndEmptyNamesFallBackToAnExistingFile) {
  for (const char* name : {"No Such Face 9137", ""}) {
    FontLocation found;
    ASSERT_TRUE(FindFont(name, false, false, found)) << name;
    EXPECT_TRUE(std::filesystem::exists(found.file)) << found.file;
  }
}

TEST(TextFontLookup, StylesTheFileLacksAreReportedAsMissing) {
  FontLocation regular;
  ASSERT_TRUE(FindFont("Noto Mono", false, false, regular));
  if (regular.file.find("NotoMono") == std::string::npos) GTEST_SKIP() << "Noto Mono not installed";
  FontLocation styled;
  ASSERT_TRUE(FindFont("Noto Mono", true, true, styled));
  EXPECT_EQ(styled.file, regular.file);
  EXPECT_FALSE(styled.has_bold);
  EXPECT_FALSE(styled.has_italic);
}

}  // namespace
}  // namespace velmora::imaging::text
