#include "controls/button_presets.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora::controls {
namespace {

TEST(ButtonStylePreset, FaceColoursOfEachStyle) {
  struct Row {
    int style;
    OleColor normal, hover, pressed;
  };
  const Row rows[] = {
      {1, 0x8000000F, 0x8000000F, 0x8000000F}, {2, 0x8000000F, 0x8000000F, 0x8000000F},
      {3, 0x8000000F, 0x8000000F, 0x8000000F}, {4, 0x8000000F, 0x8000000F, 0x999999},
      {5, 0x8000000F, 0xB6A59F, 0xAF8C80},     {6, 0xD2DEDD, 0xFFFFFF, 0xFFFFFF},
      {7, 0xD8D8D8, 0xF7DBA5, 0xEFCE92},       {8, 0x80000001, 0x80000001, 0x80000001},
  };
  for (const Row& row : rows) {
    ButtonProperties p;
    p.BackColor = p.BackColorHover = p.BackColorPressed = 0x123456;
    apply_button_style(p, row.style);
    EXPECT_EQ(p.ButtonStyle, row.style);
    EXPECT_EQ(p.BackColor, row.normal) << "style " << row.style;
    EXPECT_EQ(p.BackColorHover, row.hover) << "style " << row.style;
    EXPECT_EQ(p.BackColorPressed, row.pressed) << "style " << row.style;
  }
}

TEST(ButtonStylePreset, Styles4And6PullTheFillUnlessNone) {
  struct Row {
    int style, fill_before, fill_after;
  };
  for (const Row& row : {Row{4, 0, 0}, Row{4, 2, 1}, Row{6, 0, 0}, Row{6, 5, 3}, Row{7, 5, 5}}) {
    ButtonProperties p;
    p.ButtonStyleColors = row.fill_before;
    apply_button_style(p, row.style);
    EXPECT_EQ(p.ButtonStyleColors, row.fill_after) << "style " << row.style << " from " << row.fill_before;
  }
}

TEST(ButtonStylePreset, UnknownStyleWritesNoColour) {
  ButtonProperties p;
  p.BackColor = 0x111111;
  apply_button_style(p, 9);
  EXPECT_EQ(p.ButtonStyle, 9);
  EXPECT_EQ(p.BackColor, 0x111111u);
  apply_button_style(p, 0);
  EXPECT_EQ(p.BackColor, 0x111111u);
}

TEST(ButtonThemePreset, ZeroLeavesEveryColour) {
  ButtonProperties p;
  p.BackColor = 1;
  p.BackColorHover = 2;
  p.BackColorPressed = 3;
  p.BorderColor = 4;
  p.BorderColorHover = 5;
  p.BorderColorPressed = 6;
  apply_button_theme(p, 0);
  EXPECT_EQ(std::vector<OleColor>({p.BackColor, p.BackColorHover, p.BackColorPressed, p.BorderColor, p.BorderColorHover,
                                   p.BorderColorPressed}),
            std::vector<OleColor>({1, 2, 3, 4, 5, 6}));
}

TEST(ButtonThemePreset, ThemesReplaceFaceAndBorderColours) {
  struct Row {
    int theme;
    OleColor normal, hover, pressed;
  };
  const Row rows[] = {
      {1, 0xF1B39A, 0xFDF7F4, 0xFAE6DD}, {2, 0x3DB4A2, 0xDFF4F2, 0xB8E7E0}, {3, 0xB5A09D, 0xF7F5F4, 0xECE7E6},
      {4, 0xABC2C2, 0xF2F8F8, 0xE6EDEE}, {5, 0x02C5F5, 0xE2F9FF, 0xAFEFFE}, {6, 0x26368B, 0x4763FF, 0x425CEE},
      {7, 0x578B2E, 0x9FFF54, 0x80CD43}, {8, 0x8B4027, 0xFF7648, 0xCD5F3A},
  };
  for (const Row& row : rows) {
    ButtonProperties p;
    apply_button_theme(p, row.theme);
    EXPECT_EQ(p.BackColor, row.normal) << "theme " << row.theme;
    EXPECT_EQ(p.BackColorHover, row.hover) << "theme " << row.theme;
    EXPECT_EQ(p.BackColorPressed, row.pressed) << "theme " << row.theme;
    EXPECT_EQ(p.BorderColor, 0xFF0000u);
    EXPECT_EQ(p.BorderColorHover, 0xFF0000u);
    EXPECT_EQ(p.BorderColorPressed, 0xFF0000u);
  }
}

}  // namespace
}  // namespace velmora::controls
