// The preview in the window: the worker on its own copy of the state, the pictures arriving in
// the pane, "No Image", the wait overlay, and the clicks that open the viewer.
#include <QLineEdit>

#include "engine/number_text.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class PreviewWindowTest : public WindowTest {
 protected:
  // Lets a started worker end and its queued pictures reach the pane.
  void Settle() { window->WaitForPreview(), QCoreApplication::processEvents(); }
  preview::PreviewPane* pane() { return window->frPreview(); }
  void ExpectPictures(bool shown) {  // a picture in each box rather than "No Image"
    for (preview::PreviewBox* box : {pane()->prwFon(), pane()->prwFon2()})
      EXPECT_EQ(std::pair(box->picture()->isHidden(), box->no_image()->isHidden()), std::pair(!shown, shown));
  }
  std::string PreviewFile() const { return home.DataFolder() + "/Temp/preview.dat"; }
};

TEST_F(PreviewWindowTest, AnImageShowsInBothBoxesOpensTheViewerAndRemoveAllClearsThem) {
  ExpectPictures(false);
  QTest::mouseClick(pane()->prwFon(), Qt::LeftButton);  // an empty list: no viewer
  const std::string photo = Photo("big.jpg", 430, 215);
  AddImages({photo});
  Settle();
  ExpectPictures(true);
  // A 2:1 picture in a box less than twice as wide as high fills the box's width, centred.
  const QLabel* result = pane()->prwFon()->picture();
  const QSize box = pane()->prwFon()->innerSize();
  EXPECT_EQ(result->size(), QSize(box.width(), engine::RoundHalfEven(box.width() / 2.0)));
  EXPECT_EQ(result->y() - pane()->prwFon()->contentsRect().y(),
            engine::RoundHalfEven(box.height() / 2.0 - result->height() / 2.0));
  EXPECT_EQ(std::pair(pane()->prwFonWait()->isHidden(), pane()->PrwFonWaitLabel()->text()),
            std::pair(true, QString("100%")));
  // The worker's run replaced the written files with the preview file, as any run does.
  EXPECT_EQ(state->WrittenFiles.Entries(), std::vector<std::string>{PreviewFile()});
  // While a worker writes the preview file the result refuses the click; the source doesn't.
  state->preview.ThreadRunning = engine::kTrue;
  QTest::mouseClick(pane()->prwFon(), Qt::LeftButton);
  QTest::mouseClick(pane()->prwFon2(), Qt::LeftButton);
  state->preview.ThreadRunning = engine::kFalse;
  QTest::mouseClick(pane()->prwFon()->picture(), Qt::LeftButton);
  EXPECT_EQ(services.viewed, (std::vector<std::string>{photo, PreviewFile()}));
  QTest::mouseClick(window->fr1()->Button4(), Qt::LeftButton);
  Settle();
  ExpectPictures(false);
}

// The worker sees the latest edits through its own ApplyProfile. An edit while the pane is hidden
// waits for Show Preview, which runs the pass through to a worker at once; a run started while that
// worker is busy waits for it and keeps its own written files.
TEST_F(PreviewWindowTest, TheWorkerSeesTheLatestEditsAndARunWaitsForIt) {
  AddImages({Photo("wide.jpg", 200, 100)});
  Settle();
  Next();
  AddOperation(2);  // Rotate: the new panel marks the preview and the dialog asks at once
  Settle();
  // 200 by 100 turned a quarter is 100 by 200, fitted to the box's height.
  const QSize box = pane()->prwFon()->innerSize();
  EXPECT_EQ(pane()->prwFon()->picture()->size(), QSize(engine::RoundHalfEven(box.height() / 2.0), box.height()));
  // The window's own chain is untouched by the worker: only ApplyProfile moves it.
  EXPECT_EQ(state->blocks.UpperBound(), 0);
  QTest::mouseClick(pane()->Command3(), Qt::LeftButton);
  state->preview.PreviewDirty = engine::kTrue;
  window->Timer2_Timer();
  EXPECT_NE(state->preview.PreviewDirty, engine::kFalse);
  window->pass().LastPreviewFile.clear();
  QTest::mouseClick(window->fr1()->EnPreview(), Qt::LeftButton);
  EXPECT_EQ(std::pair(state->preview.PreviewDirty, window->pass().LastPreviewFile),
            std::pair(engine::kFalse, window->lwSrc()->SelectedText()));
  Find<QLineEdit>("SaveToText1")->setText(QString::fromStdString(work.file("out")));
  Next();
  QCoreApplication::processEvents();
  EXPECT_EQ(Status(), "Completed.");
  EXPECT_EQ(state->WrittenFiles.Entries(), std::vector<std::string>{work.file("out") + "/wide_000.jpg"});
}

}  // namespace
}  // namespace velmora::testing
