// The format dialog's branches and restore rules.
#include <gtest/gtest.h>

#include "shell/format_form.h"

namespace velmora::shell {
namespace {

// JPEG shows depth and quality with the stored quality; a name not known shows nothing.
TEST(FormatForm, JpegShowsDepthAndQualityWithTheStoredQuality) {
  engine::OutputChoices output;
  output.Quality = 90;
  const FormatForm form = OpenFormatForm("JPEG", output);
  EXPECT_EQ(std::tuple(form.depth_row, form.quality_row, form.multipage_row), std::tuple(true, true, false));
  EXPECT_EQ(std::tuple(form.QualitySlider1, form.QualityText1, form.ColorDepthCombo1.items.size()),
            std::tuple(90, "90", 3u));
  // WebP adds a lossy or lossless list, AVIF a 10-bit depth; a name the list does not hold shows no row.
  const FormatForm webp = OpenFormatForm("WEBP", output), avif = OpenFormatForm("AVIF", output);
  EXPECT_EQ(std::tuple(webp.compression_shown, webp.CompressionCombo1.items.size(), webp.QualitySlider1),
            std::tuple(true, 2u, 90));
  EXPECT_EQ(std::tuple(avif.depth_row, avif.quality_row, avif.ColorDepthCombo1.items.size()),
            std::tuple(true, true, 3u));
  const FormatForm heic = OpenFormatForm("HEIC", output);
  EXPECT_FALSE(heic.depth_row || heic.quality_row || heic.multipage_row || heic.compression_shown);
}

TEST(FormatForm, ADepthBeyondTheListKeepsRowZeroAndOkStoresIt) {
  engine::OutputChoices output;
  output.ColorDepth = 5;
  const FormatForm form = OpenFormatForm("JPEG", output);
  EXPECT_EQ(form.ColorDepthCombo1.index, 0);
  engine::PreviewFlags flags;
  ApplyFormatForm(form, output, flags);
  EXPECT_EQ(output.ColorDepth, 0);
  EXPECT_NE(flags.PreviewDirty, engine::kFalse);
}

TEST(FormatForm, BmpStoresNoCompressionAndTiffThenOpensAtNone) {
  engine::OutputChoices output;
  engine::PreviewFlags flags;
  ApplyFormatForm(OpenFormatForm("BMP", output), output, flags);
  EXPECT_EQ(output.CompressionIndex, -1);
  const FormatForm tiff = OpenFormatForm("TIFF", output);
  EXPECT_EQ(std::tuple(tiff.CompressionCombo1.index, tiff.CompressionCombo1.items[0]), std::tuple(0, "None"));
}

TEST(FormatForm, TiffBranchRowsWhenNothingIsStoredAgainstThem) {
  engine::OutputChoices output;
  output.CompressionIndex = 20;  // beyond the lists: the branch's rows stay
  output.Compression2Index = 20;
  output.MultipageMode = 9;
  const FormatForm form = OpenFormatForm("TIFF", output);
  EXPECT_EQ(std::tuple(form.CompressionCombo1.index, form.CompressionCombo2.index, form.MultipageCombo1.index,
                       form.compression_shown),
            std::tuple(1, 6, 1, true));
  EXPECT_EQ(form.ColorDepthCombo1.items.back(), "CMYK");
}

TEST(FormatForm, ExrShowsOneRowMovedUp) {
  engine::OutputChoices output;
  output.CompressionIndex = 3;
  FormatForm form = OpenFormatForm("EXR", output);
  EXPECT_EQ(std::tuple(form.compression_shown, form.compression_moved_up, form.depth_row),
            std::tuple(true, true, false));
  EXPECT_EQ(form.CompressionCombo1.items[static_cast<std::size_t>(form.CompressionCombo1.index)], "PXR24");
  form.CompressionCombo1.index = 4;
  engine::PreviewFlags flags;
  ApplyFormatForm(form, output, flags);
  EXPECT_EQ(output.CompressionIndex, 4);
}

TEST(FormatForm, GifStoresNoDepthAndALaterFormatOpensAtRowZero) {
  engine::OutputChoices output;
  output.ColorDepth = 2;
  engine::PreviewFlags flags;
  ApplyFormatForm(OpenFormatForm("GIF", output), output, flags);
  EXPECT_EQ(output.ColorDepth, -1);
  EXPECT_EQ(OpenFormatForm("PNG", output).ColorDepthCombo1.index, 0);
}

TEST(FormatForm, ColoursAndTheHiddenSliderAreStoredAllTheSame) {
  engine::OutputChoices output;
  output.Quality = 40;
  FormatForm form = OpenFormatForm("PNG", output);
  form.ColorsText1 = "256 colours";
  engine::PreviewFlags flags;
  ApplyFormatForm(form, output, flags);
  EXPECT_EQ(std::tuple(output.ColorsCount, output.Quality), std::tuple(256, 40));
}

}  // namespace
}  // namespace velmora::shell
