// The four dialogs opened from the window: one instance each, not modal, filled on every opening.
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QTimer>

#include "shell/about_dialog.h"
#include "shell/format_dialog.h"
#include "shell/qt_shell_services.h"
#include "shell/settings_dialog.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class DialogsTest : public WindowTest {
 protected:
  // A click on a check box's own mark.
  static void Tick(QCheckBox* box) {
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
  }
};

TEST_F(DialogsTest, SettingsOpensOnTheFirstTabAndOkStoresTheControls) {
  state->settings.IfOutputFileExists = 2;
  QTest::mouseClick(window->Command4(), Qt::LeftButton);
  shell::SettingsDialog* dialog = window->Form3();
  ASSERT_TRUE(dialog);
  EXPECT_EQ(std::tuple(dialog->windowTitle().toStdString(), dialog->isVisible(), dialog->isModal(),
                       dialog->TabStrip1()->count(), dialog->TabStrip1()->tabText(3).toStdString()),
            std::tuple("Program Settings", true, false, 4, "FTP"));
  EXPECT_EQ(std::tuple(dialog->Page(1)->isHidden(), dialog->Page(4)->isHidden()), std::tuple(false, true));
  auto* combo = dialog->findChild<QComboBox*>("Combo1");
  EXPECT_EQ(combo->currentText(), "Auto change file name");
  auto* proxy = dialog->findChild<QCheckBox*>("Check4");
  auto* ip = dialog->findChild<QLineEdit*>("Text7");
  EXPECT_FALSE(ip->isEnabled());
  Tick(proxy);
  EXPECT_TRUE(ip->isEnabled());
  dialog->TabStrip1()->setCurrentIndex(3);
  EXPECT_EQ(std::tuple(dialog->Page(1)->isHidden(), dialog->Page(4)->isHidden()), std::tuple(true, false));
  QTest::keyClicks(dialog->findChild<QLineEdit*>("Text5"), "ftp.example.org");
  Tick(dialog->findChild<QCheckBox*>("Check1"));
  combo->setCurrentIndex(0);
  QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
  const engine::Settings& s = state->settings;
  EXPECT_EQ(std::tuple(s.FtpHost, s.FtpPassive, s.UseProxy, s.IfOutputFileExists),
            std::tuple("ftp.example.org", 1, engine::kTrue, 0));
}

TEST_F(DialogsTest, SettingsCancelKeepsNothingTypedAndTheTabResets) {
  window->ShowSettingsDialog(4);
  shell::SettingsDialog* dialog = window->Form3();
  EXPECT_EQ(dialog->TabStrip1()->currentIndex(), 3);
  QTest::keyClicks(dialog->findChild<QLineEdit*>("Text5"), "typed");
  dialog->reject();
  EXPECT_TRUE(state->settings.FtpHost.empty());
  window->ShowSettingsDialog();
  EXPECT_EQ(window->Form3(), dialog);  // the one instance, opened again
  EXPECT_TRUE(dialog->findChild<QLineEdit*>("Text5")->text().isEmpty());
  EXPECT_EQ(dialog->TabStrip1()->currentIndex(), 0);
}

TEST_F(DialogsTest, FormatDialogFollowsTheChosenFormat) {
  state->output.Quality = 90;
  Next();
  QTest::mouseClick(Find("FormatCommand1"), Qt::LeftButton);
  shell::FormatDialog* dialog = window->Form8();
  ASSERT_TRUE(dialog);
  EXPECT_EQ(std::tuple(dialog->windowTitle().toStdString(), dialog->isModal()), std::tuple("Format Settings", false));
  // JPEG: depth and quality on view, the multipage and colours rows not.
  EXPECT_EQ(std::tuple(dialog->ColorDepthCombo1()->isHidden(), dialog->QualitySlider1()->isHidden(),
                       dialog->MultipageCombo1()->isHidden(), dialog->ColorsText1()->isHidden()),
            std::tuple(false, false, true, true));
  EXPECT_EQ(std::tuple(dialog->QualitySlider1()->value(), dialog->QualityText1()->text().toStdString()),
            std::tuple(90, "90"));
  dialog->QualitySlider1()->setValue(60);
  EXPECT_EQ(dialog->QualityText1()->text(), "60");
  dialog->ColorDepthCombo1()->setCurrentIndex(2);
  state->preview.PreviewDirty = engine::kFalse;
  QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  EXPECT_EQ(std::tuple(state->output.Quality, state->output.ColorDepth), std::tuple(60, 2));
  EXPECT_NE(state->preview.PreviewDirty, engine::kFalse);

  window->fixed().FormatCombo1 = 6;  // EXR
  window->ShowFormatDialog();
  EXPECT_EQ(std::tuple(dialog->ColorDepthCombo1()->isHidden(), dialog->CompressionCombo1()->isHidden(),
                       dialog->CompressionCombo1()->y()),
            std::tuple(true, false, 40));
  state->preview.PreviewDirty = engine::kFalse;
  QTest::mouseClick(dialog->Command2(), Qt::LeftButton);
  EXPECT_EQ(state->preview.PreviewDirty, engine::kFalse);
}

// Every item of the format lists fits its box in the window's font, and what stands right of a
// box is not covered by it.
TEST_F(DialogsTest, FormatListsFitTheirLongestItem) {
  for (const int format : {0, 5}) {  // BMP, TIFF
    window->fixed().FormatCombo1 = format;
    window->ShowFormatDialog();
    shell::FormatDialog* dialog = window->Form8();
    for (QComboBox* combo : {dialog->ColorDepthCombo1(), dialog->MultipageCombo1(), dialog->CompressionCombo1()}) {
      if (!combo->isVisible()) continue;
      QStyleOptionComboBox option;
      option.initFrom(combo);
      const QRect field =
          combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
      for (int i = 0; i < combo->count(); ++i)
        EXPECT_LE(combo->fontMetrics().horizontalAdvance(combo->itemText(i)), field.width())
            << combo->objectName().toStdString() << ": " << combo->itemText(i).toStdString();
      EXPECT_LE(combo->geometry().right(), dialog->width());
    }
    EXPECT_LT(dialog->ColorDepthCombo1()->geometry().right(), dialog->findChild<QLabel*>("ColorDepthLabel2")->x());
    dialog->reject();
  }
}

TEST_F(DialogsTest, TheAboutBoxShowsTheVersionAndOpensItsLinks) {
  QTest::mouseClick(window->Picture5(), Qt::LeftButton);
  shell::AboutDialog* dialog = window->Form2();
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->windowTitle().toStdString(), shell::AboutCaption());
  EXPECT_EQ(std::tuple(dialog->windowTitle().left(8).toStdString(), dialog->windowTitle().count('.')),
            std::tuple("Velmora ", 2));
  QTest::mouseClick(dialog->Label5(), Qt::LeftButton);
  QTest::mouseClick(dialog->Label6(), Qt::LeftButton);
  EXPECT_EQ(services.opened_urls,
            (std::vector<std::string>{std::string("mailto:") + shell::kSupportAddress, shell::kProductPage}));
  QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DialogsTest, TheWindowStaysUsableWhileADialogIsOpen) {
  window->ShowSettingsDialog();
  window->ShowNewOperationDialog();
  Next();
  EXPECT_EQ(std::tuple(window->wizard().WizardStep, window->Form3()->isVisible(), window->Form9()->isVisible()),
            std::tuple(1, true, true));
}

// The style chooser: a font dialog, then a colour dialog. A confirmed font stands whatever the
// colour dialog does; a colour cancelled keeps the colour asked for.
TEST_F(DialogsTest, AConfirmedFontSurvivesACancelledColour) {
  for (const bool confirm_colour : {false, true}) {
    SCOPED_TRACE(confirm_colour ? "colour confirmed" : "colour cancelled");
    QTimer answerer;
    QObject::connect(&answerer, &QTimer::timeout, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (auto* fonts = qobject_cast<QFontDialog*>(modal)) {
        QFont large(QStringLiteral("DejaVu Sans"));
        large.setPointSize(48);
        fonts->setCurrentFont(large);
        fonts->accept();
      } else if (auto* colours = qobject_cast<QColorDialog*>(modal)) {
        colours->setCurrentColor(QColor(0, 0, 255));
        if (confirm_colour)
          colours->accept();
        else
          QTest::keyClick(colours, Qt::Key_Escape);
      }
    });
    answerer.start(20);
    const std::optional<shell::FontAnswer> answer =
        shell::QtShellServices().ChooseFont({.face = "DejaVu Sans", .tenths = 120, .color = 0x00FF00});
    ASSERT_TRUE(answer);
    EXPECT_EQ(std::tuple(answer->tenths, answer->color), std::tuple(480, confirm_colour ? 0xFF0000 : 0x00FF00));
  }
}

TEST_F(DialogsTest, UploadsWithoutAnAccountOpenTheSettingsOnTheirTab) {
  state->settings.FtpHost = "   ";  // only spaces counts as empty
  QTest::mouseClick(window->fr3()->Button7(), Qt::LeftButton);
  shell::SettingsDialog* dialog = window->Form3();
  ASSERT_TRUE(dialog);
  const auto tab = [dialog] { return dialog->TabStrip1()->tabText(dialog->TabStrip1()->currentIndex()).toStdString(); };
  EXPECT_EQ(std::tuple(dialog->isVisible(), tab(), dialog->Page(4)->isHidden()), std::tuple(true, "FTP", false));
  dialog->reject();
  QTest::mouseClick(window->fr3()->Button6(), Qt::LeftButton);
  EXPECT_EQ(std::tuple(tab(), dialog->Page(3)->isHidden()), std::tuple("Picasa", false));
}

}  // namespace
}  // namespace velmora::testing
