// Layout and copying of the settings dialog.
#include "shell/settings_dialog.h"

#include <QPainter>

namespace velmora::shell {
namespace {

// Twips of the layout, 15 to the pixel.
constexpr int kPageLeft = 8, kPageTop = 32, kPageWidth = 345, kPageHeight = 433;
constexpr int kLabelLeft = 16, kFieldLeft = 120, kFieldWidth = 200, kRow = 28;

QPixmap PicasaStrip() {
  // The decorative picture at the foot of the "Picasa" tab: 200 by 170, clipped by its strip.
  QPixmap picture(200, 170);
  picture.fill(QColor(0xEE, 0xF3, 0xFB));
  QPainter p(&picture);
  p.setRenderHint(QPainter::Antialiasing);
  const QColor colours[] = {QColor(0xE8, 0x4C, 0x3D), QColor(0xF3, 0x9C, 0x12), QColor(0x27, 0xAE, 0x60),
                            QColor(0x29, 0x80, 0xB9)};
  for (int i = 0; i < 4; ++i) {
    p.setBrush(colours[i]);
    p.setPen(Qt::white);
    p.drawRoundedRect(16 + i * 44, 18 + (i % 2) * 10, 38, 30, 4, 4);
  }
  p.setPen(QColor(0x55, 0x66, 0x80));
  p.drawText(QRect(0, 56, 200, 24), Qt::AlignCenter, "Web albums");
  return picture;
}

}  // namespace

SettingsDialog::SettingsDialog(QWidget* owner, engine::Settings& settings)
    : DialogFrame(owner, "Form3", "Program Settings", 366, 507), settings_(settings) {
  tabs_ = new QTabBar(this);
  tabs_->setObjectName("TabStrip1");
  for (const char* name : {"Conversion", "Connection", "Picasa", "FTP"}) tabs_->addTab(name);
  tabs_->setGeometry(kPageLeft, 8, kPageWidth, 24);
  const char* page_names[] = {"fr1", "fr3", "fr4", "fr5"};
  for (int i = 0; i < 4; ++i) {
    pages_[i] = new QFrame(this);
    pages_[i]->setObjectName(page_names[i]);
    static_cast<QFrame*>(pages_[i])->setFrameShape(QFrame::StyledPanel);
    pages_[i]->setGeometry(kPageLeft, kPageTop, kPageWidth, kPageHeight);
  }
  auto check = [](QWidget* page, const char* name, const char* text, int row) {
    auto* box = new QCheckBox(text, page);
    box->setObjectName(name);
    box->setGeometry(kLabelLeft, 16 + row * kRow, 300, 22);
    return box;
  };
  auto label = [](QWidget* page, const char* name, const char* text, int row) {
    auto* l = new QLabel(text, page);
    l->setObjectName(name);
    l->setGeometry(kLabelLeft, 16 + row * kRow, kFieldLeft - kLabelLeft, 22);
    return l;
  };
  auto field = [](QWidget* page, const char* name, int row, bool password = false) {
    auto* edit = new SelectAllEdit(name, page);
    edit->setGeometry(kFieldLeft, 16 + row * kRow, kFieldWidth, 22);
    if (password) {
      edit->setEchoMode(QLineEdit::Password);
      edit->setStyleSheet("lineedit-password-character: 42;");  // shown as "*"
    }
    return edit;
  };

  Check2_ = check(pages_[0], "Check2", "Stop On Error", 0);
  Check6_ = check(pages_[0], "Check6", "Always Create Output Folder", 1);
  Check14_ = check(pages_[0], "Check14", "Generate HTML Index", 2);
  label(pages_[0], "Label2", "If Output File Exists:", 3)->setFixedWidth(150);
  Combo1_ = new QComboBox(pages_[0]);
  Combo1_->setObjectName("Combo1");
  Combo1_->setGeometry(kLabelLeft, 16 + 4 * kRow, 200, 24);
  Check15_ = check(pages_[0], "Check15", "Rotate by camera orientation", 6);
  Check16_ = check(pages_[0], "Check16", "Keep colour profiles", 7);

  Check4_ = check(pages_[1], "Check4", "Use proxy:", 0);
  Label7_ = label(pages_[1], "Label7", "IP:", 1);
  Text7_ = field(pages_[1], "Text7", 1);
  Label8_ = label(pages_[1], "Label8", "Port:", 2);
  Text8_ = field(pages_[1], "Text8", 2);

  label(pages_[2], "Label1", "Username:", 0);
  Text1_ = field(pages_[2], "Text1", 0);
  label(pages_[2], "Label3", "Password:", 1);
  Text2_ = field(pages_[2], "Text2", 1, true);
  auto* strip = new QWidget(pages_[2]);
  strip->setObjectName("Picture2");
  strip->setGeometry(0, kPageHeight - 86, kPageWidth, 86);  // top 5160 and height 1290 twips
  auto* picture = new QLabel(strip);
  picture->setObjectName("Picture1");
  picture->setPixmap(PicasaStrip());
  picture->setGeometry((kPageWidth - 200) / 2, 0, 200, 170);

  label(pages_[3], "Label6", "FTP Server:", 0);
  Text5_ = field(pages_[3], "Text5", 0);
  label(pages_[3], "Label10", "Port:", 1);
  Text9_ = field(pages_[3], "Text9", 1);
  label(pages_[3], "Label5", "Login:", 2);
  Text4_ = field(pages_[3], "Text4", 2);
  label(pages_[3], "Label4", "Password:", 3);
  Text3_ = field(pages_[3], "Text3", 3, true);
  label(pages_[3], "Label9", "FTP Path:", 4);
  Text6_ = field(pages_[3], "Text6", 4);
  Check1_ = check(pages_[3], "Check1", "Passive Mode", 5);
  Check3_ = check(pages_[3], "Check3", "Secure FTP", 6);

  ok_ = MakeButton("Command1", "OK", 366 - 2 * (kDialogButtonWidth + 8), 507 - 32);
  cancel_ = MakeButton("Command2", "Cancel", 366 - kDialogButtonWidth - 8, 507 - 32);
  ok_->setDefault(true);
  ok_->setAutoDefault(true);

  QWidget* order[] = {Check2_, Check6_, Check14_, Combo1_, Check15_, Check16_, Check4_, Text7_,  Text8_, Text1_,
                      Text2_,  Text5_,  Text9_,   Text4_,  Text3_,   Text6_,   Check1_, Check3_, ok_,    cancel_};
  for (std::size_t i = 0; i + 1 < std::size(order); ++i) setTabOrder(order[i], order[i + 1]);

  connect(tabs_, &QTabBar::currentChanged, this, &SettingsDialog::SelectTab);
  connect(Check4_, &QCheckBox::toggled, this, &SettingsDialog::ApplyProxyRule);
  connect(ok_, &QPushButton::clicked, this, &SettingsDialog::Ok);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void SettingsDialog::SelectTab(int index) {
  for (int i = 0; i < 4; ++i) pages_[i]->setVisible(i == index);
}

void SettingsDialog::ApplyProxyRule() {
  const bool enabled = Check4_->isChecked();
  for (QWidget* w : {static_cast<QWidget*>(Text7_), static_cast<QWidget*>(Text8_), static_cast<QWidget*>(Label7_),
                     static_cast<QWidget*>(Label8_)})
    w->setEnabled(enabled);
}

SettingsForm SettingsDialog::Form() const {
  SettingsForm f;
  f.Check2 = Check2_->isChecked();
  f.Check6 = Check6_->isChecked();
  f.Check14 = Check14_->isChecked();
  f.Check15 = Check15_->isChecked();
  f.Check16 = Check16_->isChecked();
  f.Combo1 = Combo1_->currentIndex();
  f.Check4 = Check4_->isChecked();
  f.Text7 = Text7_->text().toStdString();
  f.Text8 = Text8_->text().toStdString();
  f.Text1 = Text1_->text().toStdString();
  f.Text2 = Text2_->text().toStdString();
  f.Text5 = Text5_->text().toStdString();
  f.Text9 = Text9_->text().toStdString();
  f.Text4 = Text4_->text().toStdString();
  f.Text3 = Text3_->text().toStdString();
  f.Text6 = Text6_->text().toStdString();
  f.Check1 = Check1_->isChecked();
  f.Check3 = Check3_->isChecked();
  return f;
}

void SettingsDialog::SetForm(const SettingsForm& f) {
  Check2_->setChecked(f.Check2);
  Check6_->setChecked(f.Check6);
  Check14_->setChecked(f.Check14);
  Check15_->setChecked(f.Check15);
  Check16_->setChecked(f.Check16);
  Combo1_->setCurrentIndex(f.Combo1);
  Check4_->setChecked(f.Check4);
  Text7_->setText(QString::fromStdString(f.Text7));
  Text8_->setText(QString::fromStdString(f.Text8));
  Text1_->setText(QString::fromStdString(f.Text1));
  Text2_->setText(QString::fromStdString(f.Text2));
  Text5_->setText(QString::fromStdString(f.Text5));
  Text9_->setText(QString::fromStdString(f.Text9));
  Text4_->setText(QString::fromStdString(f.Text4));
  Text3_->setText(QString::fromStdString(f.Text3));
  Text6_->setText(QString::fromStdString(f.Text6));
  Check1_->setChecked(f.Check1);
  Check3_->setChecked(f.Check3);
}

void SettingsDialog::Open(int tab) {
  // Every opening starts from fresh controls, so nothing typed before a Cancel survives.
  Combo1_->clear();
  for (const std::string& item : IfOutputFileExistsItems()) Combo1_->addItem(QString::fromStdString(item));
  SettingsForm form;
  OpenSettingsForm(settings_, form);
  SetForm(form);
  ApplyProxyRule();
  const int index = (tab >= 1 && tab <= 4) ? tab - 1 : 0;
  tabs_->setCurrentIndex(index);
  SelectTab(index);
  ShowOwned();
}

void SettingsDialog::Ok() {
  ApplySettingsForm(Form(), settings_);
  accept();
}

}  // namespace velmora::shell
