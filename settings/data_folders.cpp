// Finding the documents folder and building the data folders under it.
#include "settings/data_folders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace velmora::settings {
namespace {

std::string HomeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home) return home;
  if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir) return entry->pw_dir;
  return {};
}

std::string WithoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// The XDG_DOCUMENTS_DIR line of a user-dirs.dirs file: a quoted "$HOME/..." or absolute path with
// shell escapes. Anything else is not a usable entry.
std::string DocumentsEntry(const std::string& dirs_file, const std::string& home) {
  std::ifstream in(dirs_file);
  std::string line;
  std::string found;
  while (std::getline(in, line)) {
    std::string_view text(line);
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    constexpr std::string_view kName = "XDG_DOCUMENTS_DIR=\"";
    if (text.substr(0, kName.size()) != kName) continue;
    text.remove_prefix(kName.size());
    std::string value;
    for (std::size_t i = 0; i < text.size() && text[i] != '"'; ++i) {
      if (text[i] == '\\' && i + 1 < text.size()) ++i;
      value += text[i];
    }
    if (value.rfind("$HOME", 0) == 0 && (value.size() == 5 || value[5] == '/')) {
      found = home + value.substr(5);
    } else if (!value.empty() && value.front() == '/') {
      found = value;
    }
  }
  return found;  // the last entry wins, as in a shell that sources the file
}

}  // namespace

std::string GetDocumentsFolder() {
  const std::string home = HomeFolder();
  if (home.empty()) return {};
  std::string config = std::getenv("XDG_CONFIG_HOME") ? std::getenv("XDG_CONFIG_HOME") : "";
  if (config.empty() || config.front() != '/') config = home + "/.config";
  std::string documents = DocumentsEntry(config + "/user-dirs.dirs", home);
  if (documents.empty()) documents = home + "/Documents";
  return WithoutTrailingSlashes(documents);
}

bool FileExists(const std::string& path) {
  struct stat info {};
  return !path.empty() && ::lstat(path.c_str(), &info) == 0;
}

void PrepareDataFolders(engine::AppState& state) {
  // With no documents folder the data folder is "/Velmora"; folder creation then fails quietly
  // and start-up goes on with it.
  state.AppDataFolder = GetDocumentsFolder() + "/Velmora";
  MakePath(state.AppDataFolder + "/");
  MakePath(state.AppDataFolder + "/Profiles/");
  MakePath(state.AppDataFolder + "/Output/");
  MakePath(state.AppDataFolder + "/Temp/");
  state.SettingsFile = state.AppDataFolder + "/settings.ini";
  // A read-only probe of the settings file: it never creates it.
  if (std::FILE* probe = std::fopen(state.SettingsFile.c_str(), "rb")) std::fclose(probe);
}

std::string DefaultProfilePath(const engine::AppState& state) {
  return state.AppDataFolder + "/Profiles/default.profile";
}

}  // namespace velmora::settings
