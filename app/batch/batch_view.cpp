// Terminal and plain-text display of a batch run.
#include "app/batch/batch_view.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

namespace velmora::app {
namespace {

constexpr int kBarCells = 24;

int TerminalWidth(std::FILE* out) {
  winsize size{};
  if (::ioctl(::fileno(out), TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 80;
}

}  // namespace

std::string ProgressBarLine(int value, int maximum, const std::string& file_text, int width) {
  const int filled = maximum > 0 ? std::clamp(value * kBarCells / maximum, 0, kBarCells) : 0;
  std::string line = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                     std::string(static_cast<std::size_t>(kBarCells - filled), '-') + "] " + std::to_string(value) +
                     "/" + std::to_string(maximum) + "  " + file_text;
  if (width > 0 && line.size() > static_cast<std::size_t>(width)) line.resize(static_cast<std::size_t>(width));
  return line;
}

void BatchView::SetStatus(const std::string& text) {
  status_ = text;
  if (!Processing() && !text.empty()) PrintLine(text);
}

void BatchView::SetFile(const std::string& text) {
  if (text.empty()) return;
  if (Processing()) {
    ShowProgress(text);
  } else {
    PrintLine(text);
  }
}

void BatchView::ShowProgress(const std::string& file_text) {
  if (quiet_) return;
  if (terminal_) {
    // One character short of the width, so that the cursor never wraps to a new line.
    const std::string line = ProgressBarLine(value_, maximum_, file_text, TerminalWidth(out_) - 1);
    std::fprintf(out_, "\r%s\x1b[K", line.c_str());
    bar_shown_ = true;
  } else {
    std::fprintf(out_, "[%d/%d] %s\n", value_, maximum_, file_text.c_str());
  }
  std::fflush(out_);
}

void BatchView::ClearBar() {
  if (!bar_shown_) return;
  std::fputs("\r\x1b[K", out_);
  bar_shown_ = false;
}

void BatchView::PrintLine(const std::string& text) {
  if (quiet_) return;
  ClearBar();
  std::fprintf(out_, "%s\n", text.c_str());
  std::fflush(out_);
}

}  // namespace velmora::app
