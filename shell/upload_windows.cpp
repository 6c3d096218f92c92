// The upload commands' windows.
#include "shell/upload_windows.h"

#include <QEvent>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace velmora::shell {

AlbumChooser::AlbumChooser(QWidget* owner) : DialogFrame(owner, "Form4", "Choose Picasa Album", 320, 280) {
  list_ = new QListWidget(this);
  list_->setObjectName("lw1");
  list_->setGeometry(8, 8, 304, 225);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  ok_ = MakeButton("Command1", "OK", 160, 245);
  cancel_ = MakeButton("Command2", "Cancel", 240, 245);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, [this] {
    if (list_->count() == 0) return;
    QListWidgetItem* item = list_->currentItem() ? list_->currentItem() : list_->item(0);
    exit_ = item->data(Qt::UserRole).toString().toStdString();
    accept();
  });
  connect(cancel_, &QPushButton::clicked, this, [this] {
    exit_.clear();
    reject();
  });
}

void AlbumChooser::Open(const std::vector<upload::Album>& albums) {
  showed_ = true;
  exit_.clear();
  list_->clear();
  const QIcon icon = style()->standardIcon(QStyle::SP_DirIcon);
  for (const upload::Album& album : albums) {
    auto* item = new QListWidgetItem(icon, QString::fromStdString(album.title), list_);
    item->setData(Qt::UserRole, QString::fromStdString(album.id));
  }
  ShowOwned();
  list_->setFocus();
}

void AlbumChooser::done(int result) {
  DialogFrame::done(result);
  showed_ = false;
  if (parentWidget()) parentWidget()->activateWindow();
}

CaptchaPrompt::CaptchaPrompt(QWidget* owner) : DialogFrame(owner, "Form5", "Enter Captcha Code", 260, 150) {
  picture_ = new QLabel(this);
  picture_->setObjectName("Picture1");
  picture_->setGeometry(8, 8, 244, 70);
  picture_->setAlignment(Qt::AlignCenter);
  text_ = new SelectAllEdit("Text1", this);
  text_->setGeometry(8, 86, 244, 22);
  ok_ = MakeButton("Command1", "OK", 100, 118);
  cancel_ = MakeButton("Command2", "Cancel", 180, 118);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, [this] {
    exit_ = text_->text().toStdString();
    accept();
  });
  connect(cancel_, &QPushButton::clicked, this, [this] {
    exit_.clear();
    reject();
  });
}

void CaptchaPrompt::Open(const std::string& image_path) {
  exit_.clear();
  showed_ = true;
  text_->clear();
  picture_->setPixmap(QPixmap(QString::fromStdString(image_path)));
  ShowOwned();
  text_->setFocus();
}

void CaptchaPrompt::done(int result) {
  DialogFrame::done(result);
  showed_ = false;
  if (parentWidget()) parentWidget()->activateWindow();
}

SessionLogWindow::SessionLogWindow(QWidget* owner) : DialogFrame(owner, "Form7", "Log", 480, 320) {
  text_ = new QPlainTextEdit(this);
  text_->setObjectName("Text1");
  text_->setReadOnly(true);
  text_->setGeometry(8, 8, 464, 304);
  text_->installEventFilter(this);
}

void SessionLogWindow::Open(const std::string& log) {
  text_->setPlainText(QString::fromStdString(log));
  ShowOwned();
}

bool SessionLogWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_ && event->type() == QEvent::FocusIn) QTimer::singleShot(0, text_, &QPlainTextEdit::selectAll);
  return DialogFrame::eventFilter(watched, event);
}

ProcessLogWindow::ProcessLogWindow(QWidget* owner) : QWidget(owner, Qt::Tool) {
  setObjectName("Form6");
  setWindowTitle("Process log");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("Status:", this));
  status_ = new QLabel("Disconnected.", this);
  status_->setObjectName("lblStatus");
  layout->addWidget(status_);
  layout->addWidget(new QLabel("File:", this));
  file_ = new QLabel(this);
  file_->setObjectName("lblFile");
  layout->addWidget(file_);
  progress_ = new QProgressBar(this);
  progress_->setObjectName("pb1");
  layout->addWidget(progress_);
  auto* stop = new QPushButton("Stop", this);
  stop->setObjectName("Command1");
  layout->addWidget(stop);
  connect(stop, &QPushButton::clicked, this, &ProcessLogWindow::stopClicked);
  hide();
}

}  // namespace velmora::shell
