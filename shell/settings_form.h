// The "Program Settings" dialog's controls as plain values: filled from the settings on every
// opening and copied back on OK, with the proxy rule and the odd passive-mode form.
#pragma once

#include <string>
#include <vector>

#include "engine/app_state.h"

namespace velmora::shell {

// Rows of "If Output File Exists:"; the row index is the stored value.
const std::vector<std::string>& IfOutputFileExistsItems();

struct SettingsForm {
  // "Conversion"
  bool Check2 = false;   // "Stop On Error"
  bool Check6 = false;   // "Always Create Output Folder"
  bool Check14 = false;  // "Generate HTML Index"
  int Combo1 = -1;       // "If Output File Exists:"
  bool Check15 = false;  // "Rotate by camera orientation"
  bool Check16 = false;  // "Keep colour profiles"
  // "Connection"
  bool Check4 = false;  // "Use proxy:"
  std::string Text7;    // "IP:"
  std::string Text8;    // "Port:"
  // "Picasa"
  std::string Text1;  // "Username:"
  std::string Text2;  // "Password:"
  // "FTP"
  std::string Text5;    // "FTP Server:"
  std::string Text9;    // "Port:"
  std::string Text4;    // "Login:"
  std::string Text3;    // "Password:"
  std::string Text6;    // "FTP Path:"
  bool Check1 = false;  // "Passive Mode"
  bool Check3 = false;  // "Secure FTP"

  bool operator==(const SettingsForm&) const = default;
};

// The opening steps over `form` as it stands: "Passive Mode" is only set for a stored 1 or 0,
// and a stored choice outside the three rows leaves the list as it is.
void OpenSettingsForm(const engine::Settings& settings, SettingsForm& form);

// The proxy rule: the address and port fields and their labels are enabled only with "Use proxy:".
inline bool ProxyFieldsEnabled(const SettingsForm& form) {
  return form.Check4;
}

// OK: the sixteen settings from the controls, untrimmed and unchecked. "Passive Mode" is stored
// as 1 or 0, every other flag as a boolean.
void ApplySettingsForm(const SettingsForm& form, engine::Settings& settings);

}  // namespace velmora::shell
