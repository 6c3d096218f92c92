// The preview in the window: the worker on its own copy of the state, the pictures arriving in
// the pane, "No Image", the wait overlay, and the clicks that open the viewer.
#include <QLineEdit>

#include "engine/number_text.h"
#include "scripts/sample_images.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class PreviewWindowTest : public WindowTest {
 protected:
  std::string Photo(const std::string& name, int width, int height) {
    const std::string path = work.file(name);
    EXPECT_TRUE(samples::WritePhotoJpeg(path, width, height));
    return path;
  }
  // Lets a started worker end and its queued pictures reach the pane.
  void Settle() {
    window->WaitForPreview();
    QCoreApplication::processEvents();
  }
  preview::PreviewPane* pane() { return window->frPreview(); }
};

TEST_F(PreviewWindowTest, AtStartBothBoxesSayNoImage) {
  EXPECT_FALSE(pane()->prwFon2()->no_image()->isHidden());
  EXPECT_FALSE(pane()->prwFon()->no_image()->isHidden());
  EXPECT_TRUE(pane()->prwFon()->picture()->isHidden());
  EXPECT_TRUE(pane()->prwFonWait()->isHidden());
}

TEST_F(PreviewWindowTest, AddingAnImageShowsItAndItsConversion) {
  AddImages({Photo("big.jpg", 430, 215)});
  Settle();
  EXPECT_EQ(state->preview.ThreadRunning, engine::kFalse);
  QLabel* original = pane()->prwFon2()->picture();
  QLabel* result = pane()->prwFon()->picture();
  EXPECT_FALSE(original->isHidden());
  EXPECT_TRUE(pane()->prwFon2()->no_image()->isHidden());
  EXPECT_FALSE(result->isHidden());
  EXPECT_TRUE(pane()->prwFon()->no_image()->isHidden());
  // A 2:1 picture in a box less than twice as wide as high fills the box's width, centred.
  const QSize box = pane()->prwFon()->innerSize();
  EXPECT_EQ(result->width(), box.width());
  EXPECT_EQ(result->height(), engine::RoundHalfEven(box.width() / 2.0));
  EXPECT_EQ(result->y() - pane()->prwFon()->contentsRect().y(),
            engine::RoundHalfEven(box.height() / 2.0 - result->height() / 2.0));
  EXPECT_TRUE(pane()->prwFonWait()->isHidden());
  EXPECT_EQ(pane()->PrwFonWaitLabel()->text(), "100%");
  EXPECT_TRUE(std::filesystem::exists(home.DataFolder() + "/Temp/preview.dat"));
  // The worker's run replaced the written files with the preview file, as any run does.
  ASSERT_EQ(state->WrittenFiles.UpperBound(), 1);
  EXPECT_EQ(state->WrittenFiles[0], home.DataFolder() + "/Temp/preview.dat");
}

TEST_F(PreviewWindowTest, TheWorkerSeesTheLatestEditsThroughItsOwnApplyProfile) {
  AddImages({Photo("wide.jpg", 200, 100)});
  Settle();
  Next();
  AddOperation(2);  // Rotate: the new panel marks the preview and the dialog asks at once
  Settle();
  QLabel* result = pane()->prwFon()->picture();
  // 200 by 100 turned a quarter is 100 by 200, fitted to the box's height.
  const QSize box = pane()->prwFon()->innerSize();
  EXPECT_EQ(result->height(), box.height());
  EXPECT_EQ(result->width(), engine::RoundHalfEven(box.height() / 2.0));
  // The window's own chain is untouched by the worker: only ApplyProfile moves it.
  EXPECT_EQ(state->blocks.UpperBound(), 0);
}

TEST_F(PreviewWindowTest, AnEditWhileThePaneIsHiddenWaitsForShowPreview) {
  AddImages({Photo("a.jpg", 50, 40)});
  Settle();
  QTest::mouseClick(pane()->Command3(), Qt::LeftButton);
  state->preview.PreviewDirty = engine::kTrue;
  window->Timer2_Timer();
  EXPECT_NE(state->preview.PreviewDirty, engine::kFalse);
  EXPECT_EQ(state->preview.ThreadRunning, engine::kFalse);
  window->pass().LastPreviewFile.clear();
  QTest::mouseClick(window->fr1()->EnPreview(), Qt::LeftButton);
  // The pass ran through to a new worker at once.
  EXPECT_EQ(state->preview.PreviewDirty, engine::kFalse);
  EXPECT_EQ(window->pass().LastPreviewFile, window->lwSrc()->SelectedText());
  Settle();
  EXPECT_FALSE(pane()->prwFon()->picture()->isHidden());
}

TEST_F(PreviewWindowTest, RemoveAllClearsBothBoxes) {
  AddImages({Photo("a.jpg", 50, 40)});
  Settle();
  QTest::mouseClick(window->fr1()->Button4(), Qt::LeftButton);
  Settle();
  EXPECT_FALSE(pane()->prwFon()->no_image()->isHidden());
  EXPECT_FALSE(pane()->prwFon2()->no_image()->isHidden());
  EXPECT_TRUE(pane()->prwFon()->picture()->isHidden());
}

TEST_F(PreviewWindowTest, ClicksOpenTheViewerOnThePreviewFileAndTheSource) {
  QTest::mouseClick(pane()->prwFon(), Qt::LeftButton);  // an empty list: nothing
  EXPECT_TRUE(services.viewed.empty());
  const std::string a = Photo("a.jpg", 50, 40);
  AddImages({a});
  Settle();
  // While a worker writes the preview file the result refuses the click; the source doesn't.
  state->preview.ThreadRunning = engine::kTrue;
  QTest::mouseClick(pane()->prwFon(), Qt::LeftButton);
  EXPECT_TRUE(services.viewed.empty());
  QTest::mouseClick(pane()->prwFon2(), Qt::LeftButton);
  state->preview.ThreadRunning = engine::kFalse;
  QTest::mouseClick(pane()->prwFon()->picture(), Qt::LeftButton);
  EXPECT_EQ(services.viewed, (std::vector<std::string>{a, home.DataFolder() + "/Temp/preview.dat"}));
}

TEST_F(PreviewWindowTest, ARunWaitsForThePreviewAndKeepsItsOwnWrittenFiles) {
  const std::string a = Photo("a.jpg", 60, 40);
  AddImages({a});  // a worker is running now
  Next();
  auto* folder = window->operationList()->Fixed(shell::kSaveToEntry)->findChild<QLineEdit*>("SaveToText1");
  folder->selectAll();
  QTest::keyClicks(folder, QString::fromStdString(work.file("out")));
  Next();
  QCoreApplication::processEvents();
  EXPECT_EQ(Status(), "Completed.");
  ASSERT_EQ(state->WrittenFiles.UpperBound(), 1);
  EXPECT_EQ(state->WrittenFiles[0], work.file("out") + "/a_000.jpg");
}

}  // namespace
}  // namespace velmora::testing
