// The source list driven as a user drives it: the open dialog, the folder browser, drops and the
// two removal buttons.
#include <QMimeData>
#include <QUrl>

#include "shell/source_rules.h"
#include "tests/shell/window_fixture.h"

namespace velmora::testing {
namespace {

class SourceListTest : public WindowTest {
 protected:
  std::vector<std::string> Rows() { return window->lwSrc()->Rows().rows; }
  QTreeWidgetItem* Item(int row) { return window->lwSrc()->topLevelItem(row); }
  void Drop(QWidget* target, const std::vector<std::string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths) urls << QUrl::fromLocalFile(QString::fromStdString(path));
    data.setUrls(urls);
    const QPoint at = target->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
  }
};

TEST_F(SourceListTest, OneChosenFileIsOneItemWithItsSizeAndTypeIcon) {
  const std::string a = Photo("a.jpg");
  AddImages({a});
  ASSERT_EQ(Rows(), (std::vector<std::string>{a}));
  EXPECT_EQ(Item(0)->text(1).toStdString(), shell::FormatFileSize(std::filesystem::file_size(a)));
  EXPECT_FALSE(Item(0)->icon(0).isNull());
  EXPECT_EQ(window->lwSrc()->currentItem(), Item(0));  // the last item is selected when none is
  window->Timer1_Timer();
  EXPECT_TRUE(window->fr1()->Picture4()->isHidden());
}

TEST_F(SourceListTest, SeveralFilesAddTheNamesButNotTheFolderAndShareOneIconPerType) {
  const std::string a = Photo("a.jpg"), b = Photo("b.jpg");
  const std::string c = work.file("c.png");
  ASSERT_TRUE(samples::WriteAlphaPng(c, 20, 20));
  AddImages({a, b, c});
  EXPECT_EQ(Rows(), (std::vector<std::string>{a, b, c}));
  EXPECT_EQ(window->lwSrc()->IconKeys().size(), 2);
  EXPECT_EQ(window->lwSrc()->currentItem(), Item(2));
}

TEST_F(SourceListTest, TheSameFileStaysOneItemButOtherLetterCaseIsAnother) {
  const std::string a = Photo("a.jpg");
  AddImages({a});
  AddImages({a});
  EXPECT_EQ(Rows().size(), 1u);
  AddImages({Photo("A.jpg")});
  EXPECT_EQ(Rows().size(), 2u);
  // A zero-byte file is never listed.
  const std::string empty = work.file("empty.jpg");
  WriteWholeFile(empty, "");
  AddImages({empty});
  window->DropFiles({empty});
  EXPECT_EQ(Rows().size(), 2u);
}

// A tree is scanned files before subfolders; a folder without images then adds nothing, silently.
TEST_F(SourceListTest, AddFolderScansTheTreeFilesBeforeSubfolders) {
  std::filesystem::create_directories(work.path() / "tree" / "sub");
  ASSERT_TRUE(samples::WritePhotoJpeg(work.file("tree/sub/deep.jpg"), 30, 30));
  ASSERT_TRUE(samples::WritePhotoJpeg(work.file("tree/top.jpg"), 30, 30));
  WriteWholeFile(work.file("tree/notes.txt"), "not an image");
  services.folders.push_back(work.file("tree"));
  QTest::mouseClick(window->fr1()->Button2(), Qt::LeftButton);
  EXPECT_EQ(Rows(), (std::vector<std::string>{work.file("tree") + "/top.jpg", work.file("tree") + "/sub/deep.jpg"}));
  // The last row is selected and the preview pass ran for it at once.
  EXPECT_EQ(window->lwSrc()->SelectedText(), work.file("tree") + "/sub/deep.jpg");
  EXPECT_EQ(window->pass().LastPreviewFile, work.file("tree") + "/sub/deep.jpg");
  std::filesystem::create_directories(work.path() / "nothing");
  services.folders.push_back(work.file("nothing"));
  QTest::mouseClick(window->fr1()->Button2(), Qt::LeftButton);
  EXPECT_EQ(Rows().size(), 2u);
  EXPECT_TRUE(services.informed.empty());
}

// Files and folders given on the command line ("Open with") join as "Add Images" and "Add Folder" would, in their
// order; a relative name is read from the current folder, and a file listed already is not listed again.
TEST_F(SourceListTest, CommandLineFilesAndFoldersJoinInTheirOrder) {
  std::filesystem::create_directories(work.path() / "tree");
  ASSERT_TRUE(samples::WritePhotoJpeg(work.file("tree/top.jpg"), 30, 30));
  const std::string a = Photo("a.jpg");
  const std::filesystem::path started_in = std::filesystem::current_path();
  std::filesystem::current_path(work.path());
  window->AddCommandLineSources({"tree", a, "./a.jpg"});
  std::filesystem::current_path(started_in);
  EXPECT_EQ(Rows(), (std::vector<std::string>{work.file("tree/top.jpg"), a}));
  EXPECT_EQ(window->pass().LastPreviewFile, a);
}

TEST_F(SourceListTest, DropsOnTheListAndTheHintTakeFilesButNotFolders) {
  const std::string a = Photo("a.jpg"), b = Photo("b.jpg");
  std::filesystem::create_directories(work.path() / "folder");
  state->preview.PreviewDirty = engine::kFalse;
  Drop(window->lwSrc()->viewport(), {work.file("folder"), a});
  Drop(window->fr1()->Picture4(), {b});
  EXPECT_EQ(Rows(), (std::vector<std::string>{a, b}));
  EXPECT_EQ(window->lwSrc()->currentItem(), nullptr);  // a drop leaves the selection alone
  EXPECT_EQ(state->preview.PreviewDirty, engine::kFalse);
}

TEST_F(SourceListTest, RemoveWalksAsToldAndLeavesTheMiddleOfThreeNeighbours) {
  std::vector<std::string> files;
  for (const char* name : {"1.jpg", "2.jpg", "3.jpg", "4.jpg", "5.jpg"}) files.push_back(Photo(name));
  AddImages(files);
  window->lwSrc()->setCurrentItem(Item(1));
  Item(2)->setSelected(true);
  Item(3)->setSelected(true);
  state->preview.PreviewDirty = engine::kFalse;
  state->preview.PreviewForced = engine::kFalse;
  QTest::mouseClick(window->fr1()->Button3(), Qt::LeftButton);
  EXPECT_EQ(Rows(), (std::vector<std::string>{files[0], files[2], files[4]}));
  EXPECT_EQ(window->lwSrc()->currentItem(), Item(1));
  // Only the forced mark was set, and without the dirty one the pass ended at once.
  EXPECT_EQ(state->preview.PreviewDirty, engine::kFalse);
  EXPECT_NE(state->preview.PreviewForced, engine::kFalse);
  // Removing the last row selects the new last.
  window->lwSrc()->setCurrentItem(Item(2));
  QTest::mouseClick(window->fr1()->Button3(), Qt::LeftButton);
  ASSERT_EQ(Rows().size(), 2u);
  EXPECT_EQ(window->lwSrc()->currentItem(), Item(1));
}

TEST_F(SourceListTest, RemoveAllEmptiesTheListAndShowsTheHint) {
  AddImages({Photo("1.jpg"), Photo("2.jpg")});
  window->WaitForPreview();  // the preview of the add has ended
  QTest::mouseClick(window->fr1()->Button4(), Qt::LeftButton);
  EXPECT_TRUE(Rows().empty());
  window->Timer1_Timer();
  EXPECT_FALSE(window->fr1()->Picture4()->isHidden());
  // The pass took both marks and cleared them.
  EXPECT_EQ(std::tuple(state->preview.PreviewDirty, state->preview.PreviewForced),
            std::tuple(engine::kFalse, engine::kFalse));
}

}  // namespace
}  // namespace velmora::testing
