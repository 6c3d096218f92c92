// TindraLabel: text flags, measuring and auto-size, path ellipsis, the enabled colour rule,
// drawing of the back styles and border, the Change event and the pointer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include "controls/label_renderer.h"
#include "controls/label_text.h"
#include "controls/tindra_label.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::CountColor;
using testing::ExpectPixels;
using testing::Ink;
using testing::kClear;

LabelProperties Props(const QString& caption) {
  LabelProperties props;
  props.Caption = caption;
  props.Font = QFont("DejaVu Sans");
  props.Font.setPixelSize(12);
  props.Font.setStyleStrategy(QFont::NoAntialias);  // exact colours to count
  return props;
}

// Alignment and mnemonics show in the drawings below; the other flags only here.
TEST(LabelFlags, FromThePropertiesAndToQt) {
  LabelProperties p = Props("x");
  EXPECT_EQ(label_text_flags(p), 0x120u);  // single line, no clipping
  p.RightToLeft = p.WordWrap = p.PathEllipsis = true;
  p.UseMnemonic = false;
  EXPECT_EQ(label_text_flags(p), 0x100u | 0x20000u | 0x10u | 0x4000u | 0x800u);
  EXPECT_EQ(qt_text_flags(0x120) & (Qt::TextSingleLine | Qt::TextWordWrap | Qt::TextDontClip),
            Qt::TextSingleLine | Qt::TextDontClip);
  EXPECT_EQ(qt_text_flags(0x110) & (Qt::TextSingleLine | Qt::TextWordWrap), Qt::TextWordWrap);
}

// Auto-size measures one line, leaving out the ampersands of mnemonics.
TEST(LabelMeasure, AmpersandsLeftOutWithMnemonicsAndWrapIgnored) {
  LabelProperties p = Props("&File && Edit");
  const QSize with = label_text_extent(p);
  p.WordWrap = true;
  EXPECT_EQ(label_text_extent(p), with);
  p.Caption = "File  Edit";
  EXPECT_EQ(label_text_extent(p), with);
  p.Caption = "&File && Edit";
  p.UseMnemonic = false;
  EXPECT_GT(label_text_extent(p).width(), with.width());
}

TEST(LabelPathEllipsis, KeepsTheNameAfterTheLastSeparator) {
  auto count = [](const QString& s) { return static_cast<int>(s.size()); };
  const QString path = "C:\\dir\\sub\\file.txt";
  EXPECT_EQ(elide_path(path, 40, count), path);
  EXPECT_EQ(elide_path(path, 15, count), "C:\\...\\file.txt");
  EXPECT_EQ(elide_path(path, 5, count), "...\\file.txt");
  const QString home = "/home/anna/Pictures/Holiday/2009/beach.jpg";
  EXPECT_EQ(elide_path(home, 30, count), "/home/anna/Pictur.../beach.jpg");
  EXPECT_EQ(elide_path("/mixed\\dir/name.png", 14, count), "/m.../name.png");
  // Without a separator the middle goes; an odd count keeps the extra character in front.
  EXPECT_EQ(elide_path("abcdefghij", 7, count), "ab...ij");
  EXPECT_EQ(elide_path("abcdefghij", 6, count), "ab...j");
  EXPECT_EQ(elide_path("abcdefghij", 2, count), "...");
}

TEST(LabelPathEllipsis, OnlyForSingleLines) {
  LabelProperties p = Props("C:\\Pictures\\Holiday\\2009\\beach.jpg");
  p.PathEllipsis = true;
  EXPECT_EQ(label_display_text(p, 10000), p.Caption);
  EXPECT_TRUE(label_display_text(p, 120).endsWith("...\\beach.jpg"));
  p.WordWrap = true;
  EXPECT_EQ(label_display_text(p, 120), p.Caption);
}

// A transparent label paints only its text; an opaque one fills and sinks its fixed border.
TEST(LabelDrawing, BackStylesAndBorder) {
  LabelProperties p = Props("Hi");
  p.BackStyle = kBackTransparent;
  p.ForeColor = 0x0000FF;
  const QImage transparent = render_label(p, {40, 20});
  ExpectPixels(transparent, {{39, 19, kClear}, {0, 0, kClear}});
  EXPECT_GT(CountColor(transparent, transparent.rect(), 0x0000FF), 5);
  p.BackStyle = kBackOpaque;
  p.BackColor = 0x00FF00;
  p.BorderStyle = kBorderFixedSingle;
  const std::vector<testing::Probe> sunken = {
      {0, 0, kSysButtonShadow},  {20, 0, kSysButtonShadow}, {1, 1, kSys3DDarkShadow}, {39, 19, kSys3DHighlight},
      {20, 19, kSys3DHighlight}, {38, 18, kSysButtonFace},  {37, 17, 0x00FF00}};
  ExpectPixels(render_label(p, {40, 20}), sunken);
  EXPECT_EQ(label_text_rect(p, {40, 20}), QRect(2, 2, 36, 16));
}

TEST(LabelDrawing, AlignmentMovesTheText) {
  LabelProperties p = Props("ii");
  p.BackStyle = kBackTransparent;
  EXPECT_LT(Ink(render_label(p, {100, 20}), p.ForeColor).left(), 10);
  p.Alignment = label_align::kCenter;
  const QRect center = Ink(render_label(p, {100, 20}), p.ForeColor);
  EXPECT_NEAR(center.left() + center.right(), 100, 4);
  p.Alignment = label_align::kRight;
  EXPECT_GT(Ink(render_label(p, {100, 20}), p.ForeColor).right(), 95);
}

TEST(LabelDrawing, MnemonicShowsNoAmpersand) {
  LabelProperties p = Props("&&");
  p.BackStyle = kBackTransparent;
  // "&&" shows one ampersand as a mnemonic text, two as plain text.
  const int one = CountColor(render_label(p, {60, 20}), QRect(0, 0, 60, 20), kSysButtonText);
  p.UseMnemonic = false;
  const int two = CountColor(render_label(p, {60, 20}), QRect(0, 0, 60, 20), kSysButtonText);
  EXPECT_GT(one, 0);
  EXPECT_GT(two, one);
}

// A new label is transparent and captioned with its name. Change comes every time, before the
// redraw that auto-sizes it; auto-size takes the whole text, so it never elides.
TEST(LabelWidget, ChangeAndAutoSize) {
  TindraLabel label(nullptr, "lblStatus");
  label.setFont(QFont("DejaVu Sans", 9));
  EXPECT_EQ(label.Caption(), "lblStatus");
  EXPECT_EQ(label.BackStyle(), kBackTransparent);
  QList<QSize> sizes_at_change;
  QObject::connect(&label, &TindraLabel::changed, [&] { sizes_at_change << label.size(); });
  const QSize before = label.size();
  label.setPathEllipsis(true);
  label.setCaption("C:\\Pictures\\Holiday\\2009\\beach.jpg");
  label.setCaption("C:\\Pictures\\Holiday\\2009\\beach.jpg");
  const QSize text = label_text_extent(label.properties());
  EXPECT_EQ(sizes_at_change, (QList<QSize>{before, text}));
  EXPECT_EQ(label.size(), text);
  EXPECT_EQ(label_display_text(label.properties(), label.width()), label.Caption());
  label.setBorderStyle(kBorderFixedSingle);
  EXPECT_EQ(label.size(), text + QSize(4, 4));
  label.setAutoSize(false);
  label.resize(50, 20);
  EXPECT_EQ(label.size(), QSize(50, 20));
}

TEST(LabelWidget, PointerMovesWithoutAButtonAndClicksOnTheLabel) {
  TindraLabel label(nullptr, "lbl");
  label.resize(50, 20);
  QStringList log;
  QObject::connect(&label, &TindraLabel::mouseMove,
                   [&log](int button, int, int x, int) { log << QString("move %1 %2").arg(button).arg(x); });
  QObject::connect(&label, &TindraLabel::clicked, [&log] { log << "click"; });
  auto send = [&label](QEvent::Type type, QPointF at, Qt::MouseButton button) {
    QMouseEvent event(type, at, at, button, type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&label, &event);
  };
  send(QEvent::MouseMove, {7, 5}, Qt::NoButton);
  send(QEvent::MouseButtonPress, {7, 5}, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, {8, 5}, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, {8, 5}, Qt::LeftButton);  // no press before it
  send(QEvent::MouseButtonPress, {7, 5}, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, {70, 5}, Qt::LeftButton);  // released off the label
  EXPECT_EQ(log, (QStringList{"move 0 7", "click"}));
}

TEST(LabelWidget, DisablingGraysTheTextAndEnablingRestoresIt) {
  TindraLabel label(nullptr, "lbl");
  label.setForeColor(0x0000FF);
  label.setEnabled(false);
  EXPECT_EQ(label.ForeColor(), kSysGrayText);
  label.setEnabled(true);
  EXPECT_EQ(label.ForeColor(), 0x0000FFu);
  // A stored form: opaque by default, and its colour comes back when enabled.
  PropertyBag bag;
  bag.write("Caption", QString("&Output"));
  bag.write("Enabled", false);
  bag.write("ForeColor", qint64(0x00FF00));
  label.ReadProperties(bag);
  EXPECT_EQ(label.Caption(), "&Output");
  EXPECT_EQ(label.BackStyle(), kBackOpaque);
  EXPECT_FALSE(label.isEnabled());
  EXPECT_EQ(label.ForeColor(), kSysGrayText);
  label.setEnabled(true);
  EXPECT_EQ(label.ForeColor(), 0x00FF00u);
}

}  // namespace
}  // namespace velmora::controls
