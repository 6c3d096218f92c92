// The new-operation list and its rows' drawing.
#include "shell/new_operation_dialog.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "shell/main_window.h"
#include "shell/new_operation_rows.h"
#include "shell/operation_icons.h"

namespace velmora::shell {
namespace {

constexpr int kRowHeight = 65;
constexpr int kBodyIndent = 79;
constexpr int kTitleWidth = 256;

// The grid's selection colours: text in the window-text colour on a pale fill with a blue edge.
const QColor kSelectionEdge(68, 135, 236);
const QColor kSelectionFill(233, 242, 243);

class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {0, kRowHeight}; }

  void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QRect r = option.rect;
    const bool selected = option.state & QStyle::State_Selected;
    p->save();
    p->fillRect(r, selected ? kSelectionFill : option.palette.base().color());
    if (selected) {
      p->setPen(QPen(kSelectionEdge, 1));
      p->drawRect(r.adjusted(0, 0, -1, -1));
    }
    const int row = index.data(Qt::UserRole).toInt();
    const NewOperationRow& op = NewOperationRows()[static_cast<std::size_t>(row)];
    p->drawPixmap(r.left() + 2, r.top() + (kRowHeight - kOperationIconHeight) / 2, OperationIcon(op.icon));
    // Title: single line with an ellipsis, black, Arial 12 bold.
    QFont title(QStringLiteral("Arial"), 12, QFont::Bold);
    p->setFont(title);
    p->setPen(Qt::black);
    const QRect title_box(r.left() + kBodyIndent, r.top() + 4, kTitleWidth - 8, 20);
    p->drawText(title_box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                QFontMetrics(title).elidedText(op.title, Qt::ElideRight, title_box.width()));
    // Body: the row's text line across the row, word-wrapped, beside the picture.
    p->setFont(QFont(QStringLiteral("Arial"), 9));
    p->setPen(option.palette.text().color());
    p->drawText(QRect(r.left() + kBodyIndent, r.top() + 25, r.width() - kBodyIndent - 6, kRowHeight - 27),
                Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, op.body);
    p->restore();
  }
};

}  // namespace

NewOperationDialog::NewOperationDialog(MainWindow* window)
    : DialogFrame(window, "Form9", "New Operation", 384, 429), window_(window) {
  list_ = new QListWidget(this);
  list_->setObjectName("lw1");
  list_->setGeometry(8, 8, 369, 377);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setItemDelegate(new RowDelegate(list_));
  list_->setFont(QFont(QStringLiteral("MS Sans Serif")));
  list_->setUniformItemSizes(true);
  list_->viewport()->installEventFilter(this);
  ok_ = MakeButton("Command1", "OK", 224, 400);
  cancel_ = MakeButton("Command2", "Cancel", 304, 400);
  ok_->setDefault(true);
  timer_ = new QTimer(this);
  timer_->setObjectName("Timer1");
  timer_->setInterval(200);
  connect(timer_, &QTimer::timeout, this, &NewOperationDialog::Timer1_Timer);
  connect(ok_, &QPushButton::clicked, this, &NewOperationDialog::Accept);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
}

void NewOperationDialog::Open() {
  // Every opening starts from a freshly filled list, scrolled to the top, with nothing selected.
  list_->clear();
  for (std::size_t i = 0; i < NewOperationRows().size(); ++i) {
    auto* item = new QListWidgetItem(NewOperationRows()[i].title, list_);
    item->setData(Qt::UserRole, static_cast<int>(i));
    item->setToolTip(NewOperationRows()[i].body);
  }
  list_->scrollToTop();
  ok_->setEnabled(true);
  timer_->start();
  ShowOwned();
}

int NewOperationDialog::SelectedRow() const {
  const QList<QListWidgetItem*> items = list_->selectedItems();
  return items.isEmpty() ? 0 : list_->row(items.front()) + 1;
}

void NewOperationDialog::Timer1_Timer() {
  ok_->setEnabled(SelectedRow() != 0);
}

void NewOperationDialog::Accept() {
  const int row = SelectedRow();
  if (row >= 1 && row <= static_cast<int>(NewOperationRows().size())) {
    const NewOperationRow& op = NewOperationRows()[static_cast<std::size_t>(row - 1)];
    window_->lblProcess_Click(op.kind);
    if (op.watermark_type >= 0) {
      // The panel just added is the one at the highest index.
      const int index = window_->entries().UpperBound();
      if (OperationEntry* entry = window_->entries().Entry(index)) {
        if (entry->controls.ElemCombo1 != op.watermark_type)
          ChooseElemCombo1(entry->controls, op.watermark_type, window_->state().preview);
        window_->entries().NotifyChanged(index);
      }
    }
  }
  accept();
  window_->state().preview.PreviewDirty = engine::kTrue;
  window_->Timer2_Timer();
}

bool NewOperationDialog::eventFilter(QObject* watched, QEvent* event) {
  // A double click on the list below its last row chooses nothing, yet closes the dialog and
  // polls the preview like a double click on a row.
  if (watched == list_->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    const QPoint at = static_cast<QMouseEvent*>(event)->position().toPoint();
    if (!list_->indexAt(at).isValid()) {
      list_->clearSelection();
      Accept();
      return true;
    }
  }
  return DialogFrame::eventFilter(watched, event);
}

void NewOperationDialog::done(int result) {
  timer_->stop();
  DialogFrame::done(result);
  window_->activateWindow();
}

}  // namespace velmora::shell
