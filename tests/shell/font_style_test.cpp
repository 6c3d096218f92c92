// The "Style..." flow: the stored string, the chooser's start values and what comes back.
#include <gtest/gtest.h>

#include "shell/font_style.h"

namespace velmora::shell {
namespace {

class ScriptedChooser : public FontChooser {
 public:
  std::optional<FontAnswer> answer;
  std::vector<FontRequest> requests;
  std::optional<FontAnswer> ChooseFont(const FontRequest& request) override {
    requests.push_back(request);
    return answer;
  }
};

TEST(FontStyle, ACancelOnANewWatermarkFillsTheStringFromTheWorkingCopy) {
  engine::FontState font;  // as at start-up: nothing chosen yet
  ScriptedChooser chooser;
  EXPECT_EQ(StyleButtonFlow("", font, chooser), "0|False|False|False||0|False");
  ASSERT_EQ(chooser.requests.size(), 1u);
  EXPECT_EQ(chooser.requests[0].tenths, 0);
}

TEST(FontStyle, AnEmptyStringStartsFromTheLastUse) {
  engine::FontState font{.FontColor = 0x336699, .FontFace = "DejaVu Serif", .FontSize = 15, .FontBold = engine::kTrue};
  ScriptedChooser chooser;
  EXPECT_EQ(StyleButtonFlow("", font, chooser), "3368601|False|False|False|DejaVu Serif|15|True");
  const FontRequest& r = chooser.requests[0];
  // The height is 15 x 1.3 = 19.5, to the even neighbour.
  EXPECT_EQ(std::tuple(r.face, r.height, r.tenths, r.weight, r.color),
            std::tuple("DejaVu Serif", 20, 150, 700, 0x336699));
}

TEST(FontStyle, TheStoredStringIsParsedAndTheAnswerTaken) {
  engine::FontState font;
  ScriptedChooser chooser;
  chooser.answer =
      FontAnswer{.face = "Liberation Sans", .tenths = 187, .color = 0x0000FF, .italic = true, .strikeout = true};
  const std::string result = StyleButtonFlow("16711680|False|True|False|Arial|10|True", font, chooser);
  const FontRequest& r = chooser.requests[0];
  EXPECT_EQ(std::tuple(r.face, r.height, r.underline), std::tuple("Arial", 13, true));
  EXPECT_EQ(result, "255|True|False|True|Liberation Sans|18|False");
  EXPECT_EQ(font.FontSize, 18);  // tenths divided by 10, the rest dropped
  // Face names are cut, the one asked for shorter than the one taken.
  font.FontFace = std::string(40, 'a');
  EXPECT_EQ(MakeFontRequest(font).face.size(), 31u);
  TakeFontAnswer(font, {.face = std::string(100, 'b')});
  EXPECT_EQ(font.FontFace.size(), 79u);
}

}  // namespace
}  // namespace velmora::shell
