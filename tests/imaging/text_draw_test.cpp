// Drawing text on real pages: what is accepted, where the ink lands, its size and colour,
// clipping, styles, turned lines and faces.
#include "imaging/text/font_lookup.h"
#include "imaging/text/text_renderer.h"
#include "tests/imaging/pages.h"

namespace velmora::testing {
namespace {

using imaging::text::DrawText;

Page Canvas(int width, int height) {
  return MakeFlat(width, height, 24, {255, 255, 255});
}

// The given text in an Arial face (Liberation Sans), by default of 24 points: 32 pixels.
imaging::TextDrawRequest Request(const std::string& text, int left, int top, int points = 24) {
  return {.text = text, .top = top, .left = left, .face = "Arial", .size_points = points};
}

// Bounding box (half open) of the pixels of a white page that are no longer white, and how far
// from white they are in all.
struct InkBox {
  int left = 1 << 30, top = 1 << 30, right = 0, bottom = 0;
  long amount = 0;
  int width() const { return right - left; }
  auto box() const { return std::tuple(left, top, right, bottom); }
};

InkBox Ink(FIBITMAP* page) {
  InkBox ink;
  for (int y = 0; y < int(FreeImage_GetHeight(page)); ++y)
    for (int x = 0; x < int(FreeImage_GetWidth(page)); ++x) {
      const Rgba p = PixelAt(page, x, y);
      if (p == Rgba{255, 255, 255}) continue;
      ink.amount += 3 * 255 - p.r - p.g - p.b;
      ink.left = std::min(ink.left, x), ink.top = std::min(ink.top, y);
      ink.right = std::max(ink.right, x + 1), ink.bottom = std::max(ink.bottom, y + 1);
    }
  return ink;
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

// Liberation Sans has 2048 units to the em, 32 pixels at 24 points: ascent 1854 (28.97 pixels, 29
// rows), descent 434 (7 rows). "H" stands 1409 high (22.02 pixels, 23 rows) on the baseline, from
// 158 to 1321 (2.47 to 20.64 pixels) of its advance of 1479 (23.11). Bars run the line's advance, a
// space's 569 (8.89 pixels, 9 columns); the underline, 150 thick (2.34 pixels, 2 rows), is centred
// 142 (2.22 pixels) under the baseline, the strikeout 0.3 em (9.6 pixels) over it.
TEST(TextDraw, InkLandsOnThePixelsTheFontMetricsGive) {
  // Text, points, points to the pixel, anchors (3 left, 4 right, 1 top, 2 bottom, 0 centre), bars,
  // and the ink's left, top, right and bottom. At (40, 30) on the left and top the baseline is row
  // 59; bars start at round(centre - 1): 59 + 2.22 - 1 and 59 - 9.6 - 1. At (250, 100) on the right
  // and bottom the line starts at 250 - 23, its baseline 7 rows above 100. Centred on (40, 30) it
  // starts at 40 - round(11.55), its baseline 29 - 36 / 2 rows below 30. At 16 pixels (12 points
  // at 0.75 to the pixel, also when neither is given, or 24 at 1.5) the ascent is 14.48 (15 rows)
  // and "H" 11.01 high (12 rows), from 1.23 to 10.32.
  using Box = std::tuple<int, int, int, int>;
  const std::tuple<const char*, int, double, int, int, bool, bool, Box> kRows[] = {
      {"H", 24, 0.75, 3, 1, false, false, {42, 36, 61, 59}}, {"H", 24, 0.75, 4, 2, false, false, {229, 70, 248, 93}},
      {"H", 24, 0.75, 0, 0, false, false, {30, 18, 49, 41}}, {" ", 24, 0.75, 3, 1, true, false, {40, 60, 49, 62}},
      {" ", 24, 0.75, 3, 1, false, true, {40, 48, 49, 50}},  {"H", 12, 0.75, 3, 1, false, false, {41, 33, 51, 45}},
      {"H", 0, 0, 3, 1, false, false, {41, 33, 51, 45}},     {"H", 24, 1.5, 3, 1, false, false, {41, 33, 51, 45}}};
  for (const auto& [text, points, scale, horizontal, vertical, underline, strikeout, box] : kRows) {
    Page page = Canvas(300, 120);
    auto request = Request(text, 40, 30, points);
    request.points_per_pixel = scale, request.right = 250, request.bottom = 100;
    request.horizontal_anchor = horizontal, request.vertical_anchor = vertical;
    request.underline = underline, request.strikeout = strikeout;
    ASSERT_TRUE(DrawText(page.get(), request));
    EXPECT_EQ(Ink(page.get()).box(), box) << points << " points at " << scale << ", anchors " << horizontal << vertical
                                          << ", bars " << underline << strikeout;
  }
}

// Full ink is exactly the requested colour, and edges lie between it and the page. Red ink of
// coverage c over blue of alpha one half is composited over, straight alpha: the result's alpha is
// c + (1 - c) / 2, of which c is red and the rest blue.
TEST(TextDraw, InkIsTheRequestedColourCompositedOverThePage) {
  Page white = Canvas(200, 100), half = MakeFlat(200, 100, 32, {0, 0, 255, 128});
  auto request = Request("H", 10, 5, 48);
  request.color = 0x00336699;  // red 0x99, green 0x66, blue 0x33
  ASSERT_TRUE(DrawText(white.get(), request));
  request.color = 0x000000FF;
  ASSERT_TRUE(DrawText(half.get(), request));
  int solid = 0, opaque = 0;
  for (const Rgba& p : Pixels(white.get())) {
    solid += p == Rgba{0x99, 0x66, 0x33};
    EXPECT_TRUE(p.r >= 0x99 && p.g >= 0x66 && p.b >= 0x33) << p;
  }
  for (const Rgba& p : Pixels(half.get())) {
    EXPECT_NEAR(p.r, 255 * (2 * p.a / 255.0 - 1) / (p.a / 255.0), 2.5) << p;
    ASSERT_EQ(p.r + p.b, 255) << p;
    opaque += p == Rgba{255, 0, 0, 255};
  }
  EXPECT_GT(std::min(solid, opaque), 100);
}

// Bold lays more ink, and italic letters lean right: the top row of an "l" starts further right
// than its bottom row. Arial has files of its own for both (Liberation Sans'), a face with neither
// gets them made up.
TEST(TextStyle, BoldThickensAndItalicLeans) {
  auto lean = [](FIBITMAP* page) {
    const InkBox ink = Ink(page);
    auto first = [&](int y) { return Ink(Page(FreeImage_Copy(page, 0, y, 100, y + 1)).get()).left; };
    return first(ink.top) - first(ink.bottom - 1);
  };
  for (const auto& [face, file, own] :
       {std::tuple{"Arial", "LiberationSans-BoldItalic", true}, {"DejaVu Math TeX Gyre", "DejaVuMathTeXGyre", false}}) {
    imaging::text::FontLocation plain, styled;
    if (!imaging::text::FindFont(face, false, false, plain) || !imaging::text::FindFont(face, true, true, styled) ||
        styled.file.find(file) == std::string::npos)
      GTEST_SKIP() << face << " not installed";
    EXPECT_EQ(std::tuple(plain.has_bold, plain.has_italic, styled.has_bold, styled.has_italic),
              std::tuple(false, false, own, own));
    Page regular = Canvas(400, 80), bold = Canvas(400, 80), upright = Canvas(100, 80), italic = Canvas(100, 80);
    auto words = Request("Watermark", 5, 5), letter = Request("l", 20, 5);
    words.face = letter.face = face;
    ASSERT_TRUE(DrawText(regular.get(), words) && DrawText(upright.get(), letter));
    words.bold = letter.italic = true;
    ASSERT_TRUE(DrawText(bold.get(), words) && DrawText(italic.get(), letter));
    EXPECT_GT(Ink(bold.get()).amount, Ink(regular.get()).amount * 5 / 4) << face;
    EXPECT_EQ(lean(upright.get()), 0) << face;
    EXPECT_GT(lean(italic.get()), 3) << face;
  }
}

// Quarter and half turns, counter-clockwise (negative ones wrap round), move each pixel exactly:
// the pixel whose centre lies (dx, dy) from the anchor lands where the turn takes that centre.
TEST(TextStyle, TurnsMoveTheLineAboutItsAnchor) {
  Page flat = Canvas(300, 300);
  auto request = Request("Watermark", 150, 150);
  ASSERT_TRUE(DrawText(flat.get(), request));
  const InkBox ink = Ink(flat.get());
  for (const auto& [angle, cos, sin] : {std::tuple{90, 0, 1}, {180, -1, 0}, {-90, 0, -1}}) {
    Page turned = Canvas(300, 300);
    request.angle_degrees = angle;
    ASSERT_TRUE(DrawText(turned.get(), request));
    EXPECT_EQ(Ink(turned.get()).amount, ink.amount) << angle;
    for (int y = ink.top; y < ink.bottom; ++y)
      for (int x = ink.left; x < ink.right; ++x) {
        const double dx = x + 0.5 - 150, dy = y + 0.5 - 150;
        const int to_x = int(std::floor(150 + cos * dx + sin * dy)), to_y = int(std::floor(150 - sin * dx + cos * dy));
        ASSERT_EQ(PixelAt(flat.get(), x, y), PixelAt(turned.get(), to_x, to_y)) << angle << ": " << x << "," << y;
      }
  }
  // Other angles too (whole turns count for nothing): at 45 degrees the baseline heads up and to
  // the right, and the ascent line's start stays near the anchor.
  Page slanted = Canvas(300, 300);
  request.angle_degrees = 45 + 360;
  ASSERT_TRUE(DrawText(slanted.get(), request));
  const InkBox box = Ink(slanted.get());
  EXPECT_TRUE(box.left >= 148 && box.top < 70 && box.right > 230 && box.bottom <= 180) << box.left << "," << box.top;
  EXPECT_NEAR(box.width(), box.bottom - box.top, 30);
}

// Unknown faces fall back to the default one. Text is read as UTF-8, and a mark the face places
// by its anchors (an acute over "H", which has no letter of its own) sits as high as the accent
// of the ready-made "É".
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
  Page marked = Canvas(100, 80), accented = Canvas(100, 80);
  request.face = "DejaVu Sans", request.text = "H\314\201";
  ASSERT_TRUE(DrawText(marked.get(), request));
  request.text = "\303\211";
  ASSERT_TRUE(DrawText(accented.get(), request));
  EXPECT_EQ(std::pair(Ink(marked.get()).top, Ink(marked.get()).bottom),
            std::pair(Ink(accented.get()).top, Ink(accented.get()).bottom));
}

}  // namespace
}  // namespace velmora::testing
