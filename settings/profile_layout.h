// The key numbering of a profile file: which field sits under which key of [Settings], [Profile]
// and [Block_n], in the order the keys are written. Loading and saving both walk these lists.
#pragma once

#include <cstdint>
#include <string>

#include "engine/app_state.h"

namespace velmora::settings {

// `Io` offers String, Int16, Int32 and Boolean, each taking the key and the field.
// The key numbers are part of the file format and do not follow the order of the fields.
template <typename Io, typename SettingsT>  // engine::Settings, const or not
void VisitSettingsKeys(Io& io, SettingsT& s) {
  io.Boolean("1", s.AlwaysCreateOutputFolder);
  io.String("2", s.FtpLogin);
  io.Int16("3", s.FtpPassive);
  io.String("4", s.FtpPassword);
  io.String("5", s.FtpPath);
  io.String("6", s.FtpHost);
  io.Boolean("7", s.GenerateHtmlIndex);
  io.Int16("8", s.IfOutputFileExists);
  io.Boolean("9", s.ReservedFlag9);
  io.String("10", s.PicasaUsername);
  io.String("11", s.PicasaPassword);
  io.String("12", s.ProxyPort);
  io.String("13", s.ProxyHost);
  io.Boolean("14", s.StopOnError);
  io.Boolean("15", s.UseProxy);
  io.String("16", s.FtpPort);
  io.Boolean("17", s.FtpSecure);
  io.Boolean("18", s.RotateByCameraOrientation);
  io.Boolean("19", s.KeepColourProfiles);
}

template <typename Io, typename OutputChoicesT>  // engine::OutputChoices, const or not
void VisitProfileKeys(Io& io, OutputChoicesT& o) {
  io.Int16("1", o.ColorDepth);
  io.Int16("2", o.ColorsCount);
  io.Int16("3", o.CompressionIndex);
  io.Int16("4", o.Compression2Index);
  io.Int16("5", o.OutputFormat);
  io.Int16("6", o.MultipageMode);
  io.Int16("7", o.Quality);
  io.String("8", o.NameTemplate);
  io.Boolean("9", o.OpenTargetFolder);
  io.String("10", o.OutputFolder);
}

template <typename Io, typename BlockT>  // engine::Block, const or not
void VisitBlockKeys(Io& io, BlockT& b) {
  io.Int32("1", b.Height);
  io.Boolean("2", b.KeepProportions);
  io.Int16("3", b.Method);
  io.Int16("4", b.Units);
  io.Int32("5", b.Width);
  io.Int16("6", b.Kind);
  io.Int32("7", b.Angle);
  io.Int32("8", b.Direction);
  io.Int16("9", b.MirrorAxis);
  io.Int16("10", b.HAlign);
  io.Int32("11", b.HOffset);
  io.Int16("12", b.ReservedBlock12);
  io.Int32("13", b.WatermarkAngle);
  io.String("14", b.WatermarkSource);
  io.Int16("15", b.WatermarkKind);
  io.Int16("16", b.VAlign);
  io.Int32("17", b.VOffset);
  io.Int16("18", b.EffectKind);
  io.Int32("19", b.Brightness);
  io.Int32("20", b.Contrast);
  io.Int32("21", b.GammaValue);
  io.String("22", b.WatermarkFont);
}

inline constexpr const char* kSettingsSection = "Settings";
inline constexpr const char* kProfileSection = "Profile";
inline constexpr const char* kProcessTotalKey = "ProcessTotal";
// "Block_0", "Block_1", ...: plain decimal, no padding.
inline std::string BlockSection(std::int32_t index) {
  return "Block_" + std::to_string(index);
}

}  // namespace velmora::settings
