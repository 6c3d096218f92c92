// Save flags per output format.
#include "engine/encoder.h"

#include <FreeImage.h>
#include <gtest/gtest.h>

namespace velmora::engine {
namespace {

std::int32_t Flags(std::int32_t before, std::int16_t format, std::int16_t depth = 0, std::int16_t compression = 0,
                   std::int16_t quality = 90) {
  OutputChoices output;
  output.OutputFormat = format;
  output.ColorDepth = depth;
  output.CompressionIndex = compression;
  output.Quality = quality;
  return NextSaveFlags(before, output);
}

TEST(SaveFlags, JpegTakesTheQualityAndZeroBecomesOne) {
  EXPECT_EQ(Flags(0, 1, 0, 0, 90), 90);
  EXPECT_EQ(Flags(0, 1, 0, 0, 0), 1);
}

// The window lists the compressions under the library's names; its "JPEG" row adds nothing.
TEST(SaveFlags, TiffOrsTheCompressionIntoWhatCameBeforeAndCmykReplacesIt) {
  const std::int32_t named[] = {TIFF_NONE,      TIFF_PACKBITS,  TIFF_DEFLATE, TIFF_ADOBE_DEFLATE,
                                TIFF_CCITTFAX3, TIFF_CCITTFAX4, TIFF_LZW,     0};
  for (std::int16_t i = 0; i < 8; ++i) EXPECT_EQ(Flags(TIFF_JPEG, 5, 1, i), TIFF_JPEG | named[i]) << i;
  EXPECT_EQ(Flags(TIFF_DEFLATE, 5, 5, 6), TIFF_CMYK | TIFF_LZW);
}

TEST(SaveFlags, ExrAndGifAlwaysZeroOthersUntouched) {
  EXPECT_EQ(Flags(77, 6, 0, 2), 0);  // "PIZ" chosen, flags 0 all the same
  EXPECT_EQ(Flags(77, 2), 0);
  for (const std::int16_t format : {0, 3, 4}) EXPECT_EQ(Flags(77, format), 77) << format;
}

}  // namespace
}  // namespace velmora::engine
