// The uploads' windows as the upload commands use them through the window: the album chooser
// and the captcha prompt with their flags and answers, the session log and the hidden process log.
#include "shell/upload_windows.h"
#include "shell/upload_bridge.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class UploadWindowsTest : public WindowTest {
 protected:
  shell::UploadBridge& view() { return *window->uploads(); }
};

TEST_F(UploadWindowsTest, TheAlbumChooserGivesTheChosenRowsId) {
  view().ShowAlbumChooser({{"id:holiday", "Holiday"}, {"id:garden", "Garden"}});
  EXPECT_TRUE(view().AlbumChooserShowing());
  shell::AlbumChooser* chooser = view().Form4();
  EXPECT_EQ(chooser->windowTitle(), "Choose Picasa Album");
  ASSERT_EQ(chooser->lw1()->count(), 2);
  EXPECT_EQ(chooser->lw1()->item(1)->text(), "Garden");
  chooser->lw1()->setCurrentRow(1);
  QTest::mouseClick(chooser->Command1(), Qt::LeftButton);
  EXPECT_FALSE(view().AlbumChooserShowing());
  EXPECT_EQ(view().AlbumChooserChoice(), "id:garden");
  // Cancel and an empty list give no album.
  view().ShowAlbumChooser({});
  QTest::mouseClick(view().Form4()->Command1(), Qt::LeftButton);  // OK does nothing without rows
  EXPECT_TRUE(view().AlbumChooserShowing());
  view().Form4()->reject();
  EXPECT_FALSE(view().AlbumChooserShowing());
  EXPECT_EQ(view().AlbumChooserChoice(), "");
}

TEST_F(UploadWindowsTest, TheCaptchaPromptGivesTheTypedCode) {
  view().ShowCaptchaPrompt(work.file("missing.jpg"));
  EXPECT_TRUE(view().CaptchaPromptShowing());
  EXPECT_EQ(view().Form5()->windowTitle(), "Enter Captcha Code");
  QTest::keyClicks(view().Form5()->Text1(), "x7k2");
  QTest::mouseClick(view().Form5()->Command1(), Qt::LeftButton);
  EXPECT_FALSE(view().CaptchaPromptShowing());
  EXPECT_EQ(view().CaptchaPromptAnswer(), "x7k2");
  view().ShowCaptchaPrompt(work.file("missing.jpg"));
  EXPECT_TRUE(view().Form5()->Text1()->text().isEmpty());
  view().Form5()->reject();
  EXPECT_EQ(view().CaptchaPromptAnswer(), "");
}

TEST_F(UploadWindowsTest, TheLogsAndTheRunPageLines) {
  view().ShowSessionLog("220 ready\n226 done");
  ASSERT_TRUE(view().Form7());
  EXPECT_EQ(
      std::tuple(view().Form7()->windowTitle().toStdString(), view().Form7()->Text1()->toPlainText().toStdString()),
      std::tuple("Log", "220 ready\n226 done"));
  view().SetProcessLogStatus("Uploading...");
  EXPECT_EQ(std::tuple(view().Form6()->lblStatus()->text().toStdString(), view().Form6()->isHidden()),
            std::tuple("Uploading...", true));
  view().SetStatus("Uploading");
  view().SetFile("a.jpg");
  view().SetProgressRange(0, 4);
  view().SetProgressValue(2);
  EXPECT_EQ(std::tuple(Status(), FileLine(), window->fr3()->pb1()->value()), std::tuple("Uploading", "a.jpg", 2));
  view().OpenUrl("http://example.org/setup.zip");
  EXPECT_EQ(services.opened_urls, (std::vector<std::string>{"http://example.org/setup.zip"}));
}

}  // namespace
}  // namespace velmora::testing
