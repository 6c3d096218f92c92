// Helpers for tests that run whole jobs: a job state with an output folder, sample images
// of chosen sizes and colours, and a pixel reader for output files.
#pragma once

#include <FreeImage.h>

#include <string>
#include <vector>

#include "engine/app_state.h"
#include "engine/go_process.h"
#include "tests/support/test_support.h"

namespace velmora::engine {

// A job as a new profile sets it, writing into `output_folder` (with a trailing separator),
// without opening the folder at the end.
inline AppState MakeJob(const std::string& output_folder) {
  AppState state;
  state.settings.AlwaysCreateOutputFolder = kTrue;
  state.settings.IfOutputFileExists = 1;
  state.output.OutputFolder = output_folder;
  state.output.OpenTargetFolder = kFalse;
  return state;
}

inline testing::RecordingView RunJob(AppState& state, const std::vector<std::string>& rows, int selected = -1) {
  testing::RecordingView view;
  GoProcess2(state, SourceList{rows, selected}, view);
  return view;
}

// Writes a 24-bit image of one colour (0xRRGGBB) in the format of `path`'s extension.
inline bool WriteSolidImage(const std::string& path, int width, int height, unsigned rgb) {
  FIBITMAP* dib = FreeImage_Allocate(width, height, 24);
  if (!dib) return false;
  RGBQUAD colour{};
  colour.rgbRed = static_cast<BYTE>(rgb >> 16);
  colour.rgbGreen = static_cast<BYTE>(rgb >> 8);
  colour.rgbBlue = static_cast<BYTE>(rgb);
  FreeImage_FillBackground(dib, &colour);
  const BOOL saved = FreeImage_Save(FreeImage_GetFIFFromFilename(path.c_str()), dib, path.c_str(), 0);
  FreeImage_Unload(dib);
  return saved != FALSE;
}

// The colour (0xRRGGBB) at (x, y) counted from the top-left corner; -1 if unreadable.
inline long PixelAt(const std::string& path, unsigned x, unsigned y) {
  FIBITMAP* dib = FreeImage_Load(FreeImage_GetFileType(path.c_str()), path.c_str());
  if (!dib) return -1;
  FIBITMAP* rgb = FreeImage_ConvertTo24Bits(dib);
  FreeImage_Unload(dib);
  RGBQUAD colour{};
  long value = -1;
  if (rgb && FreeImage_GetPixelColor(rgb, x, FreeImage_GetHeight(rgb) - 1 - y, &colour))
    value = (colour.rgbRed << 16) | (colour.rgbGreen << 8) | colour.rgbBlue;
  if (rgb) FreeImage_Unload(rgb);
  return value;
}

}  // namespace velmora::engine
