// Renders every shape, style, state, theme and fill of the skinned button, and the label's looks,
// onto one sheet: velmora-controls-contact-sheet [output.png] (default
// docs/controls-contact-sheet.png).
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QString>
#include <cstdio>
#include <functional>

#include "controls/button_presets.h"
#include "controls/button_renderer.h"
#include "controls/label_renderer.h"
#include "controls/label_text.h"
#include "controls/shape_geometry.h"

using namespace velmora::controls;

namespace {

constexpr int kCellW = 96;
constexpr int kCellH = 70;
constexpr int kLabelW = 120;
constexpr int kTitleH = 22;

struct Sheet {
  QImage image;
  QPainter painter;
  int y = 8;

  explicit Sheet(QSize size) : image(size, QImage::Format_ARGB32) {
    image.fill(QColor(250, 250, 250));
    painter.begin(&image);
  }

  void title(const QString& text) {
    y += 6;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPoint(8, y + 15), text);
    y += kTitleH;
  }

  void row_label(const QString& text) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(QColor(60, 60, 60));
    painter.drawText(QRect(8, y, kLabelW - 12, kCellH), Qt::AlignVCenter | Qt::TextWordWrap, text);
  }

  void column_labels(const QStringList& texts) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(QColor(60, 60, 60));
    for (int i = 0; i < texts.size(); ++i) {
      painter.drawText(QRect(kLabelW + i * kCellW, y, kCellW, 16), Qt::AlignCenter, texts[i]);
    }
    y += 16;
  }

  // A checker behind each cell shows where the shape's region leaves the window transparent.
  void cell(int column, const QImage& picture) {
    const QRect area(kLabelW + column * kCellW, y, kCellW, kCellH);
    for (int cy = area.top() + 2; cy < area.bottom() - 1; cy += 6) {
      for (int cx = area.left() + 2; cx < area.right() - 1; cx += 6) {
        const bool dark = ((cx - area.left()) / 6 + (cy - area.top()) / 6) % 2 == 0;
        painter.fillRect(QRect(cx, cy, 6, 6), dark ? QColor(214, 220, 228) : QColor(236, 240, 244));
      }
    }
    painter.drawImage(area.left() + (kCellW - picture.width()) / 2, area.top() + (kCellH - picture.height()) / 2,
                      picture);
  }

  void next_row() { y += kCellH + 4; }
};

QSize size_for(int shape) {
  return button_surface_size(shape, shape <= 1 ? QSize(84, 34) : QSize(54, 54));
}

QImage draw(ButtonProperties props, ButtonState state = {}, QSize size = {}) {
  if (size.isEmpty()) size = size_for(props.ButtonShape);
  return redraw_button(props, state, size).image;
}

ButtonProperties base(const QString& caption) {
  ButtonProperties props = new_button_properties(caption);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(11);
  props.Font = font;
  return props;
}

QImage sample_picture() {
  QImage picture(16, 16, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(220, 60, 40));
  painter.setPen(QColor(120, 20, 10));
  painter.drawEllipse(QRectF(1.5, 1.5, 13, 13));
  painter.fillRect(QRect(6, 4, 4, 8), QColor(250, 210, 60));
  return picture;
}

const QStringList kShapeNames = {"rect",      "rounded",  "ellipse",  "diamond",    "tri up",      "tri left",
                                 "tri right", "tri down", "arrow up", "arrow left", "arrow right", "arrow down"};

void shapes_by_style(Sheet& sheet) {
  sheet.title(QStringLiteral("Shapes (columns) by style 1 to 8 (rows), normal state"));
  sheet.column_labels(kShapeNames);
  for (int style = 1; style <= 8; ++style) {
    sheet.row_label(QStringLiteral("style %1").arg(style));
    for (int shape = 0; shape < 12; ++shape) {
      ButtonProperties props = base(shape <= 1 ? QStringLiteral("Next >>") : QStringLiteral("Go"));
      props.ButtonShape = shape;
      apply_button_style(props, style);
      sheet.cell(shape, draw(props));
    }
    sheet.next_row();
  }
}

void states_by_style(Sheet& sheet, int shape) {
  sheet.title(QStringLiteral("States by style, shape %1 (%2)").arg(shape).arg(kShapeNames[shape]));
  sheet.column_labels({"normal", "hover", "pressed", "focus", "disabled", "focus+hover"});
  for (int style = 1; style <= 8; ++style) {
    sheet.row_label(QStringLiteral("style %1").arg(style));
    ButtonProperties props = base(QStringLiteral("Start!"));
    props.ButtonShape = shape;
    apply_button_style(props, style);
    sheet.cell(0, draw(props));
    sheet.cell(1, draw(props, {false, true, false}));
    sheet.cell(2, draw(props, {true, true, false}));
    sheet.cell(3, draw(props, {false, false, true}));
    ButtonProperties disabled = props;
    disabled.Enabled = false;
    sheet.cell(4, draw(disabled));
    sheet.cell(5, draw(props, {false, true, true}));
    sheet.next_row();
  }
}

void themes_by_fill(Sheet& sheet) {
  sheet.title(QStringLiteral("Themes 1 to 8 (rows) by fill mode 0 to 7 (columns), hover state"));
  sheet.column_labels({"0 none", "1 solid", "2 H", "3 V", "4 V edges", "5 V middle", "6 H edges", "7 H middle"});
  for (int theme = 1; theme <= 8; ++theme) {
    sheet.row_label(QStringLiteral("theme %1").arg(theme));
    for (int fill = 0; fill <= 7; ++fill) {
      ButtonProperties props = base(QStringLiteral("Theme %1").arg(theme));
      props.ButtonShape = shape::kRoundedRectangle;
      apply_button_theme(props, theme);
      props.ButtonStyle = 0;  // keep the theme's borders
      props.ButtonStyleColors = fill;
      sheet.cell(fill, draw(props, {false, true, false}));
    }
    sheet.next_row();
  }
}

void captions_and_pictures(Sheet& sheet) {
  sheet.title(QStringLiteral("Caption effects and styles, pictures, drop-down marks"));
  sheet.column_labels({"no effect", "shadow UL", "shadow DR", "outline", "gradient 1 hover", "gradient 2 hover",
                       "drop left", "drop right"});
  sheet.row_label(QStringLiteral("captions"));
  for (int i = 0; i < 8; ++i) {
    ButtonProperties props = base(QStringLiteral("Caption"));
    props.ButtonShape = shape::kRoundedRectangle;
    ButtonState state;
    if (i < 4) {
      props.CaptionEffect = i;
      props.EffectColor = 0x00A0FF;
    } else if (i < 6) {
      props.CaptionStyle = i - 3;
      props.ForeColorHover = 0x0000FF;
      props.ForeColor = 0xFF0000;
      props.Font.setPixelSize(16);
      props.Font.setBold(true);
      state.Hover = true;
    } else {
      props.DropDown = i - 5;
      props.CaptionAlignment = i == 6 ? 3 : 1;
    }
    sheet.cell(i, draw(props, state, QSize(90, 40)));
  }
  sheet.next_row();
  sheet.column_labels(
      {"pic top", "pic left", "pic center", "pic right", "pic bottom", "gray", "gray hover", "gray disabled"});
  sheet.row_label(QStringLiteral("pictures"));
  for (int i = 0; i < 8; ++i) {
    ButtonProperties props = base(QString());
    props.ButtonShape = shape::kRoundedRectangle;
    props.Picture = sample_picture();
    props.PictureAlignment = i < 5 ? i : align::kCenter;
    props.PictureGray = i >= 5;
    if (i == 7) props.Enabled = false;
    sheet.cell(i, draw(props, {false, i == 6, false}, QSize(90, 50)));
  }
  sheet.next_row();
}

void labels(Sheet& sheet) {
  sheet.title(QStringLiteral("TindraLabel"));
  sheet.column_labels({"transparent", "opaque", "border", "centre", "right", "path ellipsis", "word wrap", "disabled"});
  sheet.row_label(QStringLiteral("labels"));
  for (int i = 0; i < 8; ++i) {
    LabelProperties props;
    props.Font = QFont(QStringLiteral("DejaVu Sans"));
    props.Font.setPixelSize(11);
    props.Caption = QStringLiteral("&File name");
    props.BackStyle = i == 0 ? kBackTransparent : kBackOpaque;
    props.BackColor = 0xE0F0FF;
    props.BorderStyle = i == 2 ? kBorderFixedSingle : kBorderNone;
    QSize size(88, 18);
    if (i == 3) props.Alignment = label_align::kCenter;
    if (i == 4) props.Alignment = label_align::kRight;
    if (i == 5) {
      props.PathEllipsis = true;
      props.Caption = QStringLiteral("C:\\Pictures\\Holiday\\2009\\beach.jpg");
    }
    if (i == 6) {
      props.WordWrap = true;
      props.Caption = QStringLiteral("A caption that wraps onto lines");
      size = QSize(88, 44);
    }
    if (i == 7) set_label_enabled(props, false);
    if (i == 2) size = *label_auto_size(props.BorderStyle, label_text_extent(props));
    sheet.cell(i, render_label(props, size));
  }
  sheet.next_row();
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QString out = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs/controls-contact-sheet.png");
  Sheet sheet(QSize(kLabelW + 12 * kCellW + 8, 4200));
  shapes_by_style(sheet);
  states_by_style(sheet, shape::kRectangle);
  states_by_style(sheet, shape::kEllipse);
  states_by_style(sheet, shape::kArrowRight);
  themes_by_fill(sheet);
  captions_and_pictures(sheet);
  labels(sheet);
  sheet.painter.end();
  const QImage result = sheet.image.copy(0, 0, sheet.image.width(), sheet.y + 8);
  if (!result.save(out)) {
    std::fprintf(stderr, "controls contact sheet: cannot write %s\n", qPrintable(out));
    return 1;
  }
  std::printf("%s (%dx%d)\n", qPrintable(out), result.width(), result.height());
  return 0;
}
