// ImagingLibrary's handles and failure rule (0 or unknown handles fail and stay), blank pages, and
// drawing on pages of any depth: effects, text, and watermarks clipped, colour-keyed and blended.
#include "imaging/effects/effects.h"
#include "imaging/text/text_renderer.h"
#include "tests/imaging/pages.h"

namespace velmora::imaging {
namespace {

using namespace velmora::testing;
using InOut = std::function<void(ImagingLibrary&, Handle&, CallResult&)>;

const TextDrawRequest kText{.text = "x", .face = ""};

// What draws on a 24- or 32-bit page (bringing a page of any other depth to one first), through
// the library and straight on a bitmap.
const std::pair<InOut, std::function<bool(FIBITMAP*)>> kDrawing[] = {
    {[](auto& l, auto& h, auto& r) { l.EffectBlur(h, 0, r); }, [](auto* d) { return effects::Blur(d, false); }},
    {[](auto& l, auto& h, auto& r) { l.EffectDistort(h, r); }, effects::Distort},
    {[](auto& l, auto& h, auto& r) { l.EffectEmboss(h, -1, 3, r); },
     [](auto* d) { return effects::Emboss(d, true, 3); }},
    {[](auto& l, auto& h, auto& r) { l.EffectEtch(h, 0, 1, r); }, [](auto* d) { return effects::Etch(d, false, 1); }},
    {[](auto& l, auto& h, auto& r) { l.EffectGrayscale(h, r); }, effects::Grayscale},
    {[](auto& l, auto& h, auto& r) { l.EffectMosaic(h, 4, r); }, [](auto* d) { return effects::Mosaic(d, 4); }},
    {[](auto& l, auto& h, auto& r) { l.EffectMotion(h, -1, r); }, [](auto* d) { return effects::Motion(d, true); }},
    {[](auto& l, auto& h, auto& r) { l.EffectSharpen(h, 0, r); }, [](auto* d) { return effects::Sharpen(d, false); }},
    {[](auto& l, auto& h, auto& r) { l.DrawWatermarkText(h, kText, r); },
     [](auto* d) { return text::DrawText(d, kText); }},
};

using ImagingCalls = LibraryTest;

// One operation of each kind of page handling, and every drawing one.
TEST_F(ImagingCalls, OperationsRefuseZeroAndUnknownHandlesAndLeaveThem) {
  EncodedImage encoded;
  std::vector<InOut> operations = {
      [](auto& l, auto& h, auto& r) { l.FreeImage_Rescale(h, 10, 10, 2, r); },
      [](auto& l, auto& h, auto& r) { l.RotateFree(h, 30.0, -1.0, -1.0, 0, r); },
      [](auto& l, auto& h, auto& r) { l.FlipImage(h, 1, r); },
      [](auto& l, auto& h, auto& r) { l.FreeImage_AdjustGamma(h, 1.5, r); },
      [](auto& l, auto& h, auto& r) { l.FreeImage_AdjustContrast(h, 10, r); },
      [](auto& l, auto& h, auto& r) { l.EffectInvert(h, r); },
      [](auto& l, auto& h, auto& r) { l.PasteWatermark(h, 4242, 0, 0, 0xFFFFFF, r); },
      [](auto& l, auto& h, auto& r) { l.ConvertToMono(h, h, 2, 128, r); },
      [](auto& l, auto& h, auto& r) { l.CopyMetadata(h, h, r); },
      [&](auto& l, auto& h, auto& r) { l.FreeImage_Save(h, folder.file("x.png"), kFormatPng, 0, -1, r); },
      [&](auto& l, auto& h, auto& r) { l.AppendPageToFile(folder.file("x.tif"), h, -1, 0, -1, r); },
      [&](auto& l, auto& h, auto& r) { l.EncodeImage(h, kFormatPng, 0, encoded, r); },
      [&](auto& l, auto&, auto& r) { l.WriteEncodedImage(encoded, folder.file("x.jpg"), r); },  // nothing encoded
  };
  for (const auto& drawing : kDrawing) operations.push_back(drawing.first);
  for (const Handle given : {Handle{0}, Handle{4242}}) {
    for (std::size_t i = 0; i < operations.size(); ++i) {
      Handle handle = given;
      result = 7;
      operations[i](library, handle, result);
      EXPECT_EQ(std::pair(result, handle), std::pair(CallResult{0}, given)) << "operation " << i;
    }
    Handle out = 99;
    result = 7;
    library.FreeImage_ConvertTo24Bits(given, out, result);
    EXPECT_EQ(result + out, 0);
    EXPECT_EQ(FactsOf(library, given), PageFacts{});
  }
  library.FlushAppendedPages();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

TEST_F(ImagingCalls, HandlesAreNumberedFromOneReplacedInPlaceAndReleasedOneByOne) {
  Handle first = 0, second = 0, grey = 0;
  library.FreeImage_Allocate(first, 10, 20, 24, 0, 0, 0, result);
  library.FreeImage_Allocate(second, 10, 20, 8, 0, 0, 0, result);
  EXPECT_EQ(first * 10 + second, 12u);
  // The same variable in and out: the image behind the number is replaced, the old one freed.
  library.FreeImage_ConvertTo32Bits(first, first, result);
  EXPECT_EQ(std::tuple(first, FactsOf(library, first).bpp, library.LiveImageCount()), std::tuple(1u, 32u, 2u));
  // Another variable out: a new image, the source stays.
  library.ConvertToIndexed8(first, grey, 4, result);
  EXPECT_EQ(std::tuple(grey, FactsOf(library, first).bpp), std::tuple(3u, 32u));
  // Metadata from a page that has none, and from a page onto itself, is no failure.
  for (const Handle from : {second, grey}) EXPECT_NE((library.CopyMetadata(from, grey, result), result), 0);
  for (const Handle gone : {first, first, Handle{4242}}) library.Release(gone);
  EXPECT_EQ(std::tuple(library.LiveImageCount(), FactsOf(library, first).width, FactsOf(library, grey).width),
            std::tuple(2u, 0u, 10u));
}

TEST_F(ImagingCalls, AllocateMakesBlankPagesOfEveryDepthAndRefusesBadOnes) {
  constexpr std::tuple<int, int, int> kAsked[] = {{17, 5, 1},  {17, 5, 4},  {17, 5, 8},  {17, 5, 16}, {17, 5, 24},
                                                  {17, 5, 32}, {17, 5, 48}, {17, 5, 64}, {17, 5, 96}, {17, 5, 128},
                                                  {0, 5, 24},  {5, -3, 24}, {5, 5, 7},   {5, 5, 0},   {5, 5, 33}};
  for (const auto& [width, height, bpp] : kAsked) {
    Handle page = 99;
    result = 7;
    library.FreeImage_Allocate(page, width, height, bpp, 0, 0, 0, result);
    EXPECT_EQ(result != 0, page != 0) << bpp;
    EXPECT_EQ(FactsOf(library, page), (width == 17 ? PageFacts{17, 5, std::uint32_t(bpp)} : PageFacts{})) << bpp;
  }
}

TEST_F(ImagingCalls, DrawingRunsOnTrueColourPagesMadeFromAnyDepth) {
  // Source file, whether to make it 1-bit first, the depth drawing leaves, and whether the page
  // is drawn on as it is, so that it gets the pixels of drawing straight on the file's bitmap.
  const std::tuple<const char*, bool, unsigned, bool> kPages[] = {{"photo.jpg", false, 24, true},
                                                                  {"photo.jpg", true, 24, false},
                                                                  {"deep.png", false, 24, false},
                                                                  {"alpha.png", false, 32, true}};
  for (const auto& [source, mono, bpp, as_is] : kPages) {
    for (const auto& [through_library, straight] : kDrawing) {
      Handle page = Sample(source, 24, 16);
      if (mono) library.ConvertToMono(page, page, 2, 128, result);
      EXPECT_NE((through_library(library, page, result), result), 0) << source;
      EXPECT_EQ(FactsOf(library, page), (PageFacts{24, 16, bpp})) << source;
      Page bitmap(FreeImage_Load(FreeImage_GetFileType(folder.file(source).c_str()), folder.file(source).c_str()));
      EXPECT_TRUE(!as_is || (straight(bitmap.get()) && Pixels(library, page) == Pixels(bitmap.get()))) << source;
      library.Release(page);
    }
  }
  Handle inverted = Pattern("i.png", 3, 3, [](int, int) { return Rgba{10, 100, 200}; });
  library.EffectInvert(inverted, result);
  EXPECT_EQ(PixelAt(library, inverted, 1, 1), (Rgba{245, 155, 55}));
}

constexpr Rgba kBlue{0, 0, 255}, kRed{255, 0, 0}, kWhite{255, 255, 255};

// The test watermark: white where x + y is even, red elsewhere, so the white key shows as a chequer.
Rgba Mark(int x, int y) {
  return (x + y) % 2 == 0 ? kWhite : kRed;
}

class ImagingPaste : public LibraryTest {
 protected:
  Handle Solid(int width, int height, Rgba colour, bool alpha = false) {
    return Pattern(
        "p.png", width, height, [=](int, int) { return colour; }, alpha);
  }
  Handle Watermark(int width, int height) { return Pattern("p.png", width, height, Mark); }
  CallResult Paste(Handle& page, Handle mark, int left, int top, std::int32_t key = 0xFFFFFF) {
    return library.PasteWatermark(page, mark, left, top, key, result), result;
  }
};

// Every pixel of a blue page after pasting the chequered watermark: its red where it lands on the
// page, the page's blue where it is keyed out or absent.
TEST_F(ImagingPaste, KeyedPixelsAreLeftOutAndWatermarksClippedOnEverySide) {
  // Page width and height, the watermark's side, where it goes, and whether white is keyed out.
  constexpr std::tuple<int, int, int, int, int, bool> kPastes[] = {
      {10, 8, 4, 2, 1, true},  {10, 8, 4, -2, -1, true},  {10, 8, 4, 8, 6, true},
      {10, 8, 4, 7, -3, true}, {5, 5, 20, -3, -3, false}, {5, 5, 4, 100, -100, true}};
  for (const auto& [width, height, side, left, top, keyed] : kPastes) {
    Handle page = Solid(width, height, kBlue);
    ASSERT_NE(Paste(page, Watermark(side, side), left, top, keyed ? 0xFFFFFF : -1), 0);
    const std::vector<Rgba> pixels = Pixels(library, page);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) {
        const bool on = x >= left && x < left + side && y >= top && y < top + side;
        const Rgba mark = on ? Mark(x - left, y - top) : kBlue;
        EXPECT_EQ(pixels[y * width + x], keyed && mark == kWhite ? kBlue : mark)
            << left << "," << top << ": " << x << "," << y;
      }
  }
  // A page may be its own watermark; an unknown watermark fails.
  Handle self = Watermark(6, 4);
  ASSERT_NE(Paste(self, self, 1, 0, -1), 0);
  EXPECT_EQ(PixelAt(library, self, 2, 1), Mark(1, 1));
  EXPECT_EQ(Paste(self, 777, 0, 0), 0);
}

// Source over with straight alpha: a watermark of alpha a over a page of alpha b leaves alpha
// a + b (1 - a), each colour weighed by its share of that.
TEST_F(ImagingPaste, AlphaIsBlendedSourceOver) {
  const double a = 128 / 255.0;
  for (const int page_alpha : {0, 1, 128, 254}) {
    Handle page = Solid(3, 3, {0, 0, 255, page_alpha}, true);
    ASSERT_NE(Paste(page, Solid(2, 2, {255, 0, 0, 128}, true), 0, 0), 0);
    const double b = page_alpha / 255.0, out = a + b * (1 - a);
    const Rgba want{int(std::lround(255 * a / out)), 0, int(std::lround(255 * b * (1 - a) / out)),
                    int(std::lround(255 * out))};
    EXPECT_EQ(PixelAt(library, page, 1, 0), want) << page_alpha;
    EXPECT_EQ(PixelAt(library, page, 2, 2), (Rgba{0, 0, 255, page_alpha}));
  }
  // A page without alpha, 8 bits grey, is widened to 24 bits first.
  Handle grey = Solid(6, 6, kBlue);
  library.ConvertToIndexed8(grey, grey, 4, result);
  const int level = PixelAt(library, grey, 0, 0).g;
  ASSERT_NE(Paste(grey, Solid(2, 2, {255, 0, 0, 128}, true), 1, 1), 0);
  EXPECT_EQ(FactsOf(library, grey).bpp, 24u);
  const int mixed = int(std::lround(level * (1 - a)));
  EXPECT_EQ(PixelAt(library, grey, 2, 2), (Rgba{int(std::lround(255 * a + level * (1 - a))), mixed, mixed}));
  EXPECT_EQ(PixelAt(library, grey, 3, 3), (Rgba{level, level, level}));
}

}  // namespace
}  // namespace velmora::imaging
