#include "controls/label_text.h"

#include <algorithm>

#include <QFontMetrics>

namespace velmora::controls {

std::uint32_t label_text_flags(const LabelProperties& props) {
  std::uint32_t flags = text_flag::kNoClip;
  if (props.Alignment == label_align::kRight) flags |= text_flag::kRight;
  if (props.Alignment == label_align::kCenter) flags |= text_flag::kCenter;
  if (props.RightToLeft) flags |= text_flag::kRtlReading;
  flags |= props.WordWrap ? text_flag::kWordBreak : text_flag::kSingleLine;
  if (props.PathEllipsis) flags |= text_flag::kPathEllipsis;
  if (!props.UseMnemonic) flags |= text_flag::kNoPrefix;
  return flags;
}

int qt_text_flags(std::uint32_t flags) {
  int qt = Qt::AlignTop | Qt::AlignAbsolute | Qt::TextDontClip;
  if ((flags & text_flag::kCenter) != 0) {
    qt |= Qt::AlignHCenter;
  } else if ((flags & text_flag::kRight) != 0) {
    qt |= Qt::AlignRight;
  } else {
    qt |= Qt::AlignLeft;
  }
  qt |= (flags & text_flag::kWordBreak) != 0 ? Qt::TextWordWrap : Qt::TextSingleLine;
  if ((flags & text_flag::kNoPrefix) == 0) qt |= Qt::TextShowMnemonic;
  return qt;
}

QString measured_caption(const LabelProperties& props) {
  QString text = props.Caption;
  if (props.UseMnemonic) text.remove(QLatin1Char('&'));
  return text;
}

QSize label_text_extent(const LabelProperties& props) {
  const QFontMetrics metrics(props.Font);
  return {metrics.horizontalAdvance(measured_caption(props)), metrics.height()};
}

std::optional<QSize> label_auto_size(int border_style, QSize text) {
  if (border_style == kBorderFixedSingle) {
    return text + QSize(2 * kLabelBorderWidth, 2 * kLabelBorderWidth);
  }
  if (border_style == kBorderNone) return text;
  return std::nullopt;
}

QString elide_path(const QString& text, int width, const std::function<int(const QString&)>& measure) {
  const QString dots = QStringLiteral("...");
  if (measure(text) <= width) return text;
  // The file name after the last separator stays whole; both separators count, the system's '/'
  // and the '\\' of paths written elsewhere.
  const qsizetype last = std::max(text.lastIndexOf(QLatin1Char('/')), text.lastIndexOf(QLatin1Char('\\')));
  if (last >= 0) {
    const QString tail = text.mid(last);
    for (qsizetype keep = last - 1; keep >= 0; --keep) {
      const QString candidate = text.left(keep) + dots + tail;
      if (measure(candidate) <= width) return candidate;
    }
    return dots + tail;
  }
  for (qsizetype keep = text.size() - 1; keep > 0; --keep) {
    const QString candidate = text.left((keep + 1) / 2) + dots + text.right(keep / 2);
    if (measure(candidate) <= width) return candidate;
  }
  return dots;
}

}  // namespace velmora::controls
