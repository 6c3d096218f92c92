// The first wizard page (fr1): the source list with "Add Images", "Add Folder", "Remove",
// "Remove All", "Show Preview", and the hint that stands over the list while it is empty.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "shell/source_list_widget.h"

namespace velmora::shell {

// The hint (Picture4 with Label2); files dropped on it count as dropped on the list.
class DropHint : public QFrame {
  Q_OBJECT
 public:
  explicit DropHint(QWidget* parent = nullptr);
  QLabel* Label2() const { return label_; }

 signals:
  void filesDropped(const std::vector<std::string>& paths);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QLabel* label_;
};

class SourcePage : public QWidget {
  Q_OBJECT
 public:
  explicit SourcePage(QWidget* parent = nullptr);

  SourceListWidget* lwSrc() const { return list_; }
  QPushButton* Button1() const { return add_images_; }
  QPushButton* Button2() const { return add_folder_; }
  QPushButton* Button3() const { return remove_; }
  QPushButton* Button4() const { return remove_all_; }
  QPushButton* EnPreview() const { return show_preview_; }
  DropHint* Picture4() const { return hint_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  SourceListWidget* list_;
  QPushButton *add_images_, *add_folder_, *remove_, *remove_all_, *show_preview_;
  DropHint* hint_;
};

}  // namespace velmora::shell
