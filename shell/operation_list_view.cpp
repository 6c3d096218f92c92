// Building, stacking and scrolling the operation list's entries.
#include "shell/operation_list_view.h"

#include <QEvent>
#include <QWheelEvent>
#include <algorithm>

#include "shell/button_images.h"

namespace velmora::shell {
namespace {

constexpr int kPanelLeft = 20;  // 300 twips
constexpr int kPanelTop = 22;   // below the caption, 240 twips and the title's height
constexpr int kPanelBottom = 10;
constexpr int kRemoveRight = 8;  // 120 twips from the frame's right edge
constexpr int kRemoveTop = 12;   // 180 twips
constexpr int kScrollWidth = 17;

}  // namespace

OperationListView::OperationListView(OperationEntries* entries, FixedControls* fixed, engine::PreviewFlags* flags,
                                     QWidget* parent)
    : QWidget(parent), entries_(entries), fixed_(fixed), flags_(flags) {
  viewport_ = new QWidget(this);
  viewport_->setObjectName("StructFON");
  viewport_->installEventFilter(this);
  inner_ = new QWidget(viewport_);
  inner_->setObjectName("StructFON1");
  scroll_ = new QScrollBar(Qt::Vertical, this);
  scroll_->setObjectName("StructSCROLL");
  // The bar's value is the inner box's top, 0 or negative; Qt's bar counts the other way round.
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int value) { inner_->move(0, -value); });
  entries_->SetListener(this);
  for (int index : entries_->Indices()) EntryAdded(index);
}

OperationListView::~OperationListView() {
  entries_->SetListener(nullptr);
}

QWidget* OperationListView::STRUCT(int index) const {
  auto it = widgets_.find(index);
  return it == widgets_.end() ? nullptr : it->second.box;
}

CaptionFrame* OperationListView::StructCaption(int index) const {
  auto it = widgets_.find(index);
  return it == widgets_.end() ? nullptr : it->second.caption;
}

QToolButton* OperationListView::StructRemove(int index) const {
  auto it = widgets_.find(index);
  return it == widgets_.end() ? nullptr : it->second.remove;
}

OperationPanel* OperationListView::Panel(int index) const {
  auto it = widgets_.find(index);
  return it == widgets_.end() ? nullptr : it->second.panel;
}

FixedPanel* OperationListView::Fixed(std::int16_t tag) const {
  for (const auto& [index, widgets] : widgets_)
    if (widgets.fixed && entries_->Entry(index)->controls.tag == tag) return widgets.fixed;
  return nullptr;
}

void OperationListView::EntryAdded(int index) {
  OperationEntry* entry = entries_->Entry(index);
  Widgets w;
  w.box = new QWidget(inner_);
  w.box->setObjectName(QStringLiteral("STRUCT_%1").arg(index));
  if (index == 0) {
    // The design element stands for no operation and shows nothing.
    w.box->setFixedHeight(kDesignEntryHeight);
    widgets_[index] = w;
    return;
  }
  w.caption = new CaptionFrame(QString::fromStdString(entry->controls.caption), w.box);
  w.caption->setProperty("tag", QString::number(entry->controls.tag));

  QWidget* content = nullptr;
  if (IsFixedEntry(entry->controls.tag)) {
    w.fixed = MakeFixedPanel(entry->controls.tag, fixed_, flags_, w.caption);
    content = w.fixed;
    const std::int16_t tag = entry->controls.tag;
    connect(w.fixed, &FixedPanel::commandClicked, this, [this, tag] { emit fixedCommandClicked(tag); });
  } else {
    w.panel = MakeOperationPanel(entry, flags_, w.caption);
    content = w.panel;
    if (w.panel) {
      connect(w.panel, &OperationPanel::changed, this, [this, index] { EntryChanged(index); });
      connect(w.panel, &OperationPanel::commandClicked, this, [this, index] { emit commandClicked(index); });
    }
  }
  // The entry is as high as its lowest control needs; an unknown kind gets an empty entry.
  const int content_height = content ? content->sizeHint().height() : 0;
  if (content) content->move(kPanelLeft, kPanelTop);
  entry->height = kPanelTop + content_height + kPanelBottom;

  w.remove = new QToolButton(w.caption);
  w.remove->setObjectName("StructRemove");
  w.remove->setIcon(FirstStripImage(3));
  w.remove->setAutoRaise(true);
  w.remove->setToolTip("Remove this operation");
  w.remove->setVisible(!IsFixedEntry(entry->controls.tag));
  connect(w.remove, &QToolButton::clicked, this, [this, index] { emit removeClicked(index); });

  widgets_[index] = w;
  w.box->show();
  if (layout_held_) {
    added_while_held_ = true;
    return;
  }
  RelayOperationList();
  ScrollToEnd();
}

void OperationListView::HoldLayout(bool held) {
  layout_held_ = held;
  if (held || !added_while_held_) return;
  added_while_held_ = false;
  RelayOperationList();
  ScrollToEnd();
}

void OperationListView::EntryRemoved(int index) {
  auto it = widgets_.find(index);
  if (it == widgets_.end()) return;
  it->second.box->hide();
  it->second.box->deleteLater();
  widgets_.erase(it);
  RelayOperationList();
}

void OperationListView::EntryChanged(int index) {
  auto it = widgets_.find(index);
  const OperationEntry* entry = entries_->Entry(index);
  if (it == widgets_.end() || !entry) return;
  if (it->second.caption) it->second.caption->setTitle(QString::fromStdString(entry->controls.caption));
  if (it->second.panel) it->second.panel->Load();
}

void OperationListView::ReloadAll() {
  for (auto& [index, widgets] : widgets_) {
    if (widgets.fixed) widgets.fixed->Load();
    EntryChanged(index);
  }
}

void OperationListView::PlaceRemoveButton(const Widgets& w) {
  if (!w.remove) return;
  const QSize size = w.remove->sizeHint();
  w.remove->setGeometry(w.caption->width() - kRemoveRight - size.width(), kRemoveTop, size.width(), size.height());
}

void OperationListView::RelayOperationList() {
  const StructLayout layout = shell::RelayOperationList(*entries_, viewport_->height());
  const int width = viewport_->width();
  for (const StructLayout::Place& place : layout.places) {
    const Widgets& w = widgets_[place.index];
    w.box->setGeometry(0, place.top, width, place.height);
    if (w.caption) w.caption->setGeometry(0, 0, width, place.height);
    // The fixed panels' boxes (folder, name template) take the entry's width.
    if (w.fixed) {
      const QSize hint = w.fixed->sizeHint();
      w.fixed->resize(std::max(hint.width(), width - 2 * kPanelLeft), hint.height());
    }
    PlaceRemoveButton(w);
    w.box->show();
  }
  if (auto it = widgets_.find(0); it != widgets_.end()) it->second.box->setGeometry(0, 0, width, kDesignEntryHeight);
  inner_->resize(width, layout.inner_height);
  scroll_->setEnabled(layout.scroll_enabled);
  if (layout.scroll_enabled) {
    scroll_->setRange(0, -layout.scroll_max);
    scroll_->setPageStep(layout.large_change);
    scroll_->setSingleStep(layout.small_change);
  } else {
    scroll_->setRange(0, 0);
  }
  inner_->move(0, -scroll_->value());
}

void OperationListView::ScrollToEnd() {
  if (scroll_->isEnabled()) ScrollTo(scroll_->maximum());
}

void OperationListView::ShowWidget(QWidget* widget) {
  if (!widget || !inner_->isAncestorOf(widget) || !scroll_->isEnabled()) return;
  const int top = widget->mapTo(inner_, QPoint(0, 0)).y();
  const int bottom = top + widget->height();
  const int shown = viewport_->height();
  if (top < scroll_->value())
    ScrollTo(top);
  else if (bottom > scroll_->value() + shown)
    ScrollTo(std::min(scroll_->maximum(), bottom - shown));
}

void OperationListView::ScrollTo(int value) {
  scroll_->setValue(value);
  inner_->move(0, -scroll_->value());
}

void OperationListView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  viewport_->setGeometry(0, 0, width() - kScrollWidth - 2, height());
  scroll_->setGeometry(width() - kScrollWidth, 0, kScrollWidth, height());
  RelayOperationList();
}

bool OperationListView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == viewport_ && event->type() == QEvent::Wheel && scroll_->isEnabled()) {
    const int steps = static_cast<QWheelEvent*>(event)->angleDelta().y() / 120;
    ScrollTo(scroll_->value() - steps * scroll_->singleStep());
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace velmora::shell
