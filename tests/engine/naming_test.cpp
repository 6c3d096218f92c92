// Output names: template tokens, collision policies and page names.
#include <gtest/gtest.h>

#include "engine/naming.h"

namespace velmora::engine {
namespace {

TEST(ExpandTemplate, ReplacesTokensWithoutRegardToCase) {
  EXPECT_EQ(ExpandTemplate("/out/", "{TITLE}.{OutPutType}", "/src/a.b.c.png", "jpg", 0), "/out/a.b.c.jpg");
  EXPECT_EQ(ExpandTemplate("/out/", "{Title}_{Counter}.{OutputType}", "/src/pic.png", "tif", 4), "/out/pic_004.tif");
  EXPECT_EQ(ExpandTemplate("/out/", "{title}{title}-{unknown}", "/src/p.gif", "png", 0), "/out/pp-{unknown}");
}

TEST(ExpandTemplate, CounterHasAtLeastThreeDigits) {
  EXPECT_EQ(ExpandTemplate("", "{counter}", "x.png", "png", 999), "999");
  EXPECT_EQ(ExpandTemplate("", "{counter}", "x.png", "png", 1000), "1000");
}

TEST(ExpandTemplate, SourceTypeOfADotlessFileIsTheWholePath) {
  EXPECT_EQ(ExpandTemplate("/o/", "{title}|{sourcetype}", "/x/readme", "png", 0), "/o/readme|/x/readme");
}

TEST(ExpandTemplate, LaterTokensApplyToTextBroughtInByEarlierOnes) {
  // A source named "{counter}.png" brings a token that the counter step then replaces.
  EXPECT_EQ(ExpandTemplate("/o/", "{title}.{outputtype}", "/s/{Counter}.png", "jpg", 7), "/o/007.jpg");
  // Tokens in the output folder are replaced too.
  EXPECT_EQ(ExpandTemplate("/o/{title}/", "x", "/s/pic.png", "jpg", 0), "/o/pic/x");
}

TEST(AutoChangedName, StopsAtTheThousandthCandidateAndUsesADotlessNameAsExtension) {
  EXPECT_EQ(AutoChangedName("/o/pic.jpg", [](const std::string&) { return true; }), "/o/pic-1000.jpg");
  EXPECT_EQ(AutoChangedName("/o/pic", [](const std::string& path) { return path == "/o/pic"; }), "/o/pic-001.pic");
}

TEST(OutputPolicy, UnknownPolicyLeavesTheNameAndTheFile) {
  std::string path = "/o/pic.jpg";
  const auto unexpected = [](const std::string&) { ADD_FAILURE() << "removed"; };
  EXPECT_EQ(ApplyOutputPolicy(
                7, path, [](const std::string&) { return true; }, unexpected, [] {}),
            Collision::kWrite);
  EXPECT_EQ(path, "/o/pic.jpg");
}

}  // namespace
}  // namespace velmora::engine
