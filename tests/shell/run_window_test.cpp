// "Start!" runs the conversion with the window as its view: files on disk, the status lines and
// the progress bar, the run page's buttons.
#include <QComboBox>
#include <QLineEdit>

#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class RunTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    out = work.file("out");
    for (const char* name : {"one.jpg", "two.jpg", "three.jpg"}) sources.push_back(Photo(name, 120, 80));
  }
  void SetOutputFolder() {
    Find<QLineEdit>("SaveToText1")->selectAll();
    QTest::keyClicks(Find("SaveToText1"), QString::fromStdString(out));
  }
  // Runs the first source alone into the output folder.
  void RunOne() {
    AddImages({sources[0]});
    Next();
    SetOutputFolder();
    Next();
  }
  std::string out;
  std::vector<std::string> sources;
};

TEST_F(RunTest, StartConvertsEveryFileThroughTheChain) {
  AddImages(sources);
  Next();
  SetOutputFolder();
  AddOperation(1);  // Resize to 50 percent
  AddOperation(2);  // Rotate by 90
  auto* format = Find<QComboBox>("FormatCombo1");
  format->setFocus();
  QTest::keyClick(format, Qt::Key_Down);  // JPEG to GIF
  QTest::keyClick(format, Qt::Key_Down);  // to PNG
  ASSERT_EQ(format->currentText(), "PNG");
  Next();

  EXPECT_EQ(std::tuple(window->wizard().WizardStep, Pages()), std::tuple(2, std::array{false, false, true}));
  EXPECT_EQ(std::tuple(Status(), FileLine()), std::tuple("Completed.", "3 file(s) processed."));
  EXPECT_EQ(std::tuple(window->fr3()->pb1()->maximum(), window->fr3()->pb1()->value()), std::tuple(3, 3));
  for (const char* name : {"one_000.png", "two_001.png", "three_002.png"}) {
    const ImageFacts facts = ReadImageFacts(out + "/" + name);
    // 120 x 80 at half size, turned a quarter
    EXPECT_EQ(std::tuple(facts.readable, facts.width, facts.height), std::tuple(true, 40u, 60u)) << name;
  }
  EXPECT_EQ(state->WrittenFiles.UpperBound(), 3);
  // The default profile opens the folder at the end, through the desktop.
  EXPECT_EQ(services.opened_folders, (std::vector<std::string>{out + "/"}));
}

TEST_F(RunTest, SkippedFilesAreCountedInTheFileLine) {
  AddImages(sources);
  state->settings.IfOutputFileExists = 0;
  Next();
  SetOutputFolder();
  std::filesystem::create_directories(out);
  WriteWholeFile(out + "/two_001.jpg", "already here");
  Next();
  EXPECT_EQ(std::tuple(Status(), FileLine()), std::tuple("Completed.", "3 file(s) processed. 1 file(s) skipped."));
  EXPECT_EQ(ReadWholeFile(out + "/two_001.jpg"), "already here");
}

TEST_F(RunTest, BackAndStartAgainRunsAgain) {
  state->settings.IfOutputFileExists = 2;
  RunOne();
  Back();
  Next();
  EXPECT_TRUE(ReadImageFacts(out + "/one_000.jpg").readable);
  EXPECT_EQ(state->WrittenFiles.UpperBound(), 1);
  EXPECT_NE(state->WrittenFiles[0], out + "/one_000.jpg");  // the second run renamed its file
}

// On the run page "Open Folder" asks the desktop for the output folder, and an edit is dropped
// without a preview.
TEST_F(RunTest, TheRunPageOpensTheFolderAndDropsEdits) {
  RunOne();
  services.opened_folders.clear();
  QTest::mouseClick(window->fr3()->Button5(), Qt::LeftButton);
  EXPECT_EQ(services.opened_folders, (std::vector<std::string>{out + "/"}));
  state->preview.PreviewDirty = engine::kTrue;
  window->Timer2_Timer();
  EXPECT_EQ(std::tuple(state->preview.PreviewDirty, state->preview.ThreadRunning),
            std::tuple(engine::kFalse, engine::kFalse));
  EXPECT_EQ(state->WrittenFiles.UpperBound(), 1);
}

}  // namespace
}  // namespace velmora::testing
