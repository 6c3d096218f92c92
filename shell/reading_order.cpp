// Sorting a window's focusable widgets into lines and reading them off.
#include "shell/reading_order.h"

#include <algorithm>

namespace velmora::shell {
namespace {

bool ReachableByTab(const QWidget* widget) {
  return (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() && widget->isVisible() && widget->isEnabled();
}

struct Placed {
  QWidget* widget;
  QRect rect;  // in the coordinates of the window
};

// Lines: a widget whose middle lies above the bottom of a line's first widget joins that line.
void AppendInLines(std::vector<Placed> placed, std::vector<QWidget*>& order) {
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& a, const Placed& b) { return a.rect.top() < b.rect.top(); });
  for (std::size_t start = 0; start < placed.size();) {
    std::size_t end = start + 1;
    while (end < placed.size() && placed[end].rect.center().y() <= placed[start].rect.bottom()) ++end;
    std::stable_sort(placed.begin() + static_cast<std::ptrdiff_t>(start),
                     placed.begin() + static_cast<std::ptrdiff_t>(end),
                     [](const Placed& a, const Placed& b) { return a.rect.left() < b.rect.left(); });
    for (std::size_t i = start; i < end; ++i) order.push_back(placed[i].widget);
    start = end;
  }
}

}  // namespace

std::vector<QWidget*> ReadingOrder(const std::vector<QWidget*>& regions) {
  std::vector<QWidget*> order;
  for (QWidget* region : regions) {
    if (!region || !region->isVisible()) continue;
    QWidget* window = region->window();
    std::vector<Placed> placed;
    for (QWidget* widget : region->findChildren<QWidget*>()) {
      if (widget->window() != window || !ReachableByTab(widget)) continue;
      placed.push_back({widget, QRect(widget->mapTo(window, QPoint(0, 0)), widget->size())});
    }
    AppendInLines(std::move(placed), order);
  }
  return order;
}

QWidget* NextInReadingOrder(const std::vector<QWidget*>& regions, QWidget* current, bool forward) {
  const std::vector<QWidget*> order = ReadingOrder(regions);
  if (order.empty()) return nullptr;
  const auto at = std::find(order.begin(), order.end(), current);
  if (at == order.end()) return forward ? order.front() : order.back();
  const auto index = static_cast<std::size_t>(at - order.begin());
  return order[forward ? (index + 1) % order.size() : (index + order.size() - 1) % order.size()];
}

}  // namespace velmora::shell
