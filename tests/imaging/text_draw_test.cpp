// Drawing text on real pages: what is accepted, where the ink lands, its size and colour,
// clipping, styles, turned lines and faces.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "imaging/text/font_lookup.h"
#include "imaging/text/text_renderer.h"
#include "tests/imaging/pages.h"

namespace velmora::testing {
namespace {

using imaging::text::DrawText;

Page Canvas(int width, int height) {
  return MakeFlat(width, height, 24, {255, 255, 255});
}

// The program's usual fixed arguments, the given text and an Arial face, by default of 24 points:
// Liberation Sans at 32 pixels, about 29 pixels of ascent and 7 of descent.
imaging::TextDrawRequest Request(const std::string& text, int left, int top, int points = 24) {
  return {.text = text, .top = top, .left = left, .face = "Arial", .size_points = points};
}

// Pages other than 24 or 32 bits and sizes beyond any page are refused; empty text and text
// wholly off the page draw nothing; text partly off the page is clipped.
TEST(TextDraw, RefusedEmptyAndClippedText) {
  Page indexed(FreeImage_Allocate(50, 20, 8)), words(FreeImage_AllocateT(FIT_UINT16, 50, 20)), page = Canvas(120, 60);
  const auto request = Request("Watermark", 5, 5);
  EXPECT_FALSE(DrawText(nullptr, request) || DrawText(indexed.get(), request) || DrawText(words.get(), request));
  const BYTE* bits = FreeImage_GetBits(indexed.get());
  EXPECT_TRUE(std::all_of(bits, bits + FreeImage_GetPitch(indexed.get()) * 20, [](BYTE b) { return b == 0; }));
  EXPECT_FALSE(DrawText(page.get(), Request("Watermark", 5, 5, 4000)));
  EXPECT_TRUE(DrawText(page.get(), Request("", 10, 10)));
  for (const auto& [left, top] : {std::pair{5000, 10}, {-5000, 10}, {10, 5000}, {10, -5000}})
    EXPECT_TRUE(DrawText(page.get(), Request("Watermark", left, top)));
  EXPECT_EQ(Ink(page.get()).amount, 0);
  ASSERT_TRUE(DrawText(page.get(), Request("Watermark", -40, -12)));
  EXPECT_EQ(std::pair(Ink(page.get()).left, Ink(page.get()).top), std::pair(0, 0));
}

// Left and top put the line's start and ascent line there, right and bottom its end and descent line.
TEST(TextDraw, AnchorsPutTheLineInsideItsBox) {
  Page top_left = Canvas(300, 120), bottom_right = Canvas(300, 120);
  ASSERT_TRUE(DrawText(top_left.get(), Request("Hg", 50, 40)));
  auto request = Request("Hg", 0, 0);
  request.horizontal_anchor = 4, request.vertical_anchor = 2, request.right = 250, request.bottom = 100;
  ASSERT_TRUE(DrawText(bottom_right.get(), request));
  const InkBox a = Ink(top_left.get()), b = Ink(bottom_right.get());
  EXPECT_TRUE(a.left >= 50 && a.left <= 54) << a.left;  // the side bearing of "H"
  EXPECT_TRUE(a.top >= 44 && a.top <= 50) << a.top;     // capitals stay below the ascent line
  EXPECT_TRUE(b.right >= 246 && b.right <= 250) << b.right;
  EXPECT_TRUE(b.bottom >= 97 && b.bottom <= 100) << b.bottom;  // the descender of "g"
  EXPECT_EQ(b.width() * 1000 + b.height(), a.width() * 1000 + a.height());
}

// Points at the request's scale, 0.75 points to the pixel (96 dots per inch) when it has none.
TEST(TextDraw, SizeIsPointsAtTheRequestsScale) {
  Page small = Canvas(200, 100), large = Canvas(200, 100), unset = Canvas(200, 100), halved = Canvas(200, 100);
  ASSERT_TRUE(DrawText(small.get(), Request("H", 10, 10, 12)));  // 16 pixels, capitals about 11 high
  ASSERT_TRUE(DrawText(large.get(), Request("H", 10, 10, 24)));
  // No size (a cancelled font dialog leaves 0) and no scale: the usual 12 points at 96 dpi.
  auto request = Request("H", 10, 10, 0);
  request.points_per_pixel = 0;
  ASSERT_TRUE(DrawText(unset.get(), request));
  request.size_points = 24, request.points_per_pixel = 1.5;  // 48 dpi: the same 16 pixels
  ASSERT_TRUE(DrawText(halved.get(), request));
  EXPECT_TRUE(Ink(small.get()).height() >= 10 && Ink(small.get()).height() <= 12) << Ink(small.get()).height();
  EXPECT_NEAR(Ink(large.get()).height(), 2 * Ink(small.get()).height(), 2);
  EXPECT_TRUE(Pixels(unset.get()) == Pixels(small.get()) && Pixels(halved.get()) == Pixels(small.get()));
}

TEST(TextDraw, FullInkIsExactlyTheRequestedColourAndEdgesLieBetweenItAndThePage) {
  Page canvas = Canvas(200, 100);
  auto request = Request("H", 10, 5, 48);
  request.color = 0x00336699;  // red 0x99, green 0x66, blue 0x33
  ASSERT_TRUE(DrawText(canvas.get(), request));
  int solid = 0;
  for (const Rgba& p : Pixels(canvas.get())) {
    solid += p == Rgba{0x99, 0x66, 0x33};
    EXPECT_TRUE(p.r >= 0x99 && p.g >= 0x66 && p.b >= 0x33) << p;
  }
  EXPECT_GT(solid, 100);
}

// Red ink of coverage c over blue of alpha one half, straight alpha: the result's alpha is
// c + (1 - c) / 2, of which c is red and the rest blue.
TEST(TextDraw, InkOnHalfTransparentPixelsIsCompositedOver) {
  Page canvas = MakeFlat(200, 100, 32, {0, 0, 255, 128});
  auto request = Request("H", 10, 5, 48);
  request.color = 0x000000FF;
  ASSERT_TRUE(DrawText(canvas.get(), request));
  int opaque = 0;
  for (const Rgba& p : Pixels(canvas.get())) {
    const double alpha = p.a / 255.0;
    EXPECT_NEAR(p.r, 255 * (2 * alpha - 1) / alpha, 2.5) << p;
    ASSERT_EQ(p.r + p.b, 255) << p;
    opaque += p == Rgba{255, 0, 0, 255};
  }
  EXPECT_GT(opaque, 100);
}

TEST(TextFontLookup, ArialResolvesToItsMetricCompatibleFiles) {
  for (const auto& [bold, italic, file] :
       {std::tuple{false, false, "LiberationSans-Regular"}, {true, true, "LiberationSans-BoldItalic"}}) {
    imaging::text::FontLocation found;
    ASSERT_TRUE(imaging::text::FindFont("Arial", bold, italic, found));
    EXPECT_EQ(std::tuple(found.file.find(file) != std::string::npos, found.has_bold, found.has_italic),
              std::tuple(true, bold, italic))
        << found.file;
  }
}

// Mean x of the ink in rows [top, bottom), weighted by how much ink each pixel holds.
double InkCentreX(FIBITMAP* page, int top, int bottom) {
  double weighted = 0, total = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = 0; x < int(FreeImage_GetWidth(page)); ++x) {
      const int ink = Difference(PixelAt(page, x, y), {255, 255, 255});
      weighted += double(ink) * x, total += ink;
    }
  }
  return weighted / total;
}

// How far right the top quarter of the ink sits of its bottom quarter.
double Lean(FIBITMAP* page) {
  const InkBox ink = Ink(page);
  const int quarter = ink.height() / 4;
  return InkCentreX(page, ink.top, ink.top + quarter) - InkCentreX(page, ink.bottom - quarter, ink.bottom);
}

// Bold lays more ink, and italic letters lean right.
void ExpectBoldAndItalic(const std::string& face) {
  Page regular = Canvas(400, 80), bold = Canvas(400, 80), upright = Canvas(200, 80), italic = Canvas(200, 80);
  auto words = Request("Watermark", 5, 5), letters = Request("lll", 20, 5);
  words.face = letters.face = face;
  ASSERT_TRUE(DrawText(regular.get(), words) && DrawText(upright.get(), letters));
  words.bold = letters.italic = true;
  ASSERT_TRUE(DrawText(bold.get(), words) && DrawText(italic.get(), letters));
  EXPECT_GT(Ink(bold.get()).amount, Ink(regular.get()).amount * 5 / 4);
  EXPECT_GT(Lean(italic.get()) - Lean(upright.get()), 3);
}

TEST(TextStyle, BoldThickensAndItalicLeans) {
  ExpectBoldAndItalic("Arial");
}

TEST(TextStyle, BoldAndItalicAreMadeUpWhenTheFaceHasNeither) {
  imaging::text::FontLocation found;
  if (!imaging::text::FindFont("Noto Mono", false, false, found) || found.file.find("NotoMono") == std::string::npos)
    GTEST_SKIP() << "Noto Mono not installed";
  ExpectBoldAndItalic("Noto Mono");
}

TEST(TextStyle, UnderlineRunsUnderTheBaselineAndStrikeoutThroughTheLetters) {
  Page plain = Canvas(300, 80), underlined = Canvas(300, 80), struck = Canvas(300, 80);
  auto request = Request("ace", 10, 5);  // no descenders: the plain ink ends at the baseline
  ASSERT_TRUE(DrawText(plain.get(), request));
  request.underline = true;
  ASSERT_TRUE(DrawText(underlined.get(), request));
  request.underline = false, request.strikeout = true;
  ASSERT_TRUE(DrawText(struck.get(), request));
  const InkBox ink = Ink(plain.get());
  // The first row in [from, to) with an unbroken run of ink nine tenths as wide as the plain ink.
  auto first_bar = [&](FIBITMAP* page, int from, int to) {
    for (int y = from; y < to; ++y)
      for (int x = 0, run = 0; x < 300; ++x)
        if ((run = PixelAt(page, x, y) == Rgba{255, 255, 255} ? 0 : run + 1) >= ink.width() * 9 / 10) return y;
    return -1;
  };
  EXPECT_EQ(first_bar(plain.get(), 0, 80), -1);
  const int under = first_bar(underlined.get(), ink.bottom, 80), through = first_bar(struck.get(), ink.top, ink.bottom);
  EXPECT_TRUE(under >= ink.bottom && under <= ink.bottom + 5) << under;
  EXPECT_TRUE(through > ink.top + 2 && through < ink.bottom - 3) << through;
  EXPECT_LE(Ink(struck.get()).bottom, ink.bottom);
}

// Quarter and half turns, counter-clockwise, move each pixel exactly: the pixel whose centre lies
// (dx, dy) from the anchor lands where the turn takes that centre.
TEST(TextStyle, TurnsMoveTheLineAboutItsAnchor) {
  Page flat = Canvas(300, 300);
  auto request = Request("Watermark", 150, 150);
  ASSERT_TRUE(DrawText(flat.get(), request));
  const InkBox ink = Ink(flat.get());
  for (const auto& [angle, cos, sin] : {std::tuple{90, 0, 1}, {180, -1, 0}, {270, 0, -1}}) {
    Page turned = Canvas(300, 300);
    request.angle_degrees = angle;
    ASSERT_TRUE(DrawText(turned.get(), request));
    EXPECT_EQ(Ink(turned.get()).amount, ink.amount) << angle;
    for (int y = ink.top; y < ink.bottom; ++y) {
      for (int x = ink.left; x < ink.right; ++x) {
        const double dx = x + 0.5 - 150, dy = y + 0.5 - 150;
        const int to_x = int(std::floor(150 + cos * dx + sin * dy)), to_y = int(std::floor(150 - sin * dx + cos * dy));
        ASSERT_EQ(PixelAt(flat.get(), x, y), PixelAt(turned.get(), to_x, to_y)) << angle << ": " << x << "," << y;
      }
    }
  }
  // Other angles too (whole turns count for nothing): at 45 degrees the baseline heads up and to
  // the right, and the ascent line's start stays near the anchor.
  Page slanted = Canvas(300, 300);
  request.angle_degrees = 45 + 360;
  ASSERT_TRUE(DrawText(slanted.get(), request));
  const InkBox box = Ink(slanted.get());
  EXPECT_TRUE(box.left >= 148 && box.top < 70 && box.right > 230 && box.bottom <= 180) << box.left << "," << box.top;
  EXPECT_NEAR(box.width(), box.height(), 30);
}

TEST(TextStyle, UnknownFacesFallBackAndTextIsReadAsUtf8) {
  Page unknown = Canvas(300, 80), unnamed = Canvas(300, 80), umlauts = Canvas(300, 80);
  auto request = Request("Watermark", 5, 5);
  request.face = "No Such Face 9137";
  ASSERT_TRUE(DrawText(unknown.get(), request));
  request.face = "";
  ASSERT_TRUE(DrawText(unnamed.get(), request));
  EXPECT_GT(Ink(unknown.get()).amount, 0);
  EXPECT_EQ(Pixels(unknown.get()), Pixels(unnamed.get()));
  ASSERT_TRUE(DrawText(umlauts.get(), Request("Gr\303\266\303\237e", 5, 5)));  // five letters, not seven
  EXPECT_TRUE(Ink(umlauts.get()).width() > 60 && Ink(umlauts.get()).width() < 100) << Ink(umlauts.get()).width();
}

}  // namespace
}  // namespace velmora::testing
