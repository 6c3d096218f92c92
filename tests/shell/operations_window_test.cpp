// The operation list driven through the "New Operation" dialog and the panels' own controls.
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>

#include "shell/settings_dialog.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class OperationsTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    Next();  // the operations page
  }
  template <typename T>
  T* Control(int index, const char* name) {
    QWidget* panel = window->operationList()->Panel(index);
    return panel ? panel->findChild<T*>(name) : nullptr;
  }
  // Picks a row of a drop-down list with the keyboard, as a user may.
  static void Choose(QComboBox* combo, int index) {
    combo->setFocus();
    while (combo->currentIndex() < index) QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > index) QTest::keyClick(combo, Qt::Key_Up);
  }
  static void Type(QLineEdit* edit, const QString& text) {
    edit->selectAll();
    QTest::keyClicks(edit, text);
  }
  int Last() const { return window->entries().UpperBound(); }
};

TEST_F(OperationsTest, EveryRowOfTheDialogAddsItsOperation) {
  for (int row = 1; row <= 8; ++row) {
    AddOperation(row);
    EXPECT_TRUE(window->Form9()->isHidden());
  }
  EXPECT_EQ(Captions(), (std::vector<std::string>{"Convert to", "Save to", "File name", "Resize", "Rotate", "Mirror",
                                                  "Text Watermark", "Image Watermark", "Effect", "Brightness/Contrast",
                                                  "Gamma correction"}));
  window->ApplyProfile();
  ASSERT_EQ(state->blocks.UpperBound(), 8);
  std::vector<int> kinds;
  for (int i = 0; i < 8; ++i) kinds.push_back(state->blocks[i].Kind * 10 + state->blocks[i].WatermarkKind);
  EXPECT_EQ(kinds, (std::vector<int>{0, 10, 20, 30, 31, 40, 50, 60}));  // kind, then the watermark's type
}

TEST_F(OperationsTest, TheDialogIsNotModalAndOkFollowsTheSelection) {
  QTest::mouseClick(window->fr2()->Button8(), Qt::LeftButton);
  shell::NewOperationDialog* dialog = window->Form9();
  EXPECT_EQ(std::tuple(dialog->isVisible(), dialog->isModal(), dialog->lw1()->count()), std::tuple(true, false, 8));
  EXPECT_TRUE(dialog->Command1()->isEnabled());  // for the first moment
  dialog->Timer1_Timer();
  EXPECT_FALSE(dialog->Command1()->isEnabled());
  dialog->lw1()->setCurrentRow(2);
  dialog->Timer1_Timer();
  EXPECT_TRUE(dialog->Command1()->isEnabled());
  QTest::mouseClick(dialog->Command2(), Qt::LeftButton);  // Cancel adds nothing
  EXPECT_EQ(Last(), 3);
}

TEST_F(OperationsTest, ADoubleClickAddsTheRow) {
  QTest::mouseClick(window->fr2()->Button8(), Qt::LeftButton);
  QListWidget* list = window->Form9()->lw1();
  list->setCurrentRow(5);
  QCoreApplication::processEvents();  // the list lays its rows out
  const QRect row = list->visualItemRect(list->item(5));
  // The second click of a double click: press, then the double-click event.
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
  QTest::mousePress(list->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
  EXPECT_EQ(window->operationList()->StructCaption(Last())->title(), "Effect");
}

TEST_F(OperationsTest, EveryOpeningStartsAtTheTopAndADoubleClickBelowTheRowsOnlyCloses) {
  QTest::mouseClick(window->fr2()->Button8(), Qt::LeftButton);
  shell::NewOperationDialog* dialog = window->Form9();
  QListWidget* list = dialog->lw1();
  list->setCurrentRow(7);
  list->scrollToBottom();
  QCoreApplication::processEvents();
  const QPoint below_rows(20, list->visualItemRect(list->item(7)).bottom() + 8);
  ASSERT_LT(below_rows.y(), list->viewport()->height());
  // A worker still running keeps the poll from starting another, so the forced mark it sets
  // stays up and shows that the poll took the dirty mark.
  state->preview.ThreadRunning = engine::kTrue;
  state->preview.PreviewForced = engine::kFalse;
  const int before = Last();
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, below_rows);
  EXPECT_TRUE(dialog->isHidden());
  EXPECT_EQ(Last(), before);
  EXPECT_NE(state->preview.PreviewForced, engine::kFalse);
  state->preview.ThreadRunning = engine::kFalse;

  QTest::mouseClick(window->fr2()->Button8(), Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(list->indexAt(QPoint(20, 5)).row(), 0);
  EXPECT_EQ(dialog->SelectedRow(), 0);
}

// The keys of the wizard's commands act only where their control is on view and enabled.
TEST_F(OperationsTest, KeysDriveTheWizard) {
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const auto press = [this](Qt::Key key) { QTest::keyClick(window.get(), key, Qt::AltModifier); };
  for (const auto& [control, key] : {std::pair<QWidget*, const char*>{window->Command1(), "Alt+B"},
                                     {window->Command2(), "Alt+N"},
                                     {window->Command4(), "Alt+S"},
                                     {window->fr2()->Button8(), "Alt+A"}})
    EXPECT_TRUE(control->toolTip().contains(key)) << control->objectName().toStdString();
  press(Qt::Key_A);
  ASSERT_TRUE(window->Form9());
  EXPECT_TRUE(window->Form9()->isVisible());
  window->Form9()->reject();
  press(Qt::Key_B);
  EXPECT_EQ(window->wizard().WizardStep, 0);
  press(Qt::Key_B);  // "<< Back" is disabled on the first step
  EXPECT_EQ(window->wizard().WizardStep, 0);
  press(Qt::Key_A);  // "Add Operation" is not on view
  EXPECT_TRUE(window->Form9()->isHidden());
  press(Qt::Key_N);
  EXPECT_EQ(window->wizard().WizardStep, 1);
  press(Qt::Key_S);
  ASSERT_TRUE(window->Form3());
  EXPECT_TRUE(window->Form3()->isVisible());
}

// Tab walks the page line by line, then the preview pane, then the bottom bar, even through
// panels added after the window was made.
TEST_F(OperationsTest, TabWalksThePageInReadingOrder) {
  AddOperation(1);
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QWidget* add = window->fr2()->Button8();
  add->setFocus();
  std::vector<QWidget*> walked;
  for (QWidget* at = add; walked.size() < 200 && (walked.empty() || at != add); at = QApplication::focusWidget()) {
    walked.push_back(at);
    QTest::keyClick(at, Qt::Key_Tab);
  }
  const auto position = [&walked](const QWidget* widget) {
    return std::find(walked.begin(), walked.end(), widget) - walked.begin();
  };
  const int resize = Last();
  QWidget* width = Control<QLineEdit>(resize, "ElemText1");
  QWidget* height = Control<QLineEdit>(resize, "ElemText2");
  QWidget* units = Control<QComboBox>(resize, "ElemCombo1");
  QWidget* keep = Control<QCheckBox>(resize, "ElemCheck1");
  QWidget* remove = window->operationList()->StructRemove(resize);
  QWidget* format = Find("FormatCombo1");
  QWidget* hide = Find("Command3");
  ASSERT_TRUE(width && height && units && keep && remove && format && hide);
  // From "Add Operation": the buttons' line, the pane, the bar, then round to the top of the
  // list, the fixed panels before the operation added last, and each panel line by line (the
  // entry's remove button ends its first line).
  const QWidget* order[] = {window->fr2()->Button9(),
                            hide,
                            window->Command4(),
                            window->Command1(),
                            window->Command2(),
                            format,
                            width,
                            height,
                            units,
                            remove,
                            keep};
  EXPECT_EQ(position(order[0]), 1);
  for (std::size_t i = 1; i < std::size(order); ++i) EXPECT_LT(position(order[i - 1]), position(order[i])) << i;
  EXPECT_LT(position(keep), static_cast<long>(walked.size()));
}

// The folder and template boxes show their texts whole, a folder too long for its box from its
// beginning; the preview boxes grow with the window and "Hide Preview" stays under them.
TEST_F(OperationsTest, FieldsShowTheirTextAndThePreviewGrowsWithTheWindow) {
  for (const char* name : {"SaveToText1", "FileNameText1"}) {
    auto* edit = Find<QLineEdit>(name);
    ASSERT_TRUE(edit);
    EXPECT_LE(edit->fontMetrics().horizontalAdvance(edit->text()) + 10, edit->width()) << edit->text().toStdString();
    EXPECT_GE(edit->height(), edit->minimumSizeHint().height()) << name;
  }
  EXPECT_GT(Find("Check1")->y(), Find("SaveToText1")->geometry().bottom());
  window->fixed().SaveToText1 = "/home/anna/" + std::string(200, 'x') + "/Output/";
  window->operationList()->ReloadAll();
  EXPECT_EQ(Find<QLineEdit>("SaveToText1")->cursorPosition(), 0);

  const preview::PreviewBox* box = window->frPreview()->prwFon();
  const QRect small = box->geometry();
  window->resize(1400, 960);
  QCoreApplication::processEvents();
  const QRect large = box->geometry();
  EXPECT_GT(large.width(), small.width());
  EXPECT_GT(large.height(), small.height());
  const QRect hide = window->frPreview()->Command3()->geometry();
  EXPECT_GT(hide.top(), large.bottom());
  EXPECT_LE(hide.top(), large.bottom() + 12);
}

TEST_F(OperationsTest, ResizePanelEditsReachTheChain) {
  AddOperation(1);
  const int index = Last();
  auto* units = Control<QComboBox>(index, "ElemCombo1");
  auto* keep = Control<QCheckBox>(index, "ElemCheck1");
  ASSERT_TRUE(units && keep);
  // A new panel starts at "percents" with "Keep proportions" checked, as a new Block does.
  EXPECT_EQ(std::tuple(units->currentText().toStdString(), keep->isChecked()), std::tuple("percents", true));
  Choose(units, 0);
  EXPECT_TRUE(keep->isEnabled());
  Choose(units, 1);
  EXPECT_FALSE(keep->isEnabled());
  EXPECT_FALSE(keep->isChecked());
  Choose(units, 0);
  EXPECT_TRUE(keep->isEnabled());
  EXPECT_FALSE(keep->isChecked());
  QTest::mouseClick(keep, Qt::LeftButton);
  Type(Control<QLineEdit>(index, "ElemText1"), "800");
  Type(Control<QLineEdit>(index, "ElemText2"), "abc");
  Choose(Control<QComboBox>(index, "ElemCombo2"), 1);
  window->ApplyProfile();
  const engine::Block& b = state->blocks[0];
  EXPECT_EQ(std::tuple(b.Width, b.Height, b.Units, b.KeepProportions, b.Method),
            std::tuple(800, 0, 0, engine::kTrue, 1));
}

TEST_F(OperationsTest, WatermarkTypeSwitchAndStyleFlow) {
  AddOperation(4);
  const int index = Last();
  auto* type = Control<QComboBox>(index, "ElemCombo1");
  auto* text = Control<QLineEdit>(index, "ElemTextWatermark");
  auto* command = Control<QPushButton>(index, "ElemCommandWatermark");
  auto* angle = Control<QSlider>(index, "ElemSlider1");
  ASSERT_TRUE(type && text && command && angle);
  Type(text, "(c) Velmora");
  angle->setValue(45);
  auto* angle_text = Control<QLineEdit>(index, "ElemText3");
  EXPECT_EQ(std::tuple(angle_text->text().toStdString(), angle_text->isEnabled()), std::tuple("45", false));

  // "Style...": the chooser starts from the last use, and its answer lands in the text's tag.
  state->font.FontFace = "DejaVu Sans";
  state->font.FontSize = 20;
  services.fonts.push_back(shell::FontAnswer{.face = "DejaVu Serif", .tenths = 240, .color = 0x00FF00, .bold = true});
  QTest::mouseClick(command, Qt::LeftButton);
  ASSERT_EQ(services.font_requests.size(), 1u);
  EXPECT_EQ(std::tuple(services.font_requests[0].face, services.font_requests[0].height),
            std::tuple("DejaVu Sans", 26));
  window->ApplyProfile();
  const engine::Block& b = state->blocks[0];
  EXPECT_EQ(std::tuple(b.WatermarkFont, b.WatermarkSource, b.WatermarkAngle),
            std::tuple("65280|False|False|False|DejaVu Serif|24|True", "(c) Velmora", 45));

  Choose(type, 1);
  EXPECT_EQ(std::tuple(Captions().back(), command->text().toStdString(), text->text().isEmpty(), angle->isHidden()),
            std::tuple("Image Watermark", "Browse...", true, true));
  services.watermark_images.push_back("/pictures/logo.png");
  QTest::mouseClick(command, Qt::LeftButton);
  EXPECT_EQ(text->text(), "/pictures/logo.png");
  Choose(type, 0);
  EXPECT_EQ(window->operationList()->StructCaption(index)->title(), "Text Watermark");
  EXPECT_TRUE(text->text().isEmpty());
  EXPECT_TRUE(angle->isHidden()) << "the angle controls don't come back";
}

TEST_F(OperationsTest, SlidersShowTheirValuesInTheirBoxes) {
  AddOperation(7);
  const int tone = Last();
  Control<QSlider>(tone, "ElemSlider1")->setValue(-30);
  Control<QSlider>(tone, "ElemSlider2")->setValue(60);
  EXPECT_EQ(Control<QLineEdit>(tone, "ElemText1")->text() + " " + Control<QLineEdit>(tone, "ElemText2")->text(),
            "-30 60");
  AddOperation(8);
  const int gamma = Last();
  auto* slider = Control<QSlider>(gamma, "ElemSlider1");
  EXPECT_EQ(std::tuple(slider->minimum(), slider->maximum(), slider->value()), std::tuple(1, 1000, 100));
  slider->setValue(225);
  EXPECT_EQ(Control<QLineEdit>(gamma, "ElemText1")->text(), "2.25");
  window->ApplyProfile();
  EXPECT_EQ(std::tuple(state->blocks[0].Brightness, state->blocks[0].Contrast, state->blocks[1].GammaValue),
            std::tuple(-30, 60, 225));
}

TEST_F(OperationsTest, RemoveButtonsAndRemoveAllKeepTheFixedEntries) {
  AddOperation(2);
  AddOperation(3);
  AddOperation(6);
  EXPECT_TRUE(window->operationList()->StructRemove(1)->isHidden());
  QTest::mouseClick(window->operationList()->StructRemove(5), Qt::LeftButton);
  EXPECT_FALSE(window->entries().ControlExists(5));
  window->ApplyProfile();
  ASSERT_EQ(state->blocks.UpperBound(), 2);
  EXPECT_EQ(state->blocks[1].Kind, engine::kEffect);
  QTest::mouseClick(window->fr2()->Button9(), Qt::LeftButton);
  EXPECT_EQ(window->entries().Indices(), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(Captions(), (std::vector<std::string>{"Convert to", "Save to", "File name"}));
}

TEST_F(OperationsTest, TenOperationsEnableTheBarAndShowTheLast) {
  QScrollBar* bar = window->operationList()->StructSCROLL();
  AddOperation(3);
  EXPECT_FALSE(bar->isEnabled());  // few operations leave it off
  for (int i = 0; i < 10; ++i) AddOperation(1);
  EXPECT_TRUE(bar->isEnabled());
  EXPECT_EQ(bar->value(), bar->maximum());
  QWidget* last = window->operationList()->STRUCT(Last());
  const int bottom_in_view = last->mapTo(window->operationList()->StructFON(), QPoint(0, last->height())).y();
  EXPECT_LE(bottom_in_view, window->operationList()->StructFON()->height());
  EXPECT_GE(bottom_in_view, 0);
}

TEST_F(OperationsTest, TheFileNameMenuAppendsTokens) {
  auto* text = Find<QLineEdit>("FileNameText1");
  Type(text, "out");
  const QList<QAction*> items = window->m_filename()->actions();
  ASSERT_EQ(items.size(), 4);
  EXPECT_EQ(items[0]->text(), "Source Image Title");
  EXPECT_EQ(items[3]->text(), "Counter");
  for (QAction* item : items) item->trigger();
  EXPECT_EQ(text->text(), "out{Title}_{SourceType}.{OutputType}_{Counter}");
  window->ApplyProfile();
  EXPECT_EQ(state->output.NameTemplate, "out{Title}_{SourceType}.{OutputType}_{Counter}");
}

TEST_F(OperationsTest, OutputFolderBrowseAndFormatChoice) {
  services.folders.push_back(work.file("out"));
  QTest::mouseClick(Find("SaveToCommand5"), Qt::LeftButton);
  EXPECT_EQ(Find<QLineEdit>("SaveToText1")->text().toStdString(), work.file("out"));
  auto* format = Find<QComboBox>("FormatCombo1");
  EXPECT_EQ(format->count(), 9);
  Choose(format, 3);
  window->ApplyProfile();
  EXPECT_EQ(std::tuple(state->output.OutputFolder, state->output.OutputFormat), std::tuple(work.file("out") + "/", 3));
}

}  // namespace
}  // namespace velmora::testing
