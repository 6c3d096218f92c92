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

}  // namespace
}  // namespace velmora::imaging::text
