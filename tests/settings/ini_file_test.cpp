// ReadIni and WriteIni against real files: creation, value forms, silent failures.
#include "settings/ini_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_support.h"

namespace velmora::settings {
namespace {

using testing::ReadWholeFile;
using testing::TempFolder;
using testing::WriteWholeFile;

TEST(IniFile, WriteCreatesTheFileAndReadGivesTheValueBack) {
  TempFolder temp;
  const std::string file = temp.file("settings.ini");
  WriteIni("Main", "LastProfile", std::string("/home/u/Documents/Velmora/Profiles/job.profile"), file);
  EXPECT_EQ(ReadWholeFile(file), "[Main]\r\nLastProfile=/home/u/Documents/Velmora/Profiles/job.profile\r\n");
  EXPECT_EQ(ReadIni("main", "LASTPROFILE", file), "/home/u/Documents/Velmora/Profiles/job.profile");
}

TEST(IniFile, IntegersAreDecimalAndBooleansAreWords) {
  TempFolder temp;
  const std::string file = temp.file("values.ini");
  WriteIni("S", "short", static_cast<std::int16_t>(-1), file);
  WriteIni("S", "long", std::int32_t{2000000000}, file);
  WriteIni("S", "yes", true, file);
  WriteIni("S", "no", false, file);
  WriteIni("S", "text", "literal", file);
  EXPECT_EQ(ReadWholeFile(file), "[S]\r\nshort=-1\r\nlong=2000000000\r\nyes=True\r\nno=False\r\ntext=literal\r\n");
}

TEST(IniFile, WriteLeavesTheRestOfAHandWrittenFileAlone) {
  TempFolder temp;
  const std::string file = temp.file("mixed.ini");
  WriteWholeFile(file, "# comment\n[Main]\nLastProfile=old\nWindow=left\n[Plugins]\nx=1\n");
  WriteIni("Main", "LastProfile", std::string("new"), file);
  EXPECT_EQ(ReadWholeFile(file), "# comment\n[Main]\nLastProfile=new\nWindow=left\n[Plugins]\nx=1\n");
}

TEST(IniFile, WritesThatCannotLandAreLostWithoutAWord) {
  TempFolder temp;
  WriteIni("Main", "k", std::string("v"), "");                    // empty name: nothing stored
  WriteIni("Main", "k", std::string("v"), temp.path().string());  // a folder: not replaced
  EXPECT_TRUE(std::filesystem::is_directory(temp.path()));
  WriteIni("Main", "k", std::string("v"), temp.file("no/such/folder.ini"));
  EXPECT_FALSE(std::filesystem::exists(temp.file("no")));
  EXPECT_TRUE(std::filesystem::is_empty(temp.path()));
}

}  // namespace
}  // namespace velmora::settings
