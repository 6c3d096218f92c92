// Files through ImagingLibrary: loading by content, page counts, damaged files, BMPs with newer
// headers; saving every page kind in every format; appending pages to GIF and TIFF files.
#include <array>
#include <bit>
#include <cstring>
#include <map>

#include "tests/imaging/pages.h"

namespace velmora::imaging {
namespace {

using namespace velmora::testing;

// Width and depth of each page of a multipage file as stored, read directly with FreeImage.
std::vector<std::pair<unsigned, unsigned>> StoredPages(const std::string& path) {
  std::vector<std::pair<unsigned, unsigned>> pages;
  const ReadOnlyMultiBitmap multi(
      FreeImage_OpenMultiBitmap(FreeImage_GetFileType(path.c_str(), 0), path.c_str(), FALSE, TRUE, TRUE, 0));
  for (int i = 0; multi && i < FreeImage_GetPageCount(multi.get()); ++i) {
    FIBITMAP* page = FreeImage_LockPage(multi.get(), i);
    pages.emplace_back(FreeImage_GetWidth(page), FreeImage_GetBPP(page));
    FreeImage_UnlockPage(multi.get(), page, FALSE);
  }
  return pages;
}

class ImagingFiles : public LibraryTest {
 protected:
  // The page count, checked against the result.
  std::int32_t Count(const std::string& name) {
    std::int32_t count = -1;
    result = 7;
    library.CountPages(folder.file(name), count, result);
    EXPECT_EQ(result != 0, count > 0) << name;
    return count;
  }
  std::vector<Handle> LoadAll(const std::string& name) {
    std::vector<Handle> pages = {99};
    std::int32_t count = -1;
    library.LoadAllPages(folder.file(name), pages, count, result);
    EXPECT_EQ(result != 0, !pages.empty()) << name;
    EXPECT_EQ(count, std::int32_t(pages.size())) << name;
    return pages;
  }
  // A 24-bit photo page `w` pixels wide: pages are told apart by their widths.
  Handle Photo(ImagingLibrary& l, int w) { return LoadSample(l, folder.file(std::to_string(w) + ".jpg"), w, 20); }
  CallResult Append(ImagingLibrary& to, const std::string& name, Handle page, int flags = 0) {
    return to.AppendPageToFile(folder.file(name), page, -1, flags, -1, result), result;
  }
  std::size_t Stored(const std::string& name) { return StoredPages(folder.file(name)).size(); }
};

TEST_F(ImagingFiles, LoadReadsByContentAndIconsKeepTheirAlpha) {
  Sample("photo.jpg", 64, 48);
  std::filesystem::rename(folder.file("photo.jpg"), folder.file("photo.png"));  // a JPEG under a PNG name
  ASSERT_TRUE(samples::WriteIcon(folder.file("app.ico"), 32));
  Pattern("fake.ico", 5, 3, [](int, int) { return Rgba{1, 2, 3}; });  // a PNG as an icon
  EXPECT_EQ(FactsOf(library, Load("photo.png")), (PageFacts{64, 48, 24}));
  Handle icon = 0, fake = 0;
  ASSERT_NE((library.FreeImage_Load(folder.file("app.ico"), icon, kFormatIco, 1, result), result), 0);
  // 32 bits, transparent outside the disc and opaque inside it.
  EXPECT_EQ(std::tuple(FactsOf(library, icon).bpp, PixelAt(library, icon, 0, 0).a, PixelAt(library, icon, 16, 16).a),
            std::tuple(32u, 0, 255));
  library.FreeImage_Load(folder.file("fake.ico"), fake, kFormatIco, 1, result);
  EXPECT_EQ(FactsOf(library, fake).width, 5u);
}

TEST_F(ImagingFiles, MissingEmptyAndGarbageFilesFailQuietly) {
  std::string garbage;
  for (int i = 0; i < 4000; ++i) garbage.push_back(static_cast<char>((i * 7919 + 13) % 251));
  std::vector<std::string> names = {"missing.jpg", ""};
  for (const std::string extension : {"jpg", "png", "gif", "tif", "bmp", "ico", "tga", "exr"}) {
    WriteWholeFile(folder.file("garbage." + extension), garbage);
    WriteWholeFile(folder.file("empty." + extension), "");
    names.insert(names.end(), {"garbage." + extension, "empty." + extension});
  }
  for (const std::string& name : names) {
    for (const int format : {-1, int{kFormatIco}, int{kFormatJpeg}}) {
      Handle page = 0;
      library.FreeImage_Load(folder.file(name), page, format, format == kFormatIco ? 1 : 0, result);
      EXPECT_EQ(result + page, 0) << name;
    }
    EXPECT_EQ(Count(name), 0) << name;
    EXPECT_TRUE(LoadAll(name).empty()) << name;
  }
  EXPECT_EQ(library.LiveImageCount(), 0u);
}

// Every page of multipage files, GIF frames composed as shown; files cut short give at most
// what is there (cuts inside an icon directory or an EXR header once made FreeImage hang or
// allocate gigabytes).
TEST_F(ImagingFiles, FilesCountAndLoadEveryPageAndFilesCutShortNeverHang) {
  ASSERT_TRUE(samples::WriteMultipageTiff(folder.file("full.tif"), 24, 32, 3));
  ASSERT_TRUE(samples::WriteAnimatedGif(folder.file("full.gif"), 30, 20, 4));
  ASSERT_TRUE(samples::WriteIcon(folder.file("full.ico"), 32));
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("full.exr"), 40, 30));
  // A one-row EXR with one more attribute after the version, its one chunk's offset moved to match.
  // Names have at most 31 letters; after a longer one, an opaque attribute of no bytes is refused
  // too (were the name cut at the limit, the rest would read as a whole header).
  ASSERT_TRUE(samples::WriteFloatExr(folder.file("row.exr"), 40, 1));
  const std::string exr = ReadWholeFile(folder.file("row.exr"));
  std::uint64_t table = 8, offset = 0;
  while (std::memcpy(&offset, &exr[table], 8), offset != table + 8) ++table;
  for (const auto& [name, extra] :
       {std::pair{"long.exr", std::string(31, 'n') + std::string("\0int\0\4\0\0\0\7\0\0\0", 13)},
        {"over.exr", std::string(33, 'n') + std::string("\0\1\0\0\0\0\0", 7)}}) {
    const std::uint64_t moved = offset + extra.size();
    WriteWholeFile(folder.file(name), exr.substr(0, 8) + extra + exr.substr(8, table - 8) +
                                          std::string(reinterpret_cast<const char*>(&moved), 8) +
                                          exr.substr(table + 8));
  }
  const std::pair<const char*, unsigned> kFiles[] = {{"full.tif", 3}, {"full.gif", 4}, {"full.ico", 1},
                                                     {"full.exr", 1}, {"long.exr", 1}, {"over.exr", 0}};
  for (const auto& [name, pages] : kFiles) {
    EXPECT_EQ(Count(name), int(pages)) << name;
    EXPECT_EQ(LoadAll(name).size(), pages) << name;
    const std::string whole = ReadWholeFile(folder.file(name));
    for (const std::size_t keep :
         {std::size_t{5}, std::size_t{12}, std::size_t{30}, std::size_t{60}, whole.size() / 2}) {
      const std::string cut = "cut" + std::to_string(keep) + name;
      WriteWholeFile(folder.file(cut), whole.substr(0, keep));
      EXPECT_LE(Count(cut), int(pages)) << cut;
      EXPECT_LE(LoadAll(cut).size(), pages) << cut;
    }
  }
  const auto scan = LoadAll("full.tif"), spin = LoadAll("full.gif");
  for (const Handle page : scan) EXPECT_EQ(FactsOf(library, page).height, 32u);
  for (const Handle page : spin) EXPECT_EQ(FactsOf(library, page).width, 30u);
  // Each frame is tinted differently by the generator, and composed frames are opaque.
  EXPECT_NE(PixelAt(library, spin[0], 0, 0), PixelAt(library, spin[1], 0, 0));
  EXPECT_EQ(PixelAt(library, spin[2], 0, 0).a, 255);
}

// A BMP with a newer info header (108 bytes for V4, 124 for V5), 5 by 3 pixels coloured by
// BmpColour; `masks` are red, green, blue and alpha. An 8-bit one has the 15 colours it uses in
// its table, or (when the header counts none) a whole table of 256.
struct NewBmp {
  const char* name;
  std::uint32_t header_size, bits, colours, compression;
  std::array<std::uint32_t, 4> masks;
  bool alpha_kept;
};

Rgba BmpColour(int x, int y) {
  return {x * 60, y * 90, 200, 40 + x * 50};
}

void Put(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> 8 * i));
}

std::string NewBmpBytes(const NewBmp& bmp) {
  // Rows bottom up, each padded to four bytes; without masks a pixel is packed as blue, green,
  // red (and alpha) bytes.
  const auto masks = bmp.compression ? bmp.masks : std::array<std::uint32_t, 4>{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  std::string pixels, table;
  for (int y = 2; y >= 0; --y, pixels.resize((pixels.size() + 3) / 4 * 4, '\0'))
    for (int x = 0; x < 5; ++x) {
      const Rgba c = BmpColour(x, y);
      const int channels[] = {c.r, c.g, c.b, c.a};
      std::uint32_t value = bmp.bits == 8 ? y * 5 + x : 0;
      for (int i = 0; i < 4 && bmp.bits > 8; ++i)
        if (masks[i])
          value |= std::uint32_t(channels[i]) >> (8 - std::popcount(masks[i])) << std::countr_zero(masks[i]);
      Put(pixels, value, bmp.bits / 8);
    }
  for (int i = 0; bmp.bits == 8 && i < (bmp.colours ? int(bmp.colours) : 256); ++i) {
    const Rgba c = BmpColour(i % 5, i / 5 % 3);
    Put(table, c.b | c.g << 8 | c.r << 16, 4);
  }
  std::string out = "BM";
  const std::uint32_t offset = 14 + bmp.header_size + std::uint32_t(table.size());
  // File size, reserved, pixel offset, header size, width, height, one plane and the bits, ...
  for (const std::uint32_t value :
       {offset + std::uint32_t(pixels.size()), 0u, offset, bmp.header_size, 5u, 3u, 1u | bmp.bits << 16,
        bmp.compression, std::uint32_t(pixels.size()), 2835u, 2835u, bmp.colours, 0u, bmp.masks[0], bmp.masks[1],
        bmp.masks[2], bmp.masks[3], 0x73524742u})  // ... and the colour space "sRGB"
    Put(out, value, 4);
  out.resize(14 + bmp.header_size, '\0');
  return out + table + pixels;
}

TEST_F(ImagingFiles, BmpFilesWithNewerHeadersRead) {
  const NewBmp cases[] = {
      {"24-bit V4", 108, 24, 0, 0, {}, false},
      {"8-bit V4 short palette", 108, 8, 15, 0, {}, false},
      {"8-bit V5 whole palette", 124, 8, 0, 0, {}, false},
      {"16-bit V5 565", 124, 16, 0, 3, {0xF800, 0x7E0, 0x1F, 0}, false},
      {"32-bit V5 with alpha mask", 124, 32, 0, 3, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, true},
      {"32-bit V4 without alpha mask", 108, 32, 0, 3, {0xFF0000, 0xFF00, 0xFF, 0}, false},
      {"32-bit V5 red first", 124, 32, 0, 3, {0xFF000000, 0xFF0000, 0xFF00, 0xFF}, true},
      {"32-bit V5 without masks", 124, 32, 0, 0, {}, false},
      {"32-bit V5 with 5-5-5 masks", 124, 32, 0, 3, {0x7C00, 0x3E0, 0x1F, 0}, false},
  };
  // A channel narrower than 8 bits reads as the nearest 8-bit level (or one below, on a 16-bit page).
  auto level = [](int channel, std::uint32_t mask) {
    const int bits = std::popcount(mask);
    return bits ? int(std::lround((channel >> (8 - bits)) * 255.0 / ((1 << bits) - 1))) : channel;
  };
  for (const NewBmp& bmp : cases) {
    SCOPED_TRACE(bmp.name);
    WriteWholeFile(folder.file("new.bmp"), NewBmpBytes(bmp));
    const Handle page = Load("new.bmp");
    EXPECT_EQ(FactsOf(library, page), (PageFacts{5, 3, bmp.bits}));
    EXPECT_EQ(Count("new.bmp"), 1);
    for (const auto& [x, y] : {std::pair{0, 0}, {4, 0}, {1, 2}, {3, 1}}) {
      const Rgba c = BmpColour(x, y), got = PixelAt(library, page, x, y);
      const auto& m = bmp.masks;
      const Rgba want = bmp.compression ? Rgba{level(c.r, m[0]), level(c.g, m[1]), level(c.b, m[2]), c.a} : c;
      EXPECT_LE(std::abs(got.r - want.r) + std::abs(got.g - want.g) + std::abs(got.b - want.b), bmp.bits == 16 ? 3 : 0)
          << x << "," << y << ": " << got << " for " << want;
      EXPECT_EQ(got.a, bmp.alpha_kept ? c.a : 255) << x << "," << y;
    }
  }
}

// What each format holds after a save from a page of 24, 32, 48 (RGB16), 96 (RGBF), 1, 4, 8 and
// 16 bits: the page's own depth where the format takes it, else the nearest (JPEG keeps grey pages
// grey, GIF reads back as 256 colours, EXR keeps alpha as RGBA floats of 128 bits). The split save
// (encoding in memory, then writing) gives the same bytes as the plain one; the pages never change.
TEST_F(ImagingFiles, EveryFormatFromEveryPageKindWritesTheNearestDepth) {
  constexpr unsigned kDepths[] = {24, 32, 48, 96, 1, 4, 8, 16};
  const std::map<unsigned, int> kTypes = {{48, FIT_RGB16}, {96, FIT_RGBF}, {128, FIT_RGBAF}};
  const std::tuple<int, FREE_IMAGE_FORMAT, std::array<unsigned, 8>> kNearest[] = {
      {kFormatBmp, FIF_BMP, {24, 32, 24, 24, 1, 4, 8, 16}},    {kFormatJpeg, FIF_JPEG, {24, 24, 24, 24, 8, 8, 8, 24}},
      {kFormatGif, FIF_GIF, {8, 8, 8, 8, 8, 8, 8, 8}},         {kFormatPng, FIF_PNG, {24, 32, 48, 24, 1, 4, 8, 24}},
      {kFormatTga, FIF_TARGA, {24, 32, 24, 24, 8, 8, 8, 16}},  {kFormatTiff, FIF_TIFF, {24, 32, 48, 96, 1, 4, 8, 24}},
      {kFormatExr, FIF_EXR, {96, 128, 96, 96, 96, 96, 96, 96}}};
  std::vector<Handle> pages;
  for (const char* name : {"page.jpg", "alpha.png", "deep.png", "page.exr"}) pages.push_back(Sample(name, 37, 23));
  pages.resize(8);
  library.ConvertToMono(pages[0], pages[4], 2, 128, result);
  library.ConvertToIndexed4(pages[0], pages[5], 4, result);
  library.ConvertToIndexed8(pages[0], pages[6], 4, result);
  library.ConvertTo16Bits(pages[0], pages[7], true, result);
  for (const auto& [format, read_back, nearest] : kNearest) {
    for (std::size_t i = 0; i < pages.size(); ++i) {
      SCOPED_TRACE(::testing::Message() << kDepths[i] << " bits to format " << format);
      const std::string path = folder.file(std::to_string(i) + "-" + std::to_string(format));
      EXPECT_NE((library.FreeImage_Save(pages[i], path, format, 0, -1, result), result), 0);
      const ImageFacts facts = ReadImageFacts(path);
      EXPECT_EQ(std::tuple(facts.format, facts.width, facts.height, facts.bpp, facts.image_type),
                std::tuple(int(read_back), 37u, 23u, nearest[i],
                           kTypes.contains(nearest[i]) ? kTypes.at(nearest[i]) : int(FIT_BITMAP)));
      EncodedImage encoded;
      library.EncodeImage(pages[i], format, 0, encoded, result);
      library.WriteEncodedImage(encoded, path + ".split", result);
      EXPECT_TRUE(ReadWholeFile(path + ".split") == ReadWholeFile(path));
    }
  }
  for (std::size_t i = 0; i < pages.size(); ++i) EXPECT_EQ(FactsOf(library, pages[i]).bpp, kDepths[i]);
}

TEST_F(ImagingFiles, FlagsReachTheEncoderAndTheNumberDecidesTheFormat) {
  const Handle page = Sample("alpha.png", 37, 23);
  // JPEG qualities, a fax compression a colour page cannot take (a file all the same), a name of no
  // format, JPEG 2000 of a page too small for its wavelet levels (the encoder fails after its first
  // bytes), an unknown format number, a folder that is not there. The split save gives the same, its
  // encoding succeeding exactly when it gives bytes.
  const std::tuple<const char*, int, int, FREE_IMAGE_FORMAT> kSaves[] = {
      {"low.jpg", kFormatJpeg, 5, FIF_JPEG},        {"high.jpg", kFormatJpeg, 100, FIF_JPEG},
      {"fax.tif", kFormatTiff, 0x2000, FIF_TIFF},   {"preview.dat", kFormatPng, 0, FIF_PNG},
      {"small.jp2", FIF_JP2, 0, FIF_UNKNOWN},       {"x.png", 999, 0, FIF_UNKNOWN},
      {"no/such/x.png", kFormatPng, 0, FIF_UNKNOWN}};
  for (const auto& [name, format, flags, written] : kSaves) {
    library.FreeImage_Save(page, folder.file(name), format, flags, -1, result);
    EXPECT_EQ(result != 0, written != FIF_UNKNOWN) << name;
    EncodedImage encoded;
    library.EncodeImage(page, format, flags, encoded, result);
    EXPECT_EQ(result != 0, !encoded.bytes.empty()) << name;
    library.WriteEncodedImage(encoded, folder.file(name) + ".split", result);
    for (const char* suffix : {"", ".split"})
      EXPECT_EQ(ReadImageFacts(folder.file(name) + suffix).format, written) << name << suffix;
  }
  EXPECT_LT(std::filesystem::file_size(folder.file("low.jpg")) * 3 / 2,
            std::filesystem::file_size(folder.file("high.jpg")));
}

TEST_F(ImagingFiles, GifAndTiffGetEveryPageInOrderAtTheDepthTheyTake) {
  const Handle pages[] = {Photo(library, 30), Photo(library, 40), Photo(library, 50)};
  for (const char* name : {"anim.gif", "scan.tif"}) {
    for (const Handle page : pages) EXPECT_NE(Append(library, name, page), 0) << name;
    library.FlushAppendedPages();
  }
  using Widths = std::vector<std::pair<unsigned, unsigned>>;
  EXPECT_EQ(StoredPages(folder.file("anim.gif")), (Widths{{30, 8}, {40, 8}, {50, 8}}));
  EXPECT_EQ(StoredPages(folder.file("scan.tif")), (Widths{{30, 24}, {40, 24}, {50, 24}}));
  for (const Handle page : pages) EXPECT_EQ(FactsOf(library, page).bpp, 24u);
  // Pages of other depths go into a TIFF as they are; a single-page format takes no appends.
  Handle mono = 0;
  library.ConvertToMono(pages[0], mono, 2, 128, result);
  const Handle deep = Sample("deep.png", 35, 10);
  for (const Handle page : {mono, deep}) EXPECT_NE(Append(library, "mixed.tif", page, 0x4000), 0);
  EXPECT_EQ(Append(library, "single.jpg", mono), 0);
  library.FlushAppendedPages();
  EXPECT_EQ(StoredPages(folder.file("mixed.tif")), (Widths{{30, 1}, {35, 48}}));
  EXPECT_FALSE(std::filesystem::exists(folder.file("single.jpg")));
  // All at once, passing over unknown pages, and failing when none is known.
  EXPECT_NE((library.WriteMultipageFile(folder.file("once.tif"), {pages[2], 4242, deep}, 0, result), result), 0);
  EXPECT_EQ(StoredPages(folder.file("once.tif")), (Widths{{50, 24}, {35, 48}}));
  EXPECT_EQ((library.WriteMultipageFile(folder.file("none.tif"), {4242}, 0, result), result), 0);
}

TEST_F(ImagingFiles, TheFileIsWrittenWhenTheRunMovesOnAtAFlushAtAPlainSaveOrWhenTheObjectGoes) {
  {
    ImagingLibrary run;
    const Handle first = Photo(run, 30), second = Photo(run, 40);
    EXPECT_NE(Append(run, "a.tif", first) * Append(run, "a.tif", second), 0);
    run.Release(first), run.Release(second);  // the open file keeps copies of its pages
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.tif")));
    EXPECT_NE(Append(run, "b.tif", Photo(run, 50)), 0);
    EXPECT_EQ(Stored("a.tif"), 2u);
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.tif")));
  }
  EXPECT_EQ(Stored("b.tif"), 1u);
  // A new round for a path starts a fresh file; a plain save to it wins over the open one.
  const Handle page = Photo(library, 30);
  for (int round = 1; round <= 2; ++round) {
    for (int i = 0; i < 3 - round; ++i) EXPECT_NE(Append(library, "again.gif", page), 0);
    library.FlushAppendedPages();
    EXPECT_EQ(Stored("again.gif"), std::size_t(3 - round));
  }
  EXPECT_NE(Append(library, "again.gif", page) * Append(library, "again.gif", page), 0);
  EXPECT_NE((library.FreeImage_Save(page, folder.file("again.gif"), kFormatGif, 0, -1, result), result), 0);
  library.FlushAppendedPages();
  EXPECT_EQ(Stored("again.gif"), 1u);
}

}  // namespace
}  // namespace velmora::imaging
