// "Start!" runs the conversion with the window as its view: files on disk, the status lines and
// the progress bar, the run page's buttons.
#include <QComboBox>
#include <QLineEdit>

#include "scripts/sample_images.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class RunTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    out = work.file("out");
    for (const char* name : {"one.jpg", "two.jpg", "three.jpg"}) {
      sources.push_back(work.file(name));
      ASSERT_TRUE(samples::WritePhotoJpeg(sources.back(), 120, 80));
    }
  }
  void SetOutputFolder() {
    auto* folder = window->operationList()->Fixed(shell::kSaveToEntry)->findChild<QLineEdit*>("SaveToText1");
    folder->selectAll();
    QTest::keyClicks(folder, QString::fromStdString(out));
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
  auto* format = window->operationList()->Fixed(shell::kConvertToEntry)->findChild<QComboBox*>("FormatCombo1");
  format->setFocus();
  QTest::keyClick(format, Qt::Key_Down);  // JPEG to GIF
  QTest::keyClick(format, Qt::Key_Down);  // to PNG
  ASSERT_EQ(format->currentText(), "PNG");
  EXPECT_EQ(window->Command2()->Caption(), "Start!");
  Next();

  EXPECT_EQ(window->wizard().WizardStep, 2);
  EXPECT_FALSE(window->fr3()->isHidden());
  EXPECT_EQ(Status(), "Completed.");
  EXPECT_EQ(FileLine(), "3 file(s) processed.");
  EXPECT_EQ(window->fr3()->pb1()->maximum(), 3);
  EXPECT_EQ(window->fr3()->pb1()->value(), 3);
  for (const char* name : {"one_000.png", "two_001.png", "three_002.png"}) {
    const ImageFacts facts = ReadImageFacts(out + "/" + name);
    EXPECT_TRUE(facts.readable) << name;
    EXPECT_EQ(facts.width, 40u) << name;  // 120 x 80 at half size, turned a quarter
    EXPECT_EQ(facts.height, 60u) << name;
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
  EXPECT_EQ(Status(), "Completed.");
  EXPECT_EQ(FileLine(), "3 file(s) processed. 1 file(s) skipped.");
  EXPECT_EQ(ReadWholeFile(out + "/two_001.jpg"), "already here");
}

TEST_F(RunTest, BackAndStartAgainRunsAgain) {
  AddImages({sources[0]});
  Next();
  SetOutputFolder();
  state->settings.IfOutputFileExists = 2;
  Next();
  Back();
  EXPECT_EQ(window->Command2()->Caption(), "Start!");
  Next();
  EXPECT_TRUE(ReadImageFacts(out + "/one_000.jpg").readable);
  EXPECT_EQ(state->WrittenFiles.UpperBound(), 1);
  EXPECT_NE(state->WrittenFiles[0], out + "/one_000.jpg");  // the second run renamed its file
}

TEST_F(RunTest, OpenFolderAsksTheDesktopForTheOutputFolder) {
  AddImages({sources[0]});
  Next();
  SetOutputFolder();
  Next();
  services.opened_folders.clear();
  QTest::mouseClick(window->fr3()->Button5(), Qt::LeftButton);
  EXPECT_EQ(services.opened_folders, (std::vector<std::string>{out + "/"}));
}

TEST_F(RunTest, AnEditOnTheRunPageIsDroppedAndStartsNoPreview) {
  AddImages({sources[0]});
  Next();
  SetOutputFolder();
  Next();
  state->preview.PreviewDirty = engine::kTrue;
  window->Timer2_Timer();
  EXPECT_EQ(state->preview.PreviewDirty, engine::kFalse);
  EXPECT_EQ(state->preview.ThreadRunning, engine::kFalse);
  EXPECT_EQ(state->WrittenFiles.UpperBound(), 1);
}

}  // namespace
}  // namespace velmora::testing
