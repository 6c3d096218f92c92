// velmora-window-screenshots: starts the window on the bundled samples in a private data folder,
// walks the three wizard steps and opens each dialog, and saves a picture of each into a folder
// (docs/ by default). Run it on a real display or under xvfb-run; with QT_SCALE_FACTOR=2 it
// pictures the operations step alone, at twice the pixels.
#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QSlider>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <cstdlib>

#include "shell/about_dialog.h"
#include "shell/format_dialog.h"
#include "shell/new_operation_dialog.h"
#include "shell/settings_dialog.h"
#include "shell/start_up.h"

namespace {

using velmora::shell::FontAnswer;
using velmora::shell::FontRequest;

// Answers the window's dialogs with the sample files and opens nothing on the desktop.
class ScriptedServices : public velmora::shell::ShellServices {
 public:
  std::vector<std::string> sources;
  std::string folder;
  std::vector<std::string> ChooseSourceFiles(QWidget*) override { return sources; }
  std::string ChooseFolder(QWidget*) override { return folder; }
  std::string ChooseProfile(QWidget*, const std::string&) override { return {}; }
  std::string ChooseWatermarkImage(QWidget*) override { return {}; }
  void Inform(QWidget*, const std::string&) override {}
  void OpenFolder(const std::string&) override {}
  void OpenUrl(const std::string&) override {}
  void LaunchViewer(const std::string&) override {}
  std::optional<FontAnswer> ChooseFont(const FontRequest&) override { return std::nullopt; }
};

void Settle(velmora::shell::MainWindow& window) {
  for (int i = 0; i < 5; ++i) {
    window.WaitForPreview();
    QCoreApplication::processEvents();
    QTest::qWait(50);
  }
}

bool Save(QWidget* widget, const QString& folder, const QString& name) {
  QCoreApplication::processEvents();
  const QString path = folder + "/" + name;
  const bool ok = widget->grab().save(path);
  std::printf("%s %s\n", ok ? "wrote" : "could not write", path.toLocal8Bit().constData());
  return ok;
}

template <typename T>
T* Child(QWidget* parent, const char* name) {
  return parent ? parent->findChild<T*>(name) : nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QString source_dir = argc > 1 ? argv[1] : QString(VELMORA_SOURCE_DIR);
  const QString out_dir = argc > 2 ? argv[2] : source_dir + "/docs";
  QTemporaryDir home;
  qputenv("HOME", home.path().toLocal8Bit());
  qputenv("XDG_CONFIG_HOME", (home.path() + "/.config").toLocal8Bit());

  ScriptedServices services;
  for (const char* name : {"harbour.jpg", "badge.png", "poster.bmp", "scan.tif", "spinner.gif", "app.ico"})
    services.sources.push_back((source_dir + "/samples/" + name).toStdString());
  velmora::engine::AppState state;
  auto window = velmora::shell::StartUp(state, services, [] {});
  window->Timer2()->stop();
  window->resize(1040, 700);
  QCoreApplication::processEvents();

  // Step 1: the sources, the first one selected and previewed.
  window->AddImages();
  Settle(*window);  // the preview of the last row, the one the add selected
  window->lwSrc()->setCurrentItem(window->lwSrc()->topLevelItem(0));
  window->SourceItemClicked();
  Settle(*window);
  const qreal scale = window->devicePixelRatioF();
  bool ok = scale > 1.0 || Save(window.get(), out_dir, "window-step1-sources.png");

  // Step 2: a chain of a resize, a text watermark and more contrast.
  QTest::mouseClick(window->Command2(), Qt::LeftButton);
  window->lblProcess_Click(velmora::engine::kResize);
  window->lblProcess_Click(velmora::engine::kWatermark);
  const int mark = window->entries().UpperBound();
  auto& controls = window->entries().Entry(mark)->controls;
  controls.ElemTextWatermark = "Velmora";
  controls.ElemTextWatermarkTag = "16777215|False|False|False|DejaVu Sans|28|True";
  controls.ElemCombo2 = 2;
  controls.ElemCombo3 = 1;
  controls.ElemText2 = "8";
  window->entries().NotifyChanged(mark);
  window->lblProcess_Click(velmora::engine::kBrightnessContrast);
  if (auto* slider = Child<QSlider>(window->operationList()->Panel(window->entries().UpperBound()), "ElemSlider2"))
    slider->setValue(30);
  window->Timer2_Timer();
  Settle(*window);
  // On a scaled screen (QT_SCALE_FACTOR=2) only this step is pictured, to show the buttons' and
  // panels' sharpness at that scale.
  if (scale > 1.0) {
    const QString name = QStringLiteral("window-step2-operations-scale%1.png").arg(scale);
    return Save(window.get(), out_dir, name) && ok ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  ok = Save(window.get(), out_dir, "window-step2-operations.png") && ok;

  // The dialogs, each on its own.
  window->ShowNewOperationDialog();
  window->Form9()->lw1()->setCurrentRow(3);
  ok = Save(window->Form9(), out_dir, "window-new-operation.png") && ok;
  window->Form9()->reject();
  window->ShowFormatDialog();
  ok = Save(window->Form8(), out_dir, "window-format-settings.png") && ok;
  window->Form8()->reject();
  window->ShowSettingsDialog(1);
  ok = Save(window->Form3(), out_dir, "window-program-settings.png") && ok;
  window->Form3()->reject();
  window->ShowAboutDialog();
  ok = Save(window->Form2(), out_dir, "window-about.png") && ok;
  window->Form2()->reject();

  // Step 3: the run, into a folder of its own.
  state.output.OpenTargetFolder = velmora::engine::kFalse;
  window->fixed().Check1 = false;
  window->fixed().SaveToText1 = (home.path() + "/out").toStdString();
  window->operationList()->ReloadAll();
  QTest::mouseClick(window->Command2(), Qt::LeftButton);
  QCoreApplication::processEvents();
  ok = Save(window.get(), out_dir, "window-step3-run.png") && ok;
  return ok ? EXIT_SUCCESS : EXIT_FAILURE;
}
