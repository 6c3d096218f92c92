// Output names: template tokens, collision policies and page names.
#include <gtest/gtest.h>

#include <set>

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

struct FakeDisk {
  explicit FakeDisk(std::set<std::string> existing) : files(std::move(existing)) {}
  std::set<std::string> files;
  std::vector<std::string> removed;
  int yields = 0;
  Collision Apply(std::int16_t policy, std::string& path) {
    return ApplyOutputPolicy(
        policy, path, [this](const std::string& p) { return files.count(p) > 0; },
        [this](const std::string& p) {
          removed.push_back(p);
          files.erase(p);
        },
        [this] { ++yields; });
  }
};

TEST(OutputPolicy, AutoChangeStopsAtTheThousandthCandidateEvenIfTaken) {
  FakeDisk disk{{"/o/pic.jpg", "/o/pic-1000.jpg"}};
  for (int n = 1; n <= 999; ++n) {
    char name[32];
    std::snprintf(name, sizeof name, "/o/pic-%03d.jpg", n);
    disk.files.insert(name);
  }
  std::string path = "/o/pic.jpg";
  disk.Apply(2, path);
  EXPECT_EQ(path, "/o/pic-1000.jpg");
}

TEST(OutputPolicy, AutoChangeOfADotlessNameUsesTheNameAsExtension) {
  FakeDisk disk{{"/o/pic"}};
  std::string path = "/o/pic";
  disk.Apply(2, path);
  EXPECT_EQ(path, "/o/pic-001.pic");
}

TEST(OutputPolicy, UnknownPolicyLeavesTheName) {
  FakeDisk disk{{"/o/pic.jpg"}};
  std::string path = "/o/pic.jpg";
  EXPECT_EQ(disk.Apply(7, path), Collision::kWrite);
  EXPECT_EQ(path, "/o/pic.jpg");
  EXPECT_TRUE(disk.removed.empty());
}

}  // namespace
}  // namespace velmora::engine
