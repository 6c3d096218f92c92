// Per-format branches and the restore rules of the format dialog.
#include "shell/format_form.h"

#include "engine/number_text.h"

namespace velmora::shell {
namespace {

using Items = std::vector<std::string>;

const Items kMultipage{"Save as separate pages", "Save as multipage file"};

void Branch(const std::string& name, FormatForm& f) {
  if (name == "JPEG") {
    f.depth_row = f.quality_row = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)", "8 (Grayscale)"};
    f.ColorDepthCombo1.index = 0;
    f.SetQuality(75);
  } else if (name == "BMP") {
    f.depth_row = true;
    f.ColorDepthCombo1.items = {
        "32 (True color)", "24 (True color)", "16 (5:5:5:1 Hi color)", "16 (5:6:5 Hi color)", "8 (Indexed)",
        "4 (Indexed)",     "1 (Mono)"};
    f.ColorDepthCombo1.index = 0;
  } else if (name == "GIF") {
    f.multipage_row = true;
    f.MultipageCombo1.items = kMultipage;
    f.MultipageCombo1.index = 0;
  } else if (name == "PNG") {
    f.depth_row = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)", "8 (Indexed)", "4 (Indexed)", "1 (Mono)"};
    f.ColorDepthCombo1.index = 0;
  } else if (name == "TGA") {
    f.depth_row = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)", "16 (5:5:5:1 Hi color)", "16 (5:6:5 Hi color)",
                                "8 (Indexed)"};
    f.ColorDepthCombo1.index = 0;
  } else if (name == "TIFF") {
    f.depth_row = f.multipage_row = f.compression_shown = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)", "8 (Indexed)", "4 (Indexed)", "1 (Mono)", "CMYK"};
    f.CompressionCombo1.items = {"None",          "PACKBITS",      "DEFLATE", "ADOBE DEFLATE",
                                 "CCITT Group 3", "CCITT Group 4", "LZW",     "JPEG"};
    f.CompressionCombo2.items = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
    f.MultipageCombo1.items = kMultipage;
    f.ColorDepthCombo1.index = 0;
    f.CompressionCombo1.index = 1;
    f.CompressionCombo2.index = 6;
    f.MultipageCombo1.index = 1;
  } else if (name == "EXR") {
    f.compression_shown = f.compression_moved_up = true;
    f.CompressionCombo1.items = {"None", "ZIP", "PIZ", "PXR24", "B44", "LC"};
    f.CompressionCombo1.index = 1;
  } else if (name == "WEBP") {
    f.depth_row = f.quality_row = f.compression_shown = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)"};
    f.CompressionCombo1.items = {"Lossy", "Lossless"};
    f.ColorDepthCombo1.index = f.CompressionCombo1.index = 0;
    f.SetQuality(75);
  } else if (name == "AVIF") {
    f.depth_row = f.quality_row = true;
    f.ColorDepthCombo1.items = {"32 (True color)", "24 (True color)", "30 (10 bits per channel)"};
    f.ColorDepthCombo1.index = 0;
    f.SetQuality(75);
  }
}

}  // namespace

bool FormatList::Select(long long row) {
  if (row < -1 || row >= static_cast<long long>(items.size())) return false;
  index = static_cast<int>(row);
  return true;
}

void FormatForm::SetQuality(long long value) {
  if (value < 0 || value > 100) return;  // the slider refuses it
  QualitySlider1 = static_cast<int>(value);
  QualityText1 = std::to_string(QualitySlider1);
}

FormatForm OpenFormatForm(const std::string& format_name, const engine::OutputChoices& output) {
  FormatForm form;
  Branch(format_name, form);
  form.ColorDepthCombo1.Select(output.ColorDepth);
  form.ColorsText1 = std::to_string(output.ColorsCount);
  form.CompressionCombo1.Select(output.CompressionIndex);
  form.CompressionCombo2.Select(output.Compression2Index);
  form.MultipageCombo1.Select(output.MultipageMode);
  form.SetQuality(output.Quality);
  for (FormatList* list :
       {&form.ColorDepthCombo1, &form.CompressionCombo1, &form.CompressionCombo2, &form.MultipageCombo1}) {
    if (list->index == -1) list->Select(0);
  }
  return form;
}

void ApplyFormatForm(const FormatForm& form, engine::OutputChoices& output, engine::PreviewFlags& flags) {
  output.ColorDepth = static_cast<std::int16_t>(form.ColorDepthCombo1.index);
  if (auto colors = engine::ReadInt16(form.ColorsText1)) output.ColorsCount = *colors;
  output.CompressionIndex = static_cast<std::int16_t>(form.CompressionCombo1.index);
  output.Compression2Index = static_cast<std::int16_t>(form.CompressionCombo2.index);
  output.MultipageMode = static_cast<std::int16_t>(form.MultipageCombo1.index);
  output.Quality = static_cast<std::int16_t>(form.QualitySlider1);
  flags.PreviewDirty = engine::kTrue;
}

}  // namespace velmora::shell
