// Starting the external viewer on one path without waiting for it: the viewer program beside
// ours when there is one, else the desktop's default application for the file.
#pragma once

#include <QString>
#include <string>

namespace velmora::preview {

// True if the viewer program stands in `program_folder` and can be run.
bool ViewerProgramPresent(const QString& program_folder);

// Starts the viewer on `path`; failures pass unnoticed.
void LaunchViewer(const QString& program_folder, const std::string& path);

}  // namespace velmora::preview
