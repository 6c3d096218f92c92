// The source image list (lwSrc): two columns ("File Name", "Size"), full-row and multiple
// selection, one shared icon per file type, the rule of adding one item, and file drops.
#pragma once

#include <QFileIconProvider>
#include <QHash>
#include <QIcon>
#include <QSet>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "engine/run_view.h"

namespace velmora::shell {

class SourceListWidget : public QTreeWidget {
  Q_OBJECT
 public:
  explicit SourceListWidget(QWidget* parent = nullptr);

  // The rule of adding one item: a non-empty file whose path isn't listed yet (letter case
  // counts) goes to the end with its icon and size. True if it was added.
  bool AddItem(const std::string& path);
  // The rows' texts and the selected item (the current row), for a run or a preview.
  engine::SourceList Rows() const;
  std::string SelectedText() const;
  // Replaces the rows by `rows` (the result of a removal) and selects `select`.
  void SetRows(const std::vector<std::string>& rows, int select);
  void RemoveAll();
  // The keys in the icon list; one per file type name.
  QStringList IconKeys() const { return icons_.keys(); }

  // The file's icon key, adding the icon under it when the key is new.
  QString GetFileIcon(const std::string& path);

 signals:
  // Paths dropped on the list; the window applies the rule to each.
  void filesDropped(const std::vector<std::string>& paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Add_ListImags(const QString& key, const QIcon& icon);

  QFileIconProvider provider_;
  QHash<QString, QIcon> icons_;
  QSet<QString> listed_;
};

// The local paths of a drop, in order.
std::vector<std::string> DroppedPaths(const class QMimeData* data);

}  // namespace velmora::shell
