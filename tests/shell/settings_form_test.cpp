// The settings dialog's copying rules.
#include <gtest/gtest.h>

#include "shell/settings_form.h"

namespace velmora::shell {
namespace {

// The form opens from the settings; passive mode is touched only for one or zero.
TEST(SettingsForm, OpensFromTheSettings) {
  engine::Settings settings;
  settings.IfOutputFileExists = 2;
  settings.StopOnError = engine::kTrue;
  settings.FtpHost = "ftp.example.org";
  settings.FtpPassive = 1;
  settings.UseProxy = engine::kFalse;
  SettingsForm form;
  OpenSettingsForm(settings, form);
  EXPECT_EQ(IfOutputFileExistsItems()[static_cast<std::size_t>(form.Combo1)], "Auto change file name");
  EXPECT_EQ(std::tuple(form.Check2, form.Text5, form.Check1, ProxyFieldsEnabled(form)),
            std::tuple(true, "ftp.example.org", true, false));
  settings.FtpPassive = 7;
  OpenSettingsForm(settings, form);
  EXPECT_TRUE(form.Check1);
  settings.FtpPassive = 0;
  OpenSettingsForm(settings, form);
  EXPECT_FALSE(form.Check1);
}

TEST(SettingsForm, OkStoresPassiveAsOneAndFlagsAsBooleans) {
  SettingsForm form;
  form.Check1 = true;
  form.Check3 = true;
  form.Combo1 = 0;
  form.Text7 = " 10.0.0.1 ";
  engine::Settings settings;
  settings.ReservedFlag9 = engine::kTrue;
  ApplySettingsForm(form, settings);
  EXPECT_EQ(std::tuple(settings.FtpPassive, settings.FtpSecure, settings.IfOutputFileExists),
            std::tuple(1, engine::kTrue, 0));
  EXPECT_EQ(settings.ProxyHost, " 10.0.0.1 ");       // untrimmed, even with the proxy off
  EXPECT_EQ(settings.ReservedFlag9, engine::kTrue);  // no control owns it
}

}  // namespace
}  // namespace velmora::shell
