// Output formats: the save flags of each, and every sample through a chain of all seven kinds,
// saved in every format with every depth of its list, read back for size, depth, format and pages.
#include <gtest/gtest.h>

#include "engine/encoder.h"
#include "engine/number_text.h"
#include "engine/source_work.h"
#include "imaging/bitmap.h"
#include "scripts/sample_images.h"
#include "tests/engine/run_fixture.h"

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

// JPEG and PNG at "32 bits" write a 24-bit page as its 32-bit conversion: no profile, no background colour.
TEST(ConvertDepth, ThirtyTwoBitsForJpegAndPngWriteWhatTheConversionWrites) {
  testing::TempFolder dir;
  const std::string photo = dir.file("photo.jpg"), profiled = dir.file("profiled.png"), alpha = dir.file("a.png");
  ASSERT_TRUE(samples::WritePhotoJpeg(photo, 64, 48) && samples::WriteAlphaPng(alpha, 40, 30));
  const std::string icc = testing::ReadWholeFile("/usr/share/color/icc/sRGB.icc");
  const imaging::Bitmap dib(FreeImage_Load(FIF_JPEG, photo.c_str(), 0));
  FreeImage_CreateICCProfile(dib.get(), const_cast<char*>(icc.data()), long(icc.size()));
  RGBQUAD background{10, 20, 30, 0};
  FreeImage_SetBackgroundColor(dib.get(), &background);
  ASSERT_TRUE(FreeImage_Save(FIF_PNG, dib.get(), profiled.c_str(), 0));
  imaging::ImagingLibrary lib;
  imaging::CallResult result = 0;
  for (const std::string& path : {photo, profiled, alpha})
    for (const std::int16_t format : {1, 3}) {
      SCOPED_TRACE(path + " as " + OutputTargetFor(format).OutputExtension);
      OutputChoices output;
      output.OutputFormat = format;
      imaging::Handle page = 0, converted = 0;
      LoadSinglePage(lib, path, page), LoadSinglePage(lib, path, converted);
      ConvertDepth(lib, page, output);
      lib.FreeImage_ConvertTo32Bits(converted, converted, result);
      imaging::EncodedImage ours, theirs;
      const int fif = OutputTargetFor(format).OutputFormatNumber;
      lib.EncodeImage(page, fif, 0, ours, result), lib.EncodeImage(converted, fif, 0, theirs, result);
      EXPECT_FALSE(ours.bytes.empty());
      EXPECT_EQ(ours.bytes, theirs.bytes);
    }
}

struct FormatCase {
  std::int16_t format, depth;
  int fif;
  unsigned bpp;  // 0: depends on the page (no depth conversion)
};
const FormatCase kFormatCases[] = {
    {0, 0, FIF_BMP, 32},  {0, 1, FIF_BMP, 24},   {0, 2, FIF_BMP, 16},   {0, 3, FIF_BMP, 16},   {0, 4, FIF_BMP, 8},
    {0, 5, FIF_BMP, 4},   {0, 6, FIF_BMP, 1},    {1, 0, FIF_JPEG, 24},  {1, 1, FIF_JPEG, 24},  {1, 2, FIF_JPEG, 8},
    {2, 0, FIF_GIF, 8},   {3, 0, FIF_PNG, 32},   {3, 1, FIF_PNG, 24},   {3, 2, FIF_PNG, 8},    {3, 3, FIF_PNG, 4},
    {3, 4, FIF_PNG, 1},   {4, 0, FIF_TARGA, 32}, {4, 1, FIF_TARGA, 24}, {4, 2, FIF_TARGA, 16}, {4, 3, FIF_TARGA, 16},
    {4, 4, FIF_TARGA, 8}, {5, 0, FIF_TIFF, 32},  {5, 1, FIF_TIFF, 24},  {5, 2, FIF_TIFF, 8},   {5, 3, FIF_TIFF, 4},
    {5, 4, FIF_TIFF, 1},  {5, 5, FIF_TIFF, 0},   {6, 0, FIF_EXR, 0},
};

// One operation of each kind; resize to 50% and a quarter turn make the expected size easy.
Blocks ChainOfAllKinds(const std::string& mark) {
  Block resize = NewBlock(kResize);
  Block rotate = NewBlock(kRotate);
  Block mirror = NewBlock(kMirror);
  Block text = NewBlock(kWatermark, 0);
  text.WatermarkSource = "Velmora";
  Block image = NewBlock(kWatermark, 1);
  image.WatermarkSource = mark;
  Block effect = NewBlock(kEffect);
  effect.EffectKind = 8;
  Block tone = NewBlock(kBrightnessContrast);
  tone.Brightness = 10;
  tone.Contrast = 10;
  Block gamma = NewBlock(kGamma);
  gamma.GammaValue = 120;
  return Blocks({resize, rotate, mirror, text, image, effect, tone, gamma});
}

struct Source {
  std::string path;
  unsigned width, height;
  int pages;
  bool has_alpha;
};

class RunFormats : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    samples_ = new testing::TempFolder;
    for (const std::string& path : samples::WriteSampleSet(samples_->path().string())) {
      const testing::ImageFacts facts = testing::ReadImageFacts(path);
      sources_.push_back({path, facts.width, facts.height, facts.pages, facts.bpp == 32});
    }
    samples::WritePhotoJpeg(samples_->file("mark.jpg"), 12, 8);
  }
  static void TearDownTestSuite() { delete samples_; }
  static testing::TempFolder* samples_;
  static std::vector<Source> sources_;
};
testing::TempFolder* RunFormats::samples_ = nullptr;
std::vector<Source> RunFormats::sources_;

TEST_F(RunFormats, EveryFormatAndDepthOfEverySampleReadsBack) {
  ASSERT_FALSE(sources_.empty());
  std::vector<std::string> rows;
  for (const Source& s : sources_) rows.push_back(s.path);
  for (const FormatCase& c : kFormatCases) {
    testing::TempFolder out, in_workers;
    AppState state = MakeJob(out.slash());
    state.output.OutputFormat = c.format;
    state.output.ColorDepth = c.depth;
    state.output.MultipageMode = 1;
    state.output.CompressionIndex = c.format == 5 ? 6 : 0;
    state.output.NameTemplate = "{title}_{sourcetype}.{outputtype}";
    state.blocks = ChainOfAllKinds(samples_->file("mark.jpg"));
    AppState worker_state = state;
    RunJob(state, rows);
    // Worker processes write the same bytes.
    worker_state.output.OutputFolder = in_workers.slash();
    testing::RecordingView view;
    GoProcess2(worker_state, SourceList{rows, -1}, view, RunOptions{2, {VELMORA_BINARY_DIR "/app/velmora-worker"}});
    for (const auto& entry : std::filesystem::directory_iterator(out.path()))
      EXPECT_TRUE(testing::ReadWholeFile(entry.path().string()) ==
                  testing::ReadWholeFile(in_workers.file(entry.path().filename().string())))
          << entry.path();

    const std::string extension = OutputTargetFor(c.format).OutputExtension;
    for (const Source& s : sources_) {
      SCOPED_TRACE("format " + std::to_string(c.format) + " depth " + std::to_string(c.depth) + " " + s.path);
      const std::filesystem::path source(s.path);
      const std::string title = out.file(source.stem().string() + "_" + source.extension().string().substr(1));
      const bool one_file = s.pages == 1 || c.format == 2 || c.format == 5;
      for (int p = 0; p < (one_file ? 1 : s.pages); ++p) {
        const std::string page = one_file ? "" : " (page " + std::to_string(p) + ")";
        const testing::ImageFacts facts = testing::ReadImageFacts(title + page + "." + extension);
        ASSERT_TRUE(facts.readable) << page;
        EXPECT_EQ(facts.format, c.fif);
        // Half size, then a quarter turn.
        EXPECT_EQ(facts.width, static_cast<unsigned>(RoundHalfEven(s.height * 50 / 100.0)));
        EXPECT_EQ(facts.height, static_cast<unsigned>(RoundHalfEven(s.width * 50 / 100.0)));
        // FreeImage writes a 32-bit PNG whose alpha is opaque everywhere as plain RGB.
        const bool opaque_png = c.format == 3 && c.bpp == 32 && !s.has_alpha;
        EXPECT_EQ(facts.bpp, c.bpp == 0 ? facts.bpp : opaque_png ? 24u : c.bpp);  // 0: as the page came
        EXPECT_TRUE(c.format != 6 || facts.image_type == FIT_RGBF || facts.image_type == FIT_RGBAF);
        EXPECT_EQ(facts.pages, one_file ? s.pages : 1);
        if (c.format == 0 && c.bpp == 16) {  // the first 16-bit entry is 5-5-5, the second 5-6-5
          FIBITMAP* dib = FreeImage_Load(FIF_BMP, (title + page + ".bmp").c_str());
          EXPECT_EQ(FreeImage_GetGreenMask(dib), c.depth == 2 ? FI16_555_GREEN_MASK : FI16_565_GREEN_MASK);
          FreeImage_Unload(dib);
        }
      }
    }
  }
}

}  // namespace
}  // namespace velmora::engine
