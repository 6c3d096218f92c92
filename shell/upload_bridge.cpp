// Upload commands: not part of this build yet.
#include "shell/upload_bridge.h"

#include "shell/main_window.h"

namespace velmora::shell {

UploadBridge::UploadBridge(MainWindow* window) : QObject(window), window_(window) {}
UploadBridge::~UploadBridge() = default;
bool UploadBridge::Available() const { return false; }
void UploadBridge::Picasa() {}
void UploadBridge::Ftp() {}
void UploadBridge::CheckUpdates() {}

}  // namespace velmora::shell
