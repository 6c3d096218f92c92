// Save flags and the choice of a multipage file.
#include <gtest/gtest.h>

#include "engine/encoder.h"

namespace velmora::engine {
namespace {

OutputChoices Choices(std::int16_t format, std::int16_t depth = 0, std::int16_t compression = 0,
                      std::int16_t quality = 90) {
  OutputChoices output;
  output.OutputFormat = format;
  output.ColorDepth = depth;
  output.CompressionIndex = compression;
  output.Quality = quality;
  return output;
}

TEST(SaveFlags, JpegTakesTheQualityAndZeroBecomesOne) {
  EXPECT_EQ(NextSaveFlags(0, Choices(1, 0, 0, 90)), 90);
  EXPECT_EQ(NextSaveFlags(0, Choices(1, 0, 0, 0)), 1);
}

TEST(SaveFlags, TiffOrsCompressionIntoWhatCameBefore) {
  EXPECT_EQ(NextSaveFlags(0, Choices(5, 5, 6)), 0x4001);  // CMYK with LZW
  EXPECT_EQ(NextSaveFlags(0, Choices(5, 1, 7)), 0);       // "JPEG" row adds nothing
  const std::int32_t first = NextSaveFlags(0, Choices(5, 1, 1));
  EXPECT_EQ(first, 0x0100);
  EXPECT_EQ(NextSaveFlags(first, Choices(5, 1, 1)), 0x0100);   // or-ing again changes nothing
  EXPECT_EQ(NextSaveFlags(0x4000, Choices(5, 1, 2)), 0x4200);  // earlier bits stay
}

TEST(SaveFlags, ExrAndGifAlwaysZeroOthersUntouched) {
  EXPECT_EQ(NextSaveFlags(77, Choices(6, 0, 2)), 0);  // "PIZ" chosen, flags 0 all the same
  EXPECT_EQ(NextSaveFlags(77, Choices(2)), 0);
  EXPECT_EQ(NextSaveFlags(77, Choices(0)), 77);
  EXPECT_EQ(NextSaveFlags(77, Choices(3)), 77);
  EXPECT_EQ(NextSaveFlags(77, Choices(4)), 77);
}

}  // namespace
}  // namespace velmora::engine
