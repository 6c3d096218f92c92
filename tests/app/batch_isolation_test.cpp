// velmora-batch with a source whose worker process dies or runs out of time: that source is
// passed over and named, every other source is converted, and the run ends as usual.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "engine/app_state.h"
#include "scripts/sample_images.h"
#include "settings/profile_file.h"
#include "tests/app/batch_process.h"
#include "tests/support/test_support.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

// The processes `parent` started, from /proc.
std::vector<pid_t> ChildrenOf(pid_t parent) {
  std::ifstream list("/proc/" + std::to_string(parent) + "/task/" + std::to_string(parent) + "/children");
  std::vector<pid_t> children;
  for (pid_t child = 0; list >> child;) children.push_back(child);
  return children;
}

struct IsolationCase {
  const char* name;
  bool kill_worker;  // else the source runs past --source-timeout
  const char* warning;
};

class BatchIsolationTest : public ::testing::TestWithParam<IsolationCase> {
 protected:
  std::string Work(const std::string& name) const { return work_.file(name); }
  testing::TempFolder home_, work_;
};

TEST_P(BatchIsolationTest, TheSourceIsPassedOverAndTheRunGoesOn) {
  const IsolationCase& c = GetParam();
  // A slow source between two quick ones: blurring 24 megapixels takes seconds.
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("a.jpg"), 64, 48));
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("b_slow.jpg"), 6000, 4000));
  ASSERT_TRUE(samples::WritePhotoJpeg(Work("c.jpg"), 64, 48));
  engine::AppState state;
  state.AppDataFolder = home_.file("data");
  settings::NewProfile(state);
  state.output.NameTemplate = "{Title}.{OutputType}";
  for (int i = 0; i < 4; ++i) {
    engine::Block blur = engine::NewBlock(engine::kEffect);
    blur.EffectKind = 0;
    state.blocks.Append(blur);
  }
  settings::SaveProfile(state, Work("job.profile"));

  const std::vector<std::string> arguments = {
      "--profile",        Work("job.profile"),         "--output-folder", Work("out"),        "--jobs",     "1",
      "--source-timeout", c.kill_worker ? "300" : "1", Work("a.jpg"),     Work("b_slow.jpg"), Work("c.jpg")};
  const auto result =
      testing::RunBatchProcess(arguments, work_.path().string(), home_.path().string(), [&](pid_t batch) {
        if (!c.kill_worker) return;
        // Once the first file is in place, the one worker is on the slow source.
        const auto give_up = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!fs::exists(Work("out/a.jpg")) && std::chrono::steady_clock::now() < give_up)
          std::this_thread::sleep_for(std::chrono::milliseconds(5));
        for (pid_t worker : ChildrenOf(batch)) ::kill(worker, SIGKILL);
      });
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_NE(result.out.find("Completed.\n3 file(s) processed.\n"), std::string::npos) << result.out;
  EXPECT_EQ(result.err, "velmora-batch: warning: cannot read " + Work("b_slow.jpg") + ": " + c.warning + "\n");
  EXPECT_TRUE(fs::exists(Work("out/a.jpg")));
  EXPECT_FALSE(fs::exists(Work("out/b_slow.jpg")));
  EXPECT_EQ(testing::ReadImageFacts(Work("out/c.jpg")).width, 64u);
}

INSTANTIATE_TEST_SUITE_P(Workers, BatchIsolationTest,
                         ::testing::Values(IsolationCase{"Killed", true, "the decoder crashed (killed)"},
                                           IsolationCase{"TimedOut", false, "gave up after 1 s"}),
                         [](const auto& info) { return std::string(info.param.name); });

// Crafted files that crash FreeImage's decoders (segmentation faults, aborts) or that it refuses,
// files that make it read past a buffer or corrupt its heap (which crashes or not, as the
// allocator has laid memory out), and odd
// ones it reads (looping TIFF directories, a GIF screen of 0 x 0), between good photos: every
// good photo and odd file is converted, every bad file named, every memory-error one either.
// A heap-corrupting file that does not crash leaves its worker with a damaged heap, so those
// files come last: what a worker does after one is not defined.
TEST(BatchCraftedCorpus, EveryGoodFileIsConvertedAndEveryBadOneNamed) {
  testing::TempFolder home, work;
  auto list = [](const char* folder) {
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(std::string(VELMORA_SOURCE_DIR "/tests/fuzz/corpus/") + folder))
      paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
  };
  const std::vector<std::string> bad = list("crafted"), odd = list("odd"), heap = list("heap");
  std::vector<std::string> arguments = {
      "--output-folder", work.file("out"), "--template", "{Title}.png", "--format", "png", "--jobs", "2"};
  const std::size_t options = arguments.size();
  for (std::size_t i = 0; i < bad.size(); ++i) {
    if (i % 6 == 0) {
      const std::string good = work.file("good" + std::to_string(i) + ".jpg");
      ASSERT_TRUE(samples::WritePhotoJpeg(good, 40, 30));
      arguments.push_back(good);
    }
    if (i < odd.size()) arguments.push_back(odd[i]);
    arguments.push_back(bad[i]);
  }
  arguments.insert(arguments.end(), heap.begin(), heap.end());
  const auto result = testing::RunBatchProcess(arguments, work.path().string(), home.path().string());
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string processed = std::to_string(arguments.size() - options) + " file(s) processed.\n";
  EXPECT_NE(result.out.find("Completed.\n" + processed), std::string::npos) << result.out;
  for (std::size_t i = 0; i < bad.size(); i += 6)
    EXPECT_EQ(testing::ReadImageFacts(work.file("out/good" + std::to_string(i) + ".png")).width, 40u) << i;
  for (const std::string& path : bad)
    EXPECT_NE(result.err.find("velmora-batch: warning: cannot read " + path), std::string::npos) << path;
  auto converted = [&](const std::string& path) {
    const std::string title = fs::path(path).stem().string();
    return fs::exists(work.file("out/" + title + ".png")) || fs::exists(work.file("out/" + title + " (page 0).png"));
  };
  for (const std::string& path : odd)
    EXPECT_TRUE(converted(path) && result.err.find(path) == std::string::npos) << path;
  for (const std::string& path : heap)
    EXPECT_TRUE(converted(path) != (result.err.find("warning: cannot read " + path) != std::string::npos)) << path;
}

}  // namespace
}  // namespace velmora
