// Items, icons and drops of the source list.
#include "shell/source_list_widget.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QMimeData>
#include <QMimeDatabase>
#include <QUrl>

#include "engine/source_scan.h"
#include "shell/file_type_icon.h"
#include "shell/source_rules.h"

namespace velmora::shell {
namespace {

FileIconClass ClassOf(const QFileInfo& info) {
  if (info.isSymLink()) return FileIconClass::kShortcut;
  const QString mime = QMimeDatabase().mimeTypeForFile(info).name();
  if (mime == "application/x-ms-dos-executable" || mime == "application/x-msdownload") return FileIconClass::kProgram;
  if (info.isExecutable() && (mime == "application/x-executable" || mime == "application/x-sharedlib" ||
                              mime == "application/x-pie-executable"))
    return FileIconClass::kOtherProgram;
  return FileIconClass::kOrdinary;
}

}  // namespace

SourceListWidget::SourceListWidget(QWidget* parent) : QTreeWidget(parent) {
  setObjectName("lwSrc");
  setColumnCount(2);
  setHeaderLabels({"File Name", "Size"});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);  // full-row selection
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setIconSize(QSize(16, 16));
  setAcceptDrops(true);
  setDragDropMode(QAbstractItemView::DropOnly);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(0, QHeaderView::Stretch);
  header()->setSectionResizeMode(1, QHeaderView::Interactive);
  header()->resizeSection(1, 90);
}

void SourceListWidget::Add_ListImags(const QString& key, const QIcon& icon) {
  if (!icons_.contains(key)) icons_.insert(key, icon);
}

QString SourceListWidget::GetFileIcon(const std::string& path) {
  const QFileInfo info(QString::fromStdString(path));
  const QString type = provider_.type(info);
  const QString key = QString::fromStdString(IconKey(type.toStdString(), info.fileName().toStdString(), ClassOf(info)));
  // An icon is made only for a key not seen yet.
  if (!icons_.contains(key)) {
    // The desktop's icon for the type; without an icon theme, one drawn for the extension.
    const QString theme_name = QMimeDatabase().mimeTypeForFile(info).iconName();
    QIcon icon = QIcon::hasThemeIcon(theme_name) ? provider_.icon(info) : FileTypeIcon(info.suffix());
    if (icon.isNull()) icon = provider_.icon(QFileIconProvider::File);
    Add_ListImags(key, QIcon(icon.pixmap(16, 16)));
  }
  return key;
}

bool SourceListWidget::AddItem(const std::string& path) {
  const QString text = QString::fromStdString(path);
  const std::uint64_t length = engine::SourceFileLength(path);
  if (length == 0 || listed_.contains(text)) return false;
  const QString key = GetFileIcon(path);
  auto* item = new QTreeWidgetItem(this);
  item->setIcon(0, icons_.value(key));
  item->setData(0, Qt::UserRole, key);
  item->setText(0, text);
  item->setText(1, QString::fromStdString(FormatFileSize(length)));
  item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  listed_.insert(text);
  return true;
}

engine::SourceList SourceListWidget::Rows() const {
  engine::SourceList list;
  list.rows.reserve(static_cast<std::size_t>(topLevelItemCount()));
  for (int i = 0; i < topLevelItemCount(); ++i) list.rows.push_back(topLevelItem(i)->text(0).toStdString());
  list.selected = currentItem() ? indexOfTopLevelItem(currentItem()) : -1;
  return list;
}

std::string SourceListWidget::SelectedText() const {
  return currentItem() ? currentItem()->text(0).toStdString() : std::string();
}

void SourceListWidget::SetRows(const std::vector<std::string>& rows, int select) {
  // Keeps the items that stay, so that their icons and sizes stay as they were made.
  QHash<QString, QTreeWidgetItem*> kept;
  while (topLevelItemCount() > 0) {
    QTreeWidgetItem* item = takeTopLevelItem(0);
    kept.insert(item->text(0), item);
  }
  listed_.clear();
  for (const std::string& row : rows) {
    const QString text = QString::fromStdString(row);
    if (QTreeWidgetItem* item = kept.take(text)) {
      addTopLevelItem(item);
      listed_.insert(text);
    }
  }
  qDeleteAll(kept);
  clearSelection();
  if (select >= 0 && select < topLevelItemCount()) setCurrentItem(topLevelItem(select));
}

void SourceListWidget::RemoveAll() {
  clear();
  listed_.clear();
}

void SourceListWidget::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void SourceListWidget::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void SourceListWidget::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = DroppedPaths(event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  emit filesDropped(paths);
}

std::vector<std::string> DroppedPaths(const QMimeData* data) {
  std::vector<std::string> paths;
  if (!data) return paths;
  for (const QUrl& url : data->urls())
    if (url.isLocalFile()) paths.push_back(url.toLocalFile().toStdString());
  return paths;
}

}  // namespace velmora::shell
