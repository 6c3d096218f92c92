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
  EXPECT_EQ(std::tuple(state->CurrentProfile, window->windowTitle().toStdString()),
            std::tuple(path, "Velmora - [job.profile]"));

  engine::AppState reread;
  settings::LoadProfile(reread, path);
  EXPECT_EQ(reread.blocks, state->blocks);
  ASSERT_EQ(reread.blocks.UpperBound(), 2);
  EXPECT_EQ(std::tuple(reread.blocks[0].Kind, reread.blocks[0].Angle, reread.blocks[1].Kind),
            std::tuple(engine::kRotate, 90, engine::kWatermark));
  EXPECT_EQ(reread.output.NameTemplate, "job_{Counter}");
  EXPECT_EQ(settings::ReadIni("Profile", "ProcessTotal", path), "2");
  EXPECT_EQ(settings::ReadIni("Block_0", "7", path), "90");
}

// A cancelled save changes nothing; a name with the extension in other case is kept.
TEST_F(ProfileMenuTest, ANameWithTheExtensionInOtherCaseIsKept) {
  const std::string before = state->CurrentProfile;
  Item("m_save_profile")->trigger();
  EXPECT_EQ(state->CurrentProfile, before);
  services.profiles.push_back(work.file("job.PROFILE"));
  Item("m_save_profile")->trigger();
  EXPECT_TRUE(std::filesystem::exists(work.file("job.PROFILE")));
  services.profiles.push_back(work.file("job.txt"));
  Item("m_save_profile")->trigger();
  EXPECT_TRUE(std::filesystem::exists(work.file("job.txt.profile")));
}

TEST_F(ProfileMenuTest, LoadAppendsTheChainToWhatIsListed) {
  Next();
  AddOperation(1);
  AddOperation(2);
  AddOperation(3);
  engine::AppState saved;
  saved.output = {.OutputFormat = 5, .OutputFolder = work.slash()};
  saved.blocks = engine::Blocks({engine::NewBlock(engine::kEffect), engine::NewBlock(engine::kGamma)});
  ASSERT_TRUE(settings::SaveProfile(saved, work.file("two.profile")));
  services.profiles.push_back(work.file("two.profile"));
  Item("m_load_profile")->trigger();
  EXPECT_EQ(window->windowTitle().toStdString(), "Velmora - [two.profile]");
  EXPECT_EQ(Captions(), (std::vector<std::string>{"Convert to", "Save to", "File name", "Resize", "Rotate", "Mirror",
                                                  "Effect", "Gamma correction"}));
  EXPECT_EQ(Find<QComboBox>("FormatCombo1")->currentText(), "TIFF");
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
  EXPECT_EQ(std::tuple(Find<QLineEdit>("FileNameText1")->text().toStdString(),
                       Find<QLineEdit>("SaveToText1")->text().toStdString()),
            std::tuple("{Title}_{Counter}.{OutputType}", home.DataFolder() + "/Output/"));
  EXPECT_TRUE(state->CurrentProfile.empty());
}

}  // namespace
}  // namespace velmora::testing
