// Copying between the settings and the settings dialog's controls.
#include "shell/settings_form.h"

namespace velmora::shell {
namespace {
bool On(engine::VBool value) {
  return value == engine::kTrue;
}
engine::VBool Word(bool checked) {
  return checked ? engine::kTrue : engine::kFalse;
}
}  // namespace

const std::vector<std::string>& IfOutputFileExistsItems() {
  static const std::vector<std::string> items{"Skip", "Overwrite", "Auto change file name"};
  return items;
}

void OpenSettingsForm(const engine::Settings& s, SettingsForm& form) {
  form.Check2 = On(s.StopOnError);
  form.Check6 = On(s.AlwaysCreateOutputFolder);
  form.Check14 = On(s.GenerateHtmlIndex);
  form.Check15 = On(s.RotateByCameraOrientation);
  form.Check16 = On(s.KeepColourProfiles);
  form.Check4 = On(s.UseProxy);
  form.Check3 = On(s.FtpSecure);
  const int rows = static_cast<int>(IfOutputFileExistsItems().size());
  if (s.IfOutputFileExists >= -1 && s.IfOutputFileExists < rows) form.Combo1 = s.IfOutputFileExists;
  form.Text7 = s.ProxyHost;
  form.Text8 = s.ProxyPort;
  form.Text1 = s.PicasaUsername;
  form.Text2 = s.PicasaPassword;
  form.Text5 = s.FtpHost;
  form.Text9 = s.FtpPort;
  form.Text4 = s.FtpLogin;
  form.Text3 = s.FtpPassword;
  form.Text6 = s.FtpPath;
  if (s.FtpPassive == 1) form.Check1 = true;
  if (s.FtpPassive == 0) form.Check1 = false;
}

void ApplySettingsForm(const SettingsForm& form, engine::Settings& s) {
  s.StopOnError = Word(form.Check2);
  s.AlwaysCreateOutputFolder = Word(form.Check6);
  s.GenerateHtmlIndex = Word(form.Check14);
  s.RotateByCameraOrientation = Word(form.Check15);
  s.KeepColourProfiles = Word(form.Check16);
  s.IfOutputFileExists = static_cast<std::int16_t>(form.Combo1);
  s.UseProxy = Word(form.Check4);
  s.ProxyHost = form.Text7;
  s.ProxyPort = form.Text8;
  s.PicasaUsername = form.Text1;
  s.PicasaPassword = form.Text2;
  s.FtpHost = form.Text5;
  s.FtpPort = form.Text9;
  s.FtpLogin = form.Text4;
  s.FtpPassword = form.Text3;
  s.FtpPath = form.Text6;
  s.FtpPassive = form.Check1 ? 1 : 0;
  s.FtpSecure = Word(form.Check3);
}

}  // namespace velmora::shell
