// TindraLabel: text flags, measuring and auto-size, path ellipsis, the enabled colour rule,
// persistence, drawing of the back styles and border, and the Change event.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>

#include "controls/label_persistence.h"
#include "controls/label_renderer.h"
#include "controls/label_text.h"
#include "controls/tindra_label.h"
#include "pixel_checks.h"

namespace velmora::controls {
namespace {

using testing::CountColor;
using testing::PixelIs;
using testing::PixelTransparent;

LabelProperties Props(const QString& caption) {
  LabelProperties props;
  props.Caption = caption;
  props.Font = QFont("DejaVu Sans");
  props.Font.setPixelSize(12);
  props.Font.setStyleStrategy(QFont::NoAntialias);  // exact colours to count
  return props;
}

TEST(LabelFlags, FromTheProperties) {
  LabelProperties p = Props("x");
  EXPECT_EQ(label_text_flags(p), 0x120u);
  p.Alignment = label_align::kRight;
  EXPECT_EQ(label_text_flags(p), 0x122u);
  p.Alignment = label_align::kCenter;
  EXPECT_EQ(label_text_flags(p), 0x121u);
  p.Alignment = label_align::kLeft;
  p.RightToLeft = true;
  p.WordWrap = true;
  p.PathEllipsis = true;
  p.UseMnemonic = false;
  EXPECT_EQ(label_text_flags(p), 0x100u | 0x20000u | 0x10u | 0x4000u | 0x800u);
}

TEST(LabelFlags, QtFlags) {
  const int single = qt_text_flags(0x122);
  EXPECT_TRUE(single & Qt::AlignRight);
  EXPECT_TRUE(single & Qt::TextSingleLine);
  EXPECT_TRUE(single & Qt::TextShowMnemonic);
  EXPECT_TRUE(single & Qt::TextDontClip);
  const int wrapped = qt_text_flags(0x100 | 0x10 | 0x800 | 0x1);
  EXPECT_TRUE(wrapped & Qt::TextWordWrap);
  EXPECT_TRUE(wrapped & Qt::AlignHCenter);
  EXPECT_FALSE(wrapped & Qt::TextShowMnemonic);
}

TEST(LabelMeasure, AmpersandsLeftOutWithMnemonics) {
  LabelProperties p = Props("&File && Edit");
  EXPECT_EQ(measured_caption(p), "File  Edit");
  const QSize with = label_text_extent(p);
  p.Caption = "File  Edit";
  EXPECT_EQ(label_text_extent(p), with);
  p.Caption = "&File && Edit";
  p.UseMnemonic = false;
  EXPECT_EQ(measured_caption(p), "&File && Edit");
  EXPECT_GT(label_text_extent(p).width(), with.width());
}

TEST(LabelMeasure, WordWrapDoesNotChangeTheMeasure) {
  LabelProperties p = Props("a caption long enough to wrap");
  const QSize single = label_text_extent(p);
  p.WordWrap = true;
  EXPECT_EQ(label_text_extent(p), single);
}

TEST(LabelPathEllipsis, KeepsTheNameAfterTheLastSeparator) {
  auto count = [](const QString& s) { return static_cast<int>(s.size()); };
  const QString path = "C:\\dir\\sub\\file.txt";
  EXPECT_EQ(elide_path(path, 40, count), path);
  EXPECT_EQ(elide_path(path, 15, count), "C:\\...\\file.txt");
  EXPECT_EQ(elide_path(path, 12, count), "...\\file.txt");
  EXPECT_EQ(elide_path(path, 5, count), "...\\file.txt");
  const QString home = "/home/anna/Pictures/Holiday/2009/beach.jpg";
  EXPECT_EQ(elide_path(home, 30, count), "/home/anna/Pictur.../beach.jpg");
  EXPECT_EQ(elide_path(home, 8, count), ".../beach.jpg");
  EXPECT_EQ(elide_path("/mixed\\dir/name.png", 14, count), "/m.../name.png");
  EXPECT_EQ(elide_path("abcdefghij", 7, count), "ab...ij");
  EXPECT_EQ(elide_path("abcdefghij", 2, count), "...");
}

TEST(LabelPathEllipsis, OnlyForSingleLines) {
  LabelProperties p = Props("C:\\Pictures\\Holiday\\2009\\beach.jpg");
  p.PathEllipsis = true;
  EXPECT_EQ(label_display_text(p, 10000), p.Caption);
  EXPECT_TRUE(label_display_text(p, 120).endsWith("\\beach.jpg"));
  EXPECT_TRUE(label_display_text(p, 120).contains("..."));
  p.WordWrap = true;
  EXPECT_EQ(label_display_text(p, 120), p.Caption);
}

TEST(LabelPersistence, KeysAndRoundTrip) {
  EXPECT_EQ(label_property_keys().join(','),
            "Caption,Alignment,RightToLeft,Enabled,ForeColor,Font,BackColor,BorderStyle,BackStyle,"
            "BackStyle,BorderStyle,AutoSize,WordWrap,MousePointer,MouseIcon,MousePointer,"
            "PathEllipsis,UseMnemonic");
  LabelProperties p = Props("Output &folder");
  p.Alignment = 2;
  p.RightToLeft = true;
  set_label_fore_color(p, 0x123456);
  set_label_enabled(p, false);
  p.BackColor = 0x654321;
  p.BackStyle = kBackTransparent;
  p.BorderStyle = kBorderFixedSingle;
  p.AutoSize = false;
  p.WordWrap = true;
  p.MousePointer = 3;
  p.PathEllipsis = true;
  p.UseMnemonic = false;
  PropertyBag bag;
  write_label_properties(p, "lbl", QFont("DejaVu Sans"), bag);
  EXPECT_EQ(bag.keys().first(), "Caption");
  const PropertyBagParse parsed = parse_property_bag(bag.to_text());
  ASSERT_TRUE(parsed.ok());
  const LabelProperties r = read_label_properties(parsed.bag, "lbl", QFont("DejaVu Sans"));
  EXPECT_EQ(r.Caption, p.Caption);
  EXPECT_EQ(r.Alignment, 2);
  EXPECT_TRUE(r.RightToLeft);
  EXPECT_FALSE(r.Enabled);
  EXPECT_EQ(r.EnabledForeColor, 0x123456u);  // the set colour, not the gray
  EXPECT_EQ(r.BackColor, 0x654321u);
  EXPECT_EQ(r.BackStyle, kBackTransparent);
  EXPECT_EQ(r.BorderStyle, kBorderFixedSingle);
  EXPECT_FALSE(r.AutoSize);
  EXPECT_TRUE(r.WordWrap);
  EXPECT_EQ(r.MousePointer, 3);
  EXPECT_TRUE(r.PathEllipsis);
  EXPECT_FALSE(r.UseMnemonic);
  EXPECT_EQ(r.Font, p.Font);
}

TEST(LabelDrawing, TransparentShowsOnlyTheText) {
  LabelProperties p = Props("Hi");
  p.BackStyle = kBackTransparent;
  p.ForeColor = 0x0000FF;
  const QImage image = render_label(p, {40, 20});
  EXPECT_TRUE(PixelTransparent(image, 39, 19));
  EXPECT_TRUE(PixelTransparent(image, 0, 0));
  EXPECT_GT(CountColor(image, image.rect(), 0x0000FF), 5);
}

TEST(LabelDrawing, OpaqueFillsAndBorderSinks) {
  LabelProperties p = Props("Hi");
  p.BackStyle = kBackOpaque;
  p.BackColor = 0x00FF00;
  p.BorderStyle = kBorderFixedSingle;
  const QImage image = render_label(p, {40, 20});
  EXPECT_TRUE(PixelIs(image, 0, 0, kSysButtonShadow));
  EXPECT_TRUE(PixelIs(image, 20, 0, kSysButtonShadow));
  EXPECT_TRUE(PixelIs(image, 1, 1, kSys3DDarkShadow));
  EXPECT_TRUE(PixelIs(image, 39, 19, kSys3DHighlight));
  EXPECT_TRUE(PixelIs(image, 20, 19, kSys3DHighlight));
  EXPECT_TRUE(PixelIs(image, 38, 18, kSysButtonFace));
  EXPECT_TRUE(PixelIs(image, 37, 17, 0x00FF00));
  EXPECT_EQ(label_text_rect(p, {40, 20}), QRect(2, 2, 36, 16));
}

TEST(LabelDrawing, AlignmentMovesTheText) {
  LabelProperties p = Props("ii");
  p.BackStyle = kBackTransparent;
  p.ForeColor = 0;
  auto leftmost = [](const QImage& image) {
    for (int x = 0; x < image.width(); ++x) {
      for (int y = 0; y < image.height(); ++y) {
        if (qAlpha(image.pixel(x, y)) != 0) return x;
      }
    }
    return -1;
  };
  const int left = leftmost(render_label(p, {100, 20}));
  p.Alignment = label_align::kCenter;
  const int center = leftmost(render_label(p, {100, 20}));
  p.Alignment = label_align::kRight;
  const int right = leftmost(render_label(p, {100, 20}));
  EXPECT_LT(left, 10);
  EXPECT_GT(center, 35);
  EXPECT_LT(center, 60);
  EXPECT_GT(right, 80);
}

TEST(LabelDrawing, MnemonicShowsNoAmpersand) {
  LabelProperties with = Props("&&");
  with.BackStyle = kBackTransparent;
  LabelProperties without = with;
  without.UseMnemonic = false;
  // "&&" shows one ampersand as a mnemonic text, two as plain text.
  const int one = CountColor(render_label(with, {60, 20}), QRect(0, 0, 60, 20), kSysButtonText);
  const int two = CountColor(render_label(without, {60, 20}), QRect(0, 0, 60, 20), kSysButtonText);
  EXPECT_GT(one, 0);
  EXPECT_GT(two, one);
}

TEST(LabelWidget, ChangeComesEveryTimeAndBeforeTheRedraw) {
  TindraLabel label(nullptr, "lblStatus");
  label.setFont(QFont("DejaVu Sans", 9));
  EXPECT_EQ(label.Caption(), "lblStatus");
  EXPECT_EQ(label.BackStyle(), kBackTransparent);
  int changes = 0;
  QSize size_at_change;
  QObject::connect(&label, &TindraLabel::changed, [&] {
    ++changes;
    size_at_change = label.size();
  });
  const QSize before = label.size();
  label.setCaption("A much longer status text");
  EXPECT_EQ(size_at_change, before);
  EXPECT_GT(label.width(), before.width());
  label.setCaption("A much longer status text");
  EXPECT_EQ(changes, 2);
}

TEST(LabelWidget, AutoSizeNeverElides) {
  TindraLabel label(nullptr, "lblFile");
  label.setFont(QFont("DejaVu Sans", 9));
  label.setPathEllipsis(true);
  label.setCaption("C:\\Pictures\\Holiday\\2009\\beach.jpg");
  const QSize text = label_text_extent(label.properties());
  EXPECT_EQ(label.size(), text);
  EXPECT_EQ(label_display_text(label.properties(), label.width()), label.Caption());
  label.setBorderStyle(kBorderFixedSingle);
  EXPECT_EQ(label.size(), text + QSize(4, 4));
  label.setAutoSize(false);
  label.resize(50, 20);
  EXPECT_EQ(label.size(), QSize(50, 20));
}

TEST(LabelWidget, PointerMovesComeWithoutAButtonHeld) {
  TindraLabel label(nullptr, "lbl");
  label.resize(50, 20);
  int moves = 0;
  QObject::connect(&label, &TindraLabel::mouseMove, [&moves](int button, int, int, int) { moves += button == 0; });
  QMouseEvent move(QEvent::MouseMove, QPointF(7, 5), QPointF(7, 5), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&label, &move);
  EXPECT_EQ(moves, 1);
}

TEST(LabelWidget, DisablingGraysAndEnablingRestores) {
  TindraLabel label(nullptr, "lbl");
  label.setForeColor(0x0000FF);
  label.setEnabled(false);
  EXPECT_EQ(label.ForeColor(), kSysGrayText);
  label.setEnabled(true);
  EXPECT_EQ(label.ForeColor(), 0x0000FFu);
}

TEST(LabelWidget, ReadsAStoredForm) {
  PropertyBag bag;
  bag.write("Caption", QString("&Output"));
  bag.write("Enabled", false);
  bag.write("ForeColor", qint64(0x00FF00));
  TindraLabel label(nullptr, "lbl");
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
