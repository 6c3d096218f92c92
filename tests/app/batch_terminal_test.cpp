// What velmora-batch shows on a terminal, where the end-to-end runs (output into files) never are: a progress bar
// that rewrites itself and is cleared for the closing lines. And the format names --format takes.
#include <gtest/gtest.h>

#include <cstdio>

#include "app/batch/batch_options.h"
#include "app/batch/batch_view.h"

namespace velmora::app {
namespace {

TEST(BatchView, OnATerminalTheBarRewritesItselfAndIsClearedAtTheEnd) {
  std::FILE* out = std::tmpfile();
  BatchView view(out, true, false);
  view.SetProgressRange(0, 2);
  view.SetStatus("Processing...");
  view.SetFile("");
  view.SetProgressValue(1);
  view.SetFile("Current file: a.jpg");
  view.SetProgressValue(2);
  const std::string long_name = "Current file: " + std::string(100, 'b') + ".png";  // wider than the bar's line
  view.SetFile(long_name);
  view.SetStatus("Completed.");
  view.SetFile("2 file(s) processed.");
  std::string text(1000, '\0');
  std::rewind(out);
  text.resize(std::fread(text.data(), 1, text.size(), out));
  std::fclose(out);
  // A file is no terminal of any width: the bar takes 80 columns less the one the cursor needs.
  EXPECT_EQ(text, "\r" + ProgressBarLine(1, 2, "Current file: a.jpg", 79) + "\x1b[K\r" +
                      ProgressBarLine(2, 2, long_name, 79) + "\x1b[K\r\x1b[KCompleted.\n2 file(s) processed.\n");
}

TEST(BatchView, TheBarFillsInProportionAndFitsTheWidth) {
  EXPECT_EQ(ProgressBarLine(0, 4, "f", 0), "[------------------------] 0/4  f");
  EXPECT_EQ(ProgressBarLine(1, 4, "f", 0), "[######------------------] 1/4  f");
  EXPECT_EQ(ProgressBarLine(5, 4, "f", 0), "[########################] 5/4  f");
  EXPECT_EQ(ProgressBarLine(1, 0, "f", 0), "[------------------------] 1/0  f");
  EXPECT_EQ(ProgressBarLine(3, 4, "Current file: a-long-name.jpg", 40), "[##################------] 3/4  Current ");
}

TEST(BatchOptions, FormatNamesInAnyLetterCase) {
  const std::vector<std::pair<const char*, int>> names = {{"bmp", 0}, {"jpeg", 1}, {"JPG", 1}, {"gif", 2}, {"png", 3},
                                                          {"tga", 4}, {"tiff", 5}, {"Tif", 5}, {"exr", 6}};
  for (const auto& [name, index] : names) EXPECT_EQ(OutputFormatFromName(name), index) << name;
  EXPECT_FALSE(OutputFormatFromName("webp") || OutputFormatFromName(""));
}

}  // namespace
}  // namespace velmora::app
