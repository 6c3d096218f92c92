// Layout and copying of the format dialog.
#include "shell/format_dialog.h"

#include <algorithm>

namespace velmora::shell {
namespace {

constexpr int kDesignWidth = 418;

// Positions are the dialog's twips divided by 15, the control column moved right by 30 pixels so
// that the labels fit in the window's font.
QLabel* Label(QWidget* parent, const char* name, const char* text, int left, int top) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->move(left, top + 3);
  label->adjustSize();
  return label;
}

QComboBox* Combo(QWidget* parent, const char* name, int left, int top, int width) {
  auto* combo = new QComboBox(parent);
  combo->setObjectName(name);
  combo->setGeometry(left, top, width, 22);
  combo->setProperty("design_width", width);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return combo;
}

// The list's items, the box widened from its design width where the longest of them needs it.
void Fill(QComboBox* combo, const FormatList& list) {
  combo->clear();
  for (const std::string& item : list.items) combo->addItem(QString::fromStdString(item));
  combo->setCurrentIndex(list.index);
  combo->resize(std::max(combo->property("design_width").toInt(), combo->sizeHint().width()), combo->height());
}

FormatList Read(const QComboBox* combo) {
  FormatList list;
  for (int i = 0; i < combo->count(); ++i) list.items.push_back(combo->itemText(i).toStdString());
  list.index = combo->currentIndex();
  return list;
}

}  // namespace

FormatDialog::FormatDialog(QWidget* owner, engine::AppState& state, std::function<std::string()> format_name,
                           std::function<void()> closed)
    : DialogFrame(owner, "Form8", "Format Settings", kDesignWidth, 143),
      state_(state),
      format_name_(std::move(format_name)),
      closed_(std::move(closed)) {
  depth_label_ = Label(this, "ColorDepthLabel1", "Color depth equal to:", 8, 8);
  depth_ = Combo(this, "ColorDepthCombo1", 150, 8, 137);
  depth_bpp_ = Label(this, "ColorDepthLabel2", "bpp", 294, 8);
  colors_label_ = Label(this, "ColorsLabel1", "Colors:", 8, 8);
  colors_ = new QLineEdit("0", this);
  colors_->setObjectName("ColorsText1");
  colors_->setGeometry(150, 8, 49, 22);
  quality_label_ = Label(this, "QualityLabel1", "Quality:", 8, 32);
  quality_text_ = new QLineEdit(this);
  quality_text_->setObjectName("QualityText1");
  quality_text_->setGeometry(56, 32, 25, 22);
  quality_text_->setReadOnly(true);
  quality_text_->setFrame(false);
  quality_text_->setStyleSheet("background: palette(button);");
  quality_ = new QSlider(Qt::Horizontal, this);
  quality_->setObjectName("QualitySlider1");
  quality_->setGeometry(88, 32, 329 - 8, 22);
  quality_->setRange(0, 100);
  quality_->setSingleStep(1);
  quality_->setPageStep(5);
  multipage_label_ = Label(this, "MultipageLabel1", "Multipage:", 8, 32);
  multipage_ = Combo(this, "MultipageCombo1", 150, 32, 137);
  compression_label_ = Label(this, "CompressionLabel1", "Compression:", 8, 56);
  compression_ = Combo(this, "CompressionCombo1", 150, 56, 137);
  level_label_ = Label(this, "CompressionLabel2", ", level:", 294, 56);
  level_ = Combo(this, "CompressionCombo2", 342, 56, 65);

  ok_ = MakeButton("Command1", "OK", 256, 112);
  cancel_ = MakeButton("Command2", "Cancel", 336, 112);
  ok_->setDefault(true);
  // Moving and letting go of the slider both show its value.
  connect(quality_, &QSlider::valueChanged, this,
          [this](int value) { quality_text_->setText(QString::number(value)); });
  connect(ok_, &QPushButton::clicked, this, &FormatDialog::Ok);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void FormatDialog::Show(const FormatForm& f) {
  Fill(depth_, f.ColorDepthCombo1);
  Fill(multipage_, f.MultipageCombo1);
  Fill(compression_, f.CompressionCombo1);
  Fill(level_, f.CompressionCombo2);
  colors_->setText(QString::fromStdString(f.ColorsText1));
  quality_->setValue(f.QualitySlider1);
  quality_text_->setText(QString::fromStdString(f.QualityText1));

  for (QWidget* w :
       {static_cast<QWidget*>(depth_label_), static_cast<QWidget*>(depth_), static_cast<QWidget*>(depth_bpp_)})
    w->setVisible(f.depth_row);
  for (QWidget* w :
       {static_cast<QWidget*>(quality_label_), static_cast<QWidget*>(quality_text_), static_cast<QWidget*>(quality_)})
    w->setVisible(f.quality_row);
  multipage_label_->setVisible(f.multipage_row);
  multipage_->setVisible(f.multipage_row);
  compression_label_->setVisible(f.compression_shown);
  compression_->setVisible(f.compression_shown);
  // The colours row and the compression level are shown for no format.
  for (QWidget* w : {static_cast<QWidget*>(colors_label_), static_cast<QWidget*>(colors_),
                     static_cast<QWidget*>(level_label_), static_cast<QWidget*>(level_)})
    w->hide();
  const int compression_top = f.compression_moved_up ? 40 : 56;
  compression_label_->move(8, compression_top + 3);
  compression_->move(150, compression_top);
  // What stands right of a widened box moves along, and the window widens to hold it.
  depth_bpp_->move(depth_->geometry().right() + 8, depth_bpp_->y());
  level_label_->move(compression_->geometry().right() + 8, level_label_->y());
  level_->move(level_label_->geometry().right() + 4, level_->y());
  int right = kDesignWidth;
  for (const QWidget* w :
       {static_cast<QWidget*>(depth_bpp_), static_cast<QWidget*>(multipage_), static_cast<QWidget*>(compression_)})
    if (w->isVisibleTo(this)) right = std::max(right, w->geometry().right() + 12);
  setFixedWidth(right);
  ok_->move(right - 162, ok_->y());
  cancel_->move(right - 82, cancel_->y());
}

void FormatDialog::Open() {
  Show(OpenFormatForm(format_name_ ? format_name_() : std::string(), state_.output));
  ShowOwned();
}

FormatForm FormatDialog::Form() const {
  FormatForm f;
  f.ColorDepthCombo1 = Read(depth_);
  f.MultipageCombo1 = Read(multipage_);
  f.CompressionCombo1 = Read(compression_);
  f.CompressionCombo2 = Read(level_);
  f.ColorsText1 = colors_->text().toStdString();
  f.QualitySlider1 = quality_->value();
  f.QualityText1 = quality_text_->text().toStdString();
  return f;
}

void FormatDialog::Ok() {
  ApplyFormatForm(Form(), state_.output, state_.preview);
  accept();
}

void FormatDialog::done(int result) {
  DialogFrame::done(result);
  if (closed_) closed_();
}

}  // namespace velmora::shell
