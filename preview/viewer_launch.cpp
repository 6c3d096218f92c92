// Viewer start through a detached process or the desktop services.
#include "preview/viewer_launch.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "preview/viewer_target.h"

namespace velmora::preview {

bool ViewerProgramPresent(const QString& program_folder) {
  const QFileInfo viewer(program_folder + "/" + kViewerProgramName);
  return viewer.isFile() && viewer.isExecutable();
}

void LaunchViewer(const QString& program_folder, const std::string& path) {
  const QString file = QString::fromStdString(path);
  if (ViewerProgramPresent(program_folder)) {
    QProcess::startDetached(program_folder + "/" + kViewerProgramName, {file});
  } else {
    QDesktopServices::openUrl(QUrl::fromLocalFile(file));
  }
}

}  // namespace velmora::preview
