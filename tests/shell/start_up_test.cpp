// Start-up from an empty disk, the wizard's buttons, the minimum size, and the exit order.
#include <QProgressBar>

#include "settings/ini_file.h"
#include "settings/profile_file.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

using StartUpTest = WindowTest;

TEST_F(StartUpTest, AFirstStartShowsStepZeroTheHintAndTheDefaultProfile) {
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [default.profile]");
  EXPECT_EQ(window->wizard().WizardStep, 0);
  EXPECT_EQ(Pages(), (std::array{true, false, false}));
  EXPECT_FALSE(window->Command1()->isEnabled());
  EXPECT_EQ(window->Command2()->Caption(), "Next >>");
  EXPECT_EQ(window->lwSrc()->topLevelItemCount(), 0);
  window->Timer1_Timer();
  EXPECT_FALSE(window->fr1()->Picture4()->isHidden());
  EXPECT_EQ(window->height(), shell::kMinimumWindowHeight);
  EXPECT_EQ(std::tuple(window->frPreview()->isHidden(), window->fr1()->EnPreview()->isHidden()),
            std::tuple(false, true));
  window->resize(500, 300);  // below the minimum: undone
  QCoreApplication::processEvents();
  EXPECT_GE(window->width(), shell::kMinimumWindowWidth);
  EXPECT_GE(window->height(), shell::kMinimumWindowHeight);
}

TEST_F(StartUpTest, TheLoadedProfileReachesTheWindow) {
  engine::AppState saved;
  saved.AppDataFolder = home.DataFolder();
  saved.output = {.OutputFormat = 3, .NameTemplate = "{Title}.{OutputType}", .OutputFolder = work.slash()};
  saved.blocks = engine::Blocks({engine::NewBlock(engine::kRotate), engine::NewBlock(engine::kGamma)});
  ASSERT_TRUE(settings::SaveProfile(saved, home.DataFolder() + "/Profiles/default.profile"));
  Start();
  EXPECT_EQ(std::tuple(window->fixed().FormatCombo1, window->fixed().FileNameText1),
            std::tuple(3, "{Title}.{OutputType}"));
  EXPECT_EQ(Captions(), (std::vector<std::string>{"Convert to", "Save to", "File name", "Rotate", "Gamma correction"}));
}

// Back and Next walk the steps; "Start!" with an empty list terminates and Back offers it again.
TEST_F(StartUpTest, BackAndNextWalkTheStepsAndAnEmptyRunTerminates) {
  Next();
  EXPECT_EQ(window->wizard().WizardStep, 1);
  EXPECT_EQ(Pages(), (std::array{false, true, false}));
  EXPECT_EQ(window->Command2()->Caption(), "Start!");
  EXPECT_TRUE(window->Command1()->isEnabled());
  Back();
  EXPECT_EQ(window->wizard().WizardStep, 0);
  EXPECT_FALSE(window->Command1()->isEnabled());
  EXPECT_EQ(Pages(), (std::array{true, false, false}));
  Next();
  Next();
  EXPECT_EQ(window->wizard().WizardStep, 2);
  EXPECT_EQ(Pages(), (std::array{false, false, true}));
  EXPECT_EQ(Status() + " " + FileLine(), "Terminated. No files to process.");
  EXPECT_FALSE(window->Command2()->isEnabled());
  Back();
  EXPECT_EQ(window->wizard().WizardStep, 1);
  EXPECT_EQ(window->Command2()->Caption(), "Start!");
}

TEST_F(StartUpTest, HideAndShowPreviewSwitchThePaneAndTheButtons) {
  QTest::mouseClick(window->frPreview()->Command3(), Qt::LeftButton);
  EXPECT_EQ(std::tuple(window->frPreview()->isHidden(), window->fr1()->EnPreview()->isHidden()),
            std::tuple(true, false));
  EXPECT_EQ(window->fr1()->width(), window->width() - 12);
  QTest::mouseClick(window->fr1()->EnPreview(), Qt::LeftButton);
  EXPECT_EQ(std::tuple(window->frPreview()->isHidden(), window->fr1()->EnPreview()->isHidden()),
            std::tuple(false, true));
  EXPECT_LT(window->fr1()->width(), window->width() - 12);
}

TEST_F(StartUpTest, ClosingSavesTheNameTheWindowStateAndTheProfileThenEnds) {
  window->fixed().FileNameText1 = "closed_{Counter}";
  window->lblProcess_Click(engine::kMirror);
  window->close();
  EXPECT_EQ(process_ends, 1);
  const std::string profile = DefaultProfile();
  EXPECT_EQ(settings::ReadIni("Main", "LastProfile", home.DataFolder() + "/settings.ini"), profile);
  EXPECT_EQ(settings::ReadIni("Profile", "8", profile), "closed_{Counter}");
  EXPECT_EQ(settings::ReadIni("Profile", "ProcessTotal", profile), "1");
  EXPECT_EQ(settings::ReadIni("Block_0", "6", profile), "2");
}

TEST_F(StartUpTest, ClosingDuringARunSavesAndEndsFromInsideTheRun) {
  AddImages({Photo("a.jpg"), Photo("b.jpg")});
  Next();
  window->fixed().SaveToText1 = work.file("out");
  // The close waits in the event queue; the run lets it through at its first yield.
  QMetaObject::invokeMethod(window.get(), "close", Qt::QueuedConnection);
  int ends_seen_by_the_run = -1;
  QObject::connect(window->fr3()->pb1(), &QProgressBar::valueChanged, [&](int value) {
    if (value == 1) ends_seen_by_the_run = process_ends;
  });
  Next();
  EXPECT_EQ(process_ends, 1);
  EXPECT_EQ(ends_seen_by_the_run, 1) << "the close came before the first file";
  EXPECT_EQ(settings::ReadIni("Profile", "10", DefaultProfile()), work.file("out") + "/");
}

// A damaged profile asking for 100000 operations (no block sections: all Resize) opens with the
// first 1000 listed and a word to the user; a later load adds only what still fits.
TEST_F(StartUpTest, AChainLongerThanTheListHoldsIsCutWithAMessage) {
  WriteWholeFile(DefaultProfile(), "[Profile]\r\nProcessTotal=100000\r\n");
  Start();
  EXPECT_EQ(window->entries().UpperBound(), 3 + shell::kLongestListedChain);
  ASSERT_EQ(services.informed.size(), 1u);
  EXPECT_NE(services.informed[0].find("holds 100000 operations"), std::string::npos) << services.informed[0];
  window->ApplyProfile();
  EXPECT_EQ(state->blocks.UpperBound(), shell::kLongestListedChain);
  window->NewProfileCommand();
  for (int i = 0; i < 3; ++i) AddOperation(1);
  WriteWholeFile(work.file("long.profile"), "[Profile]\r\nProcessTotal=2000\r\n");
  services.profiles.push_back(work.file("long.profile"));
  window->LoadProfileCommand();
  EXPECT_NE(services.informed.back().find("first 997 were added"), std::string::npos) << services.informed.back();
  EXPECT_EQ(window->entries().UpperBound(), 3 + shell::kLongestListedChain);
}

TEST_F(StartUpTest, AfterANewProfileClosingWritesNoProfileAndAnEmptyLastName) {
  window->NewProfileCommand();
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [Untitled]");
  window->close();
  EXPECT_EQ(process_ends, 1);
  EXPECT_TRUE(std::filesystem::exists(home.DataFolder() + "/settings.ini"));
  EXPECT_EQ(settings::ReadIni("Main", "LastProfile", home.DataFolder() + "/settings.ini"), "");
}

}  // namespace
}  // namespace velmora::testing
