// The operation list on the screen: the viewport (StructFON), the tall inner box that scrolls in
// it (StructFON1), the scroll bar (StructSCROLL), and per entry its box (STRUCT), caption frame
// (StructCaption), remove button (StructRemove) and panel. It follows the OperationEntries.
#pragma once

#include <QScrollBar>
#include <QToolButton>
#include <QWidget>
#include <map>

#include "shell/caption_frame.h"
#include "shell/operation_entries.h"
#include "shell/panels/fixed_panels.h"
#include "shell/panels/operation_panel.h"

namespace velmora::shell {

class OperationListView : public QWidget, public OperationListListener {
  Q_OBJECT
 public:
  OperationListView(OperationEntries* entries, FixedControls* fixed, engine::PreviewFlags* flags,
                    QWidget* parent = nullptr);
  ~OperationListView() override;

  QWidget* StructFON() const { return viewport_; }
  QWidget* StructFON1() const { return inner_; }
  QScrollBar* StructSCROLL() const { return scroll_; }
  QWidget* STRUCT(int index) const;
  CaptionFrame* StructCaption(int index) const;
  QToolButton* StructRemove(int index) const;
  OperationPanel* Panel(int index) const;
  FixedPanel* Fixed(std::int16_t tag) const;

  // Recomputes the entries' places and the scroll bar.
  void RelayOperationList();
  // Shows the end of the list when the bar is enabled.
  void ScrollToEnd();
  // Scrolls the list so that `widget`, one of its panels' controls, stands in view.
  void ShowWidget(QWidget* widget);
  // Every panel reads its values again (after the program changed them).
  void ReloadAll();
  // While held, added entries are laid out once, when the hold ends (a whole chain at a time).
  void HoldLayout(bool held);

  void EntryAdded(int index) override;
  void EntryRemoved(int index) override;
  void EntryChanged(int index) override;

 signals:
  void removeClicked(int index);
  void commandClicked(int index);  // a watermark's "Style..." or "Browse..."
  void fixedCommandClicked(std::int16_t tag);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Widgets {
    QWidget* box = nullptr;
    CaptionFrame* caption = nullptr;
    QToolButton* remove = nullptr;
    OperationPanel* panel = nullptr;
    FixedPanel* fixed = nullptr;
  };
  void PlaceRemoveButton(const Widgets& widgets);
  void ScrollTo(int value);

  OperationEntries* entries_;
  FixedControls* fixed_;
  engine::PreviewFlags* flags_;
  QWidget* viewport_;
  QWidget* inner_;
  QScrollBar* scroll_;
  std::map<int, Widgets> widgets_;
  bool layout_held_ = false, added_while_held_ = false;
};

}  // namespace velmora::shell
