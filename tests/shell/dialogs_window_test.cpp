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
  EXPECT_EQ(dialog->windowTitle(), "Program Settings");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_FALSE(dialog->isModal());
  EXPECT_EQ(dialog->TabStrip1()->count(), 4);
  EXPECT_EQ(dialog->TabStrip1()->tabText(3), "FTP");
  EXPECT_FALSE(dialog->Page(1)->isHidden());
  EXPECT_TRUE(dialog->Page(4)->isHidden());
  auto* combo = dialog->findChild<QComboBox*>("Combo1");
  EXPECT_EQ(combo->currentText(), "Auto change file name");
  auto* proxy = dialog->findChild<QCheckBox*>("Check4");
  auto* ip = dialog->findChild<QLineEdit*>("Text7");
  EXPECT_FALSE(ip->isEnabled());
  Tick(proxy);
  EXPECT_TRUE(ip->isEnabled());
  dialog->TabStrip1()->setCurrentIndex(3);
  EXPECT_FALSE(dialog->Page(4)->isHidden());
  EXPECT_TRUE(dialog->Page(1)->isHidden());
  QTest::keyClicks(dialog->findChild<QLineEdit*>("Text5"), "ftp.example.org");
  Tick(dialog->findChild<QCheckBox*>("Check1"));
  combo->setCurrentIndex(0);
  QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(state->settings.FtpHost, "ftp.example.org");
  EXPECT_EQ(state->settings.FtpPassive, 1);
  EXPECT_EQ(state->settings.UseProxy, engine::kTrue);
  EXPECT_EQ(state->settings.IfOutputFileExists, 0);
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
  auto* settings = window->operationList()->Fixed(shell::kConvertToEntry)->findChild<QPushButton*>("FormatCommand1");
  QTest::mouseClick(settings, Qt::LeftButton);
  shell::FormatDialog* dialog = window->Form8();
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->windowTitle(), "Format Settings");
  EXPECT_FALSE(dialog->isModal());
  EXPECT_FALSE(dialog->ColorDepthCombo1()->isHidden());
  EXPECT_FALSE(dialog->QualitySlider1()->isHidden());
  EXPECT_TRUE(dialog->MultipageCombo1()->isHidden());
  EXPECT_TRUE(dialog->ColorsText1()->isHidden());
  EXPECT_EQ(dialog->QualitySlider1()->value(), 90);
  EXPECT_EQ(dialog->QualityText1()->text(), "90");
  dialog->QualitySlider1()->setValue(60);
  EXPECT_EQ(dialog->QualityText1()->text(), "60");
  dialog->ColorDepthCombo1()->setCurrentIndex(2);
  state->preview.PreviewDirty = engine::kFalse;
  QTest::mouseClick(dialog->Command1(), Qt::LeftButton);
  EXPECT_EQ(state->output.Quality, 60);
  EXPECT_EQ(state->output.ColorDepth, 2);
  EXPECT_NE(state->preview.PreviewDirty, engine::kFalse);

  window->fixed().FormatCombo1 = 6;  // EXR
  window->ShowFormatDialog();
  EXPECT_TRUE(dialog->ColorDepthCombo1()->isHidden());
  EXPECT_FALSE(dialog->CompressionCombo1()->isHidden());
  EXPECT_EQ(dialog->CompressionCombo1()->y(), 40);
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
  EXPECT_EQ(dialog->windowTitle().left(8), "Velmora ");
  EXPECT_EQ(dialog->windowTitle().count('.'), 2);
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
  EXPECT_EQ(window->wizard().WizardStep, 1);
  EXPECT_TRUE(window->Form3()->isVisible());
  EXPECT_TRUE(window->Form9()->isVisible());
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
    shell::FontRequest request;
    request.face = "DejaVu Sans";
    request.tenths = 120;
    request.color = 0x00FF00;
    const std::optional<shell::FontAnswer> answer = shell::QtShellServices().ChooseFont(request);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->tenths, 480);
    EXPECT_EQ(answer->color, confirm_colour ? 0xFF0000 : 0x00FF00);
  }
}

}  // namespace
}  // namespace velmora::testing

namespace velmora::testing {
namespace {

TEST_F(DialogsTest, UploadsWithoutAnAccountOpenTheSettingsOnTheirTab) {
  state->settings.FtpHost = "   ";  // only spaces counts as empty
  QTest::mouseClick(window->fr3()->Button7(), Qt::LeftButton);
  ASSERT_TRUE(window->Form3());
  EXPECT_TRUE(window->Form3()->isVisible());
  EXPECT_EQ(window->Form3()->TabStrip1()->tabText(window->Form3()->TabStrip1()->currentIndex()), "FTP");
  EXPECT_FALSE(window->Form3()->Page(4)->isHidden());
  window->Form3()->reject();
  QTest::mouseClick(window->fr3()->Button6(), Qt::LeftButton);
  EXPECT_EQ(window->Form3()->TabStrip1()->tabText(window->Form3()->TabStrip1()->currentIndex()), "Picasa");
  EXPECT_FALSE(window->Form3()->Page(3)->isHidden());
}

}  // namespace
}  // namespace velmora::testing
