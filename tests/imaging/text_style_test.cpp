// Drawing text in styles: bold, italic, underline, strikeout, turned lines and faces that don't
// exist.
#include <gtest/gtest.h>

#include "imaging/text/font_lookup.h"
#include "imaging/text/text_renderer.h"
#include "tests/imaging/text_canvas.h"

namespace velmora::testing {
namespace {

using imaging::text::DrawText;

bool NotoMonoInstalled() {
  imaging::text::FontLocation found;
  return imaging::text::FindFont("Noto Mono", false, false, found) && found.file.find("NotoMono") != std::string::npos;
}

TEST(TextStyle, BoldLaysMoreInkThanRegular) {
  Canvas regular(300, 80), bold(300, 80);
  auto request = Request("Watermark", 5, 5);
  ASSERT_TRUE(DrawText(regular.dib(), request));
  request.bold = true;
  ASSERT_TRUE(DrawText(bold.dib(), request));
  EXPECT_GT(bold.Ink().amount, regular.Ink().amount * 5 / 4);
}

TEST(TextStyle, BoldIsMadeUpWhenTheFaceHasNoBoldWeight) {
  if (!NotoMonoInstalled()) GTEST_SKIP() << "Noto Mono not installed";
  Canvas regular(400, 80), bold(400, 80);
  auto request = Request("Watermark", 5, 5);
  request.face = "Noto Mono";
  ASSERT_TRUE(DrawText(regular.dib(), request));
  request.bold = true;
  ASSERT_TRUE(DrawText(bold.dib(), request));
  EXPECT_GT(bold.Ink().amount, regular.Ink().amount * 5 / 4);
}

// Italic letters lean right: their top ink sits further right of their bottom ink than upright
// letters' does.
void ExpectItalicLeans(const std::string& face) {
  Canvas upright(200, 80), italic(200, 80);
  auto request = Request("lll", 20, 5);
  request.face = face;
  ASSERT_TRUE(DrawText(upright.dib(), request));
  request.italic = true;
  ASSERT_TRUE(DrawText(italic.dib(), request));
  const InkBox u = upright.Ink(), i = italic.Ink();
  const int u_quarter = u.height() / 4, i_quarter = i.height() / 4;
  const double upright_lean =
      upright.InkCentreX(u.top, u.top + u_quarter) - upright.InkCentreX(u.bottom - u_quarter, u.bottom);
  const double italic_lean =
      italic.InkCentreX(i.top, i.top + i_quarter) - italic.InkCentreX(i.bottom - i_quarter, i.bottom);
  EXPECT_GT(italic_lean - upright_lean, 3);
}

TEST(TextStyle, ItalicLeansTheLetters) {
  ExpectItalicLeans("Arial");
}

TEST(TextStyle, ItalicIsMadeUpWhenTheFaceHasNoItalic) {
  if (!NotoMonoInstalled()) GTEST_SKIP() << "Noto Mono not installed";
  ExpectItalicLeans("Noto Mono");
}

TEST(TextStyle, UnderlineAddsARunUnderTheBaseline) {
  Canvas plain(300, 80), underlined(300, 80);
  auto request = Request("ace", 10, 5);  // no descenders: the plain ink ends at the baseline
  ASSERT_TRUE(DrawText(plain.dib(), request));
  request.underline = true;
  ASSERT_TRUE(DrawText(underlined.dib(), request));
  const InkBox ink = plain.Ink();

  int bar_row = -1;
  for (int y = ink.bottom; y < underlined.height() && bar_row < 0; ++y) {
    if (underlined.LongestRun(y) >= ink.width() * 9 / 10) bar_row = y;
  }
  ASSERT_GE(bar_row, 0) << "no underline below the baseline";
  EXPECT_LE(bar_row, ink.bottom + 5);
  for (int y = ink.top; y < ink.bottom; ++y) EXPECT_LT(plain.LongestRun(y), ink.width() * 9 / 10);
}

TEST(TextStyle, StrikeoutCrossesTheLettersAboveTheBaseline) {
  Canvas plain(300, 80), struck(300, 80);
  auto request = Request("ace", 10, 5);
  ASSERT_TRUE(DrawText(plain.dib(), request));
  request.strikeout = true;
  ASSERT_TRUE(DrawText(struck.dib(), request));
  const InkBox ink = plain.Ink();

  int bar_row = -1;
  for (int y = ink.top; y < ink.bottom && bar_row < 0; ++y) {
    if (struck.LongestRun(y) >= ink.width() * 9 / 10) bar_row = y;
  }
  ASSERT_GE(bar_row, 0) << "no bar through the letters";
  EXPECT_GT(bar_row, ink.top + 2);
  EXPECT_LT(bar_row, ink.bottom - 3);
  EXPECT_TRUE(struck.Ink().bottom <= ink.bottom) << "strikeout must not reach below the baseline";
}

TEST(TextStyle, QuarterTurnStandsTheLineUpFromItsAnchor) {
  Canvas flat(300, 300), turned(300, 300);
  auto request = Request("Watermark", 100, 250);
  ASSERT_TRUE(DrawText(flat.dib(), request));
  request.angle_degrees = 90;
  ASSERT_TRUE(DrawText(turned.dib(), request));
  const InkBox f = flat.Ink(), t = turned.Ink();
  EXPECT_GT(f.width(), f.height());
  EXPECT_GT(t.height(), t.width());
  // Counter-clockwise: the line now reads upwards from the anchor, its top edge on the left.
  EXPECT_LE(t.bottom, 250);
  EXPECT_GE(t.left, 100);

  // A quarter turn moves each pixel exactly: line pixel (dx, dy) from the anchor lands at
  // (anchor x + dy, anchor y - dx - 1).
  for (int y = f.top; y < f.bottom; ++y) {
    for (int x = f.left; x < f.right; ++x) {
      ASSERT_EQ(flat.Pixel(x, y), turned.Pixel(100 + (y - 250), 250 - (x - 100) - 1)) << x << "," << y;
    }
  }
}

TEST(TextStyle, SlantedAngleTurnsAboutTheAnchor) {
  Canvas canvas(300, 300);
  auto request = Request("Watermark", 50, 250);
  request.angle_degrees = 45;
  ASSERT_TRUE(DrawText(canvas.dib(), request));
  const InkBox ink = canvas.Ink();
  ASSERT_FALSE(ink.empty());
  // The baseline heads up and to the right; the ascent line's start stays near the anchor.
  EXPECT_GE(ink.left, 50 - 2);
  EXPECT_LT(ink.top, 250 - 80);
  EXPECT_GT(ink.right, 50 + 80);
  EXPECT_LE(ink.bottom, 250 + 30);
  EXPECT_NEAR(ink.width(), ink.height(), 30);
}

TEST(TextStyle, UnknownFaceFallsBackAndStillDraws) {
  Canvas unknown(300, 80), unnamed(300, 80);
  auto request = Request("Watermark", 5, 5);
  request.face = "No Such Face 9137";
  ASSERT_TRUE(DrawText(unknown.dib(), request));
  request.face = "";
  ASSERT_TRUE(DrawText(unnamed.dib(), request));
  EXPECT_GT(unknown.Ink().amount, 0);
  EXPECT_TRUE(unknown.SamePixels(unnamed));
}

TEST(TextStyle, NonAsciiTextIsReadAsUtf8) {
  Canvas canvas(300, 80);
  ASSERT_TRUE(DrawText(canvas.dib(), Request("Gr\xC3\xB6\xC3\x9F"
                                             "e",
                                             5, 5)));  // "Größe"
  const InkBox ink = canvas.Ink();
  EXPECT_GT(ink.width(), 60);
  EXPECT_LT(ink.width(), 100);
}

}  // namespace
}  // namespace velmora::testing
