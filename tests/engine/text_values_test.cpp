// Number reading, rounding, booleans and the watermark font string.
#include <gtest/gtest.h>

#include <limits>

#include "engine/font_spec.h"
#include "engine/number_text.h"

namespace velmora::engine {
namespace {

TEST(NumberReading, LeadingNumberRoundedHalfToEvenAndNoValueOnOverflow) {
  EXPECT_EQ(ReadInt16("90.5"), 90);
  EXPECT_EQ(ReadInt16("91.5"), 92);
  EXPECT_EQ(ReadInt16("abc"), 0);
  EXPECT_EQ(ReadInt16(""), 0);
  EXPECT_EQ(ReadInt32(" - 1 2x"), -12);  // blanks inside are skipped
  EXPECT_EQ(ReadInt32("2.5"), 2);
  EXPECT_EQ(ReadInt32("3.5"), 4);
  EXPECT_EQ(ReadInt32("-2.5"), -2);
  // Overflow gives no value; rounding saturates.
  EXPECT_FALSE(ReadInt16("70000").has_value());
  EXPECT_EQ(ReadInt16("32767"), 32767);
  EXPECT_FALSE(ReadInt32("3000000000").has_value());
  EXPECT_FALSE(ReadInt32("1" + std::string(30, '0')).has_value());
  EXPECT_EQ(RoundHalfEven(1e30), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(RoundHalfEven(-1e30), std::numeric_limits<std::int64_t>::min());
}

TEST(WatermarkFont, EmptyGivesDefaultsAndAFullOneRoundTripsWithoutQuoting) {
  FontState font{255, kTrue, kTrue, kTrue, "Other", 40, kTrue};
  ParseWatermarkFont(font, "");
  EXPECT_EQ(font, (FontState{0, kFalse, kFalse, kFalse, "Arial", 12, kFalse}));
  ParseWatermarkFont(font, "16711680|True|False|True|DejaVu Sans|24.5|True");
  EXPECT_EQ(font, (FontState{16711680, kTrue, kFalse, kTrue, "DejaVu Sans", 24, kTrue}));
  EXPECT_EQ(FormatWatermarkFont(font), "16711680|True|False|True|DejaVu Sans|24|True");
  EXPECT_EQ(FormatWatermarkFont(FontState{}), "0|False|False|False||0|False");
}

TEST(WatermarkFont, MissingOrBadFieldsKeepTheirValuesAndABarInTheFaceShiftsTheRest) {
  FontState font{7, kTrue, kTrue, kTrue, "Keep", 30, kTrue};
  ParseWatermarkFont(font, "255|maybe|0");
  EXPECT_EQ(font, (FontState{255, kTrue, kFalse, kTrue, "Keep", 30, kTrue}));
  // A bar in the face shifts the later fields.
  ParseWatermarkFont(font, "0|False|False|False|A|B|12|True");
  EXPECT_EQ(font, (FontState{0, kFalse, kFalse, kFalse, "A", 0, kTrue}));  // "B" is no size, "12" a boolean
}

}  // namespace
}  // namespace velmora::engine
