// The program's state as plain values: the seventeen settings, the output choices of a profile,
// the chain, the font working copy, the preview flags and the results of the last run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/block.h"
#include "engine/font_spec.h"

namespace velmora::engine {

// Program-wide settings; stored in every profile's [Settings] section under keys 1 to 17.
struct Settings {
  VBool AlwaysCreateOutputFolder = kFalse;  // 1
  std::string FtpLogin;                     // 2
  std::int16_t FtpPassive = 0;              // 3
  std::string FtpPassword;                  // 4
  std::string FtpPath;                      // 5
  std::string FtpHost;                      // 6
  VBool GenerateHtmlIndex = kFalse;         // 7
  std::int16_t IfOutputFileExists = 0;      // 8: 0 skip, 1 overwrite, 2 auto change file name
  VBool ReservedFlag9 = kFalse;             // 9
  std::string PicasaUsername;               // 10
  std::string PicasaPassword;               // 11
  std::string ProxyPort;                    // 12
  std::string ProxyHost;                    // 13
  VBool StopOnError = kFalse;               // 14
  VBool UseProxy = kFalse;                  // 15
  std::string FtpPort;                      // 16
  VBool FtpSecure = kFalse;                 // 17
  // Keys added after the first file format; absent, they read as off.
  VBool RotateByCameraOrientation = kFalse;  // 18: turn photos upright by their EXIF orientation
  VBool KeepColourProfiles = kFalse;         // 19: the source's ICC profile goes into the output

  bool operator==(const Settings&) const = default;
};

// Output choices of a profile ([Profile] keys 1 to 10). Until a profile is loaded they hold
// the values a new profile gets.
struct OutputChoices {
  std::int16_t ColorDepth = 0;                                  // 1
  std::int16_t ColorsCount = 0;                                 // 2
  std::int16_t CompressionIndex = 0;                            // 3
  std::int16_t Compression2Index = 0;                           // 4
  std::int16_t OutputFormat = 1;                                // 5: 0 BMP, 1 JPEG, 2 GIF, 3 PNG, 4 TGA, 5 TIFF, 6 EXR
  std::int16_t MultipageMode = 0;                               // 6: 0 separate pages, 1 multipage file
  std::int16_t Quality = 90;                                    // 7
  std::string NameTemplate = "{Title}_{Counter}.{OutputType}";  // 8
  VBool OpenTargetFolder = kTrue;                               // 9
  std::string OutputFolder;                                     // 10

  bool operator==(const OutputChoices&) const = default;
};

struct PreviewFlags {
  VBool PreviewMode = kFalse;
  VBool PreviewDirty = kFalse;
  VBool PreviewForced = kFalse;
  VBool ThreadRunning = kFalse;
};

// Output paths of the last run; like Blocks it ends in one spare empty element.
class WrittenFileList {
 public:
  WrittenFileList() : items_(1) {}
  std::int32_t UpperBound() const { return static_cast<std::int32_t>(items_.size()) - 1; }
  void Clear() { items_.assign(1, std::string()); }
  // Puts `path` in the spare element and grows the list by a new spare.
  void Append(const std::string& path) {
    items_.back() = path;
    items_.emplace_back();
  }
  const std::string& operator[](std::int32_t index) const { return items_[static_cast<std::size_t>(index)]; }
  // The entries that count, without the spare.
  std::vector<std::string> Entries() const { return {items_.begin(), items_.end() - 1}; }

 private:
  std::vector<std::string> items_;
};

struct AppState {
  Settings settings;
  OutputChoices output;
  Blocks blocks;
  FontState font;
  PreviewFlags preview;
  WrittenFileList WrittenFiles;
  std::int32_t SkipCounter = 0;
  std::string AppDataFolder;
  std::string SettingsFile;
  std::string CurrentProfile;
};

}  // namespace velmora::engine
