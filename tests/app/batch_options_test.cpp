// The command line of velmora-batch: options, values, and what counts as a usage error.
#include "app/batch/batch_options.h"

#include <gtest/gtest.h>

namespace velmora::app {
namespace {

ParsedArguments Parse(std::vector<std::string> arguments) {
  return ParseBatchArguments(arguments);
}

TEST(BatchOptions, SourcesAndEveryOptionInBothForms) {
  const ParsedArguments parsed = Parse({"a.jpg", "--profile", "job.profile", "--output-folder=out", "--format", "PNG",
                                        "--template={Counter}.{OutputType}", "--jobs", "4", "-q", "pics"});
  ASSERT_EQ(parsed.error, "");
  const BatchOptions& options = parsed.options;
  EXPECT_EQ(options.sources, (std::vector<std::string>{"a.jpg", "pics"}));
  EXPECT_EQ(options.profile, "job.profile");
  EXPECT_EQ(options.output_folder, "out");
  EXPECT_EQ(options.output_format, 3);
  EXPECT_EQ(options.name_template, "{Counter}.{OutputType}");
  EXPECT_EQ(options.jobs, 4);
  EXPECT_TRUE(options.quiet);
}

TEST(BatchOptions, DoubleDashEndsTheOptions) {
  const ParsedArguments parsed = Parse({"--", "--quiet", "-"});
  ASSERT_EQ(parsed.error, "");
  EXPECT_EQ(parsed.options.sources, (std::vector<std::string>{"--quiet", "-"}));
  EXPECT_FALSE(parsed.options.quiet);
}

TEST(BatchOptions, FormatNamesMapToTheFormatList) {
  const std::vector<std::pair<const char*, int>> names = {{"bmp", 0}, {"jpeg", 1}, {"JPG", 1}, {"gif", 2}, {"png", 3},
                                                          {"tga", 4}, {"tiff", 5}, {"Tif", 5}, {"exr", 6}};
  for (const auto& [name, index] : names) EXPECT_EQ(OutputFormatFromName(name), index) << name;
  EXPECT_FALSE(OutputFormatFromName("webp"));
  EXPECT_FALSE(OutputFormatFromName(""));
}

TEST(BatchOptions, UsageErrorsNameTheProblem) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{}, "no source images given"},
      {{"--quiet"}, "no source images given"},
      {{"--colour", "red", "a"}, "unknown option '--colour'"},
      {{"a", "--format", "webp"}, "unknown format 'webp'"},
      {{"a", "--jobs", "0"}, "--jobs needs a whole number of at least 1"},
      {{"a", "--jobs", "2x"}, "--jobs needs a whole number"},
      {{"a", "--profile"}, "--profile needs a value"},
      {{"a", "--profile="}, "--profile needs a file name"},
      {{"a", "--template", ""}, "--template needs a non-empty template"},
      {{"a", "--quiet=yes"}, "--quiet takes no value"},
  };
  for (const auto& [arguments, message] : cases) {
    const std::string error = Parse(arguments).error;
    EXPECT_NE(error.find(message), std::string::npos) << "got: " << error;
  }
}

}  // namespace
}  // namespace velmora::app
