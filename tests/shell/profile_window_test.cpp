// The profile menu: save with the ".profile" rule and a file that holds what the window shows,
// load appending to the list, and new profile.
#include <QComboBox>
#include <QLineEdit>

#include "settings/ini_file.h"
#include "settings/profile_file.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class ProfileMenuTest : public WindowTest {
 protected:
  QAction* Item(const char* name) { return window->m_profile()->findChild<QAction*>(name); }
};

TEST_F(ProfileMenuTest, SaveAddsTheExtensionAndWritesWhatTheWindowShows) {
  Next();
  AddOperation(2);
  AddOperation(4);
  window->fixed().FileNameText1 = "job_{Counter}";
  services.profiles.push_back(work.file("job"));
  Item("m_save_profile")->trigger();
  const std::string path = work.file("job.profile");
  ASSERT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(state->CurrentProfile, path);
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [job.profile]");

  // The file, read back on its own, holds the window's chain and output choices.
  engine::AppState reread;
  settings::LoadProfile(reread, path);
  EXPECT_EQ(reread.blocks, state->blocks);
  ASSERT_EQ(reread.blocks.UpperBound(), 2);
  EXPECT_EQ(reread.blocks[0].Kind, engine::kRotate);
  EXPECT_EQ(reread.blocks[0].Angle, 90);
  EXPECT_EQ(reread.blocks[1].Kind, engine::kWatermark);
  EXPECT_EQ(reread.output.NameTemplate, "job_{Counter}");
  EXPECT_EQ(settings::ReadIni("Profile", "ProcessTotal", path), "2");
  EXPECT_EQ(settings::ReadIni("Block_0", "7", path), "90");
}

TEST_F(ProfileMenuTest, ANameWithTheExtensionInOtherCaseIsKept) {
  services.profiles.push_back(work.file("job.PROFILE"));
  Item("m_save_profile")->trigger();
  EXPECT_TRUE(std::filesystem::exists(work.file("job.PROFILE")));
  services.profiles.push_back(work.file("job.txt"));
  Item("m_save_profile")->trigger();
  EXPECT_TRUE(std::filesystem::exists(work.file("job.txt.profile")));
}

TEST_F(ProfileMenuTest, ACancelledSaveChangesNothing) {
  const std::string before = state->CurrentProfile;
  Item("m_save_profile")->trigger();
  EXPECT_EQ(state->CurrentProfile, before);
}

TEST_F(ProfileMenuTest, LoadAppendsTheChainToWhatIsListed) {
  Next();
  AddOperation(1);
  AddOperation(2);
  AddOperation(3);
  engine::AppState saved;
  saved.output.OutputFormat = 5;
  saved.output.OutputFolder = work.slash();
  saved.blocks = engine::Blocks({engine::NewBlock(engine::kEffect), engine::NewBlock(engine::kGamma)});
  ASSERT_TRUE(settings::SaveProfile(saved, work.file("two.profile")));
  services.profiles.push_back(work.file("two.profile"));
  Item("m_load_profile")->trigger();
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [two.profile]");
  EXPECT_EQ(window->entries().UpperBound(), 8);
  EXPECT_EQ(window->operationList()->StructCaption(7)->title(), "Effect");
  auto* format = window->operationList()->Fixed(shell::kConvertToEntry)->findChild<QComboBox*>("FormatCombo1");
  EXPECT_EQ(format->currentText(), "TIFF");
  window->ApplyProfile();
  EXPECT_EQ(state->blocks.UpperBound(), 5);
}

TEST_F(ProfileMenuTest, NewProfileEmptiesTheListAndResetsTheChoices) {
  Next();
  AddOperation(5);
  window->fixed().FileNameText1 = "changed";
  Item("m_new_profile")->trigger();
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [Untitled]");
  EXPECT_EQ(window->entries().Indices(), (std::vector<int>{0, 1, 2, 3}));
  auto* name = window->operationList()->Fixed(shell::kFileNameEntry)->findChild<QLineEdit*>("FileNameText1");
  EXPECT_EQ(name->text(), "{Title}_{Counter}.{OutputType}");
  auto* folder = window->operationList()->Fixed(shell::kSaveToEntry)->findChild<QLineEdit*>("SaveToText1");
  EXPECT_EQ(folder->text().toStdString(), home.DataFolder() + "/Output/");
  EXPECT_TRUE(state->CurrentProfile.empty());
}

}  // namespace
}  // namespace velmora::testing
