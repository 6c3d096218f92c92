// Drawing text on real bitmaps: what is accepted, where the ink lands, its colour, clipping.
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "imaging/text/text_renderer.h"
#include "tests/imaging/text_canvas.h"

namespace velmora::testing {
namespace {

using imaging::text::DrawText;

// Arial 24 points is Liberation Sans at 32 pixels: about 29 pixels of ascent and 7 of descent.
constexpr int kLineHeight = 36;

TEST(TextDraw, RefusesWhatIsNotA24Or32BitBitmap) {
  const auto request = Request("Velmora", 5, 5);
  EXPECT_FALSE(DrawText(nullptr, request));

  FIBITMAP* indexed = FreeImage_Allocate(50, 20, 8);
  FIBITMAP* words = FreeImage_AllocateT(FIT_UINT16, 50, 20);
  EXPECT_FALSE(DrawText(indexed, request));
  EXPECT_FALSE(DrawText(words, request));
  for (unsigned y = 0; y < 20; ++y) {
    const BYTE* row = FreeImage_GetScanLine(indexed, y);
    for (unsigned x = 0; x < 50; ++x) EXPECT_EQ(row[x], 0) << x << "," << y;
  }
  FreeImage_Unload(indexed);
  FreeImage_Unload(words);
}

TEST(TextDraw, EmptyTextDrawsNothing) {
  Canvas canvas(120, 60);
  EXPECT_TRUE(DrawText(canvas.dib(), Request("", 10, 10)));
  EXPECT_TRUE(canvas.Ink().empty());
}

TEST(TextDraw, LeftTopPutsTheTextRightOfLeftAndBelowTop) {
  Canvas canvas(300, 120);
  ASSERT_TRUE(DrawText(canvas.dib(), Request("Hg", 50, 40)));
  const InkBox ink = canvas.Ink();
  ASSERT_FALSE(ink.empty());
  EXPECT_GE(ink.left, 50);
  EXPECT_LE(ink.left, 54);     // the side bearing of "H"
  EXPECT_GE(ink.top, 40 + 4);  // capitals stay below the ascent line
  EXPECT_LE(ink.top, 40 + 10);
  EXPECT_LE(ink.bottom, 40 + kLineHeight + 1);
}

TEST(TextDraw, RightBottomEndsTheTextAtRightAndBottom) {
  Canvas canvas(300, 120);
  auto request = Request("Hg", 0, 0);
  request.horizontal_anchor = 4;
  request.vertical_anchor = 2;
  request.right = 250;
  request.bottom = 100;
  ASSERT_TRUE(DrawText(canvas.dib(), request));
  const InkBox ink = canvas.Ink();
  ASSERT_FALSE(ink.empty());
  EXPECT_LE(ink.right, 250);
  EXPECT_GE(ink.right, 246);
  EXPECT_LE(ink.bottom, 100);  // the descender of "g" reaches near the descent line
  EXPECT_GE(ink.bottom, 97);
  EXPECT_GE(ink.top, 100 - kLineHeight);
}

TEST(TextDraw, CentreAnchorsCentreTheLineOnLeftAndTop) {
  Canvas canvas(300, 120);
  auto request = Request("HHHH", 150, 60);
  request.horizontal_anchor = 0;
  request.vertical_anchor = 0;
  ASSERT_TRUE(DrawText(canvas.dib(), request));
  const InkBox ink = canvas.Ink();
  ASSERT_FALSE(ink.empty());
  EXPECT_NEAR((ink.left + ink.right) / 2.0, 150, 2);
  EXPECT_GE(ink.top, 60 - kLineHeight / 2);
  EXPECT_LE(ink.bottom, 60 + kLineHeight / 2 + 1);
  EXPECT_LT(ink.top, 60);
  EXPECT_GT(ink.bottom, 60);
}

TEST(TextDraw, SizeIsPointsAtNinetySixDotsPerInch) {
  Canvas small(200, 100), large(200, 100);
  auto request = Request("H", 10, 10);
  request.size_points = 12;  // 16 pixels, capitals about 11 high
  ASSERT_TRUE(DrawText(small.dib(), request));
  request.size_points = 24;
  ASSERT_TRUE(DrawText(large.dib(), request));
  EXPECT_GE(small.Ink().height(), 10);
  EXPECT_LE(small.Ink().height(), 12);
  EXPECT_NEAR(large.Ink().height(), 2 * small.Ink().height(), 2);
}

TEST(TextDraw, FullInkIsExactlyTheRequestedColour) {
  Canvas canvas(200, 100);
  auto request = Request("H", 10, 5);
  request.size_points = 48;
  request.color = 0x00336699;  // red 0x99, green 0x66, blue 0x33
  ASSERT_TRUE(DrawText(canvas.dib(), request));
  const Rgba ink_colour{0x99, 0x66, 0x33, 255};
  int solid = 0;
  for (int y = 0; y < canvas.height(); ++y) {
    for (int x = 0; x < canvas.width(); ++x) {
      const Rgba p = canvas.Pixel(x, y);
      if (p == ink_colour) ++solid;
      // Edges mix the ink with white, so no channel goes past the ink's own value.
      EXPECT_GE(p.red, 0x99);
      EXPECT_GE(p.green, 0x66);
      EXPECT_GE(p.blue, 0x33);
    }
  }
  EXPECT_GT(solid, 100);
}

// 32-bit pages are composited "source over": ink on clear pixels makes them show the ink.
TEST(TextDraw, InkOnTransparentPixelsRaisesTheirAlpha) {
  Canvas canvas(200, 100, 32, {255, 255, 255, 0});
  auto request = Request("H", 10, 5);
  request.size_points = 48;
  request.color = 0x000000FF;
  ASSERT_TRUE(DrawText(canvas.dib(), request));
  int opaque = 0;
  for (int y = 0; y < canvas.height(); ++y) {
    for (int x = 0; x < canvas.width(); ++x) {
      const Rgba p = canvas.Pixel(x, y);
      if (p.alpha == 0) continue;  // untouched
      EXPECT_EQ(p.red, 255);
      EXPECT_EQ(p.green, 0);
      EXPECT_EQ(p.blue, 0);
      if (p.alpha == 255) ++opaque;
    }
  }
  EXPECT_GT(opaque, 100);
}

TEST(TextDraw, TextPartlyOffThePageIsClipped) {
  Canvas canvas(120, 60);
  ASSERT_TRUE(DrawText(canvas.dib(), Request("Watermark", -40, -12)));
  const InkBox ink = canvas.Ink();
  ASSERT_FALSE(ink.empty());
  EXPECT_EQ(ink.left, 0);
  EXPECT_EQ(ink.top, 0);
}

TEST(TextDraw, TextWhollyOffThePageLeavesItUntouched) {
  Canvas canvas(120, 60);
  for (const auto& [left, top] : {std::pair{5000, 10}, {-5000, 10}, {10, 5000}, {10, -5000}}) {
    EXPECT_TRUE(DrawText(canvas.dib(), Request("Watermark", left, top)));
  }
  EXPECT_TRUE(canvas.Ink().empty());
}

TEST(TextDraw, ThreadsDrawingAtOnceGetTheSamePixels) {
  const auto request = Request("Velmora 2024", 5, 5);
  Canvas reference(260, 60);
  ASSERT_TRUE(DrawText(reference.dib(), request));

  std::vector<std::unique_ptr<Canvas>> canvases;
  for (int i = 0; i < 4; ++i) canvases.push_back(std::make_unique<Canvas>(260, 60));
  std::vector<std::thread> threads;
  for (auto& canvas : canvases) {
    threads.emplace_back([&request, page = canvas.get()] {
      for (int round = 0; round < 5; ++round) DrawText(page->dib(), request);
    });
  }
  for (auto& thread : threads) thread.join();

  // Five draws on the same spot darken the edges further, so compare with five draws here too.
  for (int round = 1; round < 5; ++round) DrawText(reference.dib(), request);
  for (auto& canvas : canvases) EXPECT_TRUE(canvas->SamePixels(reference));
}

}  // namespace
}  // namespace velmora::testing
