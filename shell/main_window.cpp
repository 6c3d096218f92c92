// The main window's skeleton: Form_Load, the wizard steps, the layout rules and the exit order.
#include "shell/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QShortcut>

#include "settings/session.h"
#include "shell/about_dialog.h"
#include "shell/format_dialog.h"
#include "shell/new_operation_dialog.h"
#include "shell/reading_order.h"
#include "shell/settings_dialog.h"
#include "shell/upload_bridge.h"

namespace velmora::shell {
namespace {

constexpr int kHeaderHeight = 54;
constexpr int kBottomBarHeight = 46;
constexpr int kPreviewPaneWidth = 240;
constexpr int kPageLeft = 12;
constexpr int kOpeningWidth = 980;

// The header band behind the two pictures.
class HeaderBand : public QWidget {
 public:
  explicit HeaderBand(QWidget* parent) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, QColor(0x2B, 0x4C, 0x8C));
    fill.setColorAt(1, QColor(0x1A, 0x33, 0x66));
    p.fillRect(rect(), fill);
  }
};

// The bottom bar's buttons are the program's own skinned buttons.
controls::Button* MakeWizardButton(QWidget* parent, const char* name, const char* caption) {
  auto* button = new controls::Button(parent, name);
  button->setButtonShape(controls::shape::kRoundedRectangle);
  button->setButtonStyle(7);
  button->setCaption(caption);
  button->setHandPointer(true);
  return button;
}

}  // namespace

MainWindow::MainWindow(engine::AppState& state, ShellServices& services, std::function<void()> end_process,
                       QWidget* parent)
    : QWidget(parent), state_(state), services_(services), end_process_(std::move(end_process)) {
  setObjectName("Form1");
  worker_ = new preview::PreviewWorker(this);
  connect(worker_, &preview::PreviewWorker::OnThreadCreateSuccess, this,
          [this] { state_.preview.ThreadRunning = engine::kTrue; });
  connect(worker_, &preview::PreviewWorker::OnThreadFinish, this, [this] { FinishPreview(); });

  BuildWindow();
  BuildMenus();
  ConnectCommands();
  BuildShortcuts();
  operationList()->RelayOperationList();
  AddFixedEntries(entries_, state_.preview);  // "Convert to", "Save to", "File name"
  fixed_.FormatCombo1 = 1;
  operationList()->ReloadAll();
  uploads_ = new UploadBridge(this);
  setMinimumSize(kMinimumWindowWidth, kMinimumWindowHeight);
  resize(kOpeningWidth, kMinimumWindowHeight);
}

MainWindow::~MainWindow() {
  // The worker holds its own copies; let it end before the window's objects go.
  worker_->Wait();
}

void MainWindow::BuildWindow() {
  header_ = new HeaderBand(this);
  about_picture_ = new ClickableLabel("Picture5", header_);
  about_picture_->setText(
      "<span style='color:white; font-size:20pt; font-weight:600'>Velmora</span>"
      "<span style='color:#BFD3F5; font-size:10pt'>&nbsp;&nbsp;batch image converter</span>");
  about_picture_->setToolTip("About Velmora");
  profile_picture_ = new ClickableLabel("Picture6", header_);
  profile_picture_->setText(
      "<span style='color:white; font-size:10pt; text-decoration:underline'>"
      "Profile Management</span>");
  auto* header_layout = new QHBoxLayout(header_);
  header_layout->setContentsMargins(14, 4, 14, 4);
  header_layout->addWidget(about_picture_);
  header_layout->addStretch(1);
  header_layout->addWidget(profile_picture_);

  fr1_ = new SourcePage(this);
  fr2_ = new OperationsPage(&entries_, &fixed_, &state_.preview, this);
  fr3_ = new RunPage(this);
  frPreview_ = new preview::PreviewPane(this);
  preview_signals_ = new preview::PreviewSignals(this);
  preview_signals_->ConnectTo(frPreview_);
  connect(preview_signals_, &preview::PreviewSignals::status, fr3_->lblStatus(), &QLabel::setText);
  connect(preview_signals_, &preview::PreviewSignals::file, fr3_->lblFile(), &QLabel::setText);

  Picture1_ = new QWidget(this);
  Picture1_->setObjectName("Picture1");
  settings_ = MakeWizardButton(Picture1_, "Command4", "Settings");
  back_ = MakeWizardButton(Picture1_, "Command1", "<< Back");
  next_ = MakeWizardButton(Picture1_, "Command2", "Next >>");

  timer1_ = new QTimer(this);
  timer1_->setInterval(220);
  timer2_ = new QTimer(this);
  timer2_->setInterval(preview::kTimer2IntervalMs);  // enabled as the last act of start-up
}

void MainWindow::BuildMenus() {
  profile_menu_ = new QMenu("Profile", this);
  profile_menu_->setObjectName("m_profile");
  profile_menu_->addAction("New profile", this, &MainWindow::NewProfileCommand)->setObjectName("m_new_profile");
  profile_menu_->addAction("Load profile...", this, &MainWindow::LoadProfileCommand)->setObjectName("m_load_profile");
  profile_menu_->addAction("Save profile...", this, &MainWindow::SaveProfileCommand)->setObjectName("m_save_profile");

  file_name_menu_ = new QMenu("FileName", this);
  file_name_menu_->setObjectName("m_filename");
  const char* captions[] = {"Source Image Title", "Source Image Type", "Output Image Type", "Counter"};
  for (int i = 0; i < 4; ++i) {
    QAction* action = file_name_menu_->addAction(captions[i], this, [this, i] { AppendFileNameToken(i); });
    action->setObjectName(QStringLiteral("m_filename_%1").arg(i));
  }
}

void MainWindow::ConnectCommands() {
  connect(back_, &controls::Button::clicked, this, &MainWindow::GoBack);
  connect(next_, &controls::Button::clicked, this, &MainWindow::GoNext);
  connect(settings_, &controls::Button::clicked, this, [this] { ShowSettingsDialog(1); });
  connect(about_picture_, &ClickableLabel::clicked, this, &MainWindow::ShowAboutDialog);
  connect(profile_picture_, &ClickableLabel::clicked, this,
          [this] { profile_menu_->popup(profile_picture_->mapToGlobal(profile_picture_->rect().bottomLeft())); });
  connect(frPreview_->Command3(), &QPushButton::clicked, this, [this] { ShowPreviewPane(false); });
  connect(fr1_->EnPreview(), &QPushButton::clicked, this, [this] { ShowPreviewPane(true); });
  connect(fr2_->EnPreview(), &QPushButton::clicked, this, [this] { ShowPreviewPane(true); });
  connect(frPreview_, &preview::PreviewPane::resultClicked, this, &MainWindow::PreviewResultClicked);
  connect(frPreview_, &preview::PreviewPane::sourceClicked, this, &MainWindow::PreviewSourceClicked);

  connect(fr1_->Button1(), &QPushButton::clicked, this, &MainWindow::AddImages);
  connect(fr1_->Button2(), &QPushButton::clicked, this, &MainWindow::AddFolder);
  connect(fr1_->Button3(), &QPushButton::clicked, this, &MainWindow::RemoveSelected);
  connect(fr1_->Button4(), &QPushButton::clicked, this, &MainWindow::RemoveAllSources);
  connect(lwSrc(), &SourceListWidget::filesDropped, this, &MainWindow::DropFiles);
  connect(fr1_->Picture4(), &DropHint::filesDropped, this, &MainWindow::DropFiles);
  connect(lwSrc(), &QTreeWidget::itemClicked, this, [this] { SourceItemClicked(); });

  connect(fr2_->Button8(), &QPushButton::clicked, this, &MainWindow::ShowNewOperationDialog);
  connect(fr2_->Button9(), &QPushButton::clicked, this, &MainWindow::RemoveAllOperationsCommand);
  connect(operationList(), &OperationListView::removeClicked, this, &MainWindow::StructRemove_Click);
  connect(operationList(), &OperationListView::commandClicked, this, &MainWindow::ElemCommandWatermark_Click);
  connect(operationList(), &OperationListView::fixedCommandClicked, this, [this](std::int16_t tag) {
    if (tag == kConvertToEntry) ShowFormatDialog();
    if (tag == kSaveToEntry) BrowseOutputFolder();
    if (tag == kFileNameEntry) {
      if (auto* panel = static_cast<FileNamePanel*>(operationList()->Fixed(kFileNameEntry)))
        file_name_menu_->popup(panel->FileNameCommand1()->mapToGlobal(panel->FileNameCommand1()->rect().bottomLeft()));
    }
  });

  connect(fr3_->Button5(), &QPushButton::clicked, this, &MainWindow::OpenOutputFolder);
  connect(fr3_->Button6(), &QPushButton::clicked, this, &MainWindow::UploadToPicasa);
  connect(fr3_->Button7(), &QPushButton::clicked, this, &MainWindow::UploadToFtp);

  connect(timer1_, &QTimer::timeout, this, &MainWindow::Timer1_Timer);
  connect(timer2_, &QTimer::timeout, this, &MainWindow::Timer2_Timer);
  timer1_->start();
}

void MainWindow::GoBack() {
  wizard_.WizardStep -= 1;
  UpdateWizard();
}

void MainWindow::GoNext() {
  wizard_.WizardStep += 1;
  UpdateWizard();
}

void MainWindow::BuildShortcuts() {
  // A key acts only while its control is on view and enabled, as a click would; the control's
  // tooltip names the key.
  auto bind = [this](const char* keys, QWidget* control, const QString& caption, std::function<void()> act) {
    const QKeySequence sequence(QString::fromLatin1(keys));
    auto* shortcut = new QShortcut(sequence, this);
    connect(shortcut, &QShortcut::activated, this, [control, act = std::move(act)] {
      if (control->isVisible() && control->isEnabled()) act();
    });
    control->setToolTip(caption + QStringLiteral(" (") + sequence.toString(QKeySequence::NativeText) +
                        QStringLiteral(")"));
  };
  bind("Alt+B", back_, "Previous step", [this] { GoBack(); });
  bind("Alt+N", next_, "Next step, or start the conversion", [this] { GoNext(); });
  bind("Alt+S", settings_, "Program settings", [this] { ShowSettingsDialog(1); });
  bind("Alt+A", fr2_->Button8(), "Add an operation to the chain", [this] { fr2_->Button8()->click(); });
  bind("Alt+P", profile_picture_, "New, load or save a profile",
       [this] { profile_menu_->popup(profile_picture_->mapToGlobal(profile_picture_->rect().bottomLeft())); });
}

bool MainWindow::focusNextPrevChild(bool next) {
  const std::vector<QWidget*> regions = {header_, fr1_, fr2_, fr3_, frPreview_, Picture1_};
  QWidget* target = NextInReadingOrder(regions, focusWidget(), next);
  if (!target) return QWidget::focusNextPrevChild(next);
  operationList()->ShowWidget(target);
  target->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void MainWindow::UpdateWizard() {
  const WizardLayout layout = shell::UpdateWizard(wizard_);
  frPreview_->setVisible(layout.preview_pane_shown);
  fr1_->EnPreview()->setVisible(!layout.preview_pane_shown);
  fr2_->EnPreview()->setVisible(!layout.preview_pane_shown);
  if (layout.page >= 0) {
    fr1_->setVisible(layout.page == 0);
    fr2_->setVisible(layout.page == 1);
    fr3_->setVisible(layout.page == 2);
    back_->setEnabled(layout.back_enabled);
    next_->setCaption(QString::fromStdString(layout.next_caption));
    next_->setEnabled(layout.next_enabled);
  }
  if (layout.starts_run) RunConversion();
}

void MainWindow::Form_Resize() {
  if (width() < kMinimumWindowWidth || height() < kMinimumWindowHeight) {
    resize(std::max(width(), kMinimumWindowWidth), std::max(height(), kMinimumWindowHeight));
    return;  // the resize comes back here
  }
  header_->setGeometry(0, 0, width(), kHeaderHeight);
  const bool pane = wizard_.PreviewShown;
  const int top = kHeaderHeight + 10;
  const int bottom = height() - kBottomBarHeight;
  // Beyond the opening width the pane takes two fifths of the window's growth, so the previews
  // grow with the window.
  const int pane_width = kPreviewPaneWidth + std::max(0, width() - kOpeningWidth) * 2 / 5;
  const int page_width = width() - kPageLeft - (pane ? pane_width : 0);
  const QRect page(kPageLeft, top, page_width, bottom - top);
  fr1_->setGeometry(page);
  fr2_->setGeometry(page);
  fr3_->setGeometry(page);
  const QSize box_before = frPreview_->prwFon()->size();
  frPreview_->setGeometry(width() - pane_width, top - 4, pane_width, bottom - top + 4);
  // Pictures are fitted to the boxes when a pass makes them: a new box size asks for one.
  if (frPreview_->prwFon()->size() != box_before) state_.preview.PreviewDirty = engine::kTrue;
  Picture1_->setGeometry(0, bottom, width(), kBottomBarHeight);
  const int button_height = 30, button_top = (kBottomBarHeight - button_height) / 2;
  next_->setGeometry(width() - 12 - 110, button_top, 110, button_height);
  back_->setGeometry(next_->x() - 8 - 110, button_top, 110, button_height);
  settings_->setGeometry(12, button_top, 110, button_height);
  operationList()->RelayOperationList();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Form_Resize();
}

void MainWindow::SetCaption(const std::string& caption) {
  setWindowTitle(QString::fromStdString(caption));
}

void MainWindow::ApplyProfile() {
  shell::ApplyProfile(entries_, fixed_, state_);
}

void MainWindow::RefreshProfile() {
  CutChainToWhatTheListHolds();
  operationList()->HoldLayout(true);
  shell::RefreshProfile(state_, entries_, fixed_);
  operationList()->HoldLayout(false);
  operationList()->ReloadAll();
}

void MainWindow::CutChainToWhatTheListHolds() {
  const int listed = ListedOperationCount(entries_);
  const int room = std::max(0, kLongestListedChain - listed);
  const int asked = ListableOperationCount(state_.blocks);
  if (asked <= room) return;
  state_.blocks = FirstListableOperations(state_.blocks, room);
  services_.Inform(this, "This profile holds " + std::to_string(asked) +
                             " operations, more than the window lists in one chain (" +
                             std::to_string(kLongestListedChain) + "). Only the first " + std::to_string(room) +
                             " were added; the rest are left out, and saving the profile keeps only what is listed.");
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // Form_Unload: the worker is let go, the state saved, and the process ends without waiting
  // for a run or a preview.
  timer2_->stop();
  settings::SaveLastProfileName(state_);
  ApplyProfile();
  settings::SaveCurrentProfile(state_);
  QCoreApplication::processEvents();
  event->accept();
  if (end_process_) end_process_();
}

}  // namespace velmora::shell
